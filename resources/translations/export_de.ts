<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>ActionLog</name>
    <message>
        <source>Export start</source>
        <translation>Exportstart</translation>
    </message>
    <message>
        <source>Export written</source>
        <translation>Export geschrieben</translation>
    </message>
    <message>
        <source>Export done</source>
        <translation>Export abgeschlossen</translation>
    </message>
    <message>
        <source>Export abort</source>
        <translation>Export abgebrochen</translation>
    </message>
    <message>
        <source>Export error</source>
        <translation>Exportfehler</translation>
    </message>
    <message>
        <source>Export rename</source>
        <translation>Export umbenannt</translation>
    </message>
    <message>
        <source>Format='%1'; Source='%2'; Date and time from='%4'; Date and time to '%5'; Target='%3'.</source>
        <translation>Format='%1'; Quelle='%2'; Datum und Uhrzeit von='%4'; Datum und Uhrzeit bis '%5'; Ziel='%3'.</translation>
    </message>
    <message>
        <source>Format='%1'; Source='%2'; Date and time from='%4'; Date and time to '%5'.%3</source>
        <translation>Format='%1'; Quelle='%2'; Datum und Uhrzeit von='%4'; Datum und Uhrzeit bis '%5'.%3</translation>
    </message>
    <message>
        <source>Format='%1'; Source='%2'; Timestamp='%4'; Target='%3'.</source>
        <translation>Format='%1'; Quelle='%2'; Zeitstempel='%4'; Ziel='%3'.</translation>
    </message>
    <message>
        <source>Format='%1'; Source='%2'; Timestamp='%4'.%3</source>
        <translation>Format='%1'; Quelle='%2'; Zeitstempel='%4'.%3</translation>
    </message>
    <message>
        <source>Format='%1'; Source='%2'; Target='%3'.</source>
        <translation>Format='%1'; Quelle='%2'; Ziel='%3'.</translation>
    </message>
    <message>
        <source>Format='%1'; Source='%2'.</source>
        <translation>Format='%1'; Quelle='%2'.</translation>
    </message>
    <message>
        <source>'%1%2' to '%1%3'.</source>
        <translation>'%1%2' umbenannt in '%1%3'.</translation>
    </message>
</context>
<context>
    <name>ExportActionLog</name>
    <message>
        <source>Start</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>Finished</source>
        <translation>Abgeschlossen</translation>
    </message>
    <message>
        <source>Abort</source>
        <translation>Abgebrochen</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
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
        <translation>Strelo-Clip</translation>
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
        <translation>KORVANE-Dateiserver-Speicher</translation>
    </message>
    <message>
        <source>Printer</source>
        <translation>Drucker</translation>
    </message>
    <message>
        <source>unknown</source>
        <translation>unbekannt</translation>
    </message>
</context>
</TS>
