#pragma once

#include <QDateTime>
#include <QString>

namespace ko {

// Local-time conversions for the log, with as few calls into the C
// library's time zone code as the results allow.
//
// Every conversion that makes a local QDateTime lets the C library check the
// time zone again; with no TZ set, glibc then stats /etc/localtime each time.
// With glibc the library therefore names that file in TZ as it loads, when
// TZ is unset (not when COMMONKIT_FOLLOW_ZONE_CHANGES is set).
// A log's entries repeat their time texts (the short format has minutes), so
// these functions keep their last results per thread while the input and the
// TZ variable are unchanged, and write and parse the locale's format through
// a quick formatter and parser for the usual formats (ShortDateTimeFormat)
// that give the same values as the plain Qt calls.

// QDateTime::currentDateTime(): reused within the same millisecond.
QDateTime currentLocalDateTime();

// value.toString(Qt::SystemLocaleShortDate).
QString localShortDateTimeToString(const QDateTime& value);

// QDateTime::fromString(text, Qt::SystemLocaleShortDate): reused for a text
// parsed recently under the same locale format.
QDateTime localShortDateTimeFromString(const QString& text);

} // namespace ko
