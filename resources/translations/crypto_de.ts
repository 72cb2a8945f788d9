<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>ko::crypto::ClippedIODevice</name>
    <message>
        <location filename="../../support/crypto/ClippedIODevice.cpp" line="+27"/>
        <source>The device is already open.</source>
        <translation>Das Gerät ist bereits geöffnet.</translation>
    </message>
    <message>
        <location line="+4"/>
        <source>There is no device to read from.</source>
        <translation>Es gibt kein Gerät zum Lesen.</translation>
    </message>
    <message>
        <location line="+4"/>
        <source>The clipping device is read-only.</source>
        <translation>Das begrenzende Gerät kann nur gelesen werden.</translation>
    </message>
    <message>
        <location line="+9"/>
        <source>The wrapped device is not open for reading.</source>
        <translation>Das umhüllte Gerät ist nicht zum Lesen geöffnet.</translation>
    </message>
</context>
<context>
    <name>ko::crypto::DigestingIODevice</name>
    <message>
        <location filename="../../support/crypto/DigestingIODevice.cpp" line="+23"/>
        <source>The device is already open.</source>
        <translation>Das Gerät ist bereits geöffnet.</translation>
    </message>
    <message>
        <location line="+4"/>
        <source>There is no device to read from or write to.</source>
        <translation>Es gibt kein Gerät zum Lesen oder Schreiben.</translation>
    </message>
    <message>
        <location line="+4"/>
        <source>Unknown digest algorithm.</source>
        <translation>Unbekannter Hash-Algorithmus.</translation>
    </message>
    <message>
        <location line="+10"/>
        <source>The wrapped device is not open for this direction.</source>
        <translation>Das umhüllte Gerät ist nicht für diese Richtung geöffnet.</translation>
    </message>
</context>
<context>
    <name>ko::crypto::IODevice</name>
    <message>
        <location filename="../../support/crypto/IODevice.cpp" line="+135"/>
        <source>The device is already open.</source>
        <translation>Das Gerät ist bereits geöffnet.</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>The encrypting device is opened either for reading or for writing.</source>
        <translation>Das Verschlüsselungsgerät wird entweder zum Lesen oder zum Schreiben geöffnet.</translation>
    </message>
    <message>
        <location line="+4"/>
        <source>There is no device to read from or write to.</source>
        <translation>Es gibt kein Gerät zum Lesen oder Schreiben.</translation>
    </message>
    <message>
        <location line="+10"/>
        <source>The wrapped device is not open for this direction.</source>
        <translation>Das umhüllte Gerät ist nicht für diese Richtung geöffnet.</translation>
    </message>
    <message>
        <location line="+17"/>
        <location line="+144"/>
        <source>Cannot set up the stream key.</source>
        <translation>Der Schlüssel des Datenstroms kann nicht eingerichtet werden.</translation>
    </message>
    <message>
        <location line="-50"/>
        <source>Encryption failed.</source>
        <translation>Die Verschlüsselung ist fehlgeschlagen.</translation>
    </message>
    <message>
        <location line="+10"/>
        <source>Cannot write the encrypted stream: %1</source>
        <translation>Der verschlüsselte Datenstrom kann nicht geschrieben werden: %1</translation>
    </message>
    <message>
        <location line="+14"/>
        <source>Cannot read the encrypted stream: %1</source>
        <translation>Der verschlüsselte Datenstrom kann nicht gelesen werden: %1</translation>
    </message>
    <message>
        <location line="+17"/>
        <location line="+45"/>
        <location line="+12"/>
        <source>The encrypted stream ends before its last chunk.</source>
        <translation>Der verschlüsselte Datenstrom endet vor seinem letzten Block.</translation>
    </message>
    <message>
        <location line="-53"/>
        <source>The stream is not encrypted in a known format (version %1).</source>
        <translation>Der Datenstrom ist nicht in einem bekannten Format verschlüsselt (Version %1).</translation>
    </message>
    <message>
        <location line="+55"/>
        <source>Decryption failed at chunk %1: wrong key, or the stream was changed or cut.</source>
        <translation>Entschlüsselung in Block %1 fehlgeschlagen: falscher Schlüssel, oder der Datenstrom wurde verändert oder gekürzt.</translation>
    </message>
</context>
<context>
    <name>ko::ZlibDevice</name>
    <message>
        <location filename="../../support/compression/ZlibDevice.cpp" line="+46"/>
        <source>The device is already open.</source>
        <translation>Das Gerät ist bereits geöffnet.</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>The compression device is opened either for reading or for writing.</source>
        <translation>Das Komprimierungsgerät wird entweder zum Lesen oder zum Schreiben geöffnet.</translation>
    </message>
    <message>
        <location line="+4"/>
        <source>There is no device to read from or write to.</source>
        <translation>Es gibt kein Gerät zum Lesen oder Schreiben.</translation>
    </message>
    <message>
        <location line="+4"/>
        <source>Invalid compression level %1.</source>
        <translation>Ungültige Kompressionsstufe %1.</translation>
    </message>
    <message>
        <location line="+10"/>
        <source>The wrapped device is not open for this direction.</source>
        <translation>Das umhüllte Gerät ist nicht für diese Richtung geöffnet.</translation>
    </message>
    <message>
        <location line="+8"/>
        <source>Cannot start the zlib stream (%1).</source>
        <translation>Der zlib-Datenstrom kann nicht gestartet werden (%1).</translation>
    </message>
    <message>
        <location line="+86"/>
        <source>Cannot read the compressed stream: %1</source>
        <translation>Der komprimierte Datenstrom kann nicht gelesen werden: %1</translation>
    </message>
    <message>
        <location line="+18"/>
        <source>The compressed stream is truncated.</source>
        <translation>Der komprimierte Datenstrom ist unvollständig.</translation>
    </message>
    <message>
        <location line="+4"/>
        <source>The compressed stream is damaged: %1</source>
        <translation>Der komprimierte Datenstrom ist beschädigt: %1</translation>
    </message>
    <message>
        <location filename="../../support/compression/ZlibDevice.cpp" line="151"/>
        <source>The compressed stream is followed by other data.</source>
        <translation>Auf den komprimierten Datenstrom folgen weitere Daten.</translation>
    </message>
    <message>
        <location line="+32"/>
        <source>Compression failed.</source>
        <translation>Die Komprimierung ist fehlgeschlagen.</translation>
    </message>
    <message>
        <location line="+9"/>
        <source>Cannot write the compressed stream: %1</source>
        <translation>Der komprimierte Datenstrom kann nicht geschrieben werden: %1</translation>
    </message>
</context>
</TS>
