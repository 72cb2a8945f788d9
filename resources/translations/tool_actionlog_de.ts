<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>cktool</name>
    <message>
        <source>errorXml: %1 (line %2, column %3)</source>
        <translation>errorXml: %1 (Zeile %2, Spalte %3)</translation>
    </message>
    <message>
        <source>errorFile: %1 (type %2)</source>
        <translation>errorFile: %1 (Typ %2)</translation>
    </message>
    <message>
        <source>Default file: %1</source>
        <translation>Standarddatei: %1</translation>
    </message>
    <message>
        <source>Three export records:</source>
        <translation>Drei Exporteinträge:</translation>
    </message>
    <message>
        <source>Size rollover after %1 entries; the log now holds %2.</source>
        <translation>Dateiwechsel nach Größe nach %1 Einträgen; das Protokoll enthält jetzt %2.</translation>
    </message>
    <message>
        <source>Switched to other.kol:</source>
        <translation>Umgeschaltet auf other.kol:</translation>
    </message>
    <message>
        <source>Files:</source>
        <translation>Dateien:</translation>
    </message>
    <message>
        <source>%1 entries</source>
        <translation>%1 Einträge</translation>
    </message>
    <message>
        <source>Action log: export records, rollover, switching, recovery</source>
        <translation>Aktionsprotokoll: Exporteinträge, Dateiwechsel, Umschalten, Wiederherstellung</translation>
    </message>
    <message>
        <source>log append: --split must be none, daily, weekly, monthly or size:BYTES, not '%1'</source>
        <translation>log append: --split muss none, daily, weekly, monthly oder size:BYTES sein, nicht '%1'</translation>
    </message>
    <message>
        <source>log append: kind '%1' has no value '%2'</source>
        <translation>log append: Art '%1' hat keinen Wert '%2'</translation>
    </message>
    <message>
        <source>Appends one entry to an action log file, with the rollover and recovery of the action log. By default the entry is an export-done entry whose text is TEXT.</source>
        <translation>Hängt einen Eintrag an eine Aktionsprotokolldatei an, mit Dateiwechsel und Wiederherstellung des Aktionsprotokolls. Standardmäßig ist es ein Eintrag "Export fertig" mit dem Text TEXT.</translation>
    </message>
    <message>
        <source>The action: append.</source>
        <translation>Die Aktion: append.</translation>
    </message>
    <message>
        <source>The action log file; created when missing.</source>
        <translation>Die Aktionsprotokolldatei; wird angelegt, wenn sie fehlt.</translation>
    </message>
    <message>
        <source>The entry's text (its value "Text").</source>
        <translation>Der Text des Eintrags (sein Wert "Text").</translation>
    </message>
    <message>
        <source>The four-letter kind of the entry (default ExpD).</source>
        <translation>Die Art des Eintrags in vier Buchstaben (Standard ExpD).</translation>
    </message>
    <message>
        <source>Sets a value of the entry by its id; repeatable.</source>
        <translation>Setzt einen Wert des Eintrags über seine Kennung; wiederholbar.</translation>
    </message>
    <message>
        <source>Rollover: none, daily, weekly, monthly or size:BYTES (default size:1048576).</source>
        <translation>Dateiwechsel: none, daily, weekly, monthly oder size:BYTES (Standard size:1048576).</translation>
    </message>
    <message>
        <source>log append: unknown kind '%1' (known: %2)</source>
        <translation>log append: unbekannte Art '%1' (bekannt: %2)</translation>
    </message>
    <message>
        <source>log append: --value needs ID=TEXT, not '%1'</source>
        <translation>log append: --value erwartet ID=TEXT, nicht '%1'</translation>
    </message>
    <message>
        <source>Closes an action log file for good by appending "&lt;/Entries&gt;"; nothing can be appended to it afterwards.</source>
        <translation>Schließt eine Aktionsprotokolldatei endgültig durch Anhängen von "&lt;/Entries&gt;"; danach kann nichts mehr angehängt werden.</translation>
    </message>
    <message>
        <source>The action: finalize.</source>
        <translation>Die Aktion: finalize.</translation>
    </message>
    <message>
        <source>The action log file.</source>
        <translation>Die Aktionsprotokolldatei.</translation>
    </message>
    <message>
        <source>log finalize: cannot open '%1': %2</source>
        <translation>log finalize: '%1' kann nicht geöffnet werden: %2</translation>
    </message>
    <message>
        <source>log finalize: '%1' is not an action log</source>
        <translation>log finalize: '%1' ist kein Aktionsprotokoll</translation>
    </message>
    <message>
        <source>log finalize: '%1' is already closed</source>
        <translation>log finalize: '%1' ist bereits geschlossen</translation>
    </message>
    <message>
        <source>Keep printing the entries that are appended to the file, until interrupted (like tail -f).</source>
        <translation>Weiter die Einträge ausgeben, die an die Datei angehängt werden, bis zum Abbruch (wie tail -f).</translation>
    </message>
    <message>
        <source>log: --follow and --xml cannot be combined</source>
        <translation>log: --follow und --xml können nicht kombiniert werden</translation>
    </message>
    <message>
        <source>'%1' is not an action log; it was moved aside</source>
        <translation>'%1' ist kein Aktionsprotokoll; die Datei wurde beiseitegelegt</translation>
    </message>
    <message>
        <source>malformed at line %1, column %2: %3; the file is moved aside</source>
        <translation>fehlerhaft in Zeile %1, Spalte %2: %3; die Datei wird beiseitegelegt</translation>
    </message>
    <message>
        <source>logon of '%1' failed with error code %2</source>
        <translation>Anmeldung von '%1' mit Fehlercode %2 fehlgeschlagen</translation>
    </message>
</context>
</TS>
