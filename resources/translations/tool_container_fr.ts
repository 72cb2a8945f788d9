<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr_FR">
<context>
    <name>cktool</name>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="52"/>
        <source>Read the encryption key from this file (- for standard input).</source>
        <translation>Lire la clé de chiffrement dans ce fichier (- pour l&apos;entrée standard).</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="63"/>
        <source>%1: the key file is empty</source>
        <translation>%1 : le fichier de clé est vide</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="71"/>
        <source>compressed</source>
        <translation>compressé</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="73"/>
        <source>encrypted</source>
        <translation>chiffré</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="75"/>
        <source>signed</source>
        <translation>signé</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="76"/>
        <source>stored as is</source>
        <translation>stocké tel quel</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="83"/>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="222"/>
        <source>%1: %2 does not exist</source>
        <translation>%1 : %2 n&apos;existe pas</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="86"/>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="226"/>
        <source>%1: %2 is not a container or its trailer is damaged</source>
        <translation>%1 : %2 n&apos;est pas un conteneur ou sa fin de fichier est endommagée</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="88"/>
        <source>%1: %2 is encrypted; give its key with --key-file</source>
        <translation>%1 : %2 est chiffré ; indiquez sa clé avec --key-file</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="94"/>
        <source>Seals a file into a container: compressed, encrypted and signed as asked.</source>
        <translation>Scelle un fichier dans un conteneur : compressé, chiffré et signé selon la demande.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="95"/>
        <source>The file to seal.</source>
        <translation>Le fichier à sceller.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="96"/>
        <source>The container file to write.</source>
        <translation>Le fichier conteneur à écrire.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="99"/>
        <source>Compression level: -1 (zlib&apos;s default), 1 to 9, or 0 for none (the default).</source>
        <translation>Niveau de compression : -1 (valeur par défaut de zlib), 1 à 9, ou 0 pour aucune (par défaut).</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="102"/>
        <source>Sign with the private key in this PEM file (- for standard input).</source>
        <translation>Signer avec la clé privée de ce fichier PEM (- pour l&apos;entrée standard).</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="104"/>
        <source>Name of the signer, stored with the signature.</source>
        <translation>Nom du signataire, enregistré avec la signature.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="107"/>
        <source>Digest algorithm: SHA256 (the default), SHA384, SHA512, SHA224, SHA1 or MD5.</source>
        <translation>Algorithme d&apos;empreinte : SHA256 (par défaut), SHA384, SHA512, SHA224, SHA1 ou MD5.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="117"/>
        <source>%1: the compression level must be -1 or 0 to 9</source>
        <translation>%1 : le niveau de compression doit être -1 ou de 0 à 9</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="121"/>
        <source>%1: unknown digest algorithm &apos;%2&apos;</source>
        <translation>%1 : algorithme d&apos;empreinte inconnu &apos;%2&apos;</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="123"/>
        <source>%1: --signer needs --sign</source>
        <translation>%1 : --signer nécessite --sign</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="126"/>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="174"/>
        <source>%1: the input and the output are the same file</source>
        <translation>%1 : l&apos;entrée et la sortie sont le même fichier</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="130"/>
        <source>%1: cannot read %2: %3</source>
        <translation>%1 : impossible de lire %2 : %3</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="139"/>
        <source>%1: cannot create %2</source>
        <translation>%1 : impossible de créer %2</translation>
    </message>
    <message>
        <source>%1: %2 is not a regular file</source>
        <translation>%1 : %2 n'est pas un fichier ordinaire</translation>
    </message>
    <message>
        <source>%1: cannot create %2: %3</source>
        <translation>%1 : impossible de créer %2 : %3</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="146"/>
        <source>%1: copying %2 failed: %3</source>
        <translation>%1 : la copie de %2 a échoué : %3</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="154"/>
        <source>%1: writing %2 failed</source>
        <translation>%1 : l&apos;écriture de %2 a échoué</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="169"/>
        <source>%1: signing %2 failed</source>
        <translation>%1 : la signature de %2 a échoué</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="157"/>
        <source>%1: the key in %2 cannot sign a %3 digest: %4</source>
        <translation>%1 : la clé de %2 ne peut pas signer une empreinte %3 : %4</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="155"/>
        <source>Sealed %1 bytes of %2 into %3 (%4).</source>
        <translation>%1 octets de %2 scellés dans %3 (%4).</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="165"/>
        <source>Writes the plain contents of a container to a file.</source>
        <translation>Écrit le contenu en clair d&apos;un conteneur dans un fichier.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="166"/>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="217"/>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="235"/>
        <source>The container file.</source>
        <translation>Le fichier conteneur.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="167"/>
        <source>The file to write.</source>
        <translation>Le fichier à écrire.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="181"/>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="199"/>
        <source>%1: cannot write %2: %3</source>
        <translation>%1 : impossible d&apos;écrire %2 : %3</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="190"/>
        <source>%1: cannot read the contents of %2 (wrong key or damaged file): %3</source>
        <translation>%1 : impossible de lire le contenu de %2 (clé erronée ou fichier endommagé) : %3</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="207"/>
        <source>%1: %2 holds %3 bytes, but its metadata records %4</source>
        <translation>%1 : %2 contient %3 octets, mais ses métadonnées en indiquent %4</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="209"/>
        <source>Extracted %1 bytes from %2 into %3.</source>
        <translation>%1 octets extraits de %2 dans %3.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="216"/>
        <source>Shows the metadata of a container (no key needed).</source>
        <translation>Affiche les métadonnées d&apos;un conteneur (sans clé).</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="234"/>
        <source>Checks the signature of a container with a public key.</source>
        <translation>Vérifie la signature d&apos;un conteneur avec une clé publique.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="237"/>
        <source>The public key as a PEM file (- for standard input).</source>
        <translation>La clé publique dans un fichier PEM (- pour l&apos;entrée standard).</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="243"/>
        <source>%1: give the public key with --public</source>
        <translation>%1 : indiquez la clé publique avec --public</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="253"/>
        <source>%1: %2 is not signed</source>
        <translation>%1 : %2 n&apos;est pas signé</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="256"/>
        <source>%1: the signature of %2 is NOT valid</source>
        <translation>%1 : la signature de %2 n&apos;est PAS valide</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="258"/>
        <source>The signature of %1 is valid.</source>
        <translation>La signature de %1 est valide.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="259"/>
        <source>The signature of %1 by %2 is valid.</source>
        <translation>La signature de %1 par %2 est valide.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="277"/>
        <source>Usage: commonkit container &lt;action&gt; [options] [arguments]</source>
        <translation>Usage : commonkit container &lt;action&gt; [options] [arguments]</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="278"/>
        <source>Actions:</source>
        <translation>Actions :</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="283"/>
        <source>Keys come from files, or from standard input with -; never from the command line.</source>
        <translation>Les clés viennent de fichiers, ou de l&apos;entrée standard avec - ; jamais de la ligne de commande.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="284"/>
        <source>Run &apos;commonkit container &lt;action&gt; --help&apos; for the options of an action.</source>
        <translation>Lancez &apos;commonkit container &lt;action&gt; --help&apos; pour les options d&apos;une action.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="285"/>
        <source>Global options: --help, --version, --lang de|fr.</source>
        <translation>Options globales : --help, --version, --lang de|fr.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="289"/>
        <source>container: give an action: create, extract, info or verify</source>
        <translation>container : indiquez une action : create, extract, info ou verify</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="290"/>
        <source>container: unknown action &apos;%1&apos; (use create, extract, info or verify)</source>
        <translation>container : action inconnue &apos;%1&apos; (utilisez create, extract, info ou verify)</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerCommand.cpp" line="294"/>
        <source>Seal, extract, show and verify encrypted containers</source>
        <translation>Sceller, extraire, afficher et vérifier des conteneurs chiffrés</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/KeygenCommand.cpp" line="17"/>
        <source>Generates an RSA key pair for signing containers.</source>
        <translation>Génère une paire de clés RSA pour signer des conteneurs.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/KeygenCommand.cpp" line="18"/>
        <source>The private key file to write (PEM, readable only by you).</source>
        <translation>Le fichier de clé privée à écrire (PEM, lisible par vous seul).</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/KeygenCommand.cpp" line="20"/>
        <source>The public key file to write (PEM).</source>
        <translation>Le fichier de clé publique à écrire (PEM).</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/KeygenCommand.cpp" line="21"/>
        <source>Key size in bits, 2048 to 16384 (default 3072).</source>
        <translation>Taille de clé en bits, de 2048 à 16384 (par défaut 3072).</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/KeygenCommand.cpp" line="23"/>
        <source>Overwrite existing key files.</source>
        <translation>Écraser les fichiers de clé existants.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/KeygenCommand.cpp" line="31"/>
        <source>%1: the key size must be 2048 to 16384 bits</source>
        <translation>%1 : la taille de clé doit être de 2048 à 16384 bits</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/KeygenCommand.cpp" line="33"/>
        <source>%1: the private and the public key need different files</source>
        <translation>%1 : la clé privée et la clé publique doivent être dans des fichiers différents</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/KeygenCommand.cpp" line="37"/>
        <source>%1: %2 exists (use --force to overwrite it)</source>
        <translation>%1 : %2 existe déjà (utilisez --force pour l&apos;écraser)</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/KeygenCommand.cpp" line="41"/>
        <source>%1: generating the key failed: %2</source>
        <translation>%1 : la génération de la clé a échoué : %2</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/KeygenCommand.cpp" line="43"/>
        <location filename="../../tools/commonkit/KeygenCommand.cpp" line="45"/>
        <source>%1: cannot write %2</source>
        <translation>%1 : impossible d&apos;écrire %2</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/KeygenCommand.cpp" line="46"/>
        <source>Wrote a %1-bit private key to %2 and its public key to %3.</source>
        <translation>Clé privée de %1 bits écrite dans %2 et sa clé publique dans %3.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/KeygenCommand.cpp" line="52"/>
        <source>Generate an RSA key pair for signing containers</source>
        <translation>Générer une paire de clés RSA pour signer des conteneurs</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ToolSecrets.cpp" line="26"/>
        <source>%1: cannot read the key file %2: %3</source>
        <translation>%1 : impossible de lire le fichier de clé %2 : %3</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ToolSecrets.cpp" line="37"/>
        <source>%1: the key file %2 is larger than 1 MiB</source>
        <translation>%1 : le fichier de clé %2 dépasse 1 Mio</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ToolSecrets.cpp" line="37"/>
        <source>(standard input)</source>
        <translation>(entrée standard)</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ToolSecrets.cpp" line="46"/>
        <source>%1: %2 holds no RSA key in PEM form: %3</source>
        <translation>%1 : %2 ne contient pas de clé RSA au format PEM : %3</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ToolSecrets.cpp" line="49"/>
        <source>%1: %2 holds a public key; signing needs the private key</source>
        <translation>%1 : %2 contient une clé publique ; la signature nécessite la clé privée</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ToolSecrets.cpp" line="60"/>
        <source>%1: only one key can come from standard input</source>
        <translation>%1 : une seule clé peut venir de l&apos;entrée standard</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerDemo.cpp" line="45"/>
        <source>Cannot generate a key pair: %1</source>
        <translation>Impossible de générer une paire de clés : %1</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerDemo.cpp" line="58"/>
        <source>Cannot create %1</source>
        <translation>Impossible de créer %1</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerDemo.cpp" line="64"/>
        <source>Sealed %1 bytes of text into %2 bytes: compressed, encrypted with AES-256-GCM, signed with RSA.</source>
        <translation>%1 octets de texte scellés en %2 octets : compressés, chiffrés en AES-256-GCM, signés avec RSA.</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerDemo.cpp" line="67"/>
        <source>Its metadata, readable without the key:</source>
        <translation>Ses métadonnées, lisibles sans la clé :</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerDemo.cpp" line="82"/>
        <source>Extracted %1 bytes, identical to the original: %2; signature valid: %3</source>
        <translation>%1 octets extraits, identiques à l&apos;original : %2 ; signature valide : %3</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerDemo.cpp" line="84"/>
        <location filename="../../tools/commonkit/ContainerDemo.cpp" line="95"/>
        <location filename="../../tools/commonkit/ContainerDemo.cpp" line="118"/>
        <source>yes</source>
        <translation>oui</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerDemo.cpp" line="84"/>
        <location filename="../../tools/commonkit/ContainerDemo.cpp" line="95"/>
        <location filename="../../tools/commonkit/ContainerDemo.cpp" line="118"/>
        <source>no</source>
        <translation>non</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerDemo.cpp" line="95"/>
        <source>Reading with a wrong key fails: %1</source>
        <translation>La lecture avec une clé erronée échoue : %1</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerDemo.cpp" line="117"/>
        <source>A copy whose signer was changed to &quot;Demo Signes&quot; still decrypts (%1), but its signature is valid: %2</source>
        <translation>Une copie dont le signataire a été changé en &quot;Demo Signes&quot; se déchiffre encore (%1), mais sa signature est valide : %2</translation>
    </message>
    <message>
        <location filename="../../tools/commonkit/ContainerDemo.cpp" line="125"/>
        <source>Encrypted container</source>
        <translation>Conteneur chiffré</translation>
    </message>
</context>
</TS>
