#include <CommonKit/util/TimeFunctions.h>

#include <CommonKit/support/core/QtDeprecated.h>

#include <cmath>
#include <limits>

namespace ko {

namespace {

// Seconds since 1970 as Qt's 32-bit time_t: before 1970 and invalid times give
// 0xFFFFFFFF.
qint64 utcTimeT(const QDateTime& dateTime)
{
    COMMONKIT_DEPRECATED_BEGIN
    return static_cast<qint64>(dateTime.toUTC().toTime_t());
    COMMONKIT_DEPRECATED_END
}

} // namespace

qint64 toMilliSeconds(const QDateTime& dateTime)
{
    return utcTimeT(dateTime) * 1000 + dateTime.time().msec();
}

qint64 toMicroSeconds(const QDateTime& dateTime)
{
    return toMilliSeconds(dateTime) * 1000;
}

quint64 toFrameTime(const QDateTime& dateTime)
{
    return static_cast<quint64>(toMicroSeconds(dateTime));
}

qint64 toNanoSeconds(const QDateTime& dateTime)
{
    return toMilliSeconds(dateTime) * 1000000;
}

qint64 toSeconds(const QDateTime& dateTime)
{
    return utcTimeT(dateTime);
}

double toSecondsFrac(const QDateTime& dateTime)
{
    return static_cast<double>(toMilliSeconds(dateTime) * 1000000) * 1e-9;
}

double toSecondsFrac(const quint64& frameTime)
{
    return static_cast<double>(frameTime) * 1e-6;
}

QDateTime fromMilliSeconds(qint64 milliSeconds)
{
    QDateTime dateTime;
    dateTime.setTimeSpec(Qt::UTC);
    COMMONKIT_DEPRECATED_BEGIN
    // The seconds are taken as Qt's unsigned 32-bit time_t, wrapping on purpose.
    dateTime.setTime_t(static_cast<uint>(milliSeconds / 1000));
    COMMONKIT_DEPRECATED_END
    return dateTime.addMSecs(milliSeconds % 1000);
}

QDateTime fromMicroSeconds(qint64 microSeconds)
{
    return fromMilliSeconds(microSeconds / 1000);
}

QDateTime fromFrameTime(quint64 frameTime)
{
    return fromMilliSeconds(static_cast<qint64>(frameTime / 1000));
}

QDateTime fromNanoSeconds(qint64 nanoSeconds)
{
    return fromMilliSeconds(nanoSeconds / 1000000);
}

QDateTime fromSeconds(qint64 seconds)
{
    COMMONKIT_DEPRECATED_BEGIN
    return QDateTime::fromTime_t(static_cast<uint>(seconds));
    COMMONKIT_DEPRECATED_END
}

QDateTime fromSeconds(double seconds)
{
    // Truncated toward zero; values beyond 64 bits saturate and NaN counts as 0
    // (a plain conversion of those would be undefined).
    const double nanoSeconds = seconds * 1e9;
    if (std::isnan(nanoSeconds))
        return fromNanoSeconds(0);
    if (nanoSeconds >= 9223372036854775808.0)
        return fromNanoSeconds(std::numeric_limits<qint64>::max());
    if (nanoSeconds < -9223372036854775808.0)
        return fromNanoSeconds(std::numeric_limits<qint64>::min());
    return fromNanoSeconds(static_cast<qint64>(nanoSeconds));
}

quint64 currentFrameTime()
{
    return static_cast<quint64>(currentMicroSeconds());
}

qint64 currentMicroSeconds()
{
    return currentMilliSeconds() * 1000;
}

qint64 currentMilliSeconds()
{
    return toMilliSeconds(QDateTime::currentDateTime());
}

qint64 currentNanoSeconds()
{
    return currentMilliSeconds() * 1000000;
}

qint64 currentSeconds()
{
    return toSeconds(QDateTime::currentDateTime());
}

double currentSecondsFrac()
{
    return static_cast<double>(currentMilliSeconds() * 1000000) * 1e-9;
}

} // namespace ko
