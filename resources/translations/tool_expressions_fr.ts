<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr">
<context>
    <name>cktool</name>
    <message>
        <source>Expressions</source>
        <translation>Expressions</translation>
    </message>
    <message>
        <source>Filter as code: %1</source>
        <translation>Filtre en code : %1</translation>
    </message>
    <message>
        <source>Filter as SQL: %1</source>
        <translation>Filtre en SQL : %1</translation>
    </message>
    <message>
        <source>  bound values in order: %1</source>
        <translation>  valeurs liées dans l'ordre : %1</translation>
    </message>
    <message>
        <source>  %1 (events %2, zone %3, recording %4): %5</source>
        <translation>  %1 (événements %2, zone %3, enregistrement %4) : %5</translation>
    </message>
    <message>
        <source>yes</source>
        <translation>oui</translation>
    </message>
    <message>
        <source>no</source>
        <translation>non</translation>
    </message>
    <message>
        <source>matches</source>
        <translation>correspond</translation>
    </message>
    <message>
        <source>no match</source>
        <translation>ne correspond pas</translation>
    </message>
    <message>
        <source>Sort list: %1</source>
        <translation>Liste de tri : %1</translation>
    </message>
    <message>
        <source>Function: %1 gives &quot;%2&quot;</source>
        <translation>Fonction : %1 donne « %2 »</translation>
    </message>
    <message>
        <source>Stream: %1 bytes written, read back %2</source>
        <translation>Flux : %1 octets écrits, relus %2</translation>
    </message>
    <message>
        <source>equal</source>
        <translation>identique</translation>
    </message>
    <message>
        <source>different</source>
        <translation>différent</translation>
    </message>
    <message>
        <source>expr: cannot read standard input</source>
        <translation>expr : impossible de lire l'entrée standard</translation>
    </message>
    <message>
        <source>expr: cannot open '%1': %2</source>
        <translation>expr : impossible d'ouvrir '%1' : %2</translation>
    </message>
    <message>
        <source>Reads an expression tree from a data stream file and prints it as SQL.</source>
        <translation>Lit un arbre d'expression depuis un fichier de flux de données et l'affiche en SQL.</translation>
    </message>
    <message>
        <source>The stream file, or - for standard input.</source>
        <translation>Le fichier de flux, ou - pour l'entrée standard.</translation>
    </message>
    <message>
        <source>Print C-like code text instead of SQL.</source>
        <translation>Afficher un texte de code de style C au lieu du SQL.</translation>
    </message>
    <message>
        <source>Print &quot;?&quot; for bound values and list the values in order.</source>
        <translation>Afficher « ? » pour les valeurs liées et lister les valeurs dans l'ordre.</translation>
    </message>
    <message>
        <source>expr: '%1' is not a complete expression stream</source>
        <translation>expr : '%1' n'est pas un flux d'expression complet</translation>
    </message>
    <message>
        <source>expr: '%1' holds a node this library cannot read, or other data after the expression</source>
        <translation>expr : '%1' contient un nœud que cette bibliothèque ne sait pas lire, ou d'autres données après l'expression</translation>
    </message>
    <message>
        <source>Print an expression stream as SQL or code text</source>
        <translation>Afficher un flux d'expression en SQL ou en texte de code</translation>
    </message>
</context>
</TS>
