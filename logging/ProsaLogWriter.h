#pragma once

#include <CommonKit/logging/LogWriter.h>

namespace ko {

/// Writes one readable line per entry:
///     Time: <time><sep>User: <user><sep><name>: <value><sep>...<title>\n
/// The document operations and the start element write nothing.
class COMMONKIT_EXPORT ProsaLogWriter : public LogWriter
{
public:
    ProsaLogWriter(QTextStream& stream, char separator);

    void writeStartDocument() override;
    void writeEndDocument() override;
    void writeStartElement(const LogEntry& entry) override;
    /// The title and an end of line; flushes the stream.
    void writeEndElement(const LogEntry& entry) override;
    /// The value's name, ": ", its text and the separator.
    void writeAttribute(const LogValue& value) override;

    char separator() const { return m_separator; }

private:
    char m_separator;
};

} // namespace ko
