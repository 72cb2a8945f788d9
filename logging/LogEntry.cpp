#include <CommonKit/logging/LogEntry.h>

#include "logging/LocalTime_p.h"
#include <CommonKit/logging/LogEntryFactory.h>
#include <CommonKit/logging/LogWriter.h>
#include <CommonKit/logging/ProsaLogWriter.h>
#include <CommonKit/support/core/Log.h>

#include <QCoreApplication>
#include <QStringList>
#include <QTextStream>

#include <algorithm>

namespace ko {
namespace {

// Whether QString::arg would find a placeholder (%1 to %99, or %L1...) to
// replace; asking arg() without one makes Qt print a warning.
bool hasPlaceholder(const QString& text)
{
    const int size = text.size();
    for (int i = 0; i + 1 < size; ++i) {
        if (text.at(i) != QLatin1Char('%'))
            continue;
        int next = i + 1;
        if (text.at(next) == QLatin1Char('L') && next + 1 < size)
            ++next;
        if (text.at(next).digitValue() >= 0) // as arg() reads it: '²' counts as 2
            return true;
    }
    return false;
}

// How long a filled template may grow: 2^20 characters plus eight times the
// length of the template and the values together. A value may carry
// placeholders of its own that the next value fills, so a few long values
// made of placeholders would otherwise make the text grow by the product of
// their lengths; an ordinary entry stays far below the limit.
qint64 descriptionBudget(const QString& format, const QList<LogValue*>& values, QStringList* texts)
{
    qint64 input = format.size();
    for (int i = 2; i < values.size(); ++i) {
        texts->append(values.at(i)->toString());
        input += texts->last().size();
    }
    return (qint64(1) << 20) + 8 * input;
}

// Whether filling value into text surely stays within budget: every
// placeholder arg() replaces starts with a '%'.
bool fillFits(const QString& text, const QString& value, qint64 budget)
{
    return text.size() + qint64(text.count(QLatin1Char('%'))) * value.size() <= budget;
}

} // namespace

LogEntry::LogEntry()
    : m_time(FourChars("Time"), QStringLiteral("Time"), currentLocalDateTime()),
      m_user(FourChars("User"), QStringLiteral("User"))
{
    m_values.append(&m_time);
    m_values.append(&m_user);
}

LogEntry::~LogEntry() = default;

QString LogEntry::description()
{
    QString result = format();
    if (!result.isEmpty()) {
        QStringList texts;
        const qint64 budget = descriptionBudget(result, m_values, &texts);
        for (const QString& text : qAsConst(texts)) {
            if (!hasPlaceholder(result) || !fillFits(result, text, budget))
                break;
            result = result.arg(text, 0, QLatin1Char(' '));
        }
        return result;
    }
    QTextStream stream(&result, QIODevice::ReadWrite);
    ProsaLogWriter writer(stream, ' ');
    for (int i = 2; i < m_values.size(); ++i)
        writer.writeAttribute(*m_values.at(i));
    stream.flush();
    return result;
}

LogValue* LogEntry::logValue(FourChars id) const
{
    for (LogValue* value : m_values) {
        if (value->id() == id)
            return value;
    }
    return nullptr;
}

void LogEntry::writeTo(ILogWriter& writer) const
{
    writer.writeStartElement(*this);
    try {
        for (const LogValue* value : m_values)
            writer.writeAttribute(*value);
    } catch (...) {
        writer.writeEndElement(*this);
        throw;
    }
    writer.writeEndElement(*this);
}

LogEntry* LogEntry::clone() const
{
    LogEntry* copy = logEntryFactory().create(type());
    if (!copy) {
        LogLine(Log::Error, "ko::LogEntry::clone")
            << "log entry kind '" << type().toString() << "' is not registered in the factory";
        return nullptr;
    }
    copy->copyFrom(*this);
    return copy;
}

bool LogEntry::operator==(const LogEntry& other) const
{
    return time() == other.time() && type() == other.type() && category().id == other.category().id
           && user() == other.user();
}

QString LogEntry::tr(const char* sourceText, const char* disambiguation, int n)
{
    return QCoreApplication::translate("ActionLog", sourceText, disambiguation, n);
}

void LogEntry::append(LogValue* value)
{
    if (value)
        m_values.append(value);
}

void LogEntry::copyFrom(const LogEntry& other)
{
    const int count = std::min(m_values.size(), other.m_values.size());
    for (int i = 0; i < count; ++i)
        m_values.at(i)->assign(*other.m_values.at(i));
}

} // namespace ko
