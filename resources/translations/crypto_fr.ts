<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr_FR">
<context>
    <name>ko::crypto::ClippedIODevice</name>
    <message>
        <source>The clipping device is read-only.</source>
        <translation>Le périphérique de découpe est en lecture seule.</translation>
    </message>
</context>
<context>
    <name>ko::crypto::DigestingIODevice</name>
    <message>
        <source>Unknown digest algorithm.</source>
        <translation>Algorithme de hachage inconnu.</translation>
    </message>
</context>
<context>
    <name>ko::crypto::IODevice</name>
    <message>
        <source>The encrypting device is opened either for reading or for writing.</source>
        <translation>Le périphérique de chiffrement s'ouvre soit en lecture, soit en écriture.</translation>
    </message>
    <message>
        <source>Cannot set up the stream key.</source>
        <translation>Impossible de préparer la clé du flux.</translation>
    </message>
    <message>
        <source>Encryption failed.</source>
        <translation>Le chiffrement a échoué.</translation>
    </message>
    <message>
        <source>Cannot write the encrypted stream: %1</source>
        <translation>Impossible d'écrire le flux chiffré : %1</translation>
    </message>
    <message>
        <source>Cannot read the encrypted stream: %1</source>
        <translation>Impossible de lire le flux chiffré : %1</translation>
    </message>
    <message>
        <source>The encrypted stream ends before its last chunk.</source>
        <translation>Le flux chiffré se termine avant son dernier bloc.</translation>
    </message>
    <message>
        <source>The stream is not encrypted in a known format (version %1).</source>
        <translation>Le flux n'est pas chiffré dans un format connu (version %1).</translation>
    </message>
    <message>
        <source>Decryption failed at chunk %1: wrong key, or the stream was changed or cut.</source>
        <translation>Échec du déchiffrement au bloc %1 : clé incorrecte, ou flux modifié ou tronqué.</translation>
    </message>
</context>
<context>
    <name>ko::ZlibDevice</name>
    <message>
        <source>The compression device is opened either for reading or for writing.</source>
        <translation>Le périphérique de compression s'ouvre soit en lecture, soit en écriture.</translation>
    </message>
    <message>
        <source>Invalid compression level %1.</source>
        <translation>Niveau de compression %1 non valide.</translation>
    </message>
    <message>
        <source>Cannot start the zlib stream (%1).</source>
        <translation>Impossible de démarrer le flux zlib (%1).</translation>
    </message>
    <message>
        <source>Cannot read the compressed stream: %1</source>
        <translation>Impossible de lire le flux compressé : %1</translation>
    </message>
    <message>
        <source>The compressed stream is truncated.</source>
        <translation>Le flux compressé est tronqué.</translation>
    </message>
    <message>
        <source>The compressed stream is damaged: %1</source>
        <translation>Le flux compressé est endommagé : %1</translation>
    </message>
    <message>
        <source>The compressed stream is followed by other data.</source>
        <translation>Le flux compressé est suivi d&apos;autres données.</translation>
    </message>
    <message>
        <source>Compression failed.</source>
        <translation>La compression a échoué.</translation>
    </message>
    <message>
        <source>Cannot write the compressed stream: %1</source>
        <translation>Impossible d'écrire le flux compressé : %1</translation>
    </message>
</context>
<context>
    <name>ko::WrappedDevice</name>
    <message>
        <source>The device is already open.</source>
        <translation>Le périphérique est déjà ouvert.</translation>
    </message>
    <message>
        <source>There is no device to read from or write to.</source>
        <translation>Aucun périphérique où lire ou écrire.</translation>
    </message>
    <message>
        <source>The wrapped device is not open for this direction.</source>
        <translation>Le périphérique sous-jacent n'est pas ouvert dans ce sens.</translation>
    </message>
</context>
</TS>
