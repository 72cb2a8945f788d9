<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>cktool</name>
    <message>
        <location filename="../../tools/commonkit/RightsCommand.cpp" line="25"/>
        <source>rights: %1/%2 is not a count from 0 to %3: &apos;%4&apos;</source>
        <translation>rights: %1/%2 ist keine Anzahl von 0 bis %3: &apos;%4&apos;</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsCommand.cpp" line="43"/>
        <source>rights: word %1 of %2/Matrix is not an unsigned 32-bit number: &apos;%3&apos;</source>
        <translation>rights: Wort %1 von %2/Matrix ist keine vorzeichenlose 32-Bit-Zahl: &apos;%3&apos;</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsCommand.cpp" line="48"/>
        <source>rights: %1/Matrix is truncated: %2 words for %3 cells, which need %4</source>
        <translation>rights: %1/Matrix ist abgeschnitten: %2 Wörter für %3 Zellen, die %4 brauchen</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsCommand.cpp" line="51"/>
        <source>note: text after the last &apos;+&apos; is ignored</source>
        <translation>Hinweis: Text nach dem letzten &apos;+&apos; wird ignoriert</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsCommand.cpp" line="53"/>
        <source>note: %1 word(s) beyond the grid are ignored</source>
        <translation>Hinweis: %1 Wort/Wörter jenseits des Rasters ignoriert</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsCommand.cpp" line="62"/>
        <source>row %1:</source>
        <translation>Zeile %1:</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsCommand.cpp" line="79"/>
        <source>%1 of %2 cells allowed</source>
        <translation>%1 von %2 Zellen erlaubt</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsCommand.cpp" line="86"/>
        <source>rights: %1 does not exist</source>
        <translation>rights: %1 existiert nicht</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsCommand.cpp" line="88"/>
        <source>rights: cannot read %1</source>
        <translation>rights: kann %1 nicht lesen</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsCommand.cpp" line="92"/>
        <source>rights: %1 is not a readable settings file</source>
        <translation>rights: %1 ist keine lesbare Einstellungsdatei</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsCommand.cpp" line="99"/>
        <source>rights: %1 has no saved feature matrix (%2/%3 is missing)</source>
        <translation>rights: %1 enthält keine gespeicherte Rechtematrix (%2/%3 fehlt)</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsCommand.cpp" line="121"/>
        <source>%1: %2 rows (feature groups) x %3 columns (user groups), 1 = allowed, 0 = forbidden</source>
        <translation>%1: %2 Zeilen (Funktionsgruppen) x %3 Spalten (Benutzergruppen), 1 = erlaubt, 0 = verboten</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsCommand.cpp" line="132"/>
        <source>Shows the rights matrix saved in a settings file (INI format): the grid of feature groups (rows) against user groups (columns), read from the group FeatureMatrix. The file stores only the grid, not the names of the groups, so rows are shown by feature-group id and columns by user-group number, each cell as 1 (allowed) or 0 (forbidden).</source>
        <translation>Zeigt die in einer Einstellungsdatei (INI-Format) gespeicherte Rechtematrix: das Raster der Funktionsgruppen (Zeilen) gegen die Benutzergruppen (Spalten), gelesen aus der Gruppe FeatureMatrix. Die Datei speichert nur das Raster, nicht die Namen der Gruppen; daher werden Zeilen mit der Kennung der Funktionsgruppe und Spalten mit der Nummer der Benutzergruppe gezeigt, jede Zelle als 1 (erlaubt) oder 0 (verboten).</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsCommand.cpp" line="136"/>
        <source>The action; only &quot;show&quot; exists.</source>
        <translation>Die Aktion; es gibt nur &quot;show&quot;.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsCommand.cpp" line="137"/>
        <source>The settings file, such as rights.ini.</source>
        <translation>Die Einstellungsdatei, etwa rights.ini.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsCommand.cpp" line="139"/>
        <source>The settings group that holds FeatureMatrix, if not the top level.</source>
        <translation>Die Einstellungsgruppe, die FeatureMatrix enthält, falls nicht die oberste Ebene.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsCommand.cpp" line="146"/>
        <source>rights: unknown action &apos;%1&apos; (use show)</source>
        <translation>rights: unbekannte Aktion &apos;%1&apos; (show verwenden)</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsCommand.cpp" line="154"/>
        <source>Show the rights matrix saved in a settings file</source>
        <translation>Die in einer Einstellungsdatei gespeicherte Rechtematrix zeigen</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="28"/>
        <source>Live video</source>
        <translation>Live-Video</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="28"/>
        <source>Playback</source>
        <translation>Wiedergabe</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="29"/>
        <source>Export</source>
        <translation>Export</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="35"/>
        <source>Operators</source>
        <translation>Bediener</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="35"/>
        <source>Investigators</source>
        <translation>Ermittler</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="36"/>
        <source>Administrators</source>
        <translation>Administratoren</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="57"/>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="69"/>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="96"/>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="106"/>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="114"/>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="130"/>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="143"/>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="176"/>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="197"/>
        <source>yes</source>
        <translation>ja</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="57"/>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="69"/>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="96"/>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="106"/>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="114"/>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="130"/>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="143"/>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="176"/>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="197"/>
        <source>no</source>
        <translation>nein</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="95"/>
        <source>A new %1 x %2 matrix allows everything; dirty: %3</source>
        <translation>Eine neue %1 x %2-Matrix erlaubt alles; geändert: %3</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="105"/>
        <source>After granting rights (* = locked in the user interface); dirty: %1</source>
        <translation>Nach dem Vergeben der Rechte (* = in der Benutzeroberfläche gesperrt); geändert: %1</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="113"/>
        <source>Investigators may seek recordings (Playback forbidden, Export allowed): %1</source>
        <translation>Ermittler dürfen in Aufzeichnungen springen (Wiedergabe verboten, Export erlaubt): %1</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="125"/>
        <source>Saved to %1: Rows=%2, Columns=%3, Matrix=&quot;%4&quot;; dirty: %5</source>
        <translation>Gespeichert in %1: Rows=%2, Columns=%3, Matrix=&quot;%4&quot;; geändert: %5</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="139"/>
        <source>Loaded into a fresh matrix (locks are not saved; the application sets them):</source>
        <translation>In eine neue Matrix geladen (Sperren werden nicht gespeichert; die Anwendung setzt sie):</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="142"/>
        <source>Equal to the saved one: %1; dirty: %2</source>
        <translation>Gleich der gespeicherten: %1; geändert: %2</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="165"/>
        <source>Copied client.ini to backup.ini without the keys ending in &quot;Password&quot;: %1</source>
        <translation>client.ini nach backup.ini kopiert, ohne die Schlüssel, die auf &quot;Password&quot; enden: %1</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="175"/>
        <source>The matrix loaded from the backup&apos;s group Client equals the saved one: %1</source>
        <translation>Die aus der Gruppe Client der Sicherung geladene Matrix gleicht der gespeicherten: %1</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="196"/>
        <source>A 3 x 2 matrix refuses the 3 x 3 grid and keeps its cells: %1</source>
        <translation>Eine 3 x 2-Matrix weist das 3 x 3-Raster zurück und behält ihre Zellen: %1</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="205"/>
        <source>Rights matrix</source>
        <translation>Rechtematrix</translation>
    </message>
</context>
</TS>
