#include <CommonKit/logging/ProsaLogWriter.h>

#include <CommonKit/logging/LogEntry.h>
#include <CommonKit/logging/LogValue.h>

#include <QTextStream>

namespace ko {

ProsaLogWriter::ProsaLogWriter(QTextStream& stream, char separator) : LogWriter(&stream), m_separator(separator)
{
}

void ProsaLogWriter::writeStartDocument()
{
}

void ProsaLogWriter::writeEndDocument()
{
}

void ProsaLogWriter::writeStartElement(const LogEntry& /*entry*/)
{
}

void ProsaLogWriter::writeEndElement(const LogEntry& entry)
{
    *m_stream << entry.title() << Qt::endl;
}

void ProsaLogWriter::writeAttribute(const LogValue& value)
{
    *m_stream << value.name() << ": ";
    value.write(*m_stream);
    *m_stream << m_separator;
}

} // namespace ko
