<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>cktool</name>
    <message>
        <source>Saved filter: %1</source>
        <translation>Gespeicherter Filter: %1</translation>
    </message>
    <message>
        <source>  as SQL to bind: %1  with (%2)</source>
        <translation>  als SQL zum Binden: %1  mit (%2)</translation>
    </message>
    <message>
        <source>Action log filter: %1</source>
        <translation>Filter für das Aktionsprotokoll: %1</translation>
    </message>
    <message>
        <source>  %1 of %2 entries shown:</source>
        <translation>  %1 von %2 Einträgen angezeigt:</translation>
    </message>
    <message>
        <source>Filters as text: saved, parsed and applied</source>
        <translation>Filter als Text: gespeichert, gelesen und angewandt</translation>
    </message>
    <message>
        <source>Shows the entries of an action log file, one line each: time, user, category, title and description. Other actions: append, finalize, stats (see commonkit log append --help).</source>
        <translation>Zeigt die Einträge einer Aktionsprotokolldatei, je eine Zeile: Zeit, Benutzer, Kategorie, Titel und Beschreibung. Weitere Aktionen: append, finalize, stats (siehe commonkit log append --help).</translation>
    </message>
    <message>
        <source>Show only the entries the filter accepts (see docs/filter-language.md).</source>
        <translation>Nur die Einträge zeigen, die der Filter annimmt (siehe docs/filter-language.md).</translation>
    </message>
    <message>
        <source>Output: text (default), json (one object per line), csv or xml.</source>
        <translation>Ausgabe: text (Standard), json (ein Objekt je Zeile), csv oder xml.</translation>
    </message>
    <message>
        <source>log: unknown action '%1' (use show, append, finalize or stats)</source>
        <translation>log: unbekannte Aktion '%1' (show, append, finalize oder stats verwenden)</translation>
    </message>
    <message>
        <source>log: --where: %1</source>
        <translation>log: --where: %1</translation>
    </message>
    <message>
        <source>log: --format must be text, json, csv or xml, not '%1'</source>
        <translation>log: --format muss text, json, csv oder xml sein, nicht '%1'</translation>
    </message>
    <message>
        <source>Counts the entries of an action log file per category, per user and per day.</source>
        <translation>Zählt die Einträge einer Aktionsprotokolldatei je Kategorie, je Benutzer und je Tag.</translation>
    </message>
    <message>
        <source>The action: stats.</source>
        <translation>Die Aktion: stats.</translation>
    </message>
    <message>
        <source>Count only the entries the filter accepts (see docs/filter-language.md).</source>
        <translation>Nur die Einträge zählen, die der Filter annimmt (siehe docs/filter-language.md).</translation>
    </message>
    <message>
        <source>Per category:</source>
        <translation>Je Kategorie:</translation>
    </message>
    <message>
        <source>Per user:</source>
        <translation>Je Benutzer:</translation>
    </message>
    <message>
        <source>Per day:</source>
        <translation>Je Tag:</translation>
    </message>
</context>
</TS>
