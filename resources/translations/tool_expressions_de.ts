<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>cktool</name>
    <message>
        <source>Expressions</source>
        <translation>Ausdrücke</translation>
    </message>
    <message>
        <source>Filter as code: %1</source>
        <translation>Filter als Code: %1</translation>
    </message>
    <message>
        <source>Filter as SQL: %1</source>
        <translation>Filter als SQL: %1</translation>
    </message>
    <message>
        <source>  bound values in order: %1</source>
        <translation>  gebundene Werte der Reihe nach: %1</translation>
    </message>
    <message>
        <source>  %1 (events %2, zone %3, recording %4): %5</source>
        <translation>  %1 (Ereignisse %2, Zone %3, Aufnahme %4): %5</translation>
    </message>
    <message>
        <source>yes</source>
        <translation>ja</translation>
    </message>
    <message>
        <source>no</source>
        <translation>nein</translation>
    </message>
    <message>
        <source>matches</source>
        <translation>passt</translation>
    </message>
    <message>
        <source>no match</source>
        <translation>passt nicht</translation>
    </message>
    <message>
        <source>Sort list: %1</source>
        <translation>Sortierliste: %1</translation>
    </message>
    <message>
        <source>Function: %1 gives &quot;%2&quot;</source>
        <translation>Funktion: %1 ergibt „%2“</translation>
    </message>
    <message>
        <source>Stream: %1 bytes written, read back %2</source>
        <translation>Datenstrom: %1 Bytes geschrieben, zurückgelesen %2</translation>
    </message>
    <message>
        <source>equal</source>
        <translation>gleich</translation>
    </message>
    <message>
        <source>different</source>
        <translation>verschieden</translation>
    </message>
    <message>
        <source>expr: cannot read standard input</source>
        <translation>expr: Standardeingabe kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>expr: cannot open '%1': %2</source>
        <translation>expr: '%1' kann nicht geöffnet werden: %2</translation>
    </message>
    <message>
        <source>Reads an expression tree from a data stream file and prints it as SQL.</source>
        <translation>Liest einen Ausdrucksbaum aus einer Datenstrom-Datei und gibt ihn als SQL aus.</translation>
    </message>
    <message>
        <source>The stream file, or - for standard input.</source>
        <translation>Die Datenstrom-Datei oder - für die Standardeingabe.</translation>
    </message>
    <message>
        <source>Print C-like code text instead of SQL.</source>
        <translation>C-ähnlichen Codetext statt SQL ausgeben.</translation>
    </message>
    <message>
        <source>Print &quot;?&quot; for bound values and list the values in order.</source>
        <translation>„?“ für gebundene Werte ausgeben und die Werte der Reihe nach auflisten.</translation>
    </message>
    <message>
        <source>expr: '%1' is not a complete expression stream</source>
        <translation>expr: '%1' ist kein vollständiger Ausdrucksdatenstrom</translation>
    </message>
    <message>
        <source>expr: '%1' holds a node this library cannot read, or other data after the expression</source>
        <translation>expr: '%1' enthält einen Knoten, den diese Bibliothek nicht lesen kann, oder weitere Daten nach dem Ausdruck</translation>
    </message>
    <message>
        <source>Print an expression stream as SQL or code text</source>
        <translation>Einen Ausdrucksdatenstrom als SQL oder Codetext ausgeben</translation>
    </message>
</context>
</TS>
