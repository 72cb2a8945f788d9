<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>cktool</name>
    <message>
        <location filename="../../tools/commonkit/PropertiesDemo.cpp" line="85" />
        <source>Properties</source>
        <translation>Eigenschaften</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/PropertiesDemo.cpp" line="29" />
        <source>frames per second, 1 to 60</source>
        <translation>Bilder pro Sekunde, 1 bis 60</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/PropertiesDemo.cpp" line="30" />
        <source>compression quality, 0 to 1</source>
        <translation>Kompressionsqualität, 0 bis 1</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/PropertiesDemo.cpp" line="41" />
        <source>Filled %1 properties from a map: %2</source>
        <translation>%1 Eigenschaften aus einer Map gefüllt: %2</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/PropertiesDemo.cpp" line="41" />
        <source>all accepted</source>
        <translation>alle angenommen</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/PropertiesDemo.cpp" line="41" />
        <source>refused</source>
        <translation>abgelehnt</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/PropertiesDemo.cpp" line="41" />
        <source>accepted</source>
        <translation>angenommen</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/PropertiesDemo.cpp" line="47" />
        <source>Setting the unknown name "zoom": %1, the set now counts %2 names</source>
        <translation>Setzen des unbekannten Namens „zoom“: %1, die Menge zählt jetzt %2 Namen</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/PropertiesDemo.cpp" line="59" />
        <source>Validation of "%1" = %2 failed: %3</source>
        <translation>Prüfung von „%1“ = %2 fehlgeschlagen: %3</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/PropertiesDemo.cpp" line="68" />
        <source>After setting fps to 25 it is %1</source>
        <translation>Nach dem Setzen von fps auf 25 ist der Wert %1</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/PropertiesDemo.cpp" line="1" />
        <source>valid</source>
        <translation>gültig</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/PropertiesDemo.cpp" line="68" />
        <source>invalid</source>
        <translation>ungültig</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/PropertiesDemo.cpp" line="75" />
        <source>A copy changed the camera; the original now reads "%1"</source>
        <translation>Eine Kopie hat die Kamera geändert; das Original lautet jetzt „%1“</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/PropertiesDemo.cpp" line="80" />
        <source>The set as text:</source>
        <translation>Die Menge als Text:</translation>
    </message>
</context>
</TS>
