<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>cktool</name>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="52"/>
        <source>Read the encryption key from this file (- for standard input).</source>
        <translation>Den Verschlüsselungsschlüssel aus dieser Datei lesen (- für die Standardeingabe).</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="63"/>
        <source>%1: the key file is empty</source>
        <translation>%1: die Schlüsseldatei ist leer</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="71"/>
        <source>compressed</source>
        <translation>komprimiert</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="73"/>
        <source>encrypted</source>
        <translation>verschlüsselt</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="75"/>
        <source>signed</source>
        <translation>signiert</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="76"/>
        <source>stored as is</source>
        <translation>unverändert gespeichert</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="83"/>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="222"/>
        <source>%1: %2 does not exist</source>
        <translation>%1: %2 existiert nicht</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="86"/>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="226"/>
        <source>%1: %2 is not a container or its trailer is damaged</source>
        <translation>%1: %2 ist kein Container oder sein Nachspann ist beschädigt</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="88"/>
        <source>%1: %2 is encrypted; give its key with --key-file</source>
        <translation>%1: %2 ist verschlüsselt; den Schlüssel mit --key-file angeben</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="94"/>
        <source>Seals a file into a container: compressed, encrypted and signed as asked.</source>
        <translation>Verpackt eine Datei in einen Container: komprimiert, verschlüsselt und signiert wie gewünscht.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="95"/>
        <source>The file to seal.</source>
        <translation>Die zu verpackende Datei.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="96"/>
        <source>The container file to write.</source>
        <translation>Die zu schreibende Containerdatei.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="99"/>
        <source>Compression level: -1 (zlib&apos;s default), 1 to 9, or 0 for none (the default).</source>
        <translation>Kompressionsstufe: -1 (Voreinstellung von zlib), 1 bis 9 oder 0 für keine (die Voreinstellung).</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="102"/>
        <source>Sign with the private key in this PEM file (- for standard input).</source>
        <translation>Mit dem privaten Schlüssel aus dieser PEM-Datei signieren (- für die Standardeingabe).</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="104"/>
        <source>Name of the signer, stored with the signature.</source>
        <translation>Name des Unterzeichners, wird mit der Signatur gespeichert.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="107"/>
        <source>Digest algorithm: SHA256 (the default), SHA384, SHA512, SHA224, SHA1 or MD5.</source>
        <translation>Hash-Verfahren: SHA256 (die Voreinstellung), SHA384, SHA512, SHA224, SHA1 oder MD5.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="117"/>
        <source>%1: the compression level must be -1 or 0 to 9</source>
        <translation>%1: die Kompressionsstufe muss -1 oder 0 bis 9 sein</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="121"/>
        <source>%1: unknown digest algorithm &apos;%2&apos;</source>
        <translation>%1: unbekanntes Hash-Verfahren &apos;%2&apos;</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="123"/>
        <source>%1: --signer needs --sign</source>
        <translation>%1: --signer erfordert --sign</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="126"/>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="174"/>
        <source>%1: the input and the output are the same file</source>
        <translation>%1: Eingabe und Ausgabe sind dieselbe Datei</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="130"/>
        <source>%1: cannot read %2: %3</source>
        <translation>%1: %2 kann nicht gelesen werden: %3</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="139"/>
        <source>%1: cannot create %2</source>
        <translation>%1: %2 kann nicht angelegt werden</translation>
    </message>
    <message>
        <source>%1: %2 is not a regular file</source>
        <translation>%1: %2 ist keine gewöhnliche Datei</translation>
    </message>
    <message>
        <source>%1: cannot create %2: %3</source>
        <translation>%1: %2 kann nicht angelegt werden: %3</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="146"/>
        <source>%1: copying %2 failed: %3</source>
        <translation>%1: das Kopieren von %2 ist fehlgeschlagen: %3</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="154"/>
        <source>%1: writing %2 failed</source>
        <translation>%1: das Schreiben von %2 ist fehlgeschlagen</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="169"/>
        <source>%1: signing %2 failed</source>
        <translation>%1: das Signieren von %2 ist fehlgeschlagen</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="157"/>
        <source>%1: the key in %2 cannot sign a %3 digest: %4</source>
        <translation>%1: der Schlüssel in %2 kann keinen %3-Hashwert signieren: %4</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="155"/>
        <source>Sealed %1 bytes of %2 into %3 (%4).</source>
        <translation>%1 Bytes aus %2 in %3 verpackt (%4).</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="165"/>
        <source>Writes the plain contents of a container to a file.</source>
        <translation>Schreibt den entschlüsselten Inhalt eines Containers in eine Datei.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="166"/>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="217"/>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="235"/>
        <source>The container file.</source>
        <translation>Die Containerdatei.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="167"/>
        <source>The file to write.</source>
        <translation>Die zu schreibende Datei.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="181"/>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="199"/>
        <source>%1: cannot write %2: %3</source>
        <translation>%1: %2 kann nicht geschrieben werden: %3</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="190"/>
        <source>%1: cannot read the contents of %2 (wrong key or damaged file): %3</source>
        <translation>%1: der Inhalt von %2 kann nicht gelesen werden (falscher Schlüssel oder beschädigte Datei): %3</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="207"/>
        <source>%1: %2 holds %3 bytes, but its metadata records %4</source>
        <translation>%1: %2 enthält %3 Bytes, seine Metadaten nennen aber %4</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="209"/>
        <source>Extracted %1 bytes from %2 into %3.</source>
        <translation>%1 Bytes aus %2 nach %3 entpackt.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="216"/>
        <source>Shows the metadata of a container (no key needed).</source>
        <translation>Zeigt die Metadaten eines Containers (ohne Schlüssel).</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="234"/>
        <source>Checks the signature of a container with a public key.</source>
        <translation>Prüft die Signatur eines Containers mit einem öffentlichen Schlüssel.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="237"/>
        <source>The public key as a PEM file (- for standard input).</source>
        <translation>Der öffentliche Schlüssel als PEM-Datei (- für die Standardeingabe).</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="243"/>
        <source>%1: give the public key with --public</source>
        <translation>%1: den öffentlichen Schlüssel mit --public angeben</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="253"/>
        <source>%1: %2 is not signed</source>
        <translation>%1: %2 ist nicht signiert</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="256"/>
        <source>%1: the signature of %2 is NOT valid</source>
        <translation>%1: die Signatur von %2 ist NICHT gültig</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="258"/>
        <source>The signature of %1 is valid.</source>
        <translation>Die Signatur von %1 ist gültig.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="259"/>
        <source>The signature of %1 by %2 is valid.</source>
        <translation>Die Signatur von %1 durch %2 ist gültig.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="277"/>
        <source>Usage: commonkit container &lt;action&gt; [options] [arguments]</source>
        <translation>Aufruf: commonkit container &lt;Aktion&gt; [Optionen] [Argumente]</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="278"/>
        <source>Actions:</source>
        <translation>Aktionen:</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="283"/>
        <source>Keys come from files, or from standard input with -; never from the command line.</source>
        <translation>Schlüssel kommen aus Dateien oder mit - aus der Standardeingabe, nie von der Befehlszeile.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="284"/>
        <source>Run &apos;commonkit container &lt;action&gt; --help&apos; for the options of an action.</source>
        <translation>&apos;commonkit container &lt;Aktion&gt; --help&apos; zeigt die Optionen einer Aktion.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="285"/>
        <source>Global options: --help, --version, --lang de|fr.</source>
        <translation>Globale Optionen: --help, --version, --lang de|fr.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="289"/>
        <source>container: give an action: create, extract, info or verify</source>
        <translation>container: eine Aktion angeben: create, extract, info oder verify</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="290"/>
        <source>container: unknown action &apos;%1&apos; (use create, extract, info or verify)</source>
        <translation>container: unbekannte Aktion &apos;%1&apos; (create, extract, info oder verify verwenden)</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="294"/>
        <source>Seal, extract, show and verify encrypted containers</source>
        <translation>Verschlüsselte Container verpacken, entpacken, anzeigen und prüfen</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/KeygenCommand.cpp" line="17"/>
        <source>Generates an RSA key pair for signing containers.</source>
        <translation>Erzeugt ein RSA-Schlüsselpaar zum Signieren von Containern.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/KeygenCommand.cpp" line="18"/>
        <source>The private key file to write (PEM, readable only by you).</source>
        <translation>Die zu schreibende Datei des privaten Schlüssels (PEM, nur für Sie lesbar).</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/KeygenCommand.cpp" line="20"/>
        <source>The public key file to write (PEM).</source>
        <translation>Die zu schreibende Datei des öffentlichen Schlüssels (PEM).</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/KeygenCommand.cpp" line="21"/>
        <source>Key size in bits, 2048 to 16384 (default 3072).</source>
        <translation>Schlüssellänge in Bit, 2048 bis 16384 (Voreinstellung 3072).</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/KeygenCommand.cpp" line="23"/>
        <source>Overwrite existing key files.</source>
        <translation>Vorhandene Schlüsseldateien überschreiben.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/KeygenCommand.cpp" line="31"/>
        <source>%1: the key size must be 2048 to 16384 bits</source>
        <translation>%1: die Schlüssellänge muss 2048 bis 16384 Bit betragen</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/KeygenCommand.cpp" line="33"/>
        <source>%1: the private and the public key need different files</source>
        <translation>%1: privater und öffentlicher Schlüssel brauchen verschiedene Dateien</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/KeygenCommand.cpp" line="37"/>
        <source>%1: %2 exists (use --force to overwrite it)</source>
        <translation>%1: %2 existiert bereits (mit --force überschreiben)</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/KeygenCommand.cpp" line="41"/>
        <source>%1: generating the key failed: %2</source>
        <translation>%1: das Erzeugen des Schlüssels ist fehlgeschlagen: %2</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/KeygenCommand.cpp" line="43"/>
        <location filename="../../tools/commonkit/KeygenCommand.cpp" line="45"/>
        <source>%1: cannot write %2</source>
        <translation>%1: %2 kann nicht geschrieben werden</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/KeygenCommand.cpp" line="46"/>
        <source>Wrote a %1-bit private key to %2 and its public key to %3.</source>
        <translation>Privaten Schlüssel mit %1 Bit nach %2 und seinen öffentlichen Schlüssel nach %3 geschrieben.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/KeygenCommand.cpp" line="52"/>
        <source>Generate an RSA key pair for signing containers</source>
        <translation>Ein RSA-Schlüsselpaar zum Signieren von Containern erzeugen</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ToolSecrets.cpp" line="26"/>
        <source>%1: cannot read the key file %2: %3</source>
        <translation>%1: die Schlüsseldatei %2 kann nicht gelesen werden: %3</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ToolSecrets.cpp" line="37"/>
        <source>%1: the key file %2 is larger than 1 MiB</source>
        <translation>%1: die Schlüsseldatei %2 ist größer als 1 MiB</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ToolSecrets.cpp" line="37"/>
        <source>(standard input)</source>
        <translation>(Standardeingabe)</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ToolSecrets.cpp" line="46"/>
        <source>%1: %2 holds no RSA key in PEM form: %3</source>
        <translation>%1: %2 enthält keinen RSA-Schlüssel im PEM-Format: %3</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ToolSecrets.cpp" line="49"/>
        <source>%1: %2 holds a public key; signing needs the private key</source>
        <translation>%1: %2 enthält einen öffentlichen Schlüssel; zum Signieren wird der private Schlüssel gebraucht</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ToolSecrets.cpp" line="60"/>
        <source>%1: only one key can come from standard input</source>
        <translation>%1: nur ein Schlüssel kann aus der Standardeingabe kommen</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerDemo.cpp" line="45"/>
        <source>Cannot generate a key pair: %1</source>
        <translation>Das Schlüsselpaar kann nicht erzeugt werden: %1</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerDemo.cpp" line="58"/>
        <source>Cannot create %1</source>
        <translation>%1 kann nicht angelegt werden</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerDemo.cpp" line="64"/>
        <source>Sealed %1 bytes of text into %2 bytes: compressed, encrypted with AES-256-GCM, signed with RSA.</source>
        <translation>%1 Bytes Text in %2 Bytes verpackt: komprimiert, mit AES-256-GCM verschlüsselt, mit RSA signiert.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerDemo.cpp" line="67"/>
        <source>Its metadata, readable without the key:</source>
        <translation>Seine Metadaten, lesbar ohne Schlüssel:</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerDemo.cpp" line="82"/>
        <source>Extracted %1 bytes, identical to the original: %2; signature valid: %3</source>
        <translation>%1 Bytes entpackt, identisch mit dem Original: %2; Signatur gültig: %3</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerDemo.cpp" line="84"/>
        <location filename="../../tools/commonkit/ContainerDemo.cpp" line="95"/>
        <location filename="../../tools/commonkit/ContainerDemo.cpp" line="118"/>
        <source>yes</source>
        <translation>ja</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerDemo.cpp" line="84"/>
        <location filename="../../tools/commonkit/ContainerDemo.cpp" line="95"/>
        <location filename="../../tools/commonkit/ContainerDemo.cpp" line="118"/>
        <source>no</source>
        <translation>nein</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerDemo.cpp" line="95"/>
        <source>Reading with a wrong key fails: %1</source>
        <translation>Lesen mit falschem Schlüssel schlägt fehl: %1</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerDemo.cpp" line="117"/>
        <source>A copy whose signer was changed to &quot;Demo Signes&quot; still decrypts (%1), but its signature is valid: %2</source>
        <translation>Eine Kopie, deren Unterzeichner zu &quot;Demo Signes&quot; geändert wurde, lässt sich noch entschlüsseln (%1), aber ihre Signatur ist gültig: %2</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerDemo.cpp" line="125"/>
        <source>Encrypted container</source>
        <translation>Verschlüsselter Container</translation>
    </message>
</context>
</TS>
