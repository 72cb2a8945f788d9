// commonkit keygen: a new RSA key pair for signing containers.

#include "Command.h"
#include "CommandLine.h"

#include <CommonKit/support/crypto/RSAKeyPair.h>

#include <QFile>
#include <QFileInfo>
#include <QTextStream>

namespace cktool {
namespace {

int runKeygen(const QStringList& arguments)
{
    const QString command = QStringLiteral("keygen");
    CommandLine commandLine(command, tr("Generates an RSA key pair for signing containers."));
    commandLine.addPositional(QStringLiteral("private"), tr("The private key file to write (PEM, readable only by you)."),
                              QStringLiteral("PRIVATE.pem"));
    commandLine.addPositional(QStringLiteral("public"), tr("The public key file to write (PEM)."), QStringLiteral("PUBLIC.pem"));
    commandLine.addOption(QCommandLineOption(QStringLiteral("bits"), tr("Key size in bits, 2048 to 16384 (default 3072)."),
                                             QStringLiteral("bits"), QStringLiteral("3072")));
    commandLine.addOption(QCommandLineOption(QStringLiteral("force"), tr("Overwrite existing key files.")));
    if (!commandLine.parse(arguments, 2, 2))
        return 0;
    const QString privatePath = commandLine.positional().at(0);
    const QString publicPath = commandLine.positional().at(1);
    bool ok = false;
    const int bits = commandLine.value(QStringLiteral("bits")).toInt(&ok);
    if (!ok || bits < 2048 || bits > 16384)
        throw CommandError(tr("%1: the key size must be 2048 to 16384 bits").arg(command), 2);
    if (QFileInfo(privatePath).absoluteFilePath() == QFileInfo(publicPath).absoluteFilePath())
        throw CommandError(tr("%1: the private and the public key need different files").arg(command), 2);
    if (!commandLine.isSet(QStringLiteral("force"))) {
        for (const QString& path : {privatePath, publicPath})
            if (QFileInfo::exists(path))
                throw CommandError(tr("%1: %2 exists (use --force to overwrite it)").arg(command, path));
    }
    ko::crypto::RSAKeyPair keyPair;
    if (!keyPair.generate(bits))
        throw CommandError(tr("%1: generating the key failed: %2").arg(command, keyPair.errorString()));
    if (!keyPair.savePrivateKey(QFile::encodeName(privatePath).toStdString())
        || !keyPair.savePublicKey(QFile::encodeName(publicPath).toStdString()))
        throw CommandError(QStringLiteral("%1: %2").arg(command, keyPair.errorString()));
    QTextStream(stdout) << tr("Wrote a %1-bit private key to %2 and its public key to %3.").arg(bits).arg(privatePath, publicPath)
                        << "\n";
    return 0;
}

const CommandRegistration registration(
    {"keygen", QT_TRANSLATE_NOOP("cktool", "Generate an RSA key pair for signing containers"), runKeygen});

} // namespace
} // namespace cktool
