<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>FilterParser</name>
    <message>
        <source>'%2' at column %1 cannot stand inside a function call, a CAST or an ELSE part</source>
        <translation>'%2' in Spalte %1 darf nicht in einem Funktionsaufruf, einem CAST oder einem ELSE-Teil stehen</translation>
    </message>
    <message>
        <source>'--' at column %1 starts a comment in SQL; write '- -'</source>
        <translation>'--' in Spalte %1 beginnt in SQL einen Kommentar; schreiben Sie '- -'</translation>
    </message>
    <message>
        <source>nesting deeper than %2 levels at column %1</source>
        <translation>Verschachtelung tiefer als %2 Ebenen in Spalte %1</translation>
    </message>
    <message>
        <source>number out of range '%2' at column %1</source>
        <translation>Zahl außerhalb des Wertebereichs '%2' in Spalte %1</translation>
    </message>
    <message>
        <source>the comparison in parentheses at column %1 cannot be an operand of '%2'</source>
        <translation>der Vergleich in Klammern in Spalte %1 kann kein Operand von '%2' sein</translation>
    </message>
    <message>
        <source>too few arguments for '%2' at column %1 (at least %3)</source>
        <translation>zu wenige Argumente für '%2' in Spalte %1 (mindestens %3)</translation>
    </message>
    <message>
        <source>too many arguments for '%2' at column %1 (at most %3)</source>
        <translation>zu viele Argumente für '%2' in Spalte %1 (höchstens %3)</translation>
    </message>
    <message>
        <source>unexpected '%2' at column %1</source>
        <translation>unerwartetes '%2' in Spalte %1</translation>
    </message>
    <message>
        <source>unexpected end of text at column %1</source>
        <translation>unerwartetes Textende in Spalte %1</translation>
    </message>
    <message>
        <source>unknown function '%2' at column %1</source>
        <translation>unbekannte Funktion '%2' in Spalte %1</translation>
    </message>
    <message>
        <source>unknown property '%2' at column %1</source>
        <translation>unbekannte Eigenschaft '%2' in Spalte %1</translation>
    </message>
    <message>
        <source>unknown type '%2' at column %1</source>
        <translation>unbekannter Typ '%2' in Spalte %1</translation>
    </message>
    <message>
        <source>unterminated string at column %1</source>
        <translation>nicht abgeschlossene Zeichenkette in Spalte %1</translation>
    </message>
</context>
</TS>
