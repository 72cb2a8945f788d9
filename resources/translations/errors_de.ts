<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>json::Schema</name>
    <message>
        <source>The value does not match the schema: %1</source>
        <translation>Der Wert entspricht nicht dem Schema: %1</translation>
    </message>
    <message>
        <source>The value at %1 does not match the schema: %2</source>
        <translation>Der Wert an %1 entspricht nicht dem Schema: %2</translation>
    </message>
    <message>
        <source>The schema %1 cannot be used: %2</source>
        <translation>Das Schema %1 ist nicht verwendbar: %2</translation>
    </message>
    <message>
        <source>The value cannot be validated: %1</source>
        <translation>Der Wert kann nicht geprüft werden: %1</translation>
    </message>
</context>
<context>
    <name>ActionLog</name>
    <message>
        <source>Could not open file '%1': %2</source>
        <translation>Datei '%1' konnte nicht geöffnet werden: %2</translation>
    </message>
    <message>
        <source>Could not read file '%1': %2 (line %3, column %4)</source>
        <translation>Datei '%1' konnte nicht gelesen werden: %2 (Zeile %3, Spalte %4)</translation>
    </message>
    <message>
        <source>Could not lock file '%1'</source>
        <translation>Datei '%1' konnte nicht gesperrt werden</translation>
    </message>
    <message>
        <source>Could not back up '%1' to '%2': the backup file exists</source>
        <translation>'%1' konnte nicht nach '%2' gesichert werden: die Sicherungsdatei existiert bereits</translation>
    </message>
    <message>
        <source>Could not back up '%1' to '%2': the file is not writable</source>
        <translation>'%1' konnte nicht nach '%2' gesichert werden: die Datei ist nicht beschreibbar</translation>
    </message>
    <message>
        <source>Could not back up '%1' to '%2': %3</source>
        <translation>'%1' konnte nicht nach '%2' gesichert werden: %3</translation>
    </message>
</context>
<context>
    <name>cktool</name>
    <message>
        <source>%1: warning: %2: %3</source>
        <translation>%1: Warnung: %2: %3</translation>
    </message>
    <message>
        <source>log finalize: %1</source>
        <translation>log finalize: %1</translation>
    </message>
</context>
</TS>
