<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr">
<context>
    <name>ActionLog</name>
    <message>
        <source>Could not write file '%1': %2</source>
        <translation>Impossible d'écrire le fichier '%1' : %2</translation>
    </message>
    <message>
        <source>ActionLog</source>
        <translation>Journal des actions</translation>
    </message>
    <message>
        <source>Error reading log file '%1'; Line '%2'; Column '%3'</source>
        <translation>Erreur de lecture du fichier journal '%1' ; ligne '%2' ; colonne '%3'</translation>
    </message>
    <message>
        <source>Could not open file '%1'</source>
        <translation>Impossible d'ouvrir le fichier '%1'</translation>
    </message>
    <message>
        <source>Action log '%1' invalid header version.</source>
        <translation>Le journal des actions '%1' a une version d'en-tête non valide.</translation>
    </message>
    <message>
        <source>Could not logon user '%1' (error code '%2').
Please check your settings in 'Tools &gt; Options &gt; Logging'!</source>
        <translation>Impossible de connecter l'utilisateur '%1' (code d'erreur '%2').
Veuillez vérifier vos paramètres dans 'Outils &gt; Options &gt; Journalisation' !</translation>
    </message>
    <message>
        <source>Switched logging from '%1' to '%2'.</source>
        <translation>Journalisation basculée de '%1' vers '%2'.</translation>
    </message>
    <message>
        <source>Switched log</source>
        <translation>Journal basculé</translation>
    </message>
</context>
<context>
    <name>ko::FileEncrypt</name>
    <message>
        <source>The file does not begin with an XML declaration.</source>
        <translation>Le fichier ne commence pas par une déclaration XML.</translation>
    </message>
</context>
</TS>
