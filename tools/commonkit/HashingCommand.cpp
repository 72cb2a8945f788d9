// commonkit crypt, ha1 and access-line: the password forms of kogen::Crypt.
//
// A password given as "-" is read as one line from standard input, so that it
// need not stand in the command line (where other users may see it).

#include "Command.h"
#include "CommandLine.h"

#include <CommonKit/storage/Crypt.h>

#include <QFile>
#include <QTextStream>

#include <cstdio>

namespace cktool {
namespace {

const char* const kTraditionalAlphabet = "./0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";

QString passwordHelp()
{
    return tr("The password, or - to read it as one line from standard input.");
}

// The password argument, or the first line of standard input for "-".
QString passwordArgument(const QString& command, const QString& argument)
{
    if (argument != QLatin1String("-"))
        return argument;
    QFile input;
    if (!input.open(stdin, QIODevice::ReadOnly))
        throw CommandError(tr("%1: cannot read standard input").arg(command));
    QByteArray line = input.readLine(64 * 1024);
    if (line.isEmpty())
        throw CommandError(tr("%1: no password on standard input").arg(command));
    if (line.endsWith('\n'))
        line.chop(1);
    if (line.endsWith('\r'))
        line.chop(1);
    return QString::fromUtf8(line);
}

// The hashes take text as Latin-1; refuse what Latin-1 cannot hold instead of
// hashing a '?' in its place.
enum class Field { User, Realm, Password };

void requireLatin1(const QString& command, Field field, const QString& text)
{
    for (const QChar c : text) {
        if (c.unicode() <= 0xFF)
            continue;
        switch (field) {
        case Field::User:
            throw CommandError(tr("%1: the user name has characters outside Latin-1").arg(command));
        case Field::Realm:
            throw CommandError(tr("%1: the realm has characters outside Latin-1").arg(command));
        case Field::Password:
            break;
        }
        throw CommandError(tr("%1: the password has characters outside Latin-1").arg(command));
    }
}

int runCrypt(const QStringList& arguments)
{
    CommandLine commandLine(QStringLiteral("crypt"),
                            tr("Prints the traditional DES crypt hash of a password (13 characters, the salt "
                               "first). Only the first 8 characters of the password count. Without --salt "
                               "the library's generated salt is used, which is the same on every call."));
    commandLine.addOption(QCommandLineOption(QStringLiteral("salt"),
                                             tr("Two salt characters out of ./0-9A-Za-z."),
                                             QStringLiteral("XX")));
    commandLine.addPositional(QStringLiteral("password"), passwordHelp());
    if (!commandLine.parse(arguments, 1, 1))
        return 0;

    const QString command = QStringLiteral("crypt");
    const QString password = passwordArgument(command, commandLine.positional().constFirst());
    requireLatin1(command, Field::Password, password);
    QString hash;
    if (commandLine.isSet(QStringLiteral("salt"))) {
        const QString salt = commandLine.value(QStringLiteral("salt"));
        if (salt.size() != 2 || !QString::fromLatin1(kTraditionalAlphabet).contains(salt.at(0))
            || !QString::fromLatin1(kTraditionalAlphabet).contains(salt.at(1)))
            throw CommandError(tr("crypt: the salt must be two characters out of ./0-9A-Za-z"), 2);
        hash = kogen::Crypt::crypt(salt, password);
    } else {
        hash = kogen::Crypt::crypt(password);
    }
    QTextStream(stdout) << hash << "\n";
    if (password.size() > 8)
        QTextStream(stderr) << tr("note: only the first 8 characters of the password count") << "\n";
    return 0;
}

int runHa1(const QStringList& arguments)
{
    CommandLine commandLine(QStringLiteral("ha1"),
                            tr("Prints the HTTP digest hash HA1, MD5 of user:realm:password in lower-case "
                               "hexadecimal."));
    commandLine.addPositional(QStringLiteral("user"), tr("The user name."));
    commandLine.addPositional(QStringLiteral("realm"), tr("The realm of the server."));
    commandLine.addPositional(QStringLiteral("password"), passwordHelp());
    if (!commandLine.parse(arguments, 3, 3))
        return 0;

    const QString command = QStringLiteral("ha1");
    const QStringList values = commandLine.positional();
    const QString password = passwordArgument(command, values.at(2));
    requireLatin1(command, Field::User, values.at(0));
    requireLatin1(command, Field::Realm, values.at(1));
    requireLatin1(command, Field::Password, password);
    QTextStream(stdout) << kogen::Crypt::createSessionKey(values.at(0), password, values.at(1)) << "\n";
    return 0;
}

int runAccessLine(const QStringList& arguments)
{
    CommandLine commandLine(QStringLiteral("access-line"),
                            tr("Prints a user line for a device's access list: user:access:crypt-hash:HA1. "
                               "The salt of the crypt hash changes every second."));
    commandLine.addPositional(QStringLiteral("user"), tr("The user name."));
    commandLine.addPositional(QStringLiteral("password"), passwordHelp());
    commandLine.addPositional(QStringLiteral("access"), tr("The access text of the line, such as admin."));
    commandLine.addPositional(QStringLiteral("realm"), tr("The realm of the server."));
    if (!commandLine.parse(arguments, 4, 4))
        return 0;

    const QString command = QStringLiteral("access-line");
    const QStringList values = commandLine.positional();
    const QString password = passwordArgument(command, values.at(1));
    requireLatin1(command, Field::User, values.at(0));
    requireLatin1(command, Field::Realm, values.at(3));
    requireLatin1(command, Field::Password, password);
    if (values.at(0).contains(QLatin1Char(':')) || values.at(2).contains(QLatin1Char(':')))
        throw CommandError(tr("access-line: user and access must not contain ':'"), 2);
    QTextStream(stdout) << kogen::Crypt::cameraUserAccess(values.at(0), password, values.at(2), values.at(3))
                        << "\n";
    return 0;
}

const CommandRegistration cryptRegistration(
    {"crypt", QT_TRANSLATE_NOOP("cktool", "DES crypt hash of a password"), runCrypt});
const CommandRegistration ha1Registration(
    {"ha1", QT_TRANSLATE_NOOP("cktool", "HTTP digest hash of user, realm and password"), runHa1});
const CommandRegistration accessLineRegistration(
    {"access-line", QT_TRANSLATE_NOOP("cktool", "Access-list line of a device user"), runAccessLine});

} // namespace
} // namespace cktool
