// commonkit log stats: how many entries per category, per user and per day.

#include "Command.h"
#include "CommandLine.h"
#include "LogActions.h"

#include <CommonKit/logging/LogEntry.h>
#include <CommonKit/logging/XMLLogReader.h>
#include <CommonKit/logview/ActionLogFilter.h>

#include <QFile>
#include <QMap>
#include <QTextStream>

#include <memory>

namespace cktool {
namespace {

void printCounts(QTextStream& out, const QString& heading, const QMap<QString, int>& counts)
{
    out << heading << "\n";
    for (auto it = counts.begin(); it != counts.end(); ++it)
        out << "  " << it.value() << "\t" << it.key() << "\n";
}

} // namespace

int runLogStats(const QStringList& arguments)
{
    CommandLine commandLine(QStringLiteral("log stats"),
                            tr("Counts the entries of an action log file per category, per user and per day."));
    commandLine.addPositional(QStringLiteral("stats"), tr("The action: stats."));
    commandLine.addPositional(QStringLiteral("file"), tr("The action log file (live or closed)."));
    commandLine.addOption(QCommandLineOption(
        QStringLiteral("where"), tr("Count only the entries the filter accepts (see docs/filter-language.md)."),
        QStringLiteral("filter")));
    if (!commandLine.parse(arguments, 2, 2))
        return 0;
    const QString path = commandLine.positional().at(1);
    ko::ActionLogFilter filter;
    QString filterError;
    if (!filter.setFilterText(commandLine.value(QStringLiteral("where")), &filterError))
        throw CommandError(tr("log: --where: %1").arg(filterError), 2);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw CommandError(tr("log: cannot open '%1': %2").arg(path, file.errorString()));

    QMap<QString, int> perCategory, perUser, perDay;
    int total = 0;
    ko::XMLLogReader reader(&file);
    while (!reader.atEnd() && !reader.hasError()) {
        std::unique_ptr<ko::LogEntry> entry(reader.readNextLogEntry());
        if (!entry || reader.hasFault() || !filter.accepts(*entry))
            continue;
        ++total;
        ++perCategory[entry->category().name];
        ++perUser[entry->user().isEmpty() ? QStringLiteral("-") : entry->user()];
        ++perDay[entry->time().isValid() ? entry->time().date().toString(Qt::ISODate) : QStringLiteral("-")];
    }
    QTextStream out(stdout);
    out.setCodec("UTF-8");
    out << tr("%1 entries").arg(total) << "\n";
    printCounts(out, tr("Per category:"), perCategory);
    printCounts(out, tr("Per user:"), perUser);
    printCounts(out, tr("Per day:"), perDay);
    out.flush();
    if (reader.hasFault())
        throw CommandError(tr("log: %1: malformed at line %2, column %3: %4")
                               .arg(path, QString::number(reader.lineNumber()), QString::number(reader.columnNumber()),
                                    reader.errorString()));
    return 0;
}

} // namespace cktool
