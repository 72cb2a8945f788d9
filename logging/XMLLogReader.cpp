#include <CommonKit/logging/XMLLogReader.h>

#include <CommonKit/logging/LogEntryFactory.h>

#include <QFile>
#include <QXmlStreamAttributes>

#include <limits>
#include <memory>

namespace ko {
namespace {

const char* const k_template =
    QT_TRANSLATE_NOOP("ActionLog", "Error '%1' reading action log '%2' in line '%3', column '%4'.");

LogEntry* createParseXMLLogEntry()
{
    return new ParseXMLLogEntry;
}

const bool k_registered = (logEntryFactory().registerCreator(
                               FourChars("XmlP"), createParseXMLLogEntry, ParseXMLLogEntry::k_title),
                           true);

int clampToInt(qint64 value)
{
    if (value > std::numeric_limits<int>::max())
        return std::numeric_limits<int>::max();
    return static_cast<int>(value);
}

} // namespace

const char* const ParseXMLLogEntry::k_title = QT_TRANSLATE_NOOP("ActionLog", "Action log error");

ParseXMLLogEntry::ParseXMLLogEntry()
    : m_source(FourChars("srcP"), QStringLiteral("source")),
      m_error(FourChars("errT"), QStringLiteral("error")),
      m_line(FourChars("errL"), QStringLiteral("line")),
      m_column(FourChars("errC"), QStringLiteral("colunm"))
{
    init();
}

ParseXMLLogEntry::ParseXMLLogEntry(const QString& errorText, const QString& fileName, int line, int column)
    : m_source(FourChars("srcP"), QStringLiteral("source"), errorText),
      m_error(FourChars("errT"), QStringLiteral("error"), fileName),
      m_line(FourChars("errL"), QStringLiteral("line"), line),
      m_column(FourChars("errC"), QStringLiteral("colunm"), column)
{
    init();
}

void ParseXMLLogEntry::init()
{
    (void)k_registered;
    setUser(QStringLiteral("Unknown"));
    append(&m_source);
    append(&m_error);
    append(&m_line);
    append(&m_column);
}

FourChars ParseXMLLogEntry::type() const
{
    return FourChars("XmlP");
}

LogCategory ParseXMLLogEntry::category() const
{
    return LogCategory(CategoryError);
}

QString ParseXMLLogEntry::format() const
{
    return tr(k_template);
}

QString ParseXMLLogEntry::title() const
{
    return tr(k_title);
}

XMLLogReader::XMLLogReader(QFile* file) : m_file(file)
{
    if (file)
        setDevice(file);
}

XMLLogReader::~XMLLogReader() = default;

bool XMLLogReader::hasFault() const
{
    return hasError() && error() != PrematureEndOfDocumentError;
}

LogEntry* XMLLogReader::readNextLogEntry()
{
    QString errorText;
    qint64 errorLine = 0;
    qint64 errorColumn = 0;
    bool sawInvalid = false;

    while (!atEnd()) {
        const TokenType token = readNext();
        if ((token == StartElement && name() == QLatin1String("Entries"))
            || (token == EndElement && name() == QLatin1String("Entry")))
            m_endOfLastEntry = characterOffset();
        if (token == Invalid) {
            sawInvalid = true;
            errorText = errorString();
            errorLine = lineNumber();
            errorColumn = columnNumber();
        } else if (token == StartElement && name() == QLatin1String("Entry")) {
            std::unique_ptr<LogEntry> entry;
            const QXmlStreamAttributes attributes = this->attributes();
            for (const QXmlStreamAttribute& attribute : attributes) {
                if (attribute.name() == QLatin1String("ID")) {
                    entry.reset(logEntryFactory().create(FourChars(attribute.value())));
                } else if (entry) {
                    LogValue* value = entry->logValue(FourChars(attribute.name()));
                    if (!value)
                        break;
                    value->fromString(attribute.value().toString());
                }
            }
            return entry.release();
        }
        if (hasFault())
            break;
    }

    if (hasFault()) {
        if (!sawInvalid)
            errorText = QStringLiteral("Unknown Error");
        const QString fileName = m_file ? m_file->fileName() : QStringLiteral("Unknown");
        return new ParseXMLLogEntry(errorText, fileName, clampToInt(errorLine), clampToInt(errorColumn));
    }
    return nullptr;
}

} // namespace ko
