#include <CommonKit/logging/XMLLogWriter.h>

#include <CommonKit/logging/LogEntry.h>
#include <CommonKit/logging/LogValue.h>
#include <CommonKit/support/core/Log.h>

#include <QFile>
#include <QIODevice>
#include <QTextCodec>
#include <QTextStream>

#include <cstdio>
#include <cstring>

namespace ko {
namespace {

// A write-only device that appends the UTF-8 bytes written to it to a
// QString; lets the XML writer serve a text stream on a string.
class StringAppendDevice : public QIODevice
{
public:
    explicit StringAppendDevice(QString* target)
        : m_target(target), m_decoder(QTextCodec::codecForName("UTF-8")->makeDecoder())
    {
        open(QIODevice::WriteOnly);
    }
    ~StringAppendDevice() override { delete m_decoder; }
    StringAppendDevice(const StringAppendDevice&) = delete;
    StringAppendDevice& operator=(const StringAppendDevice&) = delete;

    bool isSequential() const override { return true; }

protected:
    qint64 readData(char* /*data*/, qint64 /*maxSize*/) override { return -1; }
    qint64 writeData(const char* data, qint64 size) override
    {
        m_target->append(m_decoder->toUnicode(data, static_cast<int>(size)));
        return size;
    }

private:
    QString* m_target;
    QTextDecoder* m_decoder;
};

// Whether a value id can be written as an attribute name that the reader
// maps back to the same id: an XML name made of letters, digits, '_', '-' and
// '.', not starting with a digit, '-' or '.', optionally followed by blanks.
// XML allows blanks between an attribute name and its '=', and the reader
// pads a name shorter than four letters with blanks, so "to  " is written as
// `to  ="..."` and reads back as "to  ". A blank inside the id ("a b ") would
// end the name early and is refused, as is an id of blanks only.
bool isAttributeName(const QString& id)
{
    int length = id.size();
    while (length > 0 && id.at(length - 1) == QLatin1Char(' '))
        --length;
    if (length == 0)
        return false;
    for (int i = 0; i < length; ++i) {
        const QChar c = id.at(i);
        const bool letter = c.isLetter() || c == QLatin1Char('_');
        const bool other = c.isDigit() || c == QLatin1Char('-') || c == QLatin1Char('.');
        if (!letter && (i == 0 || !other))
            return false;
    }
    return true;
}

// Replaces what XML 1.0 cannot carry by U+FFFD.
QString xmlSafe(const QString& text)
{
    QString result = text;
    const int size = text.size();
    for (int i = 0; i < size; ++i) {
        const QChar c = text.at(i);
        const ushort u = c.unicode();
        bool valid = true;
        if (u < 0x20)
            valid = u == 0x09 || u == 0x0A || u == 0x0D;
        else if (u == 0xFFFE || u == 0xFFFF)
            valid = false;
        else if (c.isHighSurrogate())
            valid = i + 1 < size && text.at(i + 1).isLowSurrogate();
        else if (c.isLowSurrogate())
            valid = i > 0 && text.at(i - 1).isHighSurrogate();
        if (!valid)
            result[i] = QChar(QChar::ReplacementCharacter);
    }
    return result;
}

} // namespace

XMLLogWriter::XMLLogWriter(QTextStream* stream, const QString& /*name*/, const QDateTime& date)
    : LogWriter(stream ? stream : &defaultStream()), m_date(date)
{
    if (m_stream->device()) {
        QXmlStreamWriter::setDevice(m_stream->device());
    } else if (m_stream->string()) {
        m_stringDevice = std::make_unique<StringAppendDevice>(m_stream->string());
        QXmlStreamWriter::setDevice(m_stringDevice.get());
    }
    setAutoFormatting(false);
    setAutoFormattingIndent(0);
}

XMLLogWriter::~XMLLogWriter() = default;

void XMLLogWriter::setDevice(QIODevice* device)
{
    QXmlStreamWriter::setDevice(device);
}

QIODevice* XMLLogWriter::device() const
{
    return QXmlStreamWriter::device();
}

void XMLLogWriter::flushTextStream()
{
    if (m_stream)
        m_stream->flush();
}

void XMLLogWriter::writeStartDocument()
{
    flushTextStream();
    QXmlStreamWriter::writeStartDocument(QStringLiteral("1.0"));
    QXmlStreamWriter::writeStartElement(QStringLiteral("Entries"));
    ++m_openElements;
    QXmlStreamWriter::writeAttribute(QStringLiteral("Version"), QStringLiteral("v0.1"));
    QXmlStreamWriter::writeAttribute(QStringLiteral("LogFile"), xmlSafe(m_startDocumentName));
    QXmlStreamWriter::writeAttribute(QStringLiteral("Date"), m_date.toString(Qt::ISODate));
    if (!m_appVersion.isEmpty())
        QXmlStreamWriter::writeAttribute(QStringLiteral("ApplicationVersion"), xmlSafe(m_appVersion));
    if (!m_lngVersion.isEmpty())
        QXmlStreamWriter::writeAttribute(QStringLiteral("LanguageVersion"), xmlSafe(m_lngVersion));
    // Finish the start tag now: a file holding only the header must already
    // end with "<Entries ...>" so that entries can be appended to it later.
    writeCharacters(QString());
}

void XMLLogWriter::writeEndDocument()
{
    flushTextStream();
    // QXmlStreamWriter::writeEndDocument() would add a line feed after the
    // end tag; the document is one line, so close the elements one by one.
    while (m_openElements > 0) {
        QXmlStreamWriter::writeEndElement();
        --m_openElements;
    }
}

void XMLLogWriter::writeStartElement(const LogEntry& entry)
{
    flushTextStream();
    QXmlStreamWriter::writeStartElement(QStringLiteral("Entry"));
    ++m_openElements;
    QXmlStreamWriter::writeAttribute(QStringLiteral("ID"), xmlSafe(entry.type().toString()));
}

void XMLLogWriter::writeEndElement(const LogEntry& /*entry*/)
{
    if (m_openElements == 0)
        return;
    QXmlStreamWriter::writeEndElement();
    --m_openElements;
}

void XMLLogWriter::writeAttribute(const LogValue& value)
{
    if (!value.isSet())
        return;
    const QString name = value.idToString();
    if (!isAttributeName(name)) {
        LogLine(Log::Warning, "ko::XMLLogWriter::writeAttribute")
            << "value id '" << name << "' cannot be written as an XML attribute name; value left out";
        return;
    }
    // QXmlStreamWriter writes the name as it stands, trailing blanks
    // included, and escapes the value.
    QXmlStreamWriter::writeAttribute(name, xmlSafe(value.toString()));
}

void* XMLLogWriter::getInterface(const char* name)
{
    return const_cast<void*>(static_cast<const XMLLogWriter*>(this)->getInterface(name));
}

const void* XMLLogWriter::getInterface(const char* name) const
{
    if (name && std::strcmp(name, "ko::XMLLogWriter") == 0)
        return this;
    return LogWriter::getInterface(name);
}

QTextStream& XMLLogWriter::defaultStream()
{
    static QFile output;
    static QTextStream stream([] {
        output.open(stdout, QIODevice::WriteOnly);
        return &output;
    }());
    return stream;
}

} // namespace ko
