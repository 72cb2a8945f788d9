<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<!-- The texts of the command-line parser that every subcommand uses for its help and
     its option errors. -->
<context>
    <name>QCommandLineParser</name>
    <message>
        <source>Displays help on commandline options.</source>
        <translation>Zeigt die Hilfe zu den Befehlszeilenoptionen an.</translation>
    </message>
    <message>
        <source>Displays help including Qt specific options.</source>
        <translation>Zeigt die Hilfe einschließlich der Qt-eigenen Optionen an.</translation>
    </message>
    <message>
        <source>Displays version information.</source>
        <translation>Zeigt die Versionsangabe an.</translation>
    </message>
    <message>
        <source>Usage: %1</source>
        <translation>Aufruf: %1</translation>
    </message>
    <message>
        <source>[options]</source>
        <translation>[Optionen]</translation>
    </message>
    <message>
        <source>Options:</source>
        <translation>Optionen:</translation>
    </message>
    <message>
        <source>Arguments:</source>
        <translation>Argumente:</translation>
    </message>
    <message>
        <source>Unknown option '%1'.</source>
        <translation>Unbekannte Option '%1'.</translation>
    </message>
    <message>
        <source>Unknown options: %1.</source>
        <translation>Unbekannte Optionen: %1.</translation>
    </message>
    <message>
        <source>Missing value after '%1'.</source>
        <translation>Fehlender Wert nach '%1'.</translation>
    </message>
    <message>
        <source>Unexpected value after '%1'.</source>
        <translation>Unerwarteter Wert nach '%1'.</translation>
    </message>
</context>
</TS>
