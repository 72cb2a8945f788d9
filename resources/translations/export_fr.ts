<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr">
<context>
    <name>ActionLog</name>
    <message>
        <source>Export start</source>
        <translation>Début d'exportation</translation>
    </message>
    <message>
        <source>Export written</source>
        <translation>Exportation écrite</translation>
    </message>
    <message>
        <source>Export done</source>
        <translation>Exportation terminée</translation>
    </message>
    <message>
        <source>Export abort</source>
        <translation>Exportation interrompue</translation>
    </message>
    <message>
        <source>Export error</source>
        <translation>Erreur d'exportation</translation>
    </message>
    <message>
        <source>Export rename</source>
        <translation>Exportation renommée</translation>
    </message>
    <message>
        <source>Format='%1'; Source='%2'; Date and time from='%4'; Date and time to '%5'; Target='%3'.</source>
        <translation>Format='%1'; Source='%2'; Date et heure de='%4'; Date et heure à '%5'; Cible='%3'.</translation>
    </message>
    <message>
        <source>Format='%1'; Source='%2'; Date and time from='%4'; Date and time to '%5'.%3</source>
        <translation>Format='%1'; Source='%2'; Date et heure de='%4'; Date et heure à '%5'.%3</translation>
    </message>
    <message>
        <source>Format='%1'; Source='%2'; Timestamp='%4'; Target='%3'.</source>
        <translation>Format='%1'; Source='%2'; Horodatage='%4'; Cible='%3'.</translation>
    </message>
    <message>
        <source>Format='%1'; Source='%2'; Timestamp='%4'.%3</source>
        <translation>Format='%1'; Source='%2'; Horodatage='%4'.%3</translation>
    </message>
    <message>
        <source>Format='%1'; Source='%2'; Target='%3'.</source>
        <translation>Format='%1'; Source='%2'; Cible='%3'.</translation>
    </message>
    <message>
        <source>Format='%1'; Source='%2'.</source>
        <translation>Format='%1'; Source='%2'.</translation>
    </message>
    <message>
        <source>'%1%2' to '%1%3'.</source>
        <translation>'%1%2' renommé en '%1%3'.</translation>
    </message>
</context>
<context>
    <name>ExportActionLog</name>
    <message>
        <source>Start</source>
        <translation>Début</translation>
    </message>
    <message>
        <source>Finished</source>
        <translation>Terminé</translation>
    </message>
    <message>
        <source>Abort</source>
        <translation>Interrompu</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Erreur</translation>
    </message>
</context>
<context>
    <name>ExportFormats</name>
    <message>
        <source>Bitmap</source>
        <translation>Bitmap</translation>
    </message>
    <message>
        <source>JPEG</source>
        <translation>JPEG</translation>
    </message>
    <message>
        <source>Strelo clip</source>
        <translation>Clip Strelo</translation>
    </message>
    <message>
        <source>AVI</source>
        <translation>AVI</translation>
    </message>
    <message>
        <source>MP4</source>
        <translation>MP4</translation>
    </message>
    <message>
        <source>MOV</source>
        <translation>MOV</translation>
    </message>
    <message>
        <source>WebM</source>
        <translation>WebM</translation>
    </message>
    <message>
        <source>Matroska</source>
        <translation>Matroska</translation>
    </message>
    <message>
        <source>KORVANE file server storage</source>
        <translation>Stockage sur serveur de fichiers KORVANE</translation>
    </message>
    <message>
        <source>Printer</source>
        <translation>Imprimante</translation>
    </message>
    <message>
        <source>unknown</source>
        <translation>inconnu</translation>
    </message>
</context>
</TS>
