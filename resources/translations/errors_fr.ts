<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr">
<context>
    <name>json::Schema</name>
    <message>
        <source>The value does not match the schema: %1</source>
        <translation>La valeur ne respecte pas le schéma : %1</translation>
    </message>
    <message>
        <source>The value at %1 does not match the schema: %2</source>
        <translation>La valeur à %1 ne respecte pas le schéma : %2</translation>
    </message>
    <message>
        <source>The schema %1 cannot be used: %2</source>
        <translation>Le schéma %1 est inutilisable : %2</translation>
    </message>
    <message>
        <source>The value cannot be validated: %1</source>
        <translation>La valeur ne peut pas être validée : %1</translation>
    </message>
</context>
<context>
    <name>ActionLog</name>
    <message>
        <source>Could not open file '%1': %2</source>
        <translation>Impossible d'ouvrir le fichier '%1' : %2</translation>
    </message>
    <message>
        <source>Could not read file '%1': %2 (line %3, column %4)</source>
        <translation>Impossible de lire le fichier '%1' : %2 (ligne %3, colonne %4)</translation>
    </message>
    <message>
        <source>Could not lock file '%1'</source>
        <translation>Impossible de verrouiller le fichier '%1'</translation>
    </message>
    <message>
        <source>Could not back up '%1' to '%2': the backup file exists</source>
        <translation>Impossible de sauvegarder '%1' vers '%2' : le fichier de sauvegarde existe déjà</translation>
    </message>
    <message>
        <source>Could not back up '%1' to '%2': the file is not writable</source>
        <translation>Impossible de sauvegarder '%1' vers '%2' : le fichier n'est pas accessible en écriture</translation>
    </message>
    <message>
        <source>Could not back up '%1' to '%2': %3</source>
        <translation>Impossible de sauvegarder '%1' vers '%2' : %3</translation>
    </message>
</context>
<context>
    <name>cktool</name>
    <message>
        <source>%1: warning: %2: %3</source>
        <translation>%1 : avertissement : %2 : %3</translation>
    </message>
    <message>
        <source>log finalize: %1</source>
        <translation>log finalize : %1</translation>
    </message>
</context>
</TS>
