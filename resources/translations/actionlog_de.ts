<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>ActionLog</name>
    <message>
        <source>Could not write file '%1': %2</source>
        <translation>Datei '%1' konnte nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>ActionLog</source>
        <translation>Aktionsprotokoll</translation>
    </message>
    <message>
        <source>Error reading log file '%1'; Line '%2'; Column '%3'</source>
        <translation>Fehler beim Lesen der Protokolldatei '%1'; Zeile '%2'; Spalte '%3'</translation>
    </message>
    <message>
        <source>Could not open file '%1'</source>
        <translation>Datei '%1' konnte nicht geöffnet werden</translation>
    </message>
    <message>
        <source>Action log '%1' invalid header version.</source>
        <translation>Aktionsprotokoll '%1' hat eine ungültige Kopfversion.</translation>
    </message>
    <message>
        <source>Could not logon user '%1' (error code '%2').
Please check your settings in 'Tools &gt; Options &gt; Logging'!</source>
        <translation>Benutzer '%1' konnte nicht angemeldet werden (Fehlercode '%2').
Bitte prüfen Sie Ihre Einstellungen unter 'Extras &gt; Optionen &gt; Protokollierung'!</translation>
    </message>
    <message>
        <source>Switched logging from '%1' to '%2'.</source>
        <translation>Protokollierung von '%1' nach '%2' umgeschaltet.</translation>
    </message>
    <message>
        <source>Switched log</source>
        <translation>Protokoll umgeschaltet</translation>
    </message>
</context>
<context>
    <name>ko::FileEncrypt</name>
    <message>
        <source>The file does not begin with an XML declaration.</source>
        <translation>Die Datei beginnt nicht mit einer XML-Deklaration.</translation>
    </message>
</context>
</TS>
