<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>ActionLog</name>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>Access</source>
        <translation>Zugriff</translation>
    </message>
    <message>
        <source>Logon &amp; Logoff</source>
        <translation>Anmeldung &amp; Abmeldung</translation>
    </message>
    <message>
        <source>User &amp; Groups</source>
        <translation>Benutzer &amp; Gruppen</translation>
    </message>
    <message>
        <source>Authorize</source>
        <translation>Autorisierung</translation>
    </message>
    <message>
        <source>Software updates</source>
        <translation>Software-Aktualisierungen</translation>
    </message>
    <message>
        <source>Camera Settings</source>
        <translation>Kameraeinstellungen</translation>
    </message>
    <message>
        <source>Web browser</source>
        <translation>Webbrowser</translation>
    </message>
    <message>
        <source>Network messages</source>
        <translation>Netzwerknachrichten</translation>
    </message>
    <message>
        <source>Softbuttons</source>
        <translation>Softtasten</translation>
    </message>
    <message>
        <source>Formatting</source>
        <translation>Formatierung</translation>
    </message>
    <message>
        <source>Daxil configuration</source>
        <translation>Daxil-Konfiguration</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Layout Manager</source>
        <translation>Layout-Verwaltung</translation>
    </message>
    <message>
        <source>Display scaling</source>
        <translation>Anzeigeskalierung</translation>
    </message>
    <message>
        <source>Context menus</source>
        <translation>Kontextmenüs</translation>
    </message>
    <message>
        <source>Upload Assistant</source>
        <translation>Upload-Assistent</translation>
    </message>
    <message>
        <source>Action log</source>
        <translation>Aktionsprotokoll</translation>
    </message>
    <message>
        <source>Event Search</source>
        <translation>Ereignissuche</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Export</translation>
    </message>
    <message>
        <source>Local archive</source>
        <translation>Lokales Archiv</translation>
    </message>
    <message>
        <source>Video search</source>
        <translation>Videosuche</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Wiedergabe</translation>
    </message>
    <message>
        <source>Viewing</source>
        <translation>Ansicht</translation>
    </message>
    <message>
        <source>Alarm</source>
        <translation>Alarm</translation>
    </message>
    <message>
        <source>Sequencer</source>
        <translation>Sequenzer</translation>
    </message>
    <message>
        <source>Layout</source>
        <translation>Layout</translation>
    </message>
    <message>
        <source>Audio</source>
        <translation>Audio</translation>
    </message>
    <message>
        <source>PTZ</source>
        <translation>PTZ</translation>
    </message>
    <message>
        <source>PTZ post</source>
        <translation>PTZ-Position</translation>
    </message>
    <message>
        <source>PTZ config</source>
        <translation>PTZ-Konfiguration</translation>
    </message>
    <message>
        <source>PTZ post config</source>
        <translation>PTZ-Positionskonfiguration</translation>
    </message>
    <message>
        <source>Signal outs</source>
        <translation>Signalausgänge</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Remote control</source>
        <translation>Fernsteuerung</translation>
    </message>
    <message>
        <source>Devices</source>
        <translation>Geräte</translation>
    </message>
    <message>
        <source>System</source>
        <translation>System</translation>
    </message>
    <message>
        <source>Action log error</source>
        <translation>Aktionsprotokollfehler</translation>
    </message>
    <message>
        <source>Error '%1' reading action log '%2' in line '%3', column '%4'.</source>
        <translation>Fehler '%1' beim Lesen des Aktionsprotokolls '%2' in Zeile '%3', Spalte '%4'.</translation>
    </message>
</context>
</TS>
