<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr">
<context>
    <name>cktool</name>
    <message>
        <location filename="../../tools/commonkit/CommandLine.cpp" line="18" />
        <source>Language of the texts: de or fr.</source>
        <translation>Langue des textes : de ou fr.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/CommandLine.cpp" line="23" />
        <source>%1: wrong number of arguments (see commonkit %1 --help)</source>
        <translation>%1 : nombre d'arguments incorrect (voir commonkit %1 --help)</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/CommandLine.cpp" line="73" />
        <source>unknown language '%1' (use de or fr)</source>
        <translation>langue inconnue « %1 » (utiliser de ou fr)</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/DemoCommand.cpp" line="15" />
        <source>Runs a short tour of the library on sample data in a temporary directory.</source>
        <translation>Présente brièvement la bibliothèque sur des données d'exemple dans un répertoire temporaire.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/DemoCommand.cpp" line="17" />
        <source>Keep the temporary directory and print its path.</source>
        <translation>Conserver le répertoire temporaire et afficher son chemin.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/DemoCommand.cpp" line="24" />
        <source>cannot create a temporary directory: %1</source>
        <translation>impossible de créer un répertoire temporaire : %1</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/DemoCommand.cpp" line="28" />
        <source>CommonKit demo, working in %1</source>
        <translation>Démonstration de CommonKit, dans %1</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/DemoCommand.cpp" line="40" />
        <source>!! this section did not behave as expected</source>
        <translation>!! cette section ne s'est pas comportée comme prévu</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/DemoCommand.cpp" line="46" />
        <source>%1 section(s) failed.</source>
        <translation>%1 section(s) en échec.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/DemoCommand.cpp" line="49" />
        <source>All sections ran as expected.</source>
        <translation>Toutes les sections se sont déroulées comme prévu.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/DemoCommand.cpp" line="53" />
        <source>Run a short tour of the library</source>
        <translation>Présenter brièvement la bibliothèque</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/FourccCommand.cpp" line="26" />
        <source>fourcc: '%1' is not a 32-bit hexadecimal number</source>
        <translation>fourcc : « %1 » n'est pas un nombre hexadécimal de 32 bits</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/FourccCommand.cpp" line="39" />
        <source>Shows the 32-bit value of a four-character code, or the letters of a value. Bytes that are not printable show as \xNN.</source>
        <translation>Affiche la valeur 32 bits d'un code de quatre caractères, ou les lettres d'une valeur. Les octets non imprimables s'affichent sous la forme \xNN.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/FourccCommand.cpp" line="41" />
        <source>Letters such as ExpS, or a value such as 0x45787053 or 1165520979.</source>
        <translation>Des lettres comme ExpS, ou une valeur comme 0x45787053 ou 1165520979.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/FourccCommand.cpp" line="53" />
        <source>fourcc: the code is empty</source>
        <translation>fourcc : le code est vide</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/FourccCommand.cpp" line="56" />
        <source>fourcc: '%1' has characters outside Latin-1</source>
        <translation>fourcc : « %1 » contient des caractères hors Latin-1</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/FourccCommand.cpp" line="61" />
        <source>note: only the first four characters count: "%1"</source>
        <translation>remarque : seuls les quatre premiers caractères comptent : « %1 »</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/FourccCommand.cpp" line="67" />
        <source>Convert four-character codes and 32-bit values</source>
        <translation>Convertir codes de quatre caractères et valeurs 32 bits</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/StampCommand.cpp" line="52" />
        <source>Renders a time-stamp text with the library's glyph strip and writes it as a 24-bit BMP. Characters: digits, ':', '.', '-', blank, and '*' for the marker symbol.</source>
        <translation>Dessine un horodatage avec la bande de glyphes de la bibliothèque et l'écrit en BMP 24 bits. Caractères : chiffres, « : », « . », « - », espace, et « * » pour le symbole de repère.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/StampCommand.cpp" line="55" />
        <source>The text, such as "12:34:56.789".</source>
        <translation>Le texte, par exemple « 12:34:56.789 ».</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/StampCommand.cpp" line="56" />
        <source>The BMP file to write.</source>
        <translation>Le fichier BMP à écrire.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/StampCommand.cpp" line="62" />
        <source>stamp: --out FILE is required</source>
        <translation>stamp : --out FICHIER est obligatoire</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/StampCommand.cpp" line="66" />
        <source>stamp: the text is empty</source>
        <translation>stamp : le texte est vide</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/StampCommand.cpp" line="70" />
        <source>stamp: no glyph for '%1' at position %2</source>
        <translation>stamp : aucun glyphe pour « %1 » à la position %2</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/StampCommand.cpp" line="75" />
        <source>stamp: the glyph strip could not be loaded</source>
        <translation>stamp : la bande de glyphes n'a pas pu être chargée</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/StampCommand.cpp" line="97" />
        <location filename="../../tools/commonkit/StampCommand.cpp" line="103" />
        <source>stamp: cannot write %1: %2</source>
        <translation>stamp : impossible d'écrire %1 : %2</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/StampCommand.cpp" line="104" />
        <source>wrote %1 (%2 x %3 pixels)</source>
        <translation>%1 écrit (%2 x %3 pixels)</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/StampCommand.cpp" line="109" />
        <source>Render a time stamp from the glyph strip as a BMP</source>
        <translation>Dessiner un horodatage en BMP à partir de la bande de glyphes</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/TimeCommand.cpp" line="18" />
        <location filename="../../tools/commonkit/TimeCommand.cpp" line="38" />
        <source>frame time:  %1</source>
        <translation>temps d'image :  %1</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/TimeCommand.cpp" line="19" />
        <source>local time:  %1</source>
        <translation>heure locale :   %1</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/TimeCommand.cpp" line="20" />
        <source>identifier:  %1</source>
        <translation>identifiant :    %1</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/TimeCommand.cpp" line="21" />
        <location filename="../../tools/commonkit/TimeCommand.cpp" line="39" />
        <source>UTC:         %1</source>
        <translation>UTC :            %1</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/TimeCommand.cpp" line="22" />
        <source>fields:      year %1, month %2, day %3, hour %4, minute %5, second %6, millisecond %7, microsecond %8</source>
        <translation>champs :         année %1, mois %2, jour %3, heure %4, minute %5, seconde %6, milliseconde %7, microseconde %8</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/TimeCommand.cpp" line="33" />
        <source>time: '%1' is neither a frame time nor an ISO 8601 date-time</source>
        <translation>time : « %1 » n'est ni un temps d'image ni une date-heure ISO 8601</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/TimeCommand.cpp" line="37" />
        <source>time: '%1' is outside the range of frame times (1970 to 2106 UTC)</source>
        <translation>time : « %1 » est hors de la plage des temps d'image (1970 à 2106 UTC)</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/TimeCommand.cpp" line="45" />
        <source>Shows a frame time (microseconds since 1970-01-01 00:00 UTC) as local fields and texts, or the frame time of an ISO 8601 date-time.</source>
        <translation>Affiche un temps d'image (microsecondes depuis le 1970-01-01 00:00 UTC) en champs et textes locaux, ou le temps d'image d'une date-heure ISO 8601.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/TimeCommand.cpp" line="48" />
        <source>A frame time such as 1500000, or a date-time such as 2024-05-06T07:08:09.123Z.</source>
        <translation>Un temps d'image comme 1500000, ou une date-heure comme 2024-05-06T07:08:09.123Z.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/TimeCommand.cpp" line="65" />
        <source>Convert between frame times and date-times</source>
        <translation>Convertir entre temps d'image et dates-heures</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/UtilDemo.cpp" line="24" />
        <source>Frame time of %1: %2</source>
        <translation>Temps d'image de %1 : %2</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/UtilDemo.cpp" line="25" />
        <source>  +456 us, local display text %1, identifier %2, microsecond %3</source>
        <translation>  +456 µs, texte d'affichage local %1, identifiant %2, microseconde %3</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/UtilDemo.cpp" line="34" />
        <source>Code "%1" = 0x%2</source>
        <translation>Code « %1 » = 0x%2</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/UtilDemo.cpp" line="43" />
        <source>Glyph strip: %1 glyphs of %2 x %3 pixels; "7" looks like this:</source>
        <translation>Bande de glyphes : %1 glyphes de %2 x %3 pixels ; « 7 » ressemble à ceci :</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/UtilDemo.cpp" line="56" />
        <source>Time, codes and glyphs</source>
        <translation>Temps, codes et glyphes</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/main.cpp" line="19" />
        <source>Usage: commonkit &lt;command&gt; [options] [arguments]</source>
        <translation>Usage : commonkit &lt;commande&gt; [options] [arguments]</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/main.cpp" line="20" />
        <source>Commands:</source>
        <translation>Commandes :</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/main.cpp" line="24" />
        <source>Run 'commonkit &lt;command&gt; --help' for the options of a command.</source>
        <translation>« commonkit &lt;commande&gt; --help » affiche les options d'une commande.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/main.cpp" line="25" />
        <source>Global options: --help, --version, --lang de|fr.</source>
        <translation>Options globales : --help, --version, --lang de|fr.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/main.cpp" line="32" />
        <source>unknown command '%1' (see commonkit --help)</source>
        <translation>commande inconnue « %1 » (voir commonkit --help)</translation>
    </message>
    <message>
        <source>--lang needs a language: de or fr</source>
        <translation>--lang attend une langue : de ou fr</translation>
    </message>
    <message>
        <source>no command given (see commonkit --help)</source>
        <translation>aucune commande indiquée (voir commonkit --help)</translation>
    </message>
    <message>
        <source>fourcc: '%1' is not a 32-bit number</source>
        <translation>fourcc : « %1 » n'est pas un nombre de 32 bits</translation>
    </message>
</context>
</TS>