#pragma once

#include <CommonKit/logging/LogWriter.h>

namespace ko {

/// Writes one readable line per entry:
///
///     Time: <time><sep>User: <user><sep><name>: <value><sep>...<title>\n
///
/// The document operations and the start element write nothing.
class COMMONKIT_EXPORT ProsaLogWriter : public LogWriter
{
public:
    /// A writer on stream (not owned; must outlive the writer) that puts
    /// separator after each value.
    ProsaLogWriter(QTextStream& stream, char separator);

    /// Writes nothing.
    void writeStartDocument() override;
    /// Writes nothing.
    void writeEndDocument() override;
    /// Writes nothing.
    void writeStartElement(const LogEntry& entry) override;
    /// The title and an end of line; flushes the stream.
    void writeEndElement(const LogEntry& entry) override;
    /// The value's name, ": ", its text and the separator.
    void writeAttribute(const LogValue& value) override;

    /// The character written after each value.
    char separator() const { return m_separator; }

private:
    char m_separator;
};

} // namespace ko
