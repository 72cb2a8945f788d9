// commonkit fourcc: four-character codes and their 32-bit values.

#include "Command.h"
#include "CommandLine.h"

#include <CommonKit/util/FourChars.h>

#include <QTextStream>

#include <algorithm>

namespace cktool {
namespace {

QString hex(unsigned int value)
{
    return QStringLiteral("0x%1").arg(value, 8, 16, QLatin1Char('0'));
}

// Accepts 0x-prefixed hexadecimal and decimal numbers of more than four digits;
// anything else is taken as the letters of a code.
bool parseNumber(const QString& text, unsigned int* value)
{
    bool ok = false;
    if (text.startsWith(QLatin1String("0x"), Qt::CaseInsensitive)) {
        *value = text.mid(2).toUInt(&ok, 16);
        if (!ok)
            throw CommandError(tr("fourcc: '%1' is not a 32-bit hexadecimal number").arg(text));
        return true;
    }
    if (text.size() > 4) {
        *value = text.toUInt(&ok, 10);
        const bool allDigits = std::all_of(text.begin(), text.end(), [](QChar c) {
            return c >= QLatin1Char('0') && c <= QLatin1Char('9');
        });
        if (!ok && allDigits)
            throw CommandError(tr("fourcc: '%1' is not a 32-bit number").arg(text));
        return ok;
    }
    return false;
}

// The letters of a code; bytes that are no printable Latin-1 character (and
// the backslash) show as \xNN, so that no control character reaches the
// terminal.
QString escapedLetters(const ko::FourChars& code)
{
    QString letters;
    for (const QChar c : code.toString()) {
        const ushort u = c.unicode();
        const bool printable = (u >= 0x20 && u < 0x7F && u != '\\') || u >= 0xA0;
        letters += printable ? QString(c) : QStringLiteral("\\x%1").arg(u, 2, 16, QLatin1Char('0'));
    }
    return letters;
}

int runFourcc(const QStringList& arguments)
{
    CommandLine commandLine(QStringLiteral("fourcc"),
                            tr("Shows the 32-bit value of a four-character code, or the letters of a value. "
                               "Bytes that are not printable show as \\xNN."));
    commandLine.addPositional(QStringLiteral("code"),
                              tr("Letters such as ExpS, or a value such as 0x45787053 or 1165520979."));
    if (!commandLine.parse(arguments, 1, 1))
        return 0;

    const QString text = commandLine.positional().constFirst();
    QTextStream out(stdout);
    unsigned int value = 0;
    if (parseNumber(text, &value)) {
        out << '"' << escapedLetters(ko::FourChars(value)) << '"' << "\n";
        return 0;
    }
    if (text.isEmpty())
        throw CommandError(tr("fourcc: the code is empty"));
    for (const QChar c : text) {
        if (c.unicode() > 0xFF || c.unicode() == 0)
            throw CommandError(tr("fourcc: '%1' has characters outside Latin-1").arg(text));
    }
    const ko::FourChars code(text);
    out << hex(code) << ' ' << static_cast<unsigned int>(code) << "\n";
    if (text.size() > 4)
        QTextStream(stderr) << tr("note: only the first four characters count: \"%1\"").arg(escapedLetters(code))
                            << "\n";
    return 0;
}

const CommandRegistration registration(
    {"fourcc", QT_TRANSLATE_NOOP("cktool", "Convert four-character codes and 32-bit values"), runFourcc});

} // namespace
} // namespace cktool
