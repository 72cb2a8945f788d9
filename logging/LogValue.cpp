#include <CommonKit/logging/LogValue.h>

#include "logging/LocalTime_p.h"
#include <CommonKit/support/core/QtDeprecated.h>

#include <QLocale>

#include <QTextStream>

namespace ko {

LogValue::LogValue(const FourChars& id, const QString& name) : m_id(id), m_name(name)
{
}

LogValue::~LogValue() = default;

QString LogValue::toString() const
{
    QString text;
    QTextStream stream(&text, QIODevice::ReadWrite);
    write(stream);
    stream.flush();
    return text;
}

template<typename T>
void TLogValue<T>::assign(const LogValue& other)
{
    if (const auto* same = dynamic_cast<const TLogValue<T>*>(&other))
        value = same->value;
}

template<>
bool TLogValue<int>::isSet() const
{
    return value != 0;
}

template<>
void TLogValue<int>::fromString(const QString& text)
{
    value = text.toInt(nullptr, 10);
}

template<>
QTextStream& TLogValue<int>::write(QTextStream& stream) const
{
    return stream << value;
}

template<>
bool TLogValue<QString>::isSet() const
{
    return !value.isEmpty();
}

template<>
void TLogValue<QString>::fromString(const QString& text)
{
    value = text;
}

template<>
QTextStream& TLogValue<QString>::write(QTextStream& stream) const
{
    return stream << value;
}

template<>
bool TLogValue<QDateTime>::isSet() const
{
    return value != QDateTime();
}

template<>
void TLogValue<QDateTime>::fromString(const QString& text)
{
    value = localShortDateTimeFromString(text);
}

template<>
QTextStream& TLogValue<QDateTime>::write(QTextStream& stream) const
{
    return stream << localShortDateTimeToString(value);
}

template class TLogValue<int>;
template class TLogValue<QString>;
template class TLogValue<QDateTime>;

} // namespace ko
