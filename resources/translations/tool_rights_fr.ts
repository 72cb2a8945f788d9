<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr">
<context>
    <name>cktool</name>
    <message>
        <location filename="../../tools/commonkit/RightsCommand.cpp" line="25"/>
        <source>rights: %1/%2 is not a count from 0 to %3: &apos;%4&apos;</source>
        <translation>rights : %1/%2 n&apos;est pas un nombre de 0 à %3 : &apos;%4&apos;</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsCommand.cpp" line="43"/>
        <source>rights: word %1 of %2/Matrix is not an unsigned 32-bit number: &apos;%3&apos;</source>
        <translation>rights : le mot %1 de %2/Matrix n&apos;est pas un nombre non signé de 32 bits : &apos;%3&apos;</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsCommand.cpp" line="48"/>
        <source>rights: %1/Matrix is truncated: %2 words for %3 cells, which need %4</source>
        <translation>rights : %1/Matrix est tronqué : %2 mots pour %3 cellules, qui en demandent %4</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsCommand.cpp" line="51"/>
        <source>note: text after the last &apos;+&apos; is ignored</source>
        <translation>remarque : le texte après le dernier &apos;+&apos; est ignoré</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsCommand.cpp" line="53"/>
        <source>note: %1 word(s) beyond the grid are ignored</source>
        <translation>remarque : %1 mot(s) au-delà de la grille ignoré(s)</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsCommand.cpp" line="62"/>
        <source>row %1:</source>
        <translation>ligne %1 :</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsCommand.cpp" line="79"/>
        <source>%1 of %2 cells allowed</source>
        <translation>%1 cellules sur %2 autorisées</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsCommand.cpp" line="86"/>
        <source>rights: %1 does not exist</source>
        <translation>rights : %1 n&apos;existe pas</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsCommand.cpp" line="88"/>
        <source>rights: cannot read %1</source>
        <translation>rights : impossible de lire %1</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsCommand.cpp" line="92"/>
        <source>rights: %1 is not a readable settings file</source>
        <translation>rights : %1 n&apos;est pas un fichier de paramètres lisible</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsCommand.cpp" line="99"/>
        <source>rights: %1 has no saved feature matrix (%2/%3 is missing)</source>
        <translation>rights : %1 ne contient pas de matrice de droits enregistrée (%2/%3 manque)</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsCommand.cpp" line="121"/>
        <source>%1: %2 rows (feature groups) x %3 columns (user groups), 1 = allowed, 0 = forbidden</source>
        <translation>%1 : %2 lignes (groupes de fonctions) x %3 colonnes (groupes d&apos;utilisateurs), 1 = autorisé, 0 = interdit</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsCommand.cpp" line="132"/>
        <source>Shows the rights matrix saved in a settings file (INI format): the grid of feature groups (rows) against user groups (columns), read from the group FeatureMatrix. The file stores only the grid, not the names of the groups, so rows are shown by feature-group id and columns by user-group number, each cell as 1 (allowed) or 0 (forbidden).</source>
        <translation>Affiche la matrice de droits enregistrée dans un fichier de paramètres (format INI) : la grille des groupes de fonctions (lignes) et des groupes d&apos;utilisateurs (colonnes), lue dans le groupe FeatureMatrix. Le fichier ne conserve que la grille, pas les noms des groupes ; les lignes sont donc désignées par l&apos;identifiant du groupe de fonctions et les colonnes par le numéro du groupe d&apos;utilisateurs, chaque cellule valant 1 (autorisé) ou 0 (interdit).</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsCommand.cpp" line="136"/>
        <source>The action; only &quot;show&quot; exists.</source>
        <translation>L&apos;action ; seule « show » existe.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsCommand.cpp" line="137"/>
        <source>The settings file, such as rights.ini.</source>
        <translation>Le fichier de paramètres, par exemple rights.ini.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsCommand.cpp" line="139"/>
        <source>The settings group that holds FeatureMatrix, if not the top level.</source>
        <translation>Le groupe de paramètres qui contient FeatureMatrix, s&apos;il ne s&apos;agit pas du niveau supérieur.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsCommand.cpp" line="146"/>
        <source>rights: unknown action &apos;%1&apos; (use show)</source>
        <translation>rights : action inconnue &apos;%1&apos; (utiliser show)</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsCommand.cpp" line="154"/>
        <source>Show the rights matrix saved in a settings file</source>
        <translation>Afficher la matrice de droits enregistrée dans un fichier de paramètres</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="28"/>
        <source>Live video</source>
        <translation>Vidéo en direct</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="28"/>
        <source>Playback</source>
        <translation>Lecture</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="29"/>
        <source>Export</source>
        <translation>Exportation</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="35"/>
        <source>Operators</source>
        <translation>Opérateurs</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="35"/>
        <source>Investigators</source>
        <translation>Enquêteurs</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="36"/>
        <source>Administrators</source>
        <translation>Administrateurs</translation>
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
        <translation>oui</translation>
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
        <translation>non</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="95"/>
        <source>A new %1 x %2 matrix allows everything; dirty: %3</source>
        <translation>Une nouvelle matrice %1 x %2 autorise tout ; modifiée : %3</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="105"/>
        <source>After granting rights (* = locked in the user interface); dirty: %1</source>
        <translation>Après l&apos;attribution des droits (* = verrouillé dans l&apos;interface) ; modifiée : %1</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="113"/>
        <source>Investigators may seek recordings (Playback forbidden, Export allowed): %1</source>
        <translation>Les enquêteurs peuvent parcourir les enregistrements (Lecture interdite, Exportation autorisée) : %1</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="125"/>
        <source>Saved to %1: Rows=%2, Columns=%3, Matrix=&quot;%4&quot;; dirty: %5</source>
        <translation>Enregistrée dans %1 : Rows=%2, Columns=%3, Matrix=&quot;%4&quot; ; modifiée : %5</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="139"/>
        <source>Loaded into a fresh matrix (locks are not saved; the application sets them):</source>
        <translation>Chargée dans une nouvelle matrice (les verrous ne sont pas enregistrés ; l&apos;application les pose) :</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="142"/>
        <source>Equal to the saved one: %1; dirty: %2</source>
        <translation>Identique à celle enregistrée : %1 ; modifiée : %2</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="165"/>
        <source>Copied client.ini to backup.ini without the keys ending in &quot;Password&quot;: %1</source>
        <translation>client.ini copié dans backup.ini sans les clés se terminant par « Password » : %1</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="175"/>
        <source>The matrix loaded from the backup&apos;s group Client equals the saved one: %1</source>
        <translation>La matrice chargée depuis le groupe Client de la sauvegarde est identique à celle enregistrée : %1</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="196"/>
        <source>A 3 x 2 matrix refuses the 3 x 3 grid and keeps its cells: %1</source>
        <translation>Une matrice 3 x 2 refuse la grille 3 x 3 et garde ses cellules : %1</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/RightsDemo.cpp" line="205"/>
        <source>Rights matrix</source>
        <translation>Matrice de droits</translation>
    </message>
</context>
</TS>
