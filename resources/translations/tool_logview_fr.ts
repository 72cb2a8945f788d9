<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr">
<context>
    <name>cktool</name>
    <message>
        <source>Saved filter: %1</source>
        <translation>Filtre enregistré : %1</translation>
    </message>
    <message>
        <source>  as SQL to bind: %1  with (%2)</source>
        <translation>  en SQL à lier : %1  avec (%2)</translation>
    </message>
    <message>
        <source>Action log filter: %1</source>
        <translation>Filtre du journal des actions : %1</translation>
    </message>
    <message>
        <source>  %1 of %2 entries shown:</source>
        <translation>  %1 entrées affichées sur %2 :</translation>
    </message>
    <message>
        <source>Filters as text: saved, parsed and applied</source>
        <translation>Filtres en texte : enregistrés, lus et appliqués</translation>
    </message>
    <message>
        <source>Shows the entries of an action log file, one line each: time, user, category, title and description. Other actions: append, finalize, stats (see commonkit log append --help).</source>
        <translation>Affiche les entrées d'un fichier journal des actions, une ligne chacune : heure, utilisateur, catégorie, titre et description. Autres actions : append, finalize, stats (voir commonkit log append --help).</translation>
    </message>
    <message>
        <source>Show only the entries the filter accepts (see docs/filter-language.md).</source>
        <translation>N'afficher que les entrées acceptées par le filtre (voir docs/filter-language.md).</translation>
    </message>
    <message>
        <source>Output: text (default), json (one object per line), csv or xml.</source>
        <translation>Sortie : text (par défaut), json (un objet par ligne), csv ou xml.</translation>
    </message>
    <message>
        <source>log: unknown action '%1' (use show, append, finalize or stats)</source>
        <translation>log : action inconnue '%1' (utilisez show, append, finalize ou stats)</translation>
    </message>
    <message>
        <source>log: --where: %1</source>
        <translation>log : --where : %1</translation>
    </message>
    <message>
        <source>log: --format must be text, json, csv or xml, not '%1'</source>
        <translation>log : --format doit valoir text, json, csv ou xml, pas '%1'</translation>
    </message>
    <message>
        <source>Counts the entries of an action log file per category, per user and per day.</source>
        <translation>Compte les entrées d'un fichier journal des actions par catégorie, par utilisateur et par jour.</translation>
    </message>
    <message>
        <source>The action: stats.</source>
        <translation>L'action : stats.</translation>
    </message>
    <message>
        <source>Count only the entries the filter accepts (see docs/filter-language.md).</source>
        <translation>Ne compter que les entrées acceptées par le filtre (voir docs/filter-language.md).</translation>
    </message>
    <message>
        <source>Per category:</source>
        <translation>Par catégorie :</translation>
    </message>
    <message>
        <source>Per user:</source>
        <translation>Par utilisateur :</translation>
    </message>
    <message>
        <source>Per day:</source>
        <translation>Par jour :</translation>
    </message>
</context>
</TS>
