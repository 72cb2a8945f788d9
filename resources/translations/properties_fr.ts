<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr">
<context>
    <name>QObject</name>
    <message>
        <location filename="../../properties/PropertyValidator.cpp" line="29" />
        <source>Value out of range.</source>
        <translation>Valeur hors de la plage autorisée.</translation>
    </message>
</context>
</TS>
