<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr">
<context>
    <name>cktool</name>
    <message>
        <source>The action: show.</source>
        <translation>L'action : show.</translation>
    </message>
    <message>
        <source>The action log file (live or closed).</source>
        <translation>Le fichier de journal des actions (en cours ou clos).</translation>
    </message>
    <message>
        <source>Write the entries as a closed action log document instead.</source>
        <translation>Écrire plutôt les entrées sous forme de document de journal des actions clos.</translation>
    </message>
    <message>
        <source>log: cannot open '%1': %2</source>
        <translation>log : impossible d'ouvrir '%1' : %2</translation>
    </message>
    <message>
        <source>note: %1 entries of kinds unknown to this program were skipped</source>
        <translation>remarque : %1 entrées de types inconnus de ce programme ont été ignorées</translation>
    </message>
    <message>
        <source>log: %1: malformed at line %2, column %3: %4</source>
        <translation>log : %1 : mal formé à la ligne %2, colonne %3 : %4</translation>
    </message>
    <message>
        <source>Show the entries of an action log file</source>
        <translation>Afficher les entrées d'un fichier de journal des actions</translation>
    </message>
    <message>
        <source>Camera '%1' shown on monitor %2.</source>
        <translation>Caméra '%1' affichée sur le moniteur %2.</translation>
    </message>
    <message>
        <source>Camera shown</source>
        <translation>Caméra affichée</translation>
    </message>
    <message>
        <source>Wrote %1 entries to %2 (%3 bytes, one line, no closing tag):</source>
        <translation>%1 entrées écrites dans %2 (%3 octets, une ligne, sans balise de fin) :</translation>
    </message>
    <message>
        <source>Read back %1 entries:</source>
        <translation>%1 entrées relues :</translation>
    </message>
    <message>
        <source>Cut 10 bytes short: %1 complete entries, no error.</source>
        <translation>Tronqué de 10 octets : %1 entrées complètes, aucune erreur.</translation>
    </message>
    <message>
        <source>With a stray end tag: %1 entries, then:</source>
        <translation>Avec une balise de fin isolée : %1 entrées, puis :</translation>
    </message>
    <message>
        <source>Action log entries</source>
        <translation>Entrées du journal des actions</translation>
    </message>
</context>
</TS>
