#pragma once

#include <CommonKit/support/core/Export.h>

#include <QtGlobal>

#include <string>

class QDateTime;

namespace ko {

/// Splits a time stamp into local calendar fields and two fixed texts, both
/// with ASCII digits whatever the locale:
///  - toString(): "dd.MM.yyyy-hh:mm:ss.zzz" (display form);
///  - toIdString(): "yyyyMMdd_hhmmss_zzz" (identifier form, usable in file names).
///
/// The fields and texts are those of the local time zone at construction.
class COMMONKIT_EXPORT CTimeTranscoder
{
public:
    static const qint32 MILLISECONDS_PER_DAY; ///< 86400000.
    static const qint64 MICROSECONDS_PER_DAY; ///< 86400000000.

    /// Milliseconds since 1970-01-01 00:00 UTC; microsecond() is 0.
    /// The 32-bit count reaches only to 1970-02-19 17:02 UTC.
    explicit CTimeTranscoder(unsigned int milliseconds);
    /// A frame time: microseconds since 1970-01-01 00:00 UTC. microsecond() is
    /// the part below the millisecond (frameTime modulo 1000).
    explicit CTimeTranscoder(unsigned long long frameTime);
    /// Copies fields and texts.
    CTimeTranscoder(const CTimeTranscoder& other);
    /// Assigns fields and texts.
    CTimeTranscoder& operator=(const CTimeTranscoder& other);
    /// Destroys the transcoder.
    ~CTimeTranscoder();

    /// The local year, e.g. 2024.
    int year() const { return m_year; }
    /// The local month, 1 to 12.
    int month() const { return m_month; }
    /// The local day of the month, 1 to 31.
    int day() const { return m_day; }
    /// The local hour, 0 to 23.
    int hour() const { return m_hour; }
    /// The minute, 0 to 59.
    int minute() const { return m_minute; }
    /// The second, 0 to 59.
    int second() const { return m_second; }
    /// The millisecond, 0 to 999.
    int millisecond() const { return m_millisecond; }
    /// The microseconds below the millisecond, 0 to 999 (0 when made from
    /// milliseconds).
    int microsecond() const { return m_microsecond; }

    /// The display text "dd.MM.yyyy-hh:mm:ss.zzz"; frame time 0 one hour east
    /// of UTC gives "01.01.1970-01:00:00.000".
    std::string toString() const { return m_display; }
    /// The identifier text "yyyyMMdd_hhmmss_zzz"; frame time 0 one hour east
    /// of UTC gives "19700101_010000_000".
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
