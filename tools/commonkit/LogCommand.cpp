// commonkit log show: the entries of an action log file, one line each.

#include "Command.h"
#include "CommandLine.h"

#include "logging/LogEntry.h"
#include "logging/XMLLogReader.h"
#include "logging/XMLLogWriter.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QTextStream>
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

int runLog(const QStringList& arguments)
{
    CommandLine commandLine(QStringLiteral("log"),
                            tr("Shows the entries of an action log file, one line each: time, user, "
                               "category, title and description."));
    commandLine.addPositional(QStringLiteral("show"), tr("The action: show."));
    commandLine.addPositional(QStringLiteral("file"), tr("The action log file (live or closed)."));
    commandLine.addOption(QCommandLineOption(QStringLiteral("xml"),
                                             tr("Write the entries as a closed action log document instead.")));
    if (!commandLine.parse(arguments, 2, 2))
        return 0;
    const QString action = commandLine.positional().at(0);
    const QString path = commandLine.positional().at(1);
    if (action != QLatin1String("show"))
        throw CommandError(tr("log: unknown action '%1' (use show)").arg(action), 2);

    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw CommandError(tr("log: cannot open '%1': %2").arg(path, file.errorString()));

    const bool asXml = commandLine.isSet(QStringLiteral("xml"));
    std::vector<std::unique_ptr<ko::LogEntry>> entries;
    std::unique_ptr<ko::LogEntry> fault;
    int skipped = 0;
    QTextStream out(stdout);
    out.setCodec("UTF-8");

    ko::XMLLogReader reader(&file);
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
