#include "logging/LocalTime_p.h"

#include "logging/ShortDateTimeFormat_p.h"
#include <CommonKit/support/core/QtDeprecated.h>

#include <QLocale>

#include <cstdlib>
#include <memory>
#include <string>

namespace ko {
namespace {

// The TZ variable a result was computed under: a change (qputenv("TZ")
// followed by tzset()) must not hand out results of the old zone. Read as
// the C library reads it, without copying it for every call.
class ZoneKey
{
public:
    bool isCurrent() const
    {
        const char* tz = std::getenv("TZ");
        return m_known && (tz ? m_set && m_tz == tz : !m_set);
    }
    void update()
    {
        const char* tz = std::getenv("TZ");
        m_set = tz != nullptr;
        m_tz = tz ? tz : "";
        m_known = true;
    }

private:
    std::string m_tz;
    bool m_set = false;
    bool m_known = false;
};

#if defined(__GLIBC__)
// With TZ unset, glibc re-reads the zone on every local-time conversion
// (mktime and tzset, both reached from every local QDateTime): a stat of
// /etc/localtime each time, which was most of the time spent reading a log
// whose times carry seconds. Naming that same file in TZ gives the same zone
// and the same results (a missing file still means UTC, and Qt takes
// ":/etc/localtime" for the system zone), but glibc then only compares TZ
// with the value it last read. Done once as the library loads, before the
// application starts threads. Left alone: a TZ the user set, even an empty
// one, and every process that sets COMMONKIT_FOLLOW_ZONE_CHANGES (with TZ
// named, a process no longer notices that the system's zone file changed
// while it runs).
void nameSystemZoneFile()
{
    if (!qEnvironmentVariableIsSet("TZ") && !qEnvironmentVariableIsSet("COMMONKIT_FOLLOW_ZONE_CHANGES"))
        qputenv("TZ", ":/etc/localtime");
}
Q_CONSTRUCTOR_FUNCTION(nameSystemZoneFile)
#endif

} // namespace

QDateTime currentLocalDateTime()
{
    thread_local qint64 lastMSecs = -1;
    thread_local ZoneKey lastZone;
    thread_local QDateTime last;
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    if (now != lastMSecs || !lastZone.isCurrent()) {
        lastZone.update();
        last = QDateTime::fromMSecsSinceEpoch(now, Qt::LocalTime);
        lastMSecs = now;
    }
    return last;
}

namespace {

// The system locale's short format, prepared for the thread, again when the
// locale's format changed.
const ShortDateTimeFormat& shortFormat(const QString& format)
{
    thread_local std::unique_ptr<ShortDateTimeFormat> prepared;
    if (!prepared || prepared->format() != format)
        prepared = std::make_unique<ShortDateTimeFormat>();
    return *prepared;
}

} // namespace

QString localShortDateTimeToString(const QDateTime& value)
{
    QString text;
    if (shortFormat(QLocale::system().dateTimeFormat(QLocale::ShortFormat)).toString(value, &text))
        return text;
    COMMONKIT_DEPRECATED_BEGIN
    return value.toString(Qt::SystemLocaleShortDate);
    COMMONKIT_DEPRECATED_END
}

QDateTime localShortDateTimeFromString(const QString& text)
{
    // Entries logged in the same second repeat their texts: keep the last
    // few results. Others mostly take the quick parser.
    struct Parsed
    {
        QString text;
        QDateTime value;
    };
    constexpr int k_kept = 8;
    thread_local Parsed kept[k_kept];
    thread_local int next = 0;
    thread_local QString keptFormat;
    thread_local ZoneKey keptZone;
    const QString format = QLocale::system().dateTimeFormat(QLocale::ShortFormat);
    if (format != keptFormat || !keptZone.isCurrent()) {
        for (Parsed& parsed : kept)
            parsed = Parsed();
        keptFormat = format;
        keptZone.update();
    }
    for (const Parsed& parsed : kept) {
        if (!parsed.text.isNull() && parsed.text == text)
            return parsed.value;
    }
    QDateTime value;
    if (!shortFormat(format).parse(text, &value)) {
        COMMONKIT_DEPRECATED_BEGIN
        value = QDateTime::fromString(text, Qt::SystemLocaleShortDate);
        COMMONKIT_DEPRECATED_END
    }
    kept[next] = Parsed{text, value};
    next = (next + 1) % k_kept;
    return value;
}

} // namespace ko
