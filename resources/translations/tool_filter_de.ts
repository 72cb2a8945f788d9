<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>cktool</name>
    <message>
        <source>Bound: %1</source>
        <translation>Gebunden: %1</translation>
    </message>
    <message>
        <source>Code: %1</source>
        <translation>Code: %1</translation>
    </message>
    <message>
        <source>Declares a property the filter may name; the type is one of bool, int, uint, u64, float, double, string (the default), stringlist, bytearray, date, time, datetime, variant. Repeatable.</source>
        <translation>Deklariert eine Eigenschaft, die der Filter nennen darf; der Typ ist einer von bool, int, uint, u64, float, double, string (Vorgabe), stringlist, bytearray, date, time, datetime, variant. Wiederholbar.</translation>
    </message>
    <message>
        <source>Declares several properties at once, separated by commas.</source>
        <translation>Deklariert mehrere Eigenschaften auf einmal, durch Kommas getrennt.</translation>
    </message>
    <message>
        <source>Print an expression stream, or parse a filter text, as SQL or code text</source>
        <translation>Einen Ausdrucksdatenstrom oder einen Filtertext als SQL oder Codetext ausgeben</translation>
    </message>
    <message>
        <source>Reads a filter written as SQL text and prints the tree as SQL, with its bound values, and as code text.</source>
        <translation>Liest einen als SQL-Text geschriebenen Filter und gibt den Baum als SQL, mit seinen gebundenen Werten, und als Codetext aus.</translation>
    </message>
    <message>
        <source>Reads an expression tree from a data stream file and prints it as SQL. "commonkit expr parse --help" tells how to read a filter text.</source>
        <translation>Liest einen Ausdrucksbaum aus einer Datenstrom-Datei und gibt ihn als SQL aus. "commonkit expr parse --help" erklärt, wie ein Filtertext gelesen wird.</translation>
    </message>
    <message>
        <source>SQL: %1</source>
        <translation>SQL: %1</translation>
    </message>
    <message>
        <source>Stream written to %1</source>
        <translation>Datenstrom nach %1 geschrieben</translation>
    </message>
    <message>
        <source>The filter text, or - for standard input. Put -- before a filter that starts with a minus sign and a blank.</source>
        <translation>Der Filtertext oder - für die Standardeingabe. Vor einen Filter, der mit einem Minuszeichen und einem Leerzeichen beginnt, gehört --.</translation>
    </message>
    <message>
        <source>Writes the tree as an expression stream to the file.</source>
        <translation>Schreibt den Baum als Ausdrucksdatenstrom in die Datei.</translation>
    </message>
    <message>
        <source>expr parse: %1</source>
        <translation>expr parse: %1</translation>
    </message>
    <message>
        <source>expr parse: cannot declare '%1' (types: bool, int, uint, u64, float, double, string, stringlist, bytearray, date, time, datetime, variant)</source>
        <translation>expr parse: '%1' kann nicht deklariert werden (Typen: bool, int, uint, u64, float, double, string, stringlist, bytearray, date, time, datetime, variant)</translation>
    </message>
    <message>
        <source>expr parse: cannot write '%1': %2</source>
        <translation>expr parse: '%1' kann nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>expr parse: note: the stream holds a CASE, which stream readers cannot read back</source>
        <translation>expr parse: Hinweis: Der Datenstrom enthält ein CASE, das Datenstrom-Leser nicht zurücklesen können</translation>
    </message>
</context>
</TS>
