#pragma once

// Private to the JSON bridge: the text forms of dates and times.
//
// Times are written with two colons between minutes and seconds
// ("09:05::03.7"); files written so are read back by the same rule, so the
// form stays as it is. Reading also takes the form without the fraction and
// ISO 8601 text, which hand-written files and schema-valid values use.

#include <QDate>
#include <QDateTime>
#include <QString>
#include <QTime>

namespace jsonbridge {

inline const QString k_dateFormat = QStringLiteral("yyyy-MM-dd");
inline const QString k_timeFormat = QStringLiteral("hh:mm::ss.z");
inline const QString k_dateTimeFormat = QStringLiteral("yyyy-MM-dd hh:mm::ss.z");

inline QDate parseDate(const QString& text)
{
    return QDate::fromString(text, Qt::ISODate);
}

inline QTime parseTime(const QString& text)
{
    QTime time = QTime::fromString(text, k_timeFormat);
    if (!time.isValid())
        time = QTime::fromString(text, QStringLiteral("hh:mm::ss"));
    if (!time.isValid())
        time = QTime::fromString(text, Qt::ISODateWithMs);
    return time;
}

inline QDateTime parseDateTime(const QString& text)
{
    QDateTime dateTime = QDateTime::fromString(text, k_dateTimeFormat);
    if (!dateTime.isValid())
        dateTime = QDateTime::fromString(text, QStringLiteral("yyyy-MM-dd hh:mm::ss"));
    if (!dateTime.isValid())
        dateTime = QDateTime::fromString(text, Qt::ISODateWithMs);
    return dateTime;
}

} // namespace jsonbridge
