#include "ToolSecrets.h"

#include "Command.h"

#include <QFile>

#include <cstdio>

namespace cktool {

namespace {

const qint64 k_maxSecretSize = 1 << 20;

} // namespace

ko::crypto::secure_string readSecret(const QString& path, const QString& command)
{
    QFile file;
    const bool standardInput = path == QLatin1String("-");
    if (standardInput)
        file.open(stdin, QIODevice::ReadOnly);
    else
        file.setFileName(path);
    if (!file.isOpen() && !file.open(QIODevice::ReadOnly))
        throw CommandError(tr("%1: cannot read the key file %2: %3").arg(command, path, file.errorString()));
    QByteArray bytes = file.read(k_maxSecretSize + 1);
    const bool tooLong = bytes.size() > k_maxSecretSize;
    int length = bytes.size();
    // One line break, "\n" or "\r\n"; a lone "\r" is part of the key.
    if (length > 0 && bytes.at(length - 1) == '\n') {
        --length;
        if (length > 0 && bytes.at(length - 1) == '\r')
            --length;
    }
    ko::crypto::secure_string secret(bytes.constData(), static_cast<std::size_t>(tooLong ? 0 : length));
    ko::crypto::zeroOut(bytes.data(), static_cast<std::size_t>(bytes.size()));
    if (tooLong)
        throw CommandError(tr("%1: the key file %2 is larger than 1 MiB").arg(command, standardInput ? tr("(standard input)") : path));
    return secret;
}

ko::crypto::RSAKeyPair loadKeyPair(const QString& path, bool needPrivate, const QString& command)
{
    const ko::crypto::secure_string pem = readSecret(path, command);
    ko::crypto::RSAKeyPair keyPair;
    if (!keyPair.loadPem(pem))
        throw CommandError(tr("%1: %2 holds no RSA key in PEM form: %3")
                               .arg(command, path, keyPair.errorString()));
    if (needPrivate && keyPair.emptyPrivateKey())
        throw CommandError(tr("%1: %2 holds a public key; signing needs the private key").arg(command, path));
    return keyPair;
}

void checkSingleStandardInput(const CommandLine& commandLine, const QStringList& options, const QString& command)
{
    int count = 0;
    for (const QString& option : options)
        if (commandLine.isSet(option) && commandLine.value(option) == QLatin1String("-"))
            ++count;
    if (count > 1)
        throw CommandError(tr("%1: only one key can come from standard input").arg(command), 2);
}

} // namespace cktool
