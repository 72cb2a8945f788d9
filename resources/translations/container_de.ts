<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>ko::EncryptedFile</name>
    <message>
        <source>Cannot create %1: %2</source>
        <translation>%1 kann nicht angelegt werden: %2</translation>
    </message>
    <message>
        <source>Cannot open the device stack of %1: %2</source>
        <translation>Der Gerätestapel von %1 kann nicht geöffnet werden: %2</translation>
    </message>
    <message>
        <source>%1 is not a container: it is too short for a trailer.</source>
        <translation>%1 ist kein Container: Die Datei ist zu kurz für einen Nachspann.</translation>
    </message>
    <message>
        <source>Cannot read the trailer of %1: %2</source>
        <translation>Der Nachspann von %1 kann nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>%1 is not a container: its trailer claims %2 bytes of metadata in a file of %3 bytes.</source>
        <translation>%1 ist kein Container: Der Nachspann gibt %2 Byte Metadaten in einer Datei von %3 Byte an.</translation>
    </message>
    <message>
        <source>%1 is not a container: its trailer claims %2 bytes of metadata, more than the %3 that are read.</source>
        <translation>%1 ist kein Container: Der Nachspann gibt %2 Byte Metadaten an, mehr als die %3, die gelesen werden.</translation>
    </message>
    <message>
        <source>Cannot read the metadata of %1: %2</source>
        <translation>Die Metadaten von %1 können nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>%1 is not a container: its metadata is not JSON (%2).</source>
        <translation>%1 ist kein Container: Die Metadaten sind kein JSON (%2).</translation>
    </message>
    <message>
        <source>%1 is not a container: its metadata is not a JSON object.</source>
        <translation>%1 ist kein Container: Die Metadaten sind kein JSON-Objekt.</translation>
    </message>
    <message>
        <source>%1 does not exist.</source>
        <translation>%1 existiert nicht.</translation>
    </message>
    <message>
        <source>%1 is not a regular file.</source>
        <translation>%1 ist keine reguläre Datei.</translation>
    </message>
    <message>
        <source>Cannot open %1: %2</source>
        <translation>%1 kann nicht geöffnet werden: %2</translation>
    </message>
    <message>
        <source>The metadata of %1 names an unknown digest algorithm "%2".</source>
        <translation>Die Metadaten von %1 nennen einen unbekannten Hash-Algorithmus „%2“.</translation>
    </message>
    <message>
        <source>The container is not open for reading.</source>
        <translation>Der Container ist nicht zum Lesen geöffnet.</translation>
    </message>
    <message>
        <source>There is no public key to check the signature of %1 with.</source>
        <translation>Es gibt keinen öffentlichen Schlüssel, um die Signatur von %1 zu prüfen.</translation>
    </message>
    <message>
        <source>%1 carries no signature.</source>
        <translation>%1 trägt keine Signatur.</translation>
    </message>
    <message>
        <source>The metadata of %1 records no content length.</source>
        <translation>Die Metadaten von %1 verzeichnen keine Inhaltslänge.</translation>
    </message>
    <message>
        <source>The payload of %1 is longer than recorded.</source>
        <translation>Die Nutzdaten von %1 sind länger als verzeichnet.</translation>
    </message>
    <message>
        <source>Cannot read the payload of %1: %2</source>
        <translation>Die Nutzdaten von %1 können nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>The payload of %1 is shorter than recorded.</source>
        <translation>Die Nutzdaten von %1 sind kürzer als verzeichnet.</translation>
    </message>
    <message>
        <source>The signature of %1 is not valid: %2</source>
        <translation>Die Signatur von %1 ist ungültig: %2</translation>
    </message>
</context>
</TS>
