<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr_FR">
<context>
    <name>cktool</name>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="54"/>
        <source>binary key map</source>
        <translation>table clé-valeur binaire</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="56"/>
        <source>JSON settings</source>
        <translation>paramètres JSON</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="58"/>
        <source>INI text</source>
        <translation>texte INI</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="73"/>
        <source>%1: %2: unknown settings format (use a file ending in .json, .ini or .conf)</source>
        <translation>%1 : %2 : format de paramètres inconnu (utilisez un fichier se terminant par .json, .ini ou .conf)</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="123"/>
        <source>%1: cannot load the schema %2</source>
        <translation>%1 : impossible de charger le schéma %2</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="146"/>
        <source>%1: %2 is damaged: it is not readable INI text</source>
        <translation>%1 : %2 est endommagé : ce n’est pas un texte INI lisible</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="166"/>
        <source>%1: cannot read %2: wrong key or damaged file</source>
        <translation>%1 : impossible de lire %2 : mauvaise clé ou fichier endommagé</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="167"/>
        <source>%1: cannot read %2: the file is damaged or not a %3 file</source>
        <translation>%1 : impossible de lire %2 : le fichier est endommagé ou n’est pas au format %3</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="269"/>
        <source>Read and write JSON settings with this JSON schema (a file or a URL).</source>
        <translation>Lire et écrire les paramètres JSON avec ce schéma JSON (un fichier ou une URL).</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="276"/>
        <source>Prints a settings file as JSON.</source>
        <translation>Affiche un fichier de paramètres en JSON.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="277"/>
        <source>The settings file (.json, .ini or .conf).</source>
        <translation>Le fichier de paramètres (.json, .ini ou .conf).</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="304"/>
        <source>Converts a settings file into another format, chosen by the extension of the output.</source>
        <translation>Convertit un fichier de paramètres dans un autre format, choisi d’après l’extension de la sortie.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="305"/>
        <source>The settings file to read (.json, .ini or .conf).</source>
        <translation>Le fichier de paramètres à lire (.json, .ini ou .conf).</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="306"/>
        <source>The settings file to write (.json, .ini or .conf).</source>
        <translation>Le fichier de paramètres à écrire (.json, .ini ou .conf).</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="309"/>
        <source>Encrypt the output with the key in this file instead (- for standard input).</source>
        <translation>Chiffrer plutôt la sortie avec la clé de ce fichier (- pour l’entrée standard).</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="311"/>
        <source>Write the output unencrypted.</source>
        <translation>Écrire la sortie sans chiffrement.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="320"/>
        <source>%1: --plain and --out-key-file exclude each other</source>
        <translation>%1 : --plain et --out-key-file s’excluent mutuellement</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="329"/>
        <source>%1: %2 is INI text, which cannot be encrypted; add --plain to write it unencrypted</source>
        <translation>%1 : %2 est un texte INI, qui ne peut pas être chiffré ; ajoutez --plain pour l’écrire sans chiffrement</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="334"/>
        <source>Converted %1 (%2) into %3 (%4): %5 keys.</source>
        <translation>%1 (%2) converti en %3 (%4) : %5 entrées.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="335"/>
        <source>, encrypted</source>
        <translation>, chiffré</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="351"/>
        <source>Usage: commonkit settings &lt;action&gt; [options] [arguments]</source>
        <translation>Utilisation : commonkit settings &lt;action&gt; [options] [arguments]</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="355"/>
        <source>The extension names the format: .json for JSON settings, .ini for the binary key map (a .ini file of INI text is read as plain QSettings INI), .conf for plain QSettings INI text.</source>
        <translation>L’extension désigne le format : .json pour les paramètres JSON, .ini pour la table clé-valeur binaire (un fichier .ini contenant du texte INI est lu comme INI QSettings simple), .conf pour le texte INI QSettings simple.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="358"/>
        <source>With a key, .json and .ini files are encrypted; the key also decrypts the input.</source>
        <translation>Avec une clé, les fichiers .json et .ini sont chiffrés ; la clé déchiffre aussi l’entrée.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="360"/>
        <source>Run &apos;commonkit settings &lt;action&gt; --help&apos; for the options of an action.</source>
        <translation>Lancez « commonkit settings &lt;action&gt; --help » pour les options d’une action.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="365"/>
        <source>settings: give an action: show or convert</source>
        <translation>settings : indiquez une action : show ou convert</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="366"/>
        <source>settings: unknown action &apos;%1&apos; (use show or convert)</source>
        <translation>settings : action « %1 » inconnue (utilisez show ou convert)</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsCommand.cpp" line="370"/>
        <source>Show and convert settings files, encrypted or not</source>
        <translation>Afficher et convertir des fichiers de paramètres, chiffrés ou non</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsDemo.cpp" line="123"/>
        <source>read</source>
        <translation>lu</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsDemo.cpp" line="125"/>
        <source>format error</source>
        <translation>erreur de format</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsDemo.cpp" line="127"/>
        <source>access error</source>
        <translation>erreur d’accès</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsDemo.cpp" line="135"/>
        <source>(none)</source>
        <translation>(aucun)</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsDemo.cpp" line="156"/>
        <source>Wrote the viewer settings through QSettings in the JSON format. The port 70000 breaks the schema, so the library warned, and wrote the file all the same:</source>
        <translation>Paramètres de la visionneuse écrits par QSettings au format JSON. Le port 70000 enfreint le schéma : la bibliothèque a averti et a tout de même écrit le fichier :</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsDemo.cpp" line="177"/>
        <source>SHA-256 of the file: %1 (kept by the library after the write)</source>
        <translation>SHA-256 du fichier : %1 (conservé par la bibliothèque après l’écriture)</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsDemo.cpp" line="185"/>
        <source>Read back: %1, %2 keys, equal to what was written: %3</source>
        <translation>Relu : %1, %2 entrées, identique à ce qui a été écrit : %3</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsDemo.cpp" line="200"/>
        <source>The same settings with a key set: %1 bytes, compressed and then encrypted, beginning %2</source>
        <translation>Les mêmes paramètres avec une clé : %1 octets, compressés puis chiffrés, commençant par %2</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsDemo.cpp" line="204"/>
        <source>SHA-256 of the plain content: %1 (the same as above: %2)</source>
        <translation>SHA-256 du contenu en clair : %1 (le même que ci-dessus : %2)</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsDemo.cpp" line="213"/>
        <source>Read back with the key: %1, equal to what was written: %2</source>
        <translation>Relu avec la clé : %1, identique à ce qui a été écrit : %2</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsDemo.cpp" line="222"/>
        <source>Read without the key: %1, %2 keys, digest %3</source>
        <translation>Lu sans la clé : %1, %2 entrées, empreinte %3</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsDemo.cpp" line="229"/>
        <source>Read with the key after one bit of byte %1 was flipped: %2, %3 keys, digest %4</source>
        <translation>Lu avec la clé après inversion d’un bit de l’octet %1 : %2, %3 entrées, empreinte %4</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/SettingsDemo.cpp" line="242"/>
        <source>Encrypted settings</source>
        <translation>Paramètres chiffrés</translation>
    </message>
</context>
</TS>
