<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr">
<context>
    <name>FilterParser</name>
    <message>
        <source>'%2' at column %1 cannot stand inside a function call, a CAST or an ELSE part</source>
        <translation>'%2' à la colonne %1 ne peut pas figurer dans un appel de fonction, un CAST ou une partie ELSE</translation>
    </message>
    <message>
        <source>'--' at column %1 starts a comment in SQL; write '- -'</source>
        <translation>'--' à la colonne %1 commence un commentaire en SQL ; écrivez '- -'</translation>
    </message>
    <message>
        <source>nesting deeper than %2 levels at column %1</source>
        <translation>imbrication de plus de %2 niveaux à la colonne %1</translation>
    </message>
    <message>
        <source>number out of range '%2' at column %1</source>
        <translation>nombre hors limites '%2' à la colonne %1</translation>
    </message>
    <message>
        <source>the comparison in parentheses at column %1 cannot be an operand of '%2'</source>
        <translation>la comparaison entre parenthèses à la colonne %1 ne peut pas être un opérande de '%2'</translation>
    </message>
    <message>
        <source>too few arguments for '%2' at column %1 (at least %3)</source>
        <translation>trop peu d'arguments pour '%2' à la colonne %1 (au moins %3)</translation>
    </message>
    <message>
        <source>too many arguments for '%2' at column %1 (at most %3)</source>
        <translation>trop d'arguments pour '%2' à la colonne %1 (au plus %3)</translation>
    </message>
    <message>
        <source>unexpected '%2' at column %1</source>
        <translation>'%2' inattendu à la colonne %1</translation>
    </message>
    <message>
        <source>unexpected end of text at column %1</source>
        <translation>fin de texte inattendue à la colonne %1</translation>
    </message>
    <message>
        <source>unknown function '%2' at column %1</source>
        <translation>fonction inconnue '%2' à la colonne %1</translation>
    </message>
    <message>
        <source>unknown property '%2' at column %1</source>
        <translation>propriété inconnue '%2' à la colonne %1</translation>
    </message>
    <message>
        <source>unknown type '%2' at column %1</source>
        <translation>type inconnu '%2' à la colonne %1</translation>
    </message>
    <message>
        <source>unterminated string at column %1</source>
        <translation>chaîne non terminée à la colonne %1</translation>
    </message>
</context>
</TS>
