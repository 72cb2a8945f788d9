// commonkit: command-line access to the CommonKit library.
//
//   commonkit <command> [options] [arguments]
//   commonkit --help | --version

#include "Command.h"
#include "CommandLine.h"

#include <QCoreApplication>
#include <QTextStream>

#include <csignal>

#include <exception>

namespace cktool {
namespace {

void printUsage(QTextStream& out)
{
    out << tr("Usage: commonkit <command> [options] [arguments]") << "\n\n"
        << tr("Commands:") << "\n";
    for (const Command& command : CommandRegistry::instance().commands())
        out << "  " << QString::fromLatin1(command.name).leftJustified(14) << ' '
            << tr(command.summary) << "\n";
    out << "\n" << tr("Run 'commonkit <command> --help' for the options of a command.") << "\n"
        << tr("Global options: --help, --version, --lang de|fr.") << "\n";
}

// A reason is one line: control characters that came with the input (a file
// name with a line feed, ...) are shown escaped.
QString oneLine(const QString& text)
{
    QString line;
    line.reserve(text.size());
    for (const QChar c : text) {
        const ushort u = c.unicode();
        if (u == '\n')
            line += QLatin1String("\\n");
        else if (u == '\r')
            line += QLatin1String("\\r");
        else if (u == '\t')
            line += QLatin1String("\\t");
        else if (u < 0x20 || u == 0x7F)
            line += QStringLiteral("\\x%1").arg(u, 2, 16, QLatin1Char('0'));
        else
            line += c;
    }
    return line;
}

int runCommand(const QString& name, const QStringList& arguments)
{
    const Command* command = CommandRegistry::instance().find(name);
    if (!command)
        throw CommandError(tr("unknown command '%1' (see commonkit --help)").arg(name), 2);
    return command->run(arguments);
}

} // namespace
} // namespace cktool

using namespace cktool;

int main(int argc, char** argv)
{
#ifdef SIGXFSZ
    // Past a file size limit a write fails (and is reported) instead of the
    // signal ending the program half-way.
    std::signal(SIGXFSZ, SIG_IGN);
#endif
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("commonkit"));
    QCoreApplication::setApplicationVersion(QStringLiteral(COMMONKIT_TOOL_VERSION));

    QTextStream out(stdout);
    QTextStream err(stderr);
    QStringList arguments = QCoreApplication::arguments();
    try {
        applyLanguage(arguments);
        // Drop leading "--lang X" and "--lang=X" so that the command name comes first.
        while (arguments.size() > 1) {
            if (arguments.size() > 2 && arguments.at(1) == QLatin1String("--lang"))
                arguments.erase(arguments.begin() + 1, arguments.begin() + 3);
            else if (arguments.at(1).startsWith(QLatin1String("--lang=")))
                arguments.removeAt(1);
            else
                break;
        }

        if (arguments.size() == 2 && arguments.at(1) == QLatin1String("--lang"))
            throw CommandError(cktool::tr("--lang needs a language: de or fr"), 2);
        if (arguments.size() < 2)
            throw CommandError(cktool::tr("no command given (see commonkit --help)"), 2);
        const QString name = arguments.at(1);
        if (name == QLatin1String("--help") || name == QLatin1String("-h") || name == QLatin1String("help")) {
            printUsage(out);
            return 0;
        }
        if (name == QLatin1String("--version") || name == QLatin1String("-v")) {
            out << "commonkit " << QCoreApplication::applicationVersion() << "\n";
            return 0;
        }
        out.flush();
        return runCommand(name, arguments.mid(1));
    } catch (const CommandError& error) {
        out.flush();
        err << "commonkit: " << oneLine(error.message()) << "\n";
        return error.exitCode();
    } catch (const std::exception& error) {
        out.flush();
        err << "commonkit: " << oneLine(QString::fromUtf8(error.what())) << "\n";
        return 1;
    }
}
