// commonkit container: seal files into encrypted, compressed and signed
// containers, extract them, show their metadata and check their signatures.

#include "Command.h"
#include "CommandLine.h"
#include "ToolSecrets.h"

#include <CommonKit/storage/EncryptedFile.h>
#include <CommonKit/support/core/Log.h>
#include <CommonKit/support/crypto/RSAKeyPair.h>
#include <CommonKit/support/json/JsonPrinter.h>

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QTemporaryFile>
#include <QTextStream>

#include <filesystem>
#include <memory>
#include <system_error>

namespace cktool {
namespace {

using ko::crypto::secure_string;

const int k_copyBlock = 1 << 16;

// Keeps the library's diagnostics off standard error while a subcommand
// runs (the tool reports one line of its own), remembering the last one so
// that the tool's message can say why.
class DiagnosticCapture
{
public:
    DiagnosticCapture()
    {
        m_previous = ko::Log::instance().setSink([this](int, const std::string& line) {
            const std::size_t text = line.find("] ");
            m_last = QString::fromStdString(text == std::string::npos ? line : line.substr(text + 2));
        });
    }
    ~DiagnosticCapture() { ko::Log::instance().setSink(m_previous); }
    DiagnosticCapture(const DiagnosticCapture&) = delete;
    DiagnosticCapture& operator=(const DiagnosticCapture&) = delete;

    // " (last diagnostic)" or nothing.
    QString reason() const { return m_last.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(m_last); }

private:
    ko::Log::Sink m_previous;
    QString m_last;
};

QCommandLineOption keyFileOption()
{
    return QCommandLineOption(QStringLiteral("key-file"),
                              tr("Read the encryption key from this file (- for standard input)."),
                              QStringLiteral("file"));
}

// The encryption key of --key-file, empty without the option.
secure_string keyFromOptions(const CommandLine& commandLine, const QString& command)
{
    if (!commandLine.isSet(QStringLiteral("key-file")))
        return secure_string();
    secure_string key = readSecret(commandLine.value(QStringLiteral("key-file")), command);
    if (key.empty())
        throw CommandError(tr("%1: the key file is empty").arg(command));
    return key;
}

QString describeStorage(const json::Variant& meta)
{
    QStringList parts;
    if (meta.value("compression").toInt64() != ko::ZlibDevice::k_noCompression)
        parts << tr("compressed");
    if (meta.value("encrypted").toBool())
        parts << tr("encrypted");
    if (meta.contains("signature"))
        parts << tr("signed");
    return parts.isEmpty() ? tr("stored as is") : parts.join(QStringLiteral(", "));
}

// Whether two names lead to the same file: the same path, or a symbolic or
// hard link to it. Writing the output must never truncate the input.
bool sameFile(const QString& first, const QString& second)
{
    if (QFileInfo(first).absoluteFilePath() == QFileInfo(second).absoluteFilePath())
        return true;
    std::error_code error;
    const bool same = std::filesystem::equivalent(std::filesystem::path(first.toStdWString()),
                                                  std::filesystem::path(second.toStdWString()), error);
    return same && !error;
}

void openContainer(ko::EncryptedFile& container, const QString& path, const secure_string& key,
                   const QString& command)
{
    if (!QFileInfo::exists(path))
        throw CommandError(tr("%1: %2 does not exist").arg(command, path));
    if (!container.open(QFileInfo(path), key))
        throw CommandError(QStringLiteral("%1: %2").arg(command, container.errorString()));
    if (container.metaInfo().value("encrypted").toBool() && key.empty())
        throw CommandError(tr("%1: %2 is encrypted; give its key with --key-file").arg(command, path));
}

int runCreate(const QStringList& arguments)
{
    const QString command = QStringLiteral("container create");
    CommandLine commandLine(command, tr("Seals a file into a container: compressed, encrypted and signed as asked."));
    commandLine.addPositional(QStringLiteral("input"), tr("The file to seal."));
    commandLine.addPositional(QStringLiteral("output"), tr("The container file to write."));
    commandLine.addOption(keyFileOption());
    commandLine.addOption(QCommandLineOption(
        QStringLiteral("compress"), tr("Compression level: -1 (zlib's default), 1 to 9, or 0 for none (the default)."),
        QStringLiteral("level"), QStringLiteral("0")));
    commandLine.addOption(QCommandLineOption(QStringLiteral("sign"),
                                             tr("Sign with the private key in this PEM file (- for standard input)."),
                                             QStringLiteral("private.pem")));
    commandLine.addOption(QCommandLineOption(QStringLiteral("signer"), tr("Name of the signer, stored with the signature."),
                                             QStringLiteral("name")));
    commandLine.addOption(QCommandLineOption(QStringLiteral("digest"),
                                             tr("Digest algorithm: SHA256 (the default), SHA384, SHA512, SHA224, SHA1 or MD5."),
                                             QStringLiteral("name"), QStringLiteral("SHA256")));
    if (!commandLine.parse(arguments, 2, 2))
        return 0;
    const QString input = commandLine.positional().at(0);
    const QString output = commandLine.positional().at(1);

    bool ok = false;
    const int level = commandLine.value(QStringLiteral("compress")).toInt(&ok);
    if (!ok || level < ko::ZlibDevice::k_defaultCompression || level > ko::ZlibDevice::k_bestCompression)
        throw CommandError(tr("%1: the compression level must be -1 or 0 to 9").arg(command), 2);
    const auto algorithm =
        ko::crypto::MessageDigest::algorithmFromName(commandLine.value(QStringLiteral("digest")).toStdString());
    if (algorithm == ko::crypto::MessageDigest::Unknown)
        throw CommandError(tr("%1: unknown digest algorithm '%2'").arg(command, commandLine.value(QStringLiteral("digest"))), 2);
    if (commandLine.isSet(QStringLiteral("signer")) && !commandLine.isSet(QStringLiteral("sign")))
        throw CommandError(tr("%1: --signer needs --sign").arg(command), 2);
    checkSingleStandardInput(commandLine, {QStringLiteral("key-file"), QStringLiteral("sign")}, command);
    if (sameFile(input, output))
        throw CommandError(tr("%1: the input and the output are the same file").arg(command), 2);

    QFile in(input);
    if (!in.open(QIODevice::ReadOnly))
        throw CommandError(tr("%1: cannot read %2: %3").arg(command, input, in.errorString()));
    const secure_string key = keyFromOptions(commandLine, command);
    ko::crypto::RSAKeyPair keyPair;
    if (commandLine.isSet(QStringLiteral("sign"))) {
        const QString signPath = commandLine.value(QStringLiteral("sign"));
        keyPair = loadKeyPair(signPath, true, command);
        // Found out before the output is touched: a key too small for the
        // digest cannot sign it.
        const ko::crypto::secure_string probe = ko::crypto::MessageDigest::digest(algorithm, "", 0);
        if (keyPair.sign(probe, algorithm).empty())
            throw CommandError(tr("%1: the key in %2 cannot sign a %3 digest: %4")
                                   .arg(command, signPath,
                                        QString::fromStdString(ko::crypto::MessageDigest::algorithmName(algorithm)),
                                        keyPair.errorString()));
    }

    // The container is written beside the output and renamed over it only
    // when it is complete, so a failure leaves an existing file as it was.
    const QFileInfo target(output);
    if (target.exists() && !target.isFile())
        throw CommandError(tr("%1: %2 is not a regular file").arg(command, output), 2);
    QTemporaryFile partial(target.absoluteFilePath() + QStringLiteral(".partial-XXXXXX"));
    if (!partial.open())
        throw CommandError(tr("%1: cannot create %2: %3").arg(command, output, partial.errorString()));
    partial.close();
    const QString partialPath = partial.fileName();
    // A replaced file keeps its permissions; a new one is the owner's only.
    if (target.exists())
        QFile::setPermissions(partialPath, QFile(output).permissions());

    const DiagnosticCapture diagnostics;
    ko::EncryptedFile container;
    if (!container.create(QFileInfo(partialPath), key, level, algorithm))
        throw CommandError(tr("%1: cannot create %2: %3").arg(command, output, container.errorString()));
    QByteArray block(k_copyBlock, Qt::Uninitialized);
    for (;;) {
        const qint64 n = in.read(block.data(), block.size());
        if (n < 0 || (n > 0 && container.write(block.constData(), n) != n)) {
            const QString reason = n < 0 ? in.errorString() : container.errorString();
            container.close();
            throw CommandError(tr("%1: copying %2 failed: %3").arg(command, input, reason));
        }
        if (n == 0)
            break;
    }
    container.close(keyPair, commandLine.value(QStringLiteral("signer")));
    const json::Variant meta = ko::EncryptedFile::metaInfo(QFileInfo(partialPath));
    if (!meta.isObject())
        throw CommandError(tr("%1: writing %2 failed").arg(command, output) + diagnostics.reason());
    // Asked to sign, but the key could not: an unsigned container is not
    // what was wanted.
    if (!keyPair.emptyPrivateKey() && !meta.contains("signature"))
        throw CommandError(tr("%1: signing %2 failed").arg(command, output) + diagnostics.reason());
    std::error_code renameError;
    std::filesystem::rename(std::filesystem::path(partialPath.toStdWString()),
                            std::filesystem::path(output.toStdWString()), renameError);
    if (renameError)
        throw CommandError(tr("%1: cannot write %2: %3")
                               .arg(command, output, QString::fromLocal8Bit(renameError.message().c_str())));
    partial.setAutoRemove(false);
    QTextStream(stdout) << tr("Sealed %1 bytes of %2 into %3 (%4).")
                               .arg(meta.value("content-length").toInt64())
                               .arg(input, output, describeStorage(meta))
                        << "\n";
    return 0;
}

int runExtract(const QStringList& arguments)
{
    const QString command = QStringLiteral("container extract");
    CommandLine commandLine(command, tr("Writes the plain contents of a container to a file."));
    commandLine.addPositional(QStringLiteral("container"), tr("The container file."));
    commandLine.addPositional(QStringLiteral("output"), tr("The file to write."));
    commandLine.addOption(keyFileOption());
    if (!commandLine.parse(arguments, 2, 2))
        return 0;
    const QString input = commandLine.positional().at(0);
    const QString output = commandLine.positional().at(1);
    if (sameFile(input, output))
        throw CommandError(tr("%1: the input and the output are the same file").arg(command), 2);

    const secure_string key = keyFromOptions(commandLine, command);
    ko::EncryptedFile container;
    openContainer(container, input, key, command);
    // A file is written beside the output and renamed over it only when
    // everything was read, so a failure leaves an existing file as it was.
    // Other outputs (a pipe, a terminal, /dev/stdout) are written directly.
    const QFileInfo target(output);
    const bool special = target.exists() && !target.isFile();
    std::unique_ptr<QFileDevice> out;
    if (special)
        out = std::make_unique<QFile>(output);
    else
        out = std::make_unique<QSaveFile>(output);
    if (!out->open(QIODevice::WriteOnly))
        throw CommandError(tr("%1: cannot write %2: %3").arg(command, output, out->errorString()));
    QByteArray block(k_copyBlock, Qt::Uninitialized);
    qint64 total = 0;
    for (;;) {
        const qint64 n = container.read(block.data(), block.size());
        if (n < 0)
            throw CommandError(tr("%1: cannot read the contents of %2 (wrong key or damaged file): %3")
                                   .arg(command, input, container.errorString()));
        if (n == 0)
            break;
        if (out->write(block.constData(), n) != n)
            throw CommandError(tr("%1: cannot write %2: %3").arg(command, output, out->errorString()));
        total += n;
    }
    const std::int64_t recorded = container.metaInfo().value("content-length").toInt64(-1);
    if (recorded != total)
        throw CommandError(tr("%1: %2 holds %3 bytes, but its metadata records %4").arg(command, input).arg(total).arg(recorded));
    const bool written = special ? out->flush() : static_cast<QSaveFile*>(out.get())->commit();
    if (!written)
        throw CommandError(tr("%1: cannot write %2: %3").arg(command, output, out->errorString()));
    QTextStream(stdout) << tr("Extracted %1 bytes from %2 into %3.").arg(total).arg(input, output) << "\n";
    return 0;
}

int runInfo(const QStringList& arguments)
{
    const QString command = QStringLiteral("container info");
    CommandLine commandLine(command, tr("Shows the metadata of a container (no key needed)."));
    commandLine.addPositional(QStringLiteral("container"), tr("The container file."));
    if (!commandLine.parse(arguments, 1, 1))
        return 0;
    const QString path = commandLine.positional().at(0);
    if (!QFileInfo::exists(path))
        throw CommandError(tr("%1: %2 does not exist").arg(command, path));
    const DiagnosticCapture diagnostics;
    const json::Variant meta = ko::EncryptedFile::metaInfo(QFileInfo(path));
    if (!meta.isObject())
        throw CommandError(tr("%1: %2 is not a container or its trailer is damaged").arg(command, path) + diagnostics.reason());
    QTextStream(stdout) << QString::fromStdString(json::JsonPrinter::toString(meta)) << "\n";
    return 0;
}

int runVerify(const QStringList& arguments)
{
    const QString command = QStringLiteral("container verify");
    CommandLine commandLine(command, tr("Checks the signature of a container with a public key."));
    commandLine.addPositional(QStringLiteral("container"), tr("The container file."));
    commandLine.addOption(QCommandLineOption(QStringLiteral("public"),
                                             tr("The public key as a PEM file (- for standard input)."),
                                             QStringLiteral("public.pem")));
    commandLine.addOption(keyFileOption());
    if (!commandLine.parse(arguments, 1, 1))
        return 0;
    if (!commandLine.isSet(QStringLiteral("public")))
        throw CommandError(tr("%1: give the public key with --public").arg(command), 2);
    checkSingleStandardInput(commandLine, {QStringLiteral("key-file"), QStringLiteral("public")}, command);
    const QString path = commandLine.positional().at(0);
    const ko::crypto::RSAKeyPair keyPair = loadKeyPair(commandLine.value(QStringLiteral("public")), false, command);
    const secure_string key = keyFromOptions(commandLine, command);

    ko::EncryptedFile container;
    openContainer(container, path, key, command);
    const json::Variant meta = container.metaInfo();
    if (!meta.contains("signature"))
        throw CommandError(tr("%1: %2 is not signed").arg(command, path));
    if (!container.verify(keyPair))
        throw CommandError(tr("%1: the signature of %2 is NOT valid").arg(command, path)
                           + QStringLiteral(" (%1)").arg(container.errorString()));
    const std::string signer = meta.value("signer").toString();
    QTextStream(stdout) << (signer.empty() ? tr("The signature of %1 is valid.").arg(path)
                                           : tr("The signature of %1 by %2 is valid.").arg(path, QString::fromStdString(signer)))
                        << "\n";
    return 0;
}

void printContainerHelp()
{
    QTextStream(stdout)
        << tr("Usage: commonkit container <action> [options] [arguments]") << "\n\n"
        << tr("Actions:") << "\n"
        << "  create IN OUT [--key-file F] [--compress N] [--sign PRIVATE.pem [--signer NAME]] [--digest NAME]\n"
        << "  extract IN OUT [--key-file F]\n"
        << "  info FILE\n"
        << "  verify FILE --public PUBLIC.pem [--key-file F]\n\n"
        << tr("Keys come from files, or from standard input with -; never from the command line.") << "\n"
        << tr("Run 'commonkit container <action> --help' for the options of an action.") << "\n"
        << tr("Global options: --help, --version, --lang de|fr.") << "\n";
}

int runContainer(const QStringList& arguments)
{
    return runAction(arguments, {{"create", runCreate}, {"extract", runExtract}, {"info", runInfo}, {"verify", runVerify}}, printContainerHelp,
                     tr("container: give an action: create, extract, info or verify"),
                     tr("container: unknown action '%1' (use create, extract, info or verify)"));
}

const CommandRegistration registration(
    {"container", QT_TRANSLATE_NOOP("cktool", "Seal, extract, show and verify encrypted containers"), runContainer});

} // namespace
} // namespace cktool
