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
// negative, and fromMilliSeconds() of a negative value lands in 2106.
namespace ko {

COMMONKIT_EXPORT qint64 toMilliSeconds(const QDateTime& dateTime);
COMMONKIT_EXPORT qint64 toMicroSeconds(const QDateTime& dateTime);
COMMONKIT_EXPORT quint64 toFrameTime(const QDateTime& dateTime);
COMMONKIT_EXPORT qint64 toNanoSeconds(const QDateTime& dateTime);
COMMONKIT_EXPORT qint64 toSeconds(const QDateTime& dateTime);
COMMONKIT_EXPORT double toSecondsFrac(const QDateTime& dateTime);
COMMONKIT_EXPORT double toSecondsFrac(const quint64& frameTime);

COMMONKIT_EXPORT QDateTime fromMilliSeconds(qint64 milliSeconds);
COMMONKIT_EXPORT QDateTime fromMicroSeconds(qint64 microSeconds);
COMMONKIT_EXPORT QDateTime fromFrameTime(quint64 frameTime);
COMMONKIT_EXPORT QDateTime fromNanoSeconds(qint64 nanoSeconds);
COMMONKIT_EXPORT QDateTime fromSeconds(qint64 seconds);
COMMONKIT_EXPORT QDateTime fromSeconds(double seconds);

COMMONKIT_EXPORT quint64 currentFrameTime();
COMMONKIT_EXPORT qint64 currentMicroSeconds();
COMMONKIT_EXPORT qint64 currentMilliSeconds();
COMMONKIT_EXPORT qint64 currentNanoSeconds();
COMMONKIT_EXPORT qint64 currentSeconds();
COMMONKIT_EXPORT double currentSecondsFrac();

} // namespace ko
