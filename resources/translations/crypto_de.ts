<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>ko::crypto::ClippedIODevice</name>
    <message>
        <source>The clipping device is read-only.</source>
        <translation>Das begrenzende Gerät kann nur gelesen werden.</translation>
    </message>
</context>
<context>
    <name>ko::crypto::DigestingIODevice</name>
    <message>
        <source>Unknown digest algorithm.</source>
        <translation>Unbekannter Hash-Algorithmus.</translation>
    </message>
</context>
<context>
    <name>ko::crypto::IODevice</name>
    <message>
        <source>The encrypting device is opened either for reading or for writing.</source>
        <translation>Das Verschlüsselungsgerät wird entweder zum Lesen oder zum Schreiben geöffnet.</translation>
    </message>
    <message>
        <source>Cannot set up the stream key.</source>
        <translation>Der Schlüssel des Datenstroms kann nicht eingerichtet werden.</translation>
    </message>
    <message>
        <source>Encryption failed.</source>
        <translation>Die Verschlüsselung ist fehlgeschlagen.</translation>
    </message>
    <message>
        <source>Cannot write the encrypted stream: %1</source>
        <translation>Der verschlüsselte Datenstrom kann nicht geschrieben werden: %1</translation>
    </message>
    <message>
        <source>Cannot read the encrypted stream: %1</source>
        <translation>Der verschlüsselte Datenstrom kann nicht gelesen werden: %1</translation>
    </message>
    <message>
        <source>The encrypted stream ends before its last chunk.</source>
        <translation>Der verschlüsselte Datenstrom endet vor seinem letzten Block.</translation>
    </message>
    <message>
        <source>The stream is not encrypted in a known format (version %1).</source>
        <translation>Der Datenstrom ist nicht in einem bekannten Format verschlüsselt (Version %1).</translation>
    </message>
    <message>
        <source>Decryption failed at chunk %1: wrong key, or the stream was changed or cut.</source>
        <translation>Entschlüsselung in Block %1 fehlgeschlagen: falscher Schlüssel, oder der Datenstrom wurde verändert oder gekürzt.</translation>
    </message>
</context>
<context>
    <name>ko::ZlibDevice</name>
    <message>
        <source>The compression device is opened either for reading or for writing.</source>
        <translation>Das Komprimierungsgerät wird entweder zum Lesen oder zum Schreiben geöffnet.</translation>
    </message>
    <message>
        <source>Invalid compression level %1.</source>
        <translation>Ungültige Kompressionsstufe %1.</translation>
    </message>
    <message>
        <source>Cannot start the zlib stream (%1).</source>
        <translation>Der zlib-Datenstrom kann nicht gestartet werden (%1).</translation>
    </message>
    <message>
        <source>Cannot read the compressed stream: %1</source>
        <translation>Der komprimierte Datenstrom kann nicht gelesen werden: %1</translation>
    </message>
    <message>
        <source>The compressed stream is truncated.</source>
        <translation>Der komprimierte Datenstrom ist unvollständig.</translation>
    </message>
    <message>
        <source>The compressed stream is damaged: %1</source>
        <translation>Der komprimierte Datenstrom ist beschädigt: %1</translation>
    </message>
    <message>
        <source>The compressed stream is followed by other data.</source>
        <translation>Auf den komprimierten Datenstrom folgen weitere Daten.</translation>
    </message>
    <message>
        <source>Compression failed.</source>
        <translation>Die Komprimierung ist fehlgeschlagen.</translation>
    </message>
    <message>
        <source>Cannot write the compressed stream: %1</source>
        <translation>Der komprimierte Datenstrom kann nicht geschrieben werden: %1</translation>
    </message>
</context>
<context>
    <name>ko::WrappedDevice</name>
    <message>
        <source>The device is already open.</source>
        <translation>Das Gerät ist bereits geöffnet.</translation>
    </message>
    <message>
        <source>There is no device to read from or write to.</source>
        <translation>Es gibt kein Gerät zum Lesen oder Schreiben.</translation>
    </message>
    <message>
        <source>The wrapped device is not open for this direction.</source>
        <translation>Das umhüllte Gerät ist nicht für diese Richtung geöffnet.</translation>
    </message>
</context>
<context>
    <name>ko::crypto::RSAKeyPair</name>
    <message>
        <source>the PEM text</source>
        <translation>dem PEM-Text</translation>
    </message>
    <message>
        <source>Cannot set up the PEM decoder</source>
        <translation>Der PEM-Decoder kann nicht eingerichtet werden</translation>
    </message>
    <message>
        <source>No RSA key in %1</source>
        <translation>Kein RSA-Schlüssel in %1</translation>
    </message>
    <message>
        <source>Cannot open the key file %1: %2</source>
        <translation>Die Schlüsseldatei %1 kann nicht geöffnet werden: %2</translation>
    </message>
    <message>
        <source>Cannot read the key file %1: %2</source>
        <translation>Die Schlüsseldatei %1 kann nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>The key file %1 is larger than 1 MiB</source>
        <translation>Die Schlüsseldatei %1 ist größer als 1 MiB</translation>
    </message>
    <message>
        <source>An RSA key needs at least 1024 bits, not %1</source>
        <translation>Ein RSA-Schlüssel braucht mindestens 1024 Bit, nicht %1</translation>
    </message>
    <message>
        <source>Generating the RSA key failed</source>
        <translation>Das Erzeugen des RSA-Schlüssels ist fehlgeschlagen</translation>
    </message>
    <message>
        <source>Cannot write the private key as PEM text</source>
        <translation>Der private Schlüssel kann nicht als PEM-Text geschrieben werden</translation>
    </message>
    <message>
        <source>Cannot write the public key as PEM text</source>
        <translation>Der öffentliche Schlüssel kann nicht als PEM-Text geschrieben werden</translation>
    </message>
    <message>
        <source>There is no private key to save</source>
        <translation>Es gibt keinen privaten Schlüssel zum Speichern</translation>
    </message>
    <message>
        <source>There is no key to save</source>
        <translation>Es gibt keinen Schlüssel zum Speichern</translation>
    </message>
    <message>
        <source>Cannot write the key file %1: %2</source>
        <translation>Die Schlüsseldatei %1 kann nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>There is no private key to sign with</source>
        <translation>Es gibt keinen privaten Schlüssel zum Signieren</translation>
    </message>
    <message>
        <source>The digest does not match a known algorithm</source>
        <translation>Der Hashwert passt zu keinem bekannten Algorithmus</translation>
    </message>
    <message>
        <source>Signing failed</source>
        <translation>Das Signieren ist fehlgeschlagen</translation>
    </message>
    <message>
        <source>There is no public key to check the signature with</source>
        <translation>Es gibt keinen öffentlichen Schlüssel zum Prüfen der Signatur</translation>
    </message>
    <message>
        <source>The signature is not Base64 text</source>
        <translation>Die Signatur ist kein Base64-Text</translation>
    </message>
    <message>
        <source>The signature does not match the digest</source>
        <translation>Die Signatur passt nicht zum Hashwert</translation>
    </message>
</context>
</TS>
