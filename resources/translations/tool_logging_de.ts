<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>cktool</name>
    <message>
        <source>The action: show.</source>
        <translation>Die Aktion: show.</translation>
    </message>
    <message>
        <source>The action log file (live or closed).</source>
        <translation>Die Aktionsprotokolldatei (laufend oder abgeschlossen).</translation>
    </message>
    <message>
        <source>Write the entries as a closed action log document instead.</source>
        <translation>Stattdessen die Einträge als abgeschlossenes Aktionsprotokoll-Dokument ausgeben.</translation>
    </message>
    <message>
        <source>log: cannot open '%1': %2</source>
        <translation>log: kann '%1' nicht öffnen: %2</translation>
    </message>
    <message>
        <source>note: %1 entries of kinds unknown to this program were skipped</source>
        <translation>Hinweis: %1 Einträge von Arten, die dieses Programm nicht kennt, wurden übersprungen</translation>
    </message>
    <message>
        <source>log: %1: malformed at line %2, column %3: %4</source>
        <translation>log: %1: fehlerhaft in Zeile %2, Spalte %3: %4</translation>
    </message>
    <message>
        <source>Show the entries of an action log file</source>
        <translation>Die Einträge einer Aktionsprotokolldatei zeigen</translation>
    </message>
    <message>
        <source>Camera '%1' shown on monitor %2.</source>
        <translation>Kamera '%1' auf Monitor %2 angezeigt.</translation>
    </message>
    <message>
        <source>Camera shown</source>
        <translation>Kamera angezeigt</translation>
    </message>
    <message>
        <source>Wrote %1 entries to %2 (%3 bytes, one line, no closing tag):</source>
        <translation>%1 Einträge nach %2 geschrieben (%3 Bytes, eine Zeile, kein schließendes Tag):</translation>
    </message>
    <message>
        <source>Read back %1 entries:</source>
        <translation>%1 Einträge zurückgelesen:</translation>
    </message>
    <message>
        <source>Cut 10 bytes short: %1 complete entries, no error.</source>
        <translation>Um 10 Bytes gekürzt: %1 vollständige Einträge, kein Fehler.</translation>
    </message>
    <message>
        <source>With a stray end tag: %1 entries, then:</source>
        <translation>Mit einem verirrten End-Tag: %1 Einträge, dann:</translation>
    </message>
    <message>
        <source>Action log entries</source>
        <translation>Einträge des Aktionsprotokolls</translation>
    </message>
</context>
</TS>
