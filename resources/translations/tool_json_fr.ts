<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr_FR">
<context>
    <name>cktool</name>
    <message>
        <source>cannot read it: %1</source>
        <translation>impossible de le lire : %1</translation>
    </message>
    <message>
        <source>Checks that each file is one JSON document and, with --schema, that it follows the JSON Schema (draft 7). Prints one line per file; the exit code is 1 when any file fails.</source>
        <translation>Vérifie que chaque fichier est un document JSON et, avec --schema, qu'il suit le schéma JSON (draft 7). Affiche une ligne par fichier ; le code de sortie est 1 si un fichier échoue.</translation>
    </message>
    <message>
        <source>JSON files; - reads standard input.</source>
        <translation>Fichiers JSON ; - lit l'entrée standard.</translation>
    </message>
    <message>
        <source>The schema: a file name, or a file: or qrc: URL.</source>
        <translation>Le schéma : un nom de fichier, ou une URL file: ou qrc:.</translation>
    </message>
    <message>
        <source>well-formed</source>
        <translation>bien formé</translation>
    </message>
    <message>
        <source>Prints a JSON document indented by four blanks, or compact.</source>
        <translation>Affiche un document JSON indenté de quatre espaces, ou compact.</translation>
    </message>
    <message>
        <source>A JSON file; - reads standard input.</source>
        <translation>Un fichier JSON ; - lit l'entrée standard.</translation>
    </message>
    <message>
        <source>No blanks and no line breaks.</source>
        <translation>Sans espaces ni sauts de ligne.</translation>
    </message>
    <message>
        <source>json format: %1: %2</source>
        <translation>json format : %1 : %2</translation>
    </message>
    <message>
        <source>Usage: commonkit json &lt;action&gt; [options] [arguments]</source>
        <translation>Utilisation : commonkit json &lt;action&gt; [options] [arguments]</translation>
    </message>
    <message>
        <source>Run 'commonkit json &lt;action&gt; --help' for the options of an action.</source>
        <translation>'commonkit json &lt;action&gt; --help' affiche les options d'une action.</translation>
    </message>
    <message>
        <source>json: give an action: check or format</source>
        <translation>json : indiquez une action : check ou format</translation>
    </message>
    <message>
        <source>json: unknown action '%1' (use check or format)</source>
        <translation>json : action inconnue '%1' (utilisez check ou format)</translation>
    </message>
    <message>
        <source>Check JSON documents against a schema and print them</source>
        <translation>Vérifier des documents JSON selon un schéma et les afficher</translation>
    </message>
</context>
</TS>
