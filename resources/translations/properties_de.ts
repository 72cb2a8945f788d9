<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>QObject</name>
    <message>
        <location filename="../../properties/PropertyValidator.cpp" line="29" />
        <source>Value out of range.</source>
        <translation>Wert außerhalb des zulässigen Bereichs.</translation>
    </message>
</context>
</TS>
