<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr">
<!-- The texts of the command-line parser that every subcommand uses for its help and
     its option errors. -->
<context>
    <name>QCommandLineParser</name>
    <message>
        <source>Displays help on commandline options.</source>
        <translation>Affiche l'aide sur les options de la ligne de commande.</translation>
    </message>
    <message>
        <source>Displays help including Qt specific options.</source>
        <translation>Affiche l'aide, options propres à Qt comprises.</translation>
    </message>
    <message>
        <source>Displays version information.</source>
        <translation>Affiche les informations de version.</translation>
    </message>
    <message>
        <source>Usage: %1</source>
        <translation>Usage : %1</translation>
    </message>
    <message>
        <source>[options]</source>
        <translation>[options]</translation>
    </message>
    <message>
        <source>Options:</source>
        <translation>Options :</translation>
    </message>
    <message>
        <source>Arguments:</source>
        <translation>Arguments :</translation>
    </message>
    <message>
        <source>Unknown option '%1'.</source>
        <translation>Option inconnue « %1 ».</translation>
    </message>
    <message>
        <source>Unknown options: %1.</source>
        <translation>Options inconnues : %1.</translation>
    </message>
    <message>
        <source>Missing value after '%1'.</source>
        <translation>Valeur manquante après « %1 ».</translation>
    </message>
    <message>
        <source>Unexpected value after '%1'.</source>
        <translation>Valeur inattendue après « %1 ».</translation>
    </message>
</context>
</TS>
