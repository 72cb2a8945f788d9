#pragma once

#include <CommonKit/support/core/Export.h>

#include <QDateTime>
#include <QtGlobal>

// Conversions between QDateTime and time stamps counted from
// 1970-01-01 00:00:00 UTC. Frame times are microseconds with millisecond
// resolution; every conversion passes through whole milliseconds.
//
// The seconds part is computed with Qt's 32-bit time_t functions, so values
// outside 1970..2106 wrap: toMilliSeconds() of a time before 1970 is not
// negative, and fromMilliSeconds() of -1000 or less lands in 2106 (a value
// between -999 and -1 ends just before 1970).
namespace ko {

/// Milliseconds since 1970 UTC: the 32-bit time_t seconds of dateTime in UTC
/// times 1000, plus the millisecond of its time of day. A time before 1970 or
/// an invalid one takes 0xFFFFFFFF as its seconds.
COMMONKIT_EXPORT qint64 toMilliSeconds(const QDateTime& dateTime);
/// toMilliSeconds() times 1000.
COMMONKIT_EXPORT qint64 toMicroSeconds(const QDateTime& dateTime);
/// The frame time of dateTime: toMicroSeconds() as unsigned.
COMMONKIT_EXPORT quint64 toFrameTime(const QDateTime& dateTime);
/// toMilliSeconds() times 1000000.
COMMONKIT_EXPORT qint64 toNanoSeconds(const QDateTime& dateTime);
/// Whole seconds since 1970 UTC (the 32-bit time_t; no milliseconds).
COMMONKIT_EXPORT qint64 toSeconds(const QDateTime& dateTime);
/// toMilliSeconds() in seconds, with the milliseconds as fraction.
COMMONKIT_EXPORT double toSecondsFrac(const QDateTime& dateTime);
/// A frame time (microseconds) in seconds, microseconds included.
COMMONKIT_EXPORT double toSecondsFrac(const quint64& frameTime);

/// A UTC date-time: the seconds (milliSeconds / 1000, rounded toward zero)
/// as 32-bit time_t, plus the remaining milliseconds, which are negative for
/// a negative value.
COMMONKIT_EXPORT QDateTime fromMilliSeconds(qint64 milliSeconds);
/// fromMilliSeconds() of microSeconds / 1000, rounded toward zero.
COMMONKIT_EXPORT QDateTime fromMicroSeconds(qint64 microSeconds);
/// fromMilliSeconds() of a frame time; the microseconds below the
/// millisecond are dropped.
COMMONKIT_EXPORT QDateTime fromFrameTime(quint64 frameTime);
/// fromMilliSeconds() of nanoSeconds / 1000000, rounded toward zero.
COMMONKIT_EXPORT QDateTime fromNanoSeconds(qint64 nanoSeconds);
/// A local date-time from the low 32 bits of seconds, as unsigned time_t.
COMMONKIT_EXPORT QDateTime fromSeconds(qint64 seconds);
/// fromNanoSeconds() of seconds times 10^9, truncated toward zero; values
/// beyond the 64-bit range saturate and NaN counts as 0.
COMMONKIT_EXPORT QDateTime fromSeconds(double seconds);

/// The current frame time (microseconds, whole milliseconds).
COMMONKIT_EXPORT quint64 currentFrameTime();
/// The current time in microseconds (whole milliseconds).
COMMONKIT_EXPORT qint64 currentMicroSeconds();
/// The current time in milliseconds since 1970 UTC.
COMMONKIT_EXPORT qint64 currentMilliSeconds();
/// The current time in nanoseconds (whole milliseconds).
COMMONKIT_EXPORT qint64 currentNanoSeconds();
/// The current time in whole seconds since 1970 UTC.
COMMONKIT_EXPORT qint64 currentSeconds();
/// The current time in seconds, with the milliseconds as fraction.
COMMONKIT_EXPORT double currentSecondsFrac();

} // namespace ko
