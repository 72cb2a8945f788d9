#pragma once

#include <CommonKit/logging/LogWriter.h>

#include <QDateTime>
#include <QXmlStreamWriter>

#include <memory>

class QIODevice;

namespace ko {

/// Writes the action log file format (see docs/action-log-format.md): one line
/// without indentation, the XML declaration, the "Entries" start tag with the
/// header attributes, then one empty "Entry" element per entry, and
/// "</Entries>" from writeEndDocument().
///
/// The XML is written straight to the device of the text stream; anything
/// still buffered in the text stream is flushed first, so mixing both keeps
/// the order. A text stream on a QString (no device) works as well. A null
/// stream means defaultStream() (standard output).
class COMMONKIT_EXPORT XMLLogWriter : public LogWriter, private QXmlStreamWriter
{
public:
    /// The name is not used; the "LogFile" attribute is setStartDocumentName().
    /// The date is the header's "Date". The stream is not owned and must
    /// outlive the writer.
    XMLLogWriter(QTextStream* stream, const QString& name, const QDateTime& date);
    ~XMLLogWriter() override;
    XMLLogWriter(const XMLLogWriter&) = delete;
    XMLLogWriter& operator=(const XMLLogWriter&) = delete;

    /// Writes to another device from now on (the element nesting is kept).
    /// The device is not owned. The text stream given at construction is
    /// still the one flushed before each write.
    void setDevice(QIODevice* device);
    /// The device the XML goes to (not owned); for a text stream on a string,
    /// an internal device owned by the writer.
    QIODevice* device() const;

    /// The header's "Date".
    QDateTime date() const { return m_date; }
    /// Sets the header's "Date"; takes effect at the next writeStartDocument().
    void setDate(const QDateTime& date) { m_date = date; }

    /// The XML declaration and the "Entries" start tag with, in this order,
    /// Version "v0.1", LogFile, Date (ISO 8601 to the second), and
    /// ApplicationVersion and LanguageVersion only when not empty. The start
    /// tag is written complete (with its ">"); the element stays open.
    void writeStartDocument() override;
    /// Closes every element this writer opened: "</Entries>", with nothing
    /// after it (no line feed).
    void writeEndDocument() override;
    /// Opens an "Entry" element with the attribute ID = the entry's type.
    void writeStartElement(const LogEntry& entry) override;
    /// Closes the "Entry" element, written as an empty element "<Entry .../>".
    void writeEndElement(const LogEntry& entry) override;
    /// One attribute named by the value's id with its text, only if the value
    /// is set. Characters that XML 1.0 cannot carry (control characters other
    /// than tab, line feed and carriage return; unpaired surrogates) are
    /// written as U+FFFD so that the file stays readable. The id is written as
    /// it stands, trailing blanks included (`to  ="..."` is well-formed and
    /// reads back as "to  "). A value whose id cannot start an attribute (blanks
    /// only, a first character other than a letter or '_') or holds a blank
    /// before another character ("a b ") is left out with a warning in ko::Log.
    void writeAttribute(const LogValue& value) override;

    /// Answers "ko::XMLLogWriter" too, besides the names of LogWriter.
    void* getInterface(const char* name) override;
    /// Answers "ko::XMLLogWriter" too, besides the names of LogWriter.
    const void* getInterface(const char* name) const override;

    /// The process-wide text stream on standard output used for a null stream.
    static QTextStream& defaultStream();

private:
    void flushTextStream();

    QDateTime m_date;
    std::unique_ptr<QIODevice> m_stringDevice;
    /// Elements opened and not yet closed ("Entries", "Entry").
    int m_openElements = 0;
};

} // namespace ko
