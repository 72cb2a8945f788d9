<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr">
<context>
    <name>ActionLog</name>
    <message>
        <source>None</source>
        <translation>Aucune</translation>
    </message>
    <message>
        <source>Access</source>
        <translation>Accès</translation>
    </message>
    <message>
        <source>Logon &amp; Logoff</source>
        <translation>Connexion &amp; déconnexion</translation>
    </message>
    <message>
        <source>User &amp; Groups</source>
        <translation>Utilisateurs &amp; groupes</translation>
    </message>
    <message>
        <source>Authorize</source>
        <translation>Autorisation</translation>
    </message>
    <message>
        <source>Software updates</source>
        <translation>Mises à jour logicielles</translation>
    </message>
    <message>
        <source>Camera Settings</source>
        <translation>Paramètres de caméra</translation>
    </message>
    <message>
        <source>Web browser</source>
        <translation>Navigateur web</translation>
    </message>
    <message>
        <source>Network messages</source>
        <translation>Messages réseau</translation>
    </message>
    <message>
        <source>Softbuttons</source>
        <translation>Boutons logiciels</translation>
    </message>
    <message>
        <source>Formatting</source>
        <translation>Formatage</translation>
    </message>
    <message>
        <source>Daxil configuration</source>
        <translation>Configuration de Daxil</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Quitter</translation>
    </message>
    <message>
        <source>Layout Manager</source>
        <translation>Gestionnaire de dispositions</translation>
    </message>
    <message>
        <source>Display scaling</source>
        <translation>Mise à l'échelle de l'affichage</translation>
    </message>
    <message>
        <source>Context menus</source>
        <translation>Menus contextuels</translation>
    </message>
    <message>
        <source>Upload Assistant</source>
        <translation>Assistant de téléversement</translation>
    </message>
    <message>
        <source>Action log</source>
        <translation>Journal des actions</translation>
    </message>
    <message>
        <source>Event Search</source>
        <translation>Recherche d'événements</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportation</translation>
    </message>
    <message>
        <source>Local archive</source>
        <translation>Archive locale</translation>
    </message>
    <message>
        <source>Video search</source>
        <translation>Recherche vidéo</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Lecture</translation>
    </message>
    <message>
        <source>Viewing</source>
        <translation>Visualisation</translation>
    </message>
    <message>
        <source>Alarm</source>
        <translation>Alarme</translation>
    </message>
    <message>
        <source>Sequencer</source>
        <translation>Séquenceur</translation>
    </message>
    <message>
        <source>Layout</source>
        <translation>Disposition</translation>
    </message>
    <message>
        <source>Audio</source>
        <translation>Audio</translation>
    </message>
    <message>
        <source>PTZ</source>
        <translation>PTZ</translation>
    </message>
    <message>
        <source>PTZ post</source>
        <translation>Position PTZ</translation>
    </message>
    <message>
        <source>PTZ config</source>
        <translation>Configuration PTZ</translation>
    </message>
    <message>
        <source>PTZ post config</source>
        <translation>Configuration des positions PTZ</translation>
    </message>
    <message>
        <source>Signal outs</source>
        <translation>Sorties de signal</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Erreur</translation>
    </message>
    <message>
        <source>Remote control</source>
        <translation>Télécommande</translation>
    </message>
    <message>
        <source>Devices</source>
        <translation>Appareils</translation>
    </message>
    <message>
        <source>System</source>
        <translation>Système</translation>
    </message>
    <message>
        <source>Action log error</source>
        <translation>Erreur du journal des actions</translation>
    </message>
    <message>
        <source>Error '%1' reading action log '%2' in line '%3', column '%4'.</source>
        <translation>Erreur '%1' lors de la lecture du journal des actions '%2' à la ligne '%3', colonne '%4'.</translation>
    </message>
</context>
</TS>
