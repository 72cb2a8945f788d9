<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr">
<context>
    <name>cktool</name>
    <message>
        <location filename="../../tools/commonkit/PropertiesDemo.cpp" line="85" />
        <source>Properties</source>
        <translation>Propriétés</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/PropertiesDemo.cpp" line="29" />
        <source>frames per second, 1 to 60</source>
        <translation>images par seconde, de 1 à 60</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/PropertiesDemo.cpp" line="30" />
        <source>compression quality, 0 to 1</source>
        <translation>qualité de compression, de 0 à 1</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/PropertiesDemo.cpp" line="41" />
        <source>Filled %1 properties from a map: %2</source>
        <translation>%1 propriétés remplies depuis une table : %2</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/PropertiesDemo.cpp" line="41" />
        <source>all accepted</source>
        <translation>toutes acceptées</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/PropertiesDemo.cpp" line="41" />
        <source>refused</source>
        <translation>refusé</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/PropertiesDemo.cpp" line="41" />
        <source>accepted</source>
        <translation>accepté</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/PropertiesDemo.cpp" line="47" />
        <source>Setting the unknown name "zoom": %1, the set now counts %2 names</source>
        <translation>Affectation du nom inconnu « zoom » : %1, l’ensemble compte maintenant %2 noms</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/PropertiesDemo.cpp" line="59" />
        <source>Validation of "%1" = %2 failed: %3</source>
        <translation>La validation de « %1 » = %2 a échoué : %3</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/PropertiesDemo.cpp" line="68" />
        <source>After setting fps to 25 it is %1</source>
        <translation>Après avoir mis fps à 25, la valeur est %1</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/PropertiesDemo.cpp" line="1" />
        <source>valid</source>
        <translation>valide</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/PropertiesDemo.cpp" line="68" />
        <source>invalid</source>
        <translation>invalide</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/PropertiesDemo.cpp" line="75" />
        <source>A copy changed the camera; the original now reads "%1"</source>
        <translation>Une copie a changé la caméra ; l’original indique maintenant « %1 »</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/PropertiesDemo.cpp" line="80" />
        <source>The set as text:</source>
        <translation>L’ensemble sous forme de texte :</translation>
    </message>
</context>
</TS>
