<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr">
<context>
    <name>cktool</name>
    <message>
        <source>Bound: %1</source>
        <translation>Lié : %1</translation>
    </message>
    <message>
        <source>Code: %1</source>
        <translation>Code : %1</translation>
    </message>
    <message>
        <source>Declares a property the filter may name; the type is one of bool, int, uint, u64, float, double, string (the default), stringlist, bytearray, date, time, datetime, variant. Repeatable.</source>
        <translation>Déclare une propriété que le filtre peut nommer ; le type est l'un de bool, int, uint, u64, float, double, string (par défaut), stringlist, bytearray, date, time, datetime, variant. Répétable.</translation>
    </message>
    <message>
        <source>Declares several properties at once, separated by commas.</source>
        <translation>Déclare plusieurs propriétés à la fois, séparées par des virgules.</translation>
    </message>
    <message>
        <source>Print an expression stream, or parse a filter text, as SQL or code text</source>
        <translation>Afficher un flux d'expression, ou analyser un texte de filtre, en SQL ou en texte de code</translation>
    </message>
    <message>
        <source>Reads a filter written as SQL text and prints the tree as SQL, with its bound values, and as code text.</source>
        <translation>Lit un filtre écrit en texte SQL et affiche l'arbre en SQL, avec ses valeurs liées, et en texte de code.</translation>
    </message>
    <message>
        <source>Reads an expression tree from a data stream file and prints it as SQL. "commonkit expr parse --help" tells how to read a filter text.</source>
        <translation>Lit un arbre d'expression depuis un fichier de flux de données et l'affiche en SQL. « commonkit expr parse --help » explique comment lire un texte de filtre.</translation>
    </message>
    <message>
        <source>SQL: %1</source>
        <translation>SQL : %1</translation>
    </message>
    <message>
        <source>Stream written to %1</source>
        <translation>Flux écrit dans %1</translation>
    </message>
    <message>
        <source>The filter text, or - for standard input. Put -- before a filter that starts with a minus sign and a blank.</source>
        <translation>Le texte du filtre, ou - pour l'entrée standard. Mettez -- devant un filtre qui commence par un signe moins et une espace.</translation>
    </message>
    <message>
        <source>Writes the tree as an expression stream to the file.</source>
        <translation>Écrit l'arbre comme flux d'expression dans le fichier.</translation>
    </message>
    <message>
        <source>expr parse: %1</source>
        <translation>expr parse : %1</translation>
    </message>
    <message>
        <source>expr parse: cannot declare '%1' (types: bool, int, uint, u64, float, double, string, stringlist, bytearray, date, time, datetime, variant)</source>
        <translation>expr parse : impossible de déclarer '%1' (types : bool, int, uint, u64, float, double, string, stringlist, bytearray, date, time, datetime, variant)</translation>
    </message>
    <message>
        <source>expr parse: cannot write '%1': %2</source>
        <translation>expr parse : impossible d'écrire '%1' : %2</translation>
    </message>
    <message>
        <source>expr parse: note: the stream holds a CASE, which stream readers cannot read back</source>
        <translation>expr parse : remarque : le flux contient un CASE que les lecteurs de flux ne peuvent pas relire</translation>
    </message>
</context>
</TS>
