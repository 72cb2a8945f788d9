// commonkit log append / finalize: writing to an action log file through
// ko::ActionLog, so that rollover and recovery apply as in an application.

#include "Command.h"
#include "CommandLine.h"
#include "LogActions.h"

#include <CommonKit/logging/ActionLog.h>
#include <CommonKit/logging/LogEntryFactory.h>

#include <QFile>
#include <QFileInfo>
#include <QTextStream>

#include <memory>

namespace cktool {
namespace {

// Opens the protected finalize() for the tool.
class ToolActionLog : public ko::ActionLog
{
public:
    using ko::ActionLog::ActionLog;
    using ko::ActionLog::finalize;
};

struct SplitChoice
{
    ko::ActionLog::ESplitPolicy policy;
    int size;
};

SplitChoice parseSplit(const QString& text)
{
    if (text == QLatin1String("none"))
        return {ko::ActionLog::NoSplit, 0};
    if (text == QLatin1String("daily"))
        return {ko::ActionLog::Daily, 0};
    if (text == QLatin1String("weekly"))
        return {ko::ActionLog::Weekly, 0};
    if (text == QLatin1String("monthly"))
        return {ko::ActionLog::Monthly, 0};
    if (text.startsWith(QLatin1String("size:"))) {
        bool ok = false;
        const int bytes = text.mid(5).toInt(&ok);
        if (ok && bytes >= 0)
            return {ko::ActionLog::BySize, bytes};
    }
    throw CommandError(tr("log append: --split must be none, daily, weekly, monthly or size:BYTES, not '%1'").arg(text), 2);
}

QString registeredKinds()
{
    QStringList codes;
    for (const ko::FourChars& code : ko::logEntryFactory().types()) {
        // Codes asked for before but never registered have no creator.
        if (std::unique_ptr<ko::LogEntry>(ko::logEntryFactory().create(code)))
            codes << code.toString();
    }
    return codes.join(QStringLiteral(", "));
}

// Sets the value with the four-letter id (shorter ids are padded with blanks,
// as in the file).
void setValue(ko::LogEntry& entry, const QString& id, const QString& text)
{
    ko::LogValue* value = id.size() <= 4 ? entry.logValue(ko::FourChars(id)) : nullptr;
    if (!value || value == entry.values().value(0) || value == entry.values().value(1))
        throw CommandError(tr("log append: kind '%1' has no value '%2'").arg(entry.type().toString(), id), 2);
    value->fromString(text);
}

// The failures the log reports by signal, as one line each on standard error.
class ErrorPrinter
{
public:
    explicit ErrorPrinter(ko::ActionLog& log)
    {
        // The log's errorString() tells the file and the reason.
        QObject::connect(&log, &ko::ActionLog::errorFile, [this, &log](const QString& file, int type) {
            report(type == 4 ? cktool::tr("'%1' is not an action log; it was moved aside").arg(file)
                             : log.errorString());
        });
        QObject::connect(&log, &ko::ActionLog::errorXml, [this](const QString& error, int line, int column) {
            report(cktool::tr("malformed at line %1, column %2: %3; the file is moved aside")
                       .arg(line)
                       .arg(column)
                       .arg(error));
        });
        QObject::connect(&log, &ko::ActionLog::errorLogon, [this](const QString& user, int code) {
            report(cktool::tr("logon of '%1' failed with error code %2").arg(user).arg(code));
        });
    }
    int failures = 0;

private:
    void report(const QString& text)
    {
        ++failures;
        QTextStream(stderr) << "commonkit: log append: " << text << "\n";
    }
};

} // namespace

int runLogAppend(const QStringList& arguments)
{
    CommandLine commandLine(
        QStringLiteral("log append"),
        tr("Appends one entry to an action log file, with the rollover and recovery of the action log. "
           "By default the entry is an export-done entry whose text is TEXT."));
    commandLine.addPositional(QStringLiteral("append"), tr("The action: append."));
    commandLine.addPositional(QStringLiteral("file"), tr("The action log file; created when missing."));
    commandLine.addPositional(QStringLiteral("text"), tr("The entry's text (its value \"Text\")."), QStringLiteral("[text]"));
    commandLine.addOption(QCommandLineOption(QStringLiteral("kind"), tr("The four-letter kind of the entry (default ExpD)."),
                                             QStringLiteral("code"), QStringLiteral("ExpD")));
    commandLine.addOption(QCommandLineOption(QStringLiteral("value"), tr("Sets a value of the entry by its id; repeatable."),
                                             QStringLiteral("id=text")));
    commandLine.addOption(QCommandLineOption(QStringLiteral("split"),
                                             tr("Rollover: none, daily, weekly, monthly or size:BYTES (default size:1048576)."),
                                             QStringLiteral("policy"), QStringLiteral("size:1048576")));
    if (!commandLine.parse(arguments, 2, 3))
        return 0;
    const QStringList positional = commandLine.positional();
    const QString path = positional.at(1);
    const QString kind = commandLine.value(QStringLiteral("kind"));
    const SplitChoice split = parseSplit(commandLine.value(QStringLiteral("split")));

    std::unique_ptr<ko::LogEntry> entry(kind.size() <= 4 ? ko::logEntryFactory().create(ko::FourChars(kind)) : nullptr);
    if (!entry)
        throw CommandError(tr("log append: unknown kind '%1' (known: %2)").arg(kind, registeredKinds()), 2);
    if (positional.size() > 2)
        setValue(*entry, QStringLiteral("Text"), positional.at(2));
    for (const QString& assignment : commandLine.parser().values(QStringLiteral("value"))) {
        const int equals = assignment.indexOf(QLatin1Char('='));
        if (equals <= 0)
            throw CommandError(tr("log append: --value needs ID=TEXT, not '%1'").arg(assignment), 2);
        setValue(*entry, assignment.left(equals), assignment.mid(equals + 1));
    }

    ToolActionLog log(QFileInfo(path).absoluteFilePath());
    ErrorPrinter errors(log);
    log.setSplitPolicy(split.policy, split.size);
    log.mute(false);
    const int before = log.count();
    log.log(*entry);
    if (errors.failures > 0 || log.count() <= before)
        return 1;
    return 0;
}

int runLogFinalize(const QStringList& arguments)
{
    CommandLine commandLine(QStringLiteral("log finalize"),
                            tr("Closes an action log file for good by appending \"</Entries>\"; "
                               "nothing can be appended to it afterwards."));
    commandLine.addPositional(QStringLiteral("finalize"), tr("The action: finalize."));
    commandLine.addPositional(QStringLiteral("file"), tr("The action log file."));
    if (!commandLine.parse(arguments, 2, 2))
        return 0;
    const QString path = commandLine.positional().at(1);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw CommandError(tr("log finalize: cannot open '%1': %2").arg(path, file.errorString()));
    const QByteArray head = file.read(5);
    const qint64 size = file.size();
    file.seek(qMax<qint64>(0, size - 64));
    const QByteArray tail = file.readAll().trimmed();
    file.close();
    if (head != "<?xml")
        throw CommandError(tr("log finalize: '%1' is not an action log").arg(path));
    if (tail.endsWith("</Entries>"))
        throw CommandError(tr("log finalize: '%1' is already closed").arg(path));
    ToolActionLog log(path);
    if (!log.finalize(file))
        throw CommandError(tr("log finalize: %1").arg(log.errorString()));
    return 0;
}

} // namespace cktool
