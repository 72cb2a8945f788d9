<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>cktool</name>
    <message>
        <location filename="../../tools/commonkit/CommandLine.cpp" line="18" />
        <source>Language of the texts: de or fr.</source>
        <translation>Sprache der Texte: de oder fr.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/CommandLine.cpp" line="23" />
        <source>%1: wrong number of arguments (see commonkit %1 --help)</source>
        <translation>%1: falsche Anzahl von Argumenten (siehe commonkit %1 --help)</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/CommandLine.cpp" line="73" />
        <source>unknown language '%1' (use de or fr)</source>
        <translation>unbekannte Sprache '%1' (de oder fr verwenden)</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/DemoCommand.cpp" line="15" />
        <source>Runs a short tour of the library on sample data in a temporary directory.</source>
        <translation>Führt einen kurzen Rundgang durch die Bibliothek mit Beispieldaten in einem temporären Verzeichnis aus.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/DemoCommand.cpp" line="17" />
        <source>Keep the temporary directory and print its path.</source>
        <translation>Das temporäre Verzeichnis behalten und seinen Pfad ausgeben.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/DemoCommand.cpp" line="24" />
        <source>cannot create a temporary directory: %1</source>
        <translation>kann kein temporäres Verzeichnis anlegen: %1</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/DemoCommand.cpp" line="28" />
        <source>CommonKit demo, working in %1</source>
        <translation>CommonKit-Demo, Arbeitsverzeichnis %1</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/DemoCommand.cpp" line="40" />
        <source>!! this section did not behave as expected</source>
        <translation>!! dieser Abschnitt verhielt sich nicht wie erwartet</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/DemoCommand.cpp" line="46" />
        <source>%1 section(s) failed.</source>
        <translation>%1 Abschnitt(e) fehlgeschlagen.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/DemoCommand.cpp" line="49" />
        <source>All sections ran as expected.</source>
        <translation>Alle Abschnitte liefen wie erwartet.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/DemoCommand.cpp" line="53" />
        <source>Run a short tour of the library</source>
        <translation>Einen kurzen Rundgang durch die Bibliothek ausführen</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/FourccCommand.cpp" line="26" />
        <source>fourcc: '%1' is not a 32-bit hexadecimal number</source>
        <translation>fourcc: '%1' ist keine hexadezimale 32-Bit-Zahl</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/FourccCommand.cpp" line="39" />
        <source>Shows the 32-bit value of a four-character code, or the letters of a value. Bytes that are not printable show as \xNN.</source>
        <translation>Zeigt den 32-Bit-Wert eines Vier-Zeichen-Codes oder die Buchstaben eines Werts. Nicht druckbare Bytes erscheinen als \xNN.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/FourccCommand.cpp" line="41" />
        <source>Letters such as ExpS, or a value such as 0x45787053 or 1165520979.</source>
        <translation>Buchstaben wie ExpS oder ein Wert wie 0x45787053 oder 1165520979.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/FourccCommand.cpp" line="53" />
        <source>fourcc: the code is empty</source>
        <translation>fourcc: der Code ist leer</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/FourccCommand.cpp" line="56" />
        <source>fourcc: '%1' has characters outside Latin-1</source>
        <translation>fourcc: '%1' enthält Zeichen außerhalb von Latin-1</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/FourccCommand.cpp" line="61" />
        <source>note: only the first four characters count: "%1"</source>
        <translation>Hinweis: nur die ersten vier Zeichen zählen: "%1"</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/FourccCommand.cpp" line="67" />
        <source>Convert four-character codes and 32-bit values</source>
        <translation>Vier-Zeichen-Codes und 32-Bit-Werte umrechnen</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/StampCommand.cpp" line="52" />
        <source>Renders a time-stamp text with the library's glyph strip and writes it as a 24-bit BMP. Characters: digits, ':', '.', '-', blank, and '*' for the marker symbol.</source>
        <translation>Zeichnet einen Zeitstempeltext mit dem Glyphenstreifen der Bibliothek und schreibt ihn als 24-Bit-BMP. Zeichen: Ziffern, ':', '.', '-', Leerzeichen und '*' für das Markierungssymbol.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/StampCommand.cpp" line="55" />
        <source>The text, such as "12:34:56.789".</source>
        <translation>Der Text, etwa "12:34:56.789".</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/StampCommand.cpp" line="56" />
        <source>The BMP file to write.</source>
        <translation>Die zu schreibende BMP-Datei.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/StampCommand.cpp" line="62" />
        <source>stamp: --out FILE is required</source>
        <translation>stamp: --out DATEI ist erforderlich</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/StampCommand.cpp" line="66" />
        <source>stamp: the text is empty</source>
        <translation>stamp: der Text ist leer</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/StampCommand.cpp" line="70" />
        <source>stamp: no glyph for '%1' at position %2</source>
        <translation>stamp: keine Glyphe für '%1' an Position %2</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/StampCommand.cpp" line="75" />
        <source>stamp: the glyph strip could not be loaded</source>
        <translation>stamp: der Glyphenstreifen konnte nicht geladen werden</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/StampCommand.cpp" line="97" />
        <location filename="../../tools/commonkit/StampCommand.cpp" line="103" />
        <source>stamp: cannot write %1: %2</source>
        <translation>stamp: kann %1 nicht schreiben: %2</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/StampCommand.cpp" line="104" />
        <source>wrote %1 (%2 x %3 pixels)</source>
        <translation>%1 geschrieben (%2 x %3 Pixel)</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/StampCommand.cpp" line="109" />
        <source>Render a time stamp from the glyph strip as a BMP</source>
        <translation>Einen Zeitstempel aus dem Glyphenstreifen als BMP zeichnen</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/TimeCommand.cpp" line="18" />
        <location filename="../../tools/commonkit/TimeCommand.cpp" line="38" />
        <source>frame time:  %1</source>
        <translation>Framezeit:   %1</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/TimeCommand.cpp" line="19" />
        <source>local time:  %1</source>
        <translation>Ortszeit:    %1</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/TimeCommand.cpp" line="20" />
        <source>identifier:  %1</source>
        <translation>Kennung:     %1</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/TimeCommand.cpp" line="21" />
        <location filename="../../tools/commonkit/TimeCommand.cpp" line="39" />
        <source>UTC:         %1</source>
        <translation>UTC:         %1</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/TimeCommand.cpp" line="22" />
        <source>fields:      year %1, month %2, day %3, hour %4, minute %5, second %6, millisecond %7, microsecond %8</source>
        <translation>Felder:      Jahr %1, Monat %2, Tag %3, Stunde %4, Minute %5, Sekunde %6, Millisekunde %7, Mikrosekunde %8</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/TimeCommand.cpp" line="33" />
        <source>time: '%1' is neither a frame time nor an ISO 8601 date-time</source>
        <translation>time: '%1' ist weder eine Framezeit noch ein Datum mit Uhrzeit nach ISO 8601</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/TimeCommand.cpp" line="37" />
        <source>time: '%1' is outside the range of frame times (1970 to 2106 UTC)</source>
        <translation>time: '%1' liegt außerhalb des Bereichs der Framezeiten (1970 bis 2106 UTC)</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/TimeCommand.cpp" line="45" />
        <source>Shows a frame time (microseconds since 1970-01-01 00:00 UTC) as local fields and texts, or the frame time of an ISO 8601 date-time.</source>
        <translation>Zeigt eine Framezeit (Mikrosekunden seit 1970-01-01 00:00 UTC) als lokale Felder und Texte oder die Framezeit eines Datums mit Uhrzeit nach ISO 8601.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/TimeCommand.cpp" line="48" />
        <source>A frame time such as 1500000, or a date-time such as 2024-05-06T07:08:09.123Z.</source>
        <translation>Eine Framezeit wie 1500000 oder ein Datum mit Uhrzeit wie 2024-05-06T07:08:09.123Z.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/TimeCommand.cpp" line="65" />
        <source>Convert between frame times and date-times</source>
        <translation>Zwischen Framezeiten und Datum mit Uhrzeit umrechnen</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/UtilDemo.cpp" line="24" />
        <source>Frame time of %1: %2</source>
        <translation>Framezeit von %1: %2</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/UtilDemo.cpp" line="25" />
        <source>  +456 us, local display text %1, identifier %2, microsecond %3</source>
        <translation>  +456 µs, lokaler Anzeigetext %1, Kennung %2, Mikrosekunde %3</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/UtilDemo.cpp" line="34" />
        <source>Code "%1" = 0x%2</source>
        <translation>Code "%1" = 0x%2</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/UtilDemo.cpp" line="43" />
        <source>Glyph strip: %1 glyphs of %2 x %3 pixels; "7" looks like this:</source>
        <translation>Glyphenstreifen: %1 Glyphen zu %2 x %3 Pixeln; "7" sieht so aus:</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/UtilDemo.cpp" line="56" />
        <source>Time, codes and glyphs</source>
        <translation>Zeit, Codes und Glyphen</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/main.cpp" line="19" />
        <source>Usage: commonkit &lt;command&gt; [options] [arguments]</source>
        <translation>Aufruf: commonkit &lt;Befehl&gt; [Optionen] [Argumente]</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/main.cpp" line="20" />
        <source>Commands:</source>
        <translation>Befehle:</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/main.cpp" line="24" />
        <source>Run 'commonkit &lt;command&gt; --help' for the options of a command.</source>
        <translation>'commonkit &lt;Befehl&gt; --help' zeigt die Optionen eines Befehls.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/main.cpp" line="25" />
        <source>Global options: --help, --version, --lang de|fr.</source>
        <translation>Globale Optionen: --help, --version, --lang de|fr.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/main.cpp" line="32" />
        <source>unknown command '%1' (see commonkit --help)</source>
        <translation>unbekannter Befehl '%1' (siehe commonkit --help)</translation>
    </message>
    <message>
        <source>--lang needs a language: de or fr</source>
        <translation>--lang braucht eine Sprache: de oder fr</translation>
    </message>
    <message>
        <source>no command given (see commonkit --help)</source>
        <translation>kein Befehl angegeben (siehe commonkit --help)</translation>
    </message>
    <message>
        <source>fourcc: '%1' is not a 32-bit number</source>
        <translation>fourcc: '%1' ist keine 32-Bit-Zahl</translation>
    </message>
</context>
</TS>