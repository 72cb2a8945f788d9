#include "logging/LocalTime.h"

#include "support/core/QtDeprecated.h"

#include <QLocale>

namespace ko {
namespace {

// The TZ variable a result was computed under: a change (qputenv("TZ")
// followed by tzset()) must not hand out results of the old zone.
struct ZoneKey
{
    QByteArray tz;
    bool set = false;

    static ZoneKey current()
    {
        ZoneKey key;
        key.tz = qgetenv("TZ");
        key.set = !key.tz.isNull();
        return key;
    }
    bool operator==(const ZoneKey& other) const { return set == other.set && tz == other.tz; }
};

#if defined(__GLIBC__)
// With TZ unset, glibc re-reads the zone on every local-time conversion
// (mktime and tzset, both reached from every local QDateTime): a stat of
// /etc/localtime each time, which was most of the time spent reading a log.
// Naming that same file in TZ gives the same zone and the same results
// (a missing file still means UTC, and Qt takes ":/etc/localtime" for the
// system zone), but glibc then only compares TZ with the value it last read.
// Done once as the library loads, before the application starts threads; a
// TZ the user set, even an empty one, is left alone.
void nameSystemZoneFile()
{
    if (!qEnvironmentVariableIsSet("TZ"))
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
    const ZoneKey zone = ZoneKey::current();
    if (now != lastMSecs || !(zone == lastZone)) {
        last = QDateTime::fromMSecsSinceEpoch(now, Qt::LocalTime);
        lastMSecs = now;
        lastZone = zone;
    }
    return last;
}

QDateTime localShortDateTimeFromString(const QString& text)
{
    // The short format has minutes, so the entries of a log mostly repeat a
    // few texts; keep the last few results.
    struct Parsed
    {
        QString text;
        QString format;
        ZoneKey zone;
        QDateTime value;
    };
    constexpr int k_kept = 8;
    thread_local Parsed kept[k_kept];
    thread_local int next = 0;
    const QString format = QLocale::system().dateTimeFormat(QLocale::ShortFormat);
    const ZoneKey zone = ZoneKey::current();
    for (const Parsed& parsed : kept) {
        if (!parsed.text.isNull() && parsed.text == text && parsed.format == format && parsed.zone == zone)
            return parsed.value;
    }
    COMMONKIT_DEPRECATED_BEGIN
    const QDateTime value = QDateTime::fromString(text, Qt::SystemLocaleShortDate);
    COMMONKIT_DEPRECATED_END
    kept[next] = Parsed{text, format, zone, value};
    next = (next + 1) % k_kept;
    return value;
}

} // namespace ko
