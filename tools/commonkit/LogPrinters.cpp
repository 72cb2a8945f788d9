// The output formats of `commonkit log show`.

#include "LogPrinters.h"

#include "Command.h"

#include <CommonKit/logging/LogEntry.h>
#include <CommonKit/logging/LogValue.h>
#include <CommonKit/logging/XMLLogReader.h>
#include <CommonKit/logging/XMLLogWriter.h>
#include <CommonKit/logview/ActionLogFilter.h>

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QXmlStreamReader>

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

} // namespace

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

namespace {

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


class TextPrinter : public EntryPrinter
{
public:
    explicit TextPrinter(QTextStream& out) : m_out(out) {}
    void print(ko::LogEntry& entry) override { m_out << entryLine(entry) << "\n"; }

private:
    QTextStream& m_out;
};

// The fixed fields, then every value that is set, by its id, as text.
QJsonObject jsonRecord(ko::LogEntry& entry)
{
    QJsonObject record;
    record.insert(QStringLiteral("time"), entry.time().toString(Qt::ISODate));
    record.insert(QStringLiteral("user"), entry.user());
    record.insert(QStringLiteral("category"), ko::FourChars(entry.category().id).toString());
    record.insert(QStringLiteral("type"), entry.type().toString());
    record.insert(QStringLiteral("title"), entry.title());
    record.insert(QStringLiteral("description"), entry.description());
    QJsonObject values;
    const QList<ko::LogValue*>& all = entry.values();
    for (int i = 2; i < all.size(); ++i) {
        if (all.at(i)->isSet())
            values.insert(all.at(i)->idToString(), all.at(i)->toString());
    }
    record.insert(QStringLiteral("values"), values);
    return record;
}

class JsonPrinter : public EntryPrinter
{
public:
    explicit JsonPrinter(QTextStream& out) : m_out(out) {}
    void print(ko::LogEntry& entry) override
    {
        m_out << QString::fromUtf8(QJsonDocument(jsonRecord(entry)).toJson(QJsonDocument::Compact)) << "\n";
    }

private:
    QTextStream& m_out;
};

QString csvField(const QString& text)
{
    if (!text.contains(QLatin1Char(',')) && !text.contains(QLatin1Char('"')) && !text.contains(QLatin1Char('\n'))
        && !text.contains(QLatin1Char('\r')))
        return text;
    return QLatin1Char('"') + QString(text).replace(QLatin1Char('"'), QStringLiteral("\"\"")) + QLatin1Char('"');
}

// RFC 4180 rows: the fixed fields, then one column per value name that a
// registered kind has (empty where the entry has no such value).
class CsvPrinter : public EntryPrinter
{
public:
    explicit CsvPrinter(QTextStream& out) : m_out(out)
    {
        m_columns = QStringList{QStringLiteral("time"), QStringLiteral("user"), QStringLiteral("category"),
                                QStringLiteral("type"), QStringLiteral("title"), QStringLiteral("description")};
        for (const QString& name : ko::ActionLogFilter::schema().allPropertyNames()) {
            if (!m_columns.contains(name))
                m_columns << name;
        }
    }
    void begin() override { writeRow(m_columns); }
    void print(ko::LogEntry& entry) override
    {
        const QVariantMap fields = ko::ActionLogFilter::fieldsOf(entry);
        QStringList row;
        for (const QString& column : qAsConst(m_columns)) {
            if (column == QLatin1String("description")) {
                row << entry.description();
            } else {
                const QVariant value = fields.value(column);
                row << (value.type() == QVariant::DateTime ? value.toDateTime().toString(Qt::ISODate) : value.toString());
            }
        }
        writeRow(row);
    }

private:
    void writeRow(const QStringList& fields)
    {
        QStringList quoted;
        for (const QString& field : fields)
            quoted << csvField(field);
        m_out << quoted.join(QLatin1Char(',')) << "\r\n";
    }

    QTextStream& m_out;
    QStringList m_columns;
};

class XmlPrinter : public EntryPrinter
{
public:
    XmlPrinter(QTextStream& out, const QString& path) : m_out(out), m_path(path) {}
    void print(ko::LogEntry& entry) override
    {
        std::unique_ptr<ko::LogEntry> copy(entry.clone());
        if (copy)
            m_entries.push_back(std::move(copy));
    }
    void end() override { writeXml(m_out, m_path, m_entries); }

private:
    QTextStream& m_out;
    QString m_path;
    std::vector<std::unique_ptr<ko::LogEntry>> m_entries;
};

} // namespace

std::unique_ptr<EntryPrinter> makeEntryPrinter(const QString& format, QTextStream& out, const QString& path)
{
    if (format == QLatin1String("text"))
        return std::make_unique<TextPrinter>(out);
    if (format == QLatin1String("json"))
        return std::make_unique<JsonPrinter>(out);
    if (format == QLatin1String("csv"))
        return std::make_unique<CsvPrinter>(out);
    if (format == QLatin1String("xml"))
        return std::make_unique<XmlPrinter>(out, path);
    throw CommandError(tr("log: --format must be text, json, csv or xml, not '%1'").arg(format), 2);
}

} // namespace cktool
