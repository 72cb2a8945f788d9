<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr_FR">
<context>
    <name>ko::EncryptedFile</name>
    <message>
        <source>Cannot create %1: %2</source>
        <translation>Impossible de créer %1 : %2</translation>
    </message>
    <message>
        <source>Cannot open the device stack of %1: %2</source>
        <translation>Impossible d'ouvrir la pile de périphériques de %1 : %2</translation>
    </message>
    <message>
        <source>%1 is not a container: it is too short for a trailer.</source>
        <translation>%1 n'est pas un conteneur : il est trop court pour une fin de fichier.</translation>
    </message>
    <message>
        <source>Cannot read the trailer of %1: %2</source>
        <translation>Impossible de lire la fin de fichier de %1 : %2</translation>
    </message>
    <message>
        <source>%1 is not a container: its trailer claims %2 bytes of metadata in a file of %3 bytes.</source>
        <translation>%1 n'est pas un conteneur : sa fin de fichier annonce %2 octets de métadonnées dans un fichier de %3 octets.</translation>
    </message>
    <message>
        <source>%1 is not a container: its trailer claims %2 bytes of metadata, more than the %3 that are read.</source>
        <translation>%1 n'est pas un conteneur : sa fin de fichier annonce %2 octets de métadonnées, plus que les %3 qui sont lus.</translation>
    </message>
    <message>
        <source>Cannot read the metadata of %1: %2</source>
        <translation>Impossible de lire les métadonnées de %1 : %2</translation>
    </message>
    <message>
        <source>%1 is not a container: its metadata is not JSON (%2).</source>
        <translation>%1 n'est pas un conteneur : ses métadonnées ne sont pas du JSON (%2).</translation>
    </message>
    <message>
        <source>%1 is not a container: its metadata is not a JSON object.</source>
        <translation>%1 n'est pas un conteneur : ses métadonnées ne sont pas un objet JSON.</translation>
    </message>
    <message>
        <source>%1 does not exist.</source>
        <translation>%1 n'existe pas.</translation>
    </message>
    <message>
        <source>%1 is not a regular file.</source>
        <translation>%1 n'est pas un fichier ordinaire.</translation>
    </message>
    <message>
        <source>Cannot open %1: %2</source>
        <translation>Impossible d'ouvrir %1 : %2</translation>
    </message>
    <message>
        <source>The metadata of %1 names an unknown digest algorithm "%2".</source>
        <translation>Les métadonnées de %1 indiquent un algorithme d'empreinte inconnu « %2 ».</translation>
    </message>
    <message>
        <source>The container is not open for reading.</source>
        <translation>Le conteneur n'est pas ouvert en lecture.</translation>
    </message>
    <message>
        <source>There is no public key to check the signature of %1 with.</source>
        <translation>Aucune clé publique pour vérifier la signature de %1.</translation>
    </message>
    <message>
        <source>%1 carries no signature.</source>
        <translation>%1 ne porte aucune signature.</translation>
    </message>
    <message>
        <source>The metadata of %1 records no content length.</source>
        <translation>Les métadonnées de %1 n'indiquent aucune longueur de contenu.</translation>
    </message>
    <message>
        <source>The payload of %1 is longer than recorded.</source>
        <translation>Le contenu de %1 est plus long qu'indiqué.</translation>
    </message>
    <message>
        <source>Cannot read the payload of %1: %2</source>
        <translation>Impossible de lire le contenu de %1 : %2</translation>
    </message>
    <message>
        <source>The payload of %1 is shorter than recorded.</source>
        <translation>Le contenu de %1 est plus court qu'indiqué.</translation>
    </message>
    <message>
        <source>The signature of %1 is not valid: %2</source>
        <translation>La signature de %1 n'est pas valide : %2</translation>
    </message>
</context>
</TS>
