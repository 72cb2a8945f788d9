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
</TS>
