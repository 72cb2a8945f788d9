<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>cktool</name>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="54"/>
        <source>binary key map</source>
        <translation>binäre Schlüssel-Wert-Tabelle</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="56"/>
        <source>JSON settings</source>
        <translation>JSON-Einstellungen</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="58"/>
        <source>INI text</source>
        <translation>INI-Text</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="73"/>
        <source>%1: %2: unknown settings format (use a file ending in .json, .ini or .conf)</source>
        <translation>%1: %2: unbekanntes Einstellungsformat (eine Datei mit der Endung .json, .ini oder .conf verwenden)</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="123"/>
        <source>%1: cannot load the schema %2</source>
        <translation>%1: das Schema %2 kann nicht geladen werden</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="146"/>
        <source>%1: %2 is damaged: it is not readable INI text</source>
        <translation>%1: %2 ist beschädigt: kein lesbarer INI-Text</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="166"/>
        <source>%1: cannot read %2: wrong key or damaged file</source>
        <translation>%1: %2 kann nicht gelesen werden: falscher Schlüssel oder beschädigte Datei</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="167"/>
        <source>%1: cannot read %2: the file is damaged or not a %3 file</source>
        <translation>%1: %2 kann nicht gelesen werden: die Datei ist beschädigt oder keine Datei im Format %3</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="269"/>
        <source>Read and write JSON settings with this JSON schema (a file or a URL).</source>
        <translation>JSON-Einstellungen mit diesem JSON-Schema lesen und schreiben (eine Datei oder eine URL).</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="276"/>
        <source>Prints a settings file as JSON.</source>
        <translation>Gibt eine Einstellungsdatei als JSON aus.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="277"/>
        <source>The settings file (.json, .ini or .conf).</source>
        <translation>Die Einstellungsdatei (.json, .ini oder .conf).</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="304"/>
        <source>Converts a settings file into another format, chosen by the extension of the output.</source>
        <translation>Wandelt eine Einstellungsdatei in ein anderes Format um, gewählt nach der Endung der Ausgabe.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="305"/>
        <source>The settings file to read (.json, .ini or .conf).</source>
        <translation>Die zu lesende Einstellungsdatei (.json, .ini oder .conf).</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="306"/>
        <source>The settings file to write (.json, .ini or .conf).</source>
        <translation>Die zu schreibende Einstellungsdatei (.json, .ini oder .conf).</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="309"/>
        <source>Encrypt the output with the key in this file instead (- for standard input).</source>
        <translation>Die Ausgabe stattdessen mit dem Schlüssel aus dieser Datei verschlüsseln (- für die Standardeingabe).</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="311"/>
        <source>Write the output unencrypted.</source>
        <translation>Die Ausgabe unverschlüsselt schreiben.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="320"/>
        <source>%1: --plain and --out-key-file exclude each other</source>
        <translation>%1: --plain und --out-key-file schließen einander aus</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="329"/>
        <source>%1: %2 is INI text, which cannot be encrypted; add --plain to write it unencrypted</source>
        <translation>%1: %2 ist INI-Text, der nicht verschlüsselt werden kann; mit --plain unverschlüsselt schreiben</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="334"/>
        <source>Converted %1 (%2) into %3 (%4): %5 keys.</source>
        <translation>%1 (%2) in %3 (%4) umgewandelt: %5 Einträge.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="335"/>
        <source>, encrypted</source>
        <translation>, verschlüsselt</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="351"/>
        <source>Usage: commonkit settings &lt;action&gt; [options] [arguments]</source>
        <translation>Aufruf: commonkit settings &lt;Aktion&gt; [Optionen] [Argumente]</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="355"/>
        <source>The extension names the format: .json for JSON settings, .ini for the binary key map (a .ini file of INI text is read as plain QSettings INI), .conf for plain QSettings INI text.</source>
        <translation>Die Endung bestimmt das Format: .json für JSON-Einstellungen, .ini für die binäre Schlüssel-Wert-Tabelle (eine .ini-Datei mit INI-Text wird als einfaches QSettings-INI gelesen), .conf für einfachen QSettings-INI-Text.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="358"/>
        <source>With a key, .json and .ini files are encrypted; the key also decrypts the input.</source>
        <translation>Mit einem Schlüssel werden .json- und .ini-Dateien verschlüsselt; der Schlüssel entschlüsselt auch die Eingabe.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="360"/>
        <source>Run &apos;commonkit settings &lt;action&gt; --help&apos; for the options of an action.</source>
        <translation>&apos;commonkit settings &lt;Aktion&gt; --help&apos; zeigt die Optionen einer Aktion.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="365"/>
        <source>settings: give an action: show or convert</source>
        <translation>settings: eine Aktion angeben: show oder convert</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="366"/>
        <source>settings: unknown action &apos;%1&apos; (use show or convert)</source>
        <translation>settings: unbekannte Aktion &apos;%1&apos; (show oder convert verwenden)</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="370"/>
        <source>Show and convert settings files, encrypted or not</source>
        <translation>Einstellungsdateien anzeigen und umwandeln, verschlüsselt oder nicht</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsDemo.cpp" line="123"/>
        <source>read</source>
        <translation>gelesen</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsDemo.cpp" line="125"/>
        <source>format error</source>
        <translation>Formatfehler</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsDemo.cpp" line="127"/>
        <source>access error</source>
        <translation>Zugriffsfehler</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsDemo.cpp" line="135"/>
        <source>(none)</source>
        <translation>(keiner)</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsDemo.cpp" line="156"/>
        <source>Wrote the viewer settings through QSettings in the JSON format. The port 70000 breaks the schema, so the library warned, and wrote the file all the same:</source>
        <translation>Die Einstellungen des Betrachters wurden über QSettings im JSON-Format geschrieben. Der Port 70000 verletzt das Schema; die Bibliothek hat gewarnt und die Datei trotzdem geschrieben:</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsDemo.cpp" line="177"/>
        <source>SHA-256 of the file: %1 (kept by the library after the write)</source>
        <translation>SHA-256 der Datei: %1 (von der Bibliothek nach dem Schreiben festgehalten)</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsDemo.cpp" line="185"/>
        <source>Read back: %1, %2 keys, equal to what was written: %3</source>
        <translation>Zurückgelesen: %1, %2 Einträge, gleich dem Geschriebenen: %3</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsDemo.cpp" line="200"/>
        <source>The same settings with a key set: %1 bytes, compressed and then encrypted, beginning %2</source>
        <translation>Dieselben Einstellungen mit gesetztem Schlüssel: %1 Bytes, komprimiert und dann verschlüsselt, beginnend mit %2</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsDemo.cpp" line="204"/>
        <source>SHA-256 of the plain content: %1 (the same as above: %2)</source>
        <translation>SHA-256 des Klartextinhalts: %1 (derselbe wie oben: %2)</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsDemo.cpp" line="213"/>
        <source>Read back with the key: %1, equal to what was written: %2</source>
        <translation>Mit dem Schlüssel zurückgelesen: %1, gleich dem Geschriebenen: %2</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsDemo.cpp" line="222"/>
        <source>Read without the key: %1, %2 keys, digest %3</source>
        <translation>Ohne Schlüssel gelesen: %1, %2 Einträge, Prüfsumme %3</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsDemo.cpp" line="229"/>
        <source>Read with the key after one bit of byte %1 was flipped: %2, %3 keys, digest %4</source>
        <translation>Mit dem Schlüssel gelesen, nachdem ein Bit von Byte %1 gekippt wurde: %2, %3 Einträge, Prüfsumme %4</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsDemo.cpp" line="242"/>
        <source>Encrypted settings</source>
        <translation>Verschlüsselte Einstellungen</translation>
    </message>
</context>
</TS>
