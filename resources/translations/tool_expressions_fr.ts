<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr">
<context>
    <name>cktool</name>
    <message>
        <source>Expressions</source>
        <translation>Expressions</translation>
    </message>
    <message>
        <source>Filter as code: %1</source>
        <translation>Filtre en code : %1</translation>
    </message>
    <message>
        <source>Filter as SQL: %1</source>
        <translation>Filtre en SQL : %1</translation>
    </message>
    <message>
        <source>  bound values in order: %1</source>
        <translation>  valeurs liées dans l'ordre : %1</translation>
    </message>
    <message>
        <source>  %1 (events %2, zone %3, recording %4): %5</source>
        <translation>  %1 (événements %2, zone %3, enregistrement %4) : %5</translation>
    </message>
    <message>
        <source>yes</source>
        <translation>oui</translation>
    </message>
    <message>
        <source>no</source>
        <translation>non</translation>
    </message>
    <message>
        <source>matches</source>
        <translation>correspond</translation>
    </message>
    <message>
        <source>no match</source>
        <translation>ne correspond pas</translation>
    </message>
    <message>
        <source>Sort list: %1</source>
        <translation>Liste de tri : %1</translation>
    </message>
    <message>
        <source>Function: %1 gives &quot;%2&quot;</source>
        <translation>Fonction : %1 donne « %2 »</translation>
    </message>
    <message>
        <source>Stream: %1 bytes written, read back %2</source>
        <translation>Flux : %1 octets écrits, relus %2</translation>
    </message>
    <message>
        <source>equal</source>
        <translation>identique</translation>
    </message>
    <message>
        <source>different</source>
        <translation>différent</translation>
    </message>
</context>
</TS>
