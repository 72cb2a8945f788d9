#pragma once

#include <QDateTime>
#include <QString>

namespace ko {

// Local-time conversions for the log, without a system call per entry.
//
// Every conversion that makes a local QDateTime lets the C library check the
// time zone again; with no TZ set, glibc then stats /etc/localtime each time,
// which dominated reading and writing logs. With glibc the library therefore
// sets TZ to ":/etc/localtime" (the same zone) as it loads, when TZ is unset.
// Writing and parsing the locale's format is slow too, so these functions
// give the same values as the plain Qt calls, through a quick formatter and
// parser for the usual formats (ShortDateTimeFormat), and keep their last
// results per thread while the input and the TZ variable are unchanged.

// QDateTime::currentDateTime(): reused within the same millisecond.
QDateTime currentLocalDateTime();

// value.toString(Qt::SystemLocaleShortDate).
QString localShortDateTimeToString(const QDateTime& value);

// QDateTime::fromString(text, Qt::SystemLocaleShortDate): reused for a text
// parsed recently under the same locale format.
QDateTime localShortDateTimeFromString(const QString& text);

} // namespace ko
