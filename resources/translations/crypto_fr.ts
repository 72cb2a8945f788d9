<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr_FR">
<context>
    <name>ko::crypto::ClippedIODevice</name>
    <message>
        <location filename="../../support/crypto/ClippedIODevice.cpp" line="+27"/>
        <source>The device is already open.</source>
        <translation>Le périphérique est déjà ouvert.</translation>
    </message>
    <message>
        <location line="+4"/>
        <source>There is no device to read from.</source>
        <translation>Aucun périphérique où lire.</translation>
    </message>
    <message>
        <location line="+4"/>
        <source>The clipping device is read-only.</source>
        <translation>Le périphérique de découpe est en lecture seule.</translation>
    </message>
    <message>
        <location line="+9"/>
        <source>The wrapped device is not open for reading.</source>
        <translation>Le périphérique sous-jacent n'est pas ouvert en lecture.</translation>
    </message>
</context>
<context>
    <name>ko::crypto::DigestingIODevice</name>
    <message>
        <location filename="../../support/crypto/DigestingIODevice.cpp" line="+23"/>
        <source>The device is already open.</source>
        <translation>Le périphérique est déjà ouvert.</translation>
    </message>
    <message>
        <location line="+4"/>
        <source>There is no device to read from or write to.</source>
        <translation>Aucun périphérique où lire ou écrire.</translation>
    </message>
    <message>
        <location line="+4"/>
        <source>Unknown digest algorithm.</source>
        <translation>Algorithme de hachage inconnu.</translation>
    </message>
    <message>
        <location line="+10"/>
        <source>The wrapped device is not open for this direction.</source>
        <translation>Le périphérique sous-jacent n'est pas ouvert dans ce sens.</translation>
    </message>
</context>
<context>
    <name>ko::crypto::IODevice</name>
    <message>
        <location filename="../../support/crypto/IODevice.cpp" line="+135"/>
        <source>The device is already open.</source>
        <translation>Le périphérique est déjà ouvert.</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>The encrypting device is opened either for reading or for writing.</source>
        <translation>Le périphérique de chiffrement s'ouvre soit en lecture, soit en écriture.</translation>
    </message>
    <message>
        <location line="+4"/>
        <source>There is no device to read from or write to.</source>
        <translation>Aucun périphérique où lire ou écrire.</translation>
    </message>
    <message>
        <location line="+10"/>
        <source>The wrapped device is not open for this direction.</source>
        <translation>Le périphérique sous-jacent n'est pas ouvert dans ce sens.</translation>
    </message>
    <message>
        <location line="+17"/>
        <location line="+144"/>
        <source>Cannot set up the stream key.</source>
        <translation>Impossible de préparer la clé du flux.</translation>
    </message>
    <message>
        <location line="-50"/>
        <source>Encryption failed.</source>
        <translation>Le chiffrement a échoué.</translation>
    </message>
    <message>
        <location line="+10"/>
        <source>Cannot write the encrypted stream: %1</source>
        <translation>Impossible d'écrire le flux chiffré : %1</translation>
    </message>
    <message>
        <location line="+14"/>
        <source>Cannot read the encrypted stream: %1</source>
        <translation>Impossible de lire le flux chiffré : %1</translation>
    </message>
    <message>
        <location line="+17"/>
        <location line="+45"/>
        <location line="+12"/>
        <source>The encrypted stream ends before its last chunk.</source>
        <translation>Le flux chiffré se termine avant son dernier bloc.</translation>
    </message>
    <message>
        <location line="-53"/>
        <source>The stream is not encrypted in a known format (version %1).</source>
        <translation>Le flux n'est pas chiffré dans un format connu (version %1).</translation>
    </message>
    <message>
        <location line="+55"/>
        <source>Decryption failed at chunk %1: wrong key, or the stream was changed or cut.</source>
        <translation>Échec du déchiffrement au bloc %1 : clé incorrecte, ou flux modifié ou tronqué.</translation>
    </message>
</context>
<context>
    <name>ko::ZlibDevice</name>
    <message>
        <location filename="../../support/compression/ZlibDevice.cpp" line="+46"/>
        <source>The device is already open.</source>
        <translation>Le périphérique est déjà ouvert.</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>The compression device is opened either for reading or for writing.</source>
        <translation>Le périphérique de compression s'ouvre soit en lecture, soit en écriture.</translation>
    </message>
    <message>
        <location line="+4"/>
        <source>There is no device to read from or write to.</source>
        <translation>Aucun périphérique où lire ou écrire.</translation>
    </message>
    <message>
        <location line="+4"/>
        <source>Invalid compression level %1.</source>
        <translation>Niveau de compression %1 non valide.</translation>
    </message>
    <message>
        <location line="+10"/>
        <source>The wrapped device is not open for this direction.</source>
        <translation>Le périphérique sous-jacent n'est pas ouvert dans ce sens.</translation>
    </message>
    <message>
        <location line="+8"/>
        <source>Cannot start the zlib stream (%1).</source>
        <translation>Impossible de démarrer le flux zlib (%1).</translation>
    </message>
    <message>
        <location line="+86"/>
        <source>Cannot read the compressed stream: %1</source>
        <translation>Impossible de lire le flux compressé : %1</translation>
    </message>
    <message>
        <location line="+18"/>
        <source>The compressed stream is truncated.</source>
        <translation>Le flux compressé est tronqué.</translation>
    </message>
    <message>
        <location line="+4"/>
        <source>The compressed stream is damaged: %1</source>
        <translation>Le flux compressé est endommagé : %1</translation>
    </message>
    <message>
        <location filename="../../support/compression/ZlibDevice.cpp" line="151"/>
        <source>The compressed stream is followed by other data.</source>
        <translation>Le flux compressé est suivi d&apos;autres données.</translation>
    </message>
    <message>
        <location line="+32"/>
        <source>Compression failed.</source>
        <translation>La compression a échoué.</translation>
    </message>
    <message>
        <location line="+9"/>
        <source>Cannot write the compressed stream: %1</source>
        <translation>Impossible d'écrire le flux compressé : %1</translation>
    </message>
</context>
</TS>
