<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>ko::EncryptedSettings</name>
    <message>
        <location filename="../../storage/BorrowedDevice.cpp" line="12"/>
        <source>The settings device is not open for this direction.</source>
        <translation>Das Einstellungsgerät ist für diese Richtung nicht geöffnet.</translation>
    </message>
    <message>
        <location filename="../../storage/BorrowedDevice.cpp" line="13"/>
        <source>The settings device is not open.</source>
        <translation>Das Einstellungsgerät ist nicht geöffnet.</translation>
    </message>
</context>
</TS>
