#include <CommonKit/logging/LogValue.h>

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
    // Parsing a locale format is slow (tens of microseconds, most of it in
    // the C library's time zone checks), and the short format has minutes,
    // so the entries of a log mostly repeat a few texts. Each thread keeps
    // its last results, valid for the same text under the same format.
    struct Parsed
    {
        QString text;
        QString format;
        QDateTime value;
    };
    constexpr int k_kept = 8;
    thread_local Parsed kept[k_kept];
    thread_local int next = 0;
    const QString format = QLocale::system().dateTimeFormat(QLocale::ShortFormat);
    for (const Parsed& parsed : kept) {
        if (!parsed.text.isNull() && parsed.text == text && parsed.format == format) {
            value = parsed.value;
            return;
        }
    }
    COMMONKIT_DEPRECATED_BEGIN
    value = QDateTime::fromString(text, Qt::SystemLocaleShortDate);
    COMMONKIT_DEPRECATED_END
    kept[next] = Parsed{text, format, value};
    next = (next + 1) % k_kept;
}

template<>
QTextStream& TLogValue<QDateTime>::write(QTextStream& stream) const
{
    COMMONKIT_DEPRECATED_BEGIN
    return stream << value.toString(Qt::SystemLocaleShortDate);
    COMMONKIT_DEPRECATED_END
}

template class TLogValue<int>;
template class TLogValue<QString>;
template class TLogValue<QDateTime>;

} // namespace ko
