<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr">
<context>
    <name>cktool</name>
    <message>
        <source>errorXml: %1 (line %2, column %3)</source>
        <translation>errorXml : %1 (ligne %2, colonne %3)</translation>
    </message>
    <message>
        <source>errorFile: %1 (type %2)</source>
        <translation>errorFile : %1 (type %2)</translation>
    </message>
    <message>
        <source>Default file: %1</source>
        <translation>Fichier par défaut : %1</translation>
    </message>
    <message>
        <source>Three export records:</source>
        <translation>Trois enregistrements d'exportation :</translation>
    </message>
    <message>
        <source>Size rollover after %1 entries; the log now holds %2.</source>
        <translation>Rotation par taille après %1 entrées ; le journal en contient maintenant %2.</translation>
    </message>
    <message>
        <source>Switched to other.kol:</source>
        <translation>Basculé vers other.kol :</translation>
    </message>
    <message>
        <source>Files:</source>
        <translation>Fichiers :</translation>
    </message>
    <message>
        <source>%1 entries</source>
        <translation>%1 entrées</translation>
    </message>
    <message>
        <source>Action log: export records, rollover, switching, recovery</source>
        <translation>Journal des actions : exportations, rotation, basculement, récupération</translation>
    </message>
    <message>
        <source>log append: --split must be none, daily, weekly, monthly or size:BYTES, not '%1'</source>
        <translation>log append : --split doit valoir none, daily, weekly, monthly ou size:OCTETS, pas '%1'</translation>
    </message>
    <message>
        <source>log append: kind '%1' has no value '%2'</source>
        <translation>log append : le type '%1' n'a pas de valeur '%2'</translation>
    </message>
    <message>
        <source>Appends one entry to an action log file, with the rollover and recovery of the action log. By default the entry is an export-done entry whose text is TEXT.</source>
        <translation>Ajoute une entrée à un fichier journal des actions, avec la rotation et la récupération du journal. Par défaut, l'entrée est une fin d'exportation dont le texte est TEXT.</translation>
    </message>
    <message>
        <source>The action: append.</source>
        <translation>L'action : append.</translation>
    </message>
    <message>
        <source>The action log file; created when missing.</source>
        <translation>Le fichier journal des actions ; créé s'il manque.</translation>
    </message>
    <message>
        <source>The entry's text (its value "Text").</source>
        <translation>Le texte de l'entrée (sa valeur "Text").</translation>
    </message>
    <message>
        <source>The four-letter kind of the entry (default ExpD).</source>
        <translation>Le type de l'entrée en quatre lettres (par défaut ExpD).</translation>
    </message>
    <message>
        <source>Sets a value of the entry by its id; repeatable.</source>
        <translation>Définit une valeur de l'entrée par son identifiant ; répétable.</translation>
    </message>
    <message>
        <source>Rollover: none, daily, weekly, monthly or size:BYTES (default size:1048576).</source>
        <translation>Rotation : none, daily, weekly, monthly ou size:OCTETS (par défaut size:1048576).</translation>
    </message>
    <message>
        <source>log append: unknown kind '%1' (known: %2)</source>
        <translation>log append : type inconnu '%1' (connus : %2)</translation>
    </message>
    <message>
        <source>log append: --value needs ID=TEXT, not '%1'</source>
        <translation>log append : --value attend ID=TEXTE, pas '%1'</translation>
    </message>
    <message>
        <source>Closes an action log file for good by appending "&lt;/Entries&gt;"; nothing can be appended to it afterwards.</source>
        <translation>Ferme définitivement un fichier journal des actions en ajoutant "&lt;/Entries&gt;" ; plus rien ne peut y être ajouté ensuite.</translation>
    </message>
    <message>
        <source>The action: finalize.</source>
        <translation>L'action : finalize.</translation>
    </message>
    <message>
        <source>The action log file.</source>
        <translation>Le fichier journal des actions.</translation>
    </message>
    <message>
        <source>log finalize: cannot open '%1': %2</source>
        <translation>log finalize : impossible d'ouvrir '%1' : %2</translation>
    </message>
    <message>
        <source>log finalize: '%1' is not an action log</source>
        <translation>log finalize : '%1' n'est pas un journal des actions</translation>
    </message>
    <message>
        <source>log finalize: '%1' is already closed</source>
        <translation>log finalize : '%1' est déjà fermé</translation>
    </message>
    <message>
        <source>Keep printing the entries that are appended to the file, until interrupted (like tail -f).</source>
        <translation>Continuer à afficher les entrées ajoutées au fichier, jusqu'à interruption (comme tail -f).</translation>
    </message>
    <message>
        <source>log: --follow and --xml cannot be combined</source>
        <translation>log : --follow et --xml ne peuvent pas être combinés</translation>
    </message>
    <message>
        <source>'%1' is not an action log; it was moved aside</source>
        <translation>'%1' n'est pas un journal des actions ; il a été mis de côté</translation>
    </message>
    <message>
        <source>malformed at line %1, column %2: %3; the file is moved aside</source>
        <translation>malformé à la ligne %1, colonne %2 : %3 ; le fichier est mis de côté</translation>
    </message>
    <message>
        <source>logon of '%1' failed with error code %2</source>
        <translation>la connexion de '%1' a échoué avec le code d'erreur %2</translation>
    </message>
</context>
</TS>
