<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>cktool</name>
    <message>
        <source>cannot read it: %1</source>
        <translation>kann nicht gelesen werden: %1</translation>
    </message>
    <message>
        <source>Checks that each file is one JSON document and, with --schema, that it follows the JSON Schema (draft 7). Prints one line per file; the exit code is 1 when any file fails.</source>
        <translation>Prüft, ob jede Datei genau ein JSON-Dokument ist und, mit --schema, ob sie dem JSON-Schema (Draft 7) folgt. Gibt eine Zeile je Datei aus; der Exit-Code ist 1, wenn eine Datei die Prüfung nicht besteht.</translation>
    </message>
    <message>
        <source>JSON files; - reads standard input.</source>
        <translation>JSON-Dateien; - liest die Standardeingabe.</translation>
    </message>
    <message>
        <source>The schema: a file name, or a file: or qrc: URL.</source>
        <translation>Das Schema: ein Dateiname oder eine file:- oder qrc:-URL.</translation>
    </message>
    <message>
        <source>well-formed</source>
        <translation>wohlgeformt</translation>
    </message>
    <message>
        <source>Prints a JSON document indented by four blanks, or compact.</source>
        <translation>Gibt ein JSON-Dokument mit vier Leerzeichen eingerückt oder kompakt aus.</translation>
    </message>
    <message>
        <source>A JSON file; - reads standard input.</source>
        <translation>Eine JSON-Datei; - liest die Standardeingabe.</translation>
    </message>
    <message>
        <source>No blanks and no line breaks.</source>
        <translation>Ohne Leerzeichen und Zeilenumbrüche.</translation>
    </message>
    <message>
        <source>json format: %1: %2</source>
        <translation>json format: %1: %2</translation>
    </message>
    <message>
        <source>Usage: commonkit json &lt;action&gt; [options] [arguments]</source>
        <translation>Aufruf: commonkit json &lt;Aktion&gt; [Optionen] [Argumente]</translation>
    </message>
    <message>
        <source>Run 'commonkit json &lt;action&gt; --help' for the options of an action.</source>
        <translation>'commonkit json &lt;Aktion&gt; --help' zeigt die Optionen einer Aktion.</translation>
    </message>
    <message>
        <source>json: give an action: check or format</source>
        <translation>json: eine Aktion angeben: check oder format</translation>
    </message>
    <message>
        <source>json: unknown action '%1' (use check or format)</source>
        <translation>json: unbekannte Aktion '%1' (check oder format verwenden)</translation>
    </message>
    <message>
        <source>Check JSON documents against a schema and print them</source>
        <translation>JSON-Dokumente gegen ein Schema prüfen und ausgeben</translation>
    </message>
</context>
</TS>
