<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr_FR">
<context>
    <name>ko::EncryptedSettings</name>
    <message>
        <location filename="../../storage/BorrowedDevice.cpp" line="12"/>
        <source>The settings device is not open for this direction.</source>
        <translation>Le périphérique des paramètres n’est pas ouvert dans ce sens.</translation>
    </message>
    <message>
        <location filename="../../storage/BorrowedDevice.cpp" line="13"/>
        <source>The settings device is not open.</source>
        <translation>Le périphérique des paramètres n’est pas ouvert.</translation>
    </message>
</context>
</TS>
