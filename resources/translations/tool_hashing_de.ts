<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>cktool</name>
    <message>
        <location filename="../../tools/commonkit/HashingCommand.cpp" line="+23"/>
        <source>The password, or - to read it as one line from standard input.</source>
        <translation>Das Passwort, oder -, um es als eine Zeile von der Standardeingabe zu lesen.</translation>
    </message>
    <message>
        <location line="+10"/>
        <source>%1: cannot read standard input</source>
        <translation>%1: die Standardeingabe kann nicht gelesen werden</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>%1: no password on standard input</source>
        <translation>%1: kein Passwort auf der Standardeingabe</translation>
    </message>
    <message>
        <location line="+19"/>
        <source>%1: the user name has characters outside Latin-1</source>
        <translation>%1: der Benutzername enthält Zeichen außerhalb von Latin-1</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>%1: the realm has characters outside Latin-1</source>
        <translation>%1: der Realm enthält Zeichen außerhalb von Latin-1</translation>
    </message>
    <message>
        <location line="+4"/>
        <source>%1: the password has characters outside Latin-1</source>
        <translation>%1: das Passwort enthält Zeichen außerhalb von Latin-1</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>Prints the traditional DES crypt hash of a password (13 characters, the salt first). Only the first 8 characters of the password count. Without --salt the library&apos;s generated salt is used, which is the same on every call.</source>
        <translation>Gibt den traditionellen DES-crypt-Hash eines Passworts aus (13 Zeichen, das Salt zuerst). Nur die ersten 8 Zeichen des Passworts zählen. Ohne --salt wird das von der Bibliothek erzeugte Salt verwendet, das bei jedem Aufruf dasselbe ist.</translation>
    </message>
    <message>
        <location line="+4"/>
        <source>Two salt characters out of ./0-9A-Za-z.</source>
        <translation>Zwei Salt-Zeichen aus ./0-9A-Za-z.</translation>
    </message>
    <message>
        <location line="+14"/>
        <source>crypt: the salt must be two characters out of ./0-9A-Za-z</source>
        <translation>crypt: das Salt muss aus zwei Zeichen aus ./0-9A-Za-z bestehen</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>note: only the first 8 characters of the password count</source>
        <translation>Hinweis: nur die ersten 8 Zeichen des Passworts zählen</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>Prints the HTTP digest hash HA1, MD5 of user:realm:password in lower-case hexadecimal.</source>
        <translation>Gibt den HTTP-Digest-Hash HA1 aus, den MD5 von Benutzer:Realm:Passwort in hexadezimalen Kleinbuchstaben.</translation>
    </message>
    <message>
        <location line="+2"/>
        <location line="+21"/>
        <source>The user name.</source>
        <translation>Der Benutzername.</translation>
    </message>
    <message>
        <location line="-20"/>
        <location line="+23"/>
        <source>The realm of the server.</source>
        <translation>Der Realm des Servers.</translation>
    </message>
    <message>
        <location line="-5"/>
        <source>Prints a user line for a device&apos;s access list: user:access:crypt-hash:HA1. The salt of the crypt hash changes every second.</source>
        <translation>Gibt eine Benutzerzeile für die Zugriffsliste eines Geräts aus: Benutzer:Zugriff:crypt-Hash:HA1. Das Salt des crypt-Hashs wechselt jede Sekunde.</translation>
    </message>
    <message>
        <location line="+4"/>
        <source>The access text of the line, such as admin.</source>
        <translation>Der Zugriffstext der Zeile, etwa admin.</translation>
    </message>
    <message>
        <location line="+12"/>
        <source>access-line: user and access must not contain &apos;:&apos;</source>
        <translation>access-line: Benutzer und Zugriff dürfen kein &apos;:&apos; enthalten</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>DES crypt hash of a password</source>
        <translation>DES-crypt-Hash eines Passworts</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>HTTP digest hash of user, realm and password</source>
        <translation>HTTP-Digest-Hash aus Benutzer, Realm und Passwort</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Access-list line of a device user</source>
        <translation>Zugriffslistenzeile eines Gerätebenutzers</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/HashingDemo.cpp" line="+21"/>
        <source>DES crypt of &quot;%1&quot; with salt &quot;ab&quot;: %2</source>
        <translation>DES-crypt von &quot;%1&quot; mit Salt &quot;ab&quot;: %2</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>  only the first 8 characters count: &quot;%1&quot; gives %2</source>
        <translation>  nur die ersten 8 Zeichen zählen: &quot;%1&quot; ergibt %2</translation>
    </message>
    <message>
        <location line="+8"/>
        <source>HTTP digest HA1 of Mufasa / testrealm@host.com: %1</source>
        <translation>HTTP-Digest-HA1 von Mufasa / testrealm@host.com: %1</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>Access-list line (the salt changes every second): %1</source>
        <translation>Zugriffslistenzeile (das Salt wechselt jede Sekunde): %1</translation>
    </message>
    <message>
        <location line="+12"/>
        <source>Blowfish: &quot;%1&quot; is stored as %2 (%3 bytes) and reads back as &quot;%4&quot;</source>
        <translation>Blowfish: &quot;%1&quot; wird als %2 (%3 Bytes) gespeichert und als &quot;%4&quot; zurückgelesen</translation>
    </message>
    <message>
        <location line="+10"/>
        <source>Password hashing</source>
        <translation>Passwort-Hashes</translation>
    </message>
</context>
</TS>
