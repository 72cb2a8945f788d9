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
<context>
    <name>ko::crypto::RSAKeyPair</name>
    <message>
        <source>the PEM text</source>
        <translation>le texte PEM</translation>
    </message>
    <message>
        <source>Cannot set up the PEM decoder</source>
        <translation>Impossible de préparer le décodeur PEM</translation>
    </message>
    <message>
        <source>No RSA key in %1</source>
        <translation>Aucune clé RSA dans %1</translation>
    </message>
    <message>
        <source>Cannot open the key file %1: %2</source>
        <translation>Impossible d'ouvrir le fichier de clé %1 : %2</translation>
    </message>
    <message>
        <source>Cannot read the key file %1: %2</source>
        <translation>Impossible de lire le fichier de clé %1 : %2</translation>
    </message>
    <message>
        <source>The key file %1 is larger than 1 MiB</source>
        <translation>Le fichier de clé %1 dépasse 1 Mio</translation>
    </message>
    <message>
        <source>An RSA key needs at least 1024 bits, not %1</source>
        <translation>Une clé RSA demande au moins 1024 bits, et non %1</translation>
    </message>
    <message>
        <source>Generating the RSA key failed</source>
        <translation>La génération de la clé RSA a échoué</translation>
    </message>
    <message>
        <source>Cannot write the private key as PEM text</source>
        <translation>Impossible d'écrire la clé privée en texte PEM</translation>
    </message>
    <message>
        <source>Cannot write the public key as PEM text</source>
        <translation>Impossible d'écrire la clé publique en texte PEM</translation>
    </message>
    <message>
        <source>There is no private key to save</source>
        <translation>Aucune clé privée à enregistrer</translation>
    </message>
    <message>
        <source>There is no key to save</source>
        <translation>Aucune clé à enregistrer</translation>
    </message>
    <message>
        <source>Cannot write the key file %1: %2</source>
        <translation>Impossible d'écrire le fichier de clé %1 : %2</translation>
    </message>
    <message>
        <source>There is no private key to sign with</source>
        <translation>Aucune clé privée pour signer</translation>
    </message>
    <message>
        <source>The digest does not match a known algorithm</source>
        <translation>L'empreinte ne correspond à aucun algorithme connu</translation>
    </message>
    <message>
        <source>Signing failed</source>
        <translation>La signature a échoué</translation>
    </message>
    <message>
        <source>There is no public key to check the signature with</source>
        <translation>Aucune clé publique pour vérifier la signature</translation>
    </message>
    <message>
        <source>The signature is not Base64 text</source>
        <translation>La signature n'est pas du texte Base64</translation>
    </message>
    <message>
        <source>The signature does not match the digest</source>
        <translation>La signature ne correspond pas à l'empreinte</translation>
    </message>
</context>
</TS>
