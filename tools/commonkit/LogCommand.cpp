// commonkit log show: the entries of an action log file, one line each, and
// the dispatch to the other log actions (LogActions.h).

#include "Command.h"
#include "CommandLine.h"
#include "LogActions.h"

#include "logging/LogEntry.h"
#include "logging/XMLLogReader.h"
#include "logging/XMLLogWriter.h"

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

// The header attributes of the "Entries" element, for re-emitting them.
struct Header
{
    QString logFile;
    QDateTime date;
    QString appVersion;
    QString lngVersion;
};

Header readHeader(const QString& path)
{
    Header header;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return header;
    QXmlStreamReader reader(&file);
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (reader.name() == QLatin1String("Entries")) {
            const QXmlStreamAttributes attributes = reader.attributes();
            header.logFile = attributes.value(QLatin1String("LogFile")).toString();
            header.date = QDateTime::fromString(attributes.value(QLatin1String("Date")).toString(), Qt::ISODate);
            header.appVersion = attributes.value(QLatin1String("ApplicationVersion")).toString();
            header.lngVersion = attributes.value(QLatin1String("LanguageVersion")).toString();
        }
        break;
    }
    return header;
}

// Line breaks and tabs in values would break the one-line form.
QString oneLine(QString text)
{
    for (QChar& c : text) {
        if (c == QLatin1Char('\n') || c == QLatin1Char('\r') || c == QLatin1Char('\t'))
            c = QLatin1Char(' ');
    }
    return text;
}

QString entryLine(ko::LogEntry& entry)
{
    const QDateTime time = entry.time();
    const QString timeText = time.isValid() ? time.toString(QStringLiteral("yyyy-MM-dd hh:mm:ss")) : QStringLiteral("-");
    const QString user = entry.user().isEmpty() ? QStringLiteral("-") : entry.user();
    QString line = QStringLiteral("%1  %2  [%3]  %4").arg(timeText, oneLine(user), entry.category().name, entry.title());
    const QString description = oneLine(entry.description());
    if (!description.trimmed().isEmpty())
        line += QStringLiteral(": ") + description.trimmed();
    return line;
}

void writeXml(QTextStream& out, const QString& path, const std::vector<std::unique_ptr<ko::LogEntry>>& entries)
{
    const Header header = readHeader(path);
    ko::XMLLogWriter writer(&out, QString(), header.date.isValid() ? header.date : QFileInfo(path).lastModified());
    writer.setStartDocumentName(header.logFile.isEmpty() ? QFileInfo(path).fileName() : header.logFile);
    writer.setAppVersion(header.appVersion);
    writer.setLngVersion(header.lngVersion);
    writer.writeStartDocument();
    for (const auto& entry : entries)
        entry->writeTo(writer);
    writer.writeEndDocument();
}

// Whether the file at path was replaced or cut since `file` was opened on it
// (a rollover moves the file away and starts a new one).
bool replacedSinceOpened(const QFile& file, const QString& path)
{
    const QFileInfo now(path);
    return !now.exists() || now.size() < file.pos();
}

// Prints the entries that other processes append, until interrupted.
[[noreturn]] void follow(const QString& path, QFile& file, std::unique_ptr<ko::XMLLogReader> reader,
                         QTextStream& out)
{
    for (;;) {
        while (!reader->atEnd() && !reader->hasFault()) {
            std::unique_ptr<ko::LogEntry> entry(reader->readNextLogEntry());
            if (entry && !reader->hasFault())
                out << entryLine(*entry) << "\n";
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

    CommandLine commandLine(QStringLiteral("log"),
                            tr("Shows the entries of an action log file, one line each: time, user, "
                               "category, title and description. Other actions: append, finalize "
                               "(see commonkit log append --help)."));
    commandLine.addPositional(QStringLiteral("show"), tr("The action: show."));
    commandLine.addPositional(QStringLiteral("file"), tr("The action log file (live or closed)."));
    commandLine.addOption(QCommandLineOption(QStringLiteral("xml"),
                                             tr("Write the entries as a closed action log document instead.")));
    commandLine.addOption(QCommandLineOption(
        QStringLiteral("follow"),
        tr("Keep printing the entries that are appended to the file, until interrupted (like tail -f).")));
    if (!commandLine.parse(arguments, 2, 2))
        return 0;
    const QString action = commandLine.positional().at(0);
    const QString path = commandLine.positional().at(1);
    if (action != QLatin1String("show"))
        throw CommandError(tr("log: unknown action '%1' (use show, append or finalize)").arg(action), 2);
    const bool following = commandLine.isSet(QStringLiteral("follow"));
    if (following && commandLine.isSet(QStringLiteral("xml")))
        throw CommandError(tr("log: --follow and --xml cannot be combined"), 2);

    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw CommandError(tr("log: cannot open '%1': %2").arg(path, file.errorString()));

    const bool asXml = commandLine.isSet(QStringLiteral("xml"));
    std::vector<std::unique_ptr<ko::LogEntry>> entries;
    std::unique_ptr<ko::LogEntry> fault;
    int skipped = 0;
    QTextStream out(stdout);
    out.setCodec("UTF-8");

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
        if (asXml)
            entries.push_back(std::move(entry));
        else
            out << entryLine(*entry) << "\n";
    }
    if (asXml)
        writeXml(out, path, entries);
    out.flush();
    if (following && !reader.hasFault())
        follow(path, file, std::move(owned), out);

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
