#pragma once

#include <CommonKit/support/core/Export.h>

#include <QtGlobal>

#include <string>

class QDateTime;

namespace ko {

/// Splits a time stamp into local calendar fields and two fixed texts:
///   toString()   "dd.MM.yyyy-hh:mm:ss.zzz"  (display form)
///   toIdString() "yyyyMMdd_hhmmss_zzz"      (identifier form, usable in file names)
class COMMONKIT_EXPORT CTimeTranscoder
{
public:
    static const qint32 MILLISECONDS_PER_DAY;
    static const qint64 MICROSECONDS_PER_DAY;

    /// Milliseconds since 1970-01-01 00:00 UTC; microsecond() is 0.
    explicit CTimeTranscoder(unsigned int milliseconds);
    /// A frame time: microseconds since 1970-01-01 00:00 UTC. microsecond() is
    /// the part below the millisecond (frameTime modulo 1000).
    explicit CTimeTranscoder(unsigned long long frameTime);
    CTimeTranscoder(const CTimeTranscoder& other);
    CTimeTranscoder& operator=(const CTimeTranscoder& other);
    ~CTimeTranscoder();

    int year() const { return m_year; }
    int month() const { return m_month; }
    int day() const { return m_day; }
    int hour() const { return m_hour; }
    int minute() const { return m_minute; }
    int second() const { return m_second; }
    int millisecond() const { return m_millisecond; }
    int microsecond() const { return m_microsecond; }

    std::string toString() const { return m_display; }
    std::string toIdString() const { return m_identifier; }

private:
    void setFrom(const QDateTime& local);

    qint32 m_microsecond = 0;
    qint32 m_millisecond = 0;
    qint32 m_second = 0;
    qint32 m_minute = 0;
    qint32 m_hour = 0;
    qint32 m_day = 0;
    qint32 m_month = 0;
    qint32 m_year = 0;
    std::string m_display;
    std::string m_identifier;
};

} // namespace ko
