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
// Parsing the locale's format stays slow, so these functions give the same
// values as the plain Qt calls but keep their last results per thread and
// reuse them while the input and the TZ variable are unchanged.

// QDateTime::currentDateTime(): reused within the same millisecond.
QDateTime currentLocalDateTime();

// QDateTime::fromString(text, Qt::SystemLocaleShortDate): reused for a text
// parsed recently under the same locale format.
QDateTime localShortDateTimeFromString(const QString& text);

} // namespace ko
