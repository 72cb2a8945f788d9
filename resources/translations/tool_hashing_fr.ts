<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr">
<context>
    <name>cktool</name>
    <message>
        <location filename="../../tools/commonkit/HashingCommand.cpp" line="+23"/>
        <source>The password, or - to read it as one line from standard input.</source>
        <translation>Le mot de passe, ou - pour le lire comme une ligne de l&apos;entrée standard.</translation>
    </message>
    <message>
        <location line="+10"/>
        <source>%1: cannot read standard input</source>
        <translation>%1 : impossible de lire l&apos;entrée standard</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>%1: no password on standard input</source>
        <translation>%1 : aucun mot de passe sur l&apos;entrée standard</translation>
    </message>
    <message>
        <location line="+19"/>
        <source>%1: the user name has characters outside Latin-1</source>
        <translation>%1 : le nom d&apos;utilisateur contient des caractères hors Latin-1</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>%1: the realm has characters outside Latin-1</source>
        <translation>%1 : le domaine contient des caractères hors Latin-1</translation>
    </message>
    <message>
        <location line="+4"/>
        <source>%1: the password has characters outside Latin-1</source>
        <translation>%1 : le mot de passe contient des caractères hors Latin-1</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>Prints the traditional DES crypt hash of a password (13 characters, the salt first). Only the first 8 characters of the password count. Without --salt the library&apos;s generated salt is used, which is the same on every call.</source>
        <translation>Affiche le hachage DES crypt traditionnel d&apos;un mot de passe (13 caractères, le sel en premier). Seuls les 8 premiers caractères du mot de passe comptent. Sans --salt, le sel généré par la bibliothèque est utilisé ; il est le même à chaque appel.</translation>
    </message>
    <message>
        <location line="+4"/>
        <source>Two salt characters out of ./0-9A-Za-z.</source>
        <translation>Deux caractères de sel parmi ./0-9A-Za-z.</translation>
    </message>
    <message>
        <location line="+14"/>
        <source>crypt: the salt must be two characters out of ./0-9A-Za-z</source>
        <translation>crypt : le sel doit compter deux caractères parmi ./0-9A-Za-z</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>note: only the first 8 characters of the password count</source>
        <translation>remarque : seuls les 8 premiers caractères du mot de passe comptent</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>Prints the HTTP digest hash HA1, MD5 of user:realm:password in lower-case hexadecimal.</source>
        <translation>Affiche le hachage HTTP digest HA1, le MD5 de utilisateur:domaine:mot de passe en hexadécimal minuscule.</translation>
    </message>
    <message>
        <location line="+2"/>
        <location line="+21"/>
        <source>The user name.</source>
        <translation>Le nom d&apos;utilisateur.</translation>
    </message>
    <message>
        <location line="-20"/>
        <location line="+23"/>
        <source>The realm of the server.</source>
        <translation>Le domaine (realm) du serveur.</translation>
    </message>
    <message>
        <location line="-5"/>
        <source>Prints a user line for a device&apos;s access list: user:access:crypt-hash:HA1. The salt of the crypt hash changes every second.</source>
        <translation>Affiche une ligne d&apos;utilisateur pour la liste d&apos;accès d&apos;un appareil : utilisateur:accès:hachage-crypt:HA1. Le sel du hachage crypt change chaque seconde.</translation>
    </message>
    <message>
        <location line="+4"/>
        <source>The access text of the line, such as admin.</source>
        <translation>Le texte d&apos;accès de la ligne, par exemple admin.</translation>
    </message>
    <message>
        <location line="+12"/>
        <source>access-line: user and access must not contain &apos;:&apos;</source>
        <translation>access-line : l&apos;utilisateur et l&apos;accès ne doivent pas contenir &apos;:&apos;</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>DES crypt hash of a password</source>
        <translation>Hachage DES crypt d&apos;un mot de passe</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>HTTP digest hash of user, realm and password</source>
        <translation>Hachage HTTP digest d&apos;utilisateur, domaine et mot de passe</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Access-list line of a device user</source>
        <translation>Ligne de liste d&apos;accès d&apos;un utilisateur d&apos;appareil</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/HashingDemo.cpp" line="+21"/>
        <source>DES crypt of &quot;%1&quot; with salt &quot;ab&quot;: %2</source>
        <translation>DES crypt de « %1 » avec le sel « ab » : %2</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>  only the first 8 characters count: &quot;%1&quot; gives %2</source>
        <translation>  seuls les 8 premiers caractères comptent : « %1 » donne %2</translation>
    </message>
    <message>
        <location line="+8"/>
        <source>HTTP digest HA1 of Mufasa / testrealm@host.com: %1</source>
        <translation>HA1 HTTP digest de Mufasa / testrealm@host.com : %1</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>Access-list line (the salt changes every second): %1</source>
        <translation>Ligne de liste d&apos;accès (le sel change chaque seconde) : %1</translation>
    </message>
    <message>
        <location line="+12"/>
        <source>Blowfish: &quot;%1&quot; is stored as %2 (%3 bytes) and reads back as &quot;%4&quot;</source>
        <translation>Blowfish : « %1 » est stocké comme %2 (%3 octets) et se relit comme « %4 »</translation>
    </message>
    <message>
        <location line="+10"/>
        <source>Password hashing</source>
        <translation>Hachage de mots de passe</translation>
    </message>
</context>
</TS>
