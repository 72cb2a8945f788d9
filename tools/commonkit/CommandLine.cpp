#include "CommandLine.h"

#include "Command.h"

#include <CommonKit/resources/Translations.h>

#include <QLocale>
#include <QTextStream>

#include <cstdio>

namespace cktool {

namespace {

QString languageOptionText()
{
    return tr("Language of the texts: de or fr.");
}

QString wrongArgumentCount(const QString& command)
{
    return tr("%1: wrong number of arguments (see commonkit %1 --help)").arg(command);
}

// QCommandLineParser reads "-5" as the options -5; negative numbers are
// values here (frame times, compression levels). They are hidden behind this
// mark while parsing and given back without it.
const QChar k_numberMark(0x1);

bool isNegativeNumber(const QString& argument)
{
    return argument.size() > 1 && argument.at(0) == QLatin1Char('-') && argument.at(1).isDigit();
}

QString unmarked(QString argument)
{
    if (argument.startsWith(k_numberMark))
        argument.remove(0, 1);
    return argument;
}

} // namespace

CommandLine::CommandLine(const QString& command, const QString& description) : m_command(command)
{
    m_parser.setApplicationDescription(description);
    m_parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    m_parser.addHelpOption();
    m_parser.addOption(QCommandLineOption(QStringLiteral("lang"),
                                          languageOptionText(),
                                          QStringLiteral("lang")));
}

void CommandLine::addPositional(const QString& name, const QString& description, const QString& syntax)
{
    m_parser.addPositionalArgument(name, description, syntax.isEmpty() ? name : syntax);
}

bool CommandLine::parse(const QStringList& arguments, int minPositional, int maxPositional)
{
    QStringList marked = arguments;
    for (int i = 1; i < marked.size() && marked.at(i) != QLatin1String("--"); ++i) {
        if (isNegativeNumber(marked.at(i)))
            marked[i].prepend(k_numberMark);
    }
    if (!m_parser.parse(marked))
        throw CommandError(QStringLiteral("%1: %2").arg(m_command, m_parser.errorText()), 2);
    // addHelpOption() also offers --help-all; both show the help.
    if (m_parser.isSet(QStringLiteral("help")) || m_parser.isSet(QStringLiteral("help-all"))) {
        QString help = m_parser.helpText();
        // The first line names the program as it was started; show the subcommand.
        const QString program = QCoreApplication::arguments().value(0);
        const int at = help.indexOf(program);
        if (at >= 0)
            help.replace(at, program.size(), QStringLiteral("commonkit ") + m_command);
        QTextStream(stdout) << help;
        return false;
    }
    const int count = m_parser.positionalArguments().size();
    if (count < minPositional || (maxPositional >= 0 && count > maxPositional)) {
        throw CommandError(wrongArgumentCount(m_command), 2);
    }
    return true;
}

QStringList CommandLine::positional() const
{
    QStringList arguments = m_parser.positionalArguments();
    for (QString& argument : arguments)
        argument = unmarked(argument);
    return arguments;
}

QString CommandLine::value(const QString& option) const
{
    return unmarked(m_parser.value(option));
}

void applyLanguage(const QStringList& arguments)
{
    QString language;
    for (int i = 0; i < arguments.size(); ++i) {
        const QString& argument = arguments.at(i);
        if (argument == QLatin1String("--lang") && i + 1 < arguments.size())
            language = arguments.at(i + 1);
        else if (argument.startsWith(QLatin1String("--lang=")))
            language = argument.mid(7);
    }
    if (language.isEmpty() || language == QLatin1String("en"))
        return;
    if (!ko::availableTranslations().contains(language) || !ko::installTranslations(QLocale(language)))
        throw CommandError(tr("unknown language '%1' (use de or fr)").arg(language), 2);
}

} // namespace cktool
