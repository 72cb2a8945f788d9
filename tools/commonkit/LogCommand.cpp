// commonkit log show: the entries of an action log file, one line each, and
// the dispatch to the other log actions (LogActions.h).

#include "Command.h"
#include "CommandLine.h"
#include "LogActions.h"
#include "LogPrinters.h"

#include <CommonKit/logging/LogEntry.h>
#include <CommonKit/logging/XMLLogReader.h>
#include <CommonKit/logview/ActionLogFilter.h>

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QTextStream>
#include <QThread>
#include <QXmlStreamReader>

#include <memory>
#include <vector>

namespace cktool {
namespace {

// Whether the file at path was replaced or cut since `file` was opened on it
// (a rollover moves the file away and starts a new one).
bool replacedSinceOpened(const QFile& file, const QString& path)
{
    const QFileInfo now(path);
    return !now.exists() || now.size() < file.pos();
}

// Prints the entries that other processes append, until interrupted.
[[noreturn]] void follow(const QString& path, QFile& file, std::unique_ptr<ko::XMLLogReader> reader,
                         const ko::ActionLogFilter& filter, EntryPrinter& printer, QTextStream& out)
{
    for (;;) {
        while (!reader->atEnd() && !reader->hasFault()) {
            std::unique_ptr<ko::LogEntry> entry(reader->readNextLogEntry());
            if (entry && !reader->hasFault() && filter.accepts(*entry))
                printer.print(*entry);
        }
        out.flush();
        QThread::msleep(200);
        if (replacedSinceOpened(file, path) || reader->hasFault()) {
            file.close();
            while (!file.open(QIODevice::ReadOnly))
                QThread::msleep(200);
            reader = std::make_unique<ko::XMLLogReader>(&file);
        }
    }
}

int runLog(const QStringList& arguments)
{
    const QString requested = arguments.value(1);
    if (requested == QLatin1String("append"))
        return runLogAppend(arguments);
    if (requested == QLatin1String("finalize"))
        return runLogFinalize(arguments);
    if (requested == QLatin1String("stats"))
        return runLogStats(arguments);

    CommandLine commandLine(QStringLiteral("log"),
                            tr("Shows the entries of an action log file, one line each: time, user, "
                               "category, title and description. Other actions: append, finalize, stats "
                               "(see commonkit log append --help)."));
    commandLine.addPositional(QStringLiteral("show"), tr("The action: show."));
    commandLine.addPositional(QStringLiteral("file"), tr("The action log file (live or closed)."));
    commandLine.addOption(QCommandLineOption(QStringLiteral("xml"),
                                             tr("Write the entries as a closed action log document instead.")));
    commandLine.addOption(QCommandLineOption(
        QStringLiteral("where"), tr("Show only the entries the filter accepts (see docs/filter-language.md)."),
        QStringLiteral("filter")));
    commandLine.addOption(QCommandLineOption(QStringLiteral("format"),
                                             tr("Output: text (default), json (one object per line), csv or xml."),
                                             QStringLiteral("format"), QStringLiteral("text")));
    commandLine.addOption(QCommandLineOption(
        QStringLiteral("follow"),
        tr("Keep printing the entries that are appended to the file, until interrupted (like tail -f).")));
    if (!commandLine.parse(arguments, 2, 2))
        return 0;
    const QString action = commandLine.positional().at(0);
    const QString path = commandLine.positional().at(1);
    if (action != QLatin1String("show"))
        throw CommandError(tr("log: unknown action '%1' (use show, append, finalize or stats)").arg(action), 2);
    const bool following = commandLine.isSet(QStringLiteral("follow"));
    const QString format = commandLine.isSet(QStringLiteral("xml")) ? QStringLiteral("xml")
                                                                     : commandLine.value(QStringLiteral("format"));
    if (following && format == QLatin1String("xml"))
        throw CommandError(tr("log: --follow and --xml cannot be combined"), 2);
    ko::ActionLogFilter filter;
    QString filterError;
    if (!filter.setFilterText(commandLine.value(QStringLiteral("where")), &filterError))
        throw CommandError(tr("log: --where: %1").arg(filterError), 2);

    QTextStream out(stdout);
    out.setCodec("UTF-8");
    const std::unique_ptr<EntryPrinter> printer = makeEntryPrinter(format, out, path);

    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw CommandError(tr("log: cannot open '%1': %2").arg(path, file.errorString()));

    std::unique_ptr<ko::LogEntry> fault;
    int skipped = 0;
    printer->begin();
    auto owned = std::make_unique<ko::XMLLogReader>(&file);
    ko::XMLLogReader& reader = *owned;
    while (!reader.atEnd() && !reader.hasError()) {
        std::unique_ptr<ko::LogEntry> entry(reader.readNextLogEntry());
        if (reader.hasFault()) {
            fault = std::move(entry);
            break;
        }
        if (!entry) {
            if (!reader.atEnd())
                ++skipped;
            continue;
        }
        if (filter.accepts(*entry))
            printer->print(*entry);
    }
    printer->end();
    out.flush();
    if (following && !reader.hasFault())
        follow(path, file, std::move(owned), filter, *printer, out);

    if (skipped > 0)
        QTextStream(stderr) << tr("note: %1 entries of kinds unknown to this program were skipped").arg(skipped)
                            << "\n";
    if (reader.hasFault()) {
        const auto* error = dynamic_cast<ko::ParseXMLLogEntry*>(fault.get());
        const QString reason = error ? error->errorText() : reader.errorString();
        const qint64 line = error ? error->line() : reader.lineNumber();
        const qint64 column = error ? error->column() : reader.columnNumber();
        throw CommandError(tr("log: %1: malformed at line %2, column %3: %4")
                               .arg(path, QString::number(line), QString::number(column), reason));
    }
    return 0;
}

const CommandRegistration registration(
    {"log", QT_TRANSLATE_NOOP("cktool", "Show the entries of an action log file"), runLog});

} // namespace
} // namespace cktool
