#include <CommonKit/util/TimeTranscoder.h>

#include <QDateTime>
#include <QLocale>

namespace ko {

const qint32 CTimeTranscoder::MILLISECONDS_PER_DAY = 86400000;
const qint64 CTimeTranscoder::MICROSECONDS_PER_DAY = Q_INT64_C(86400000000);

namespace {

QDateTime epochUtc()
{
    return QDateTime(QDate(1970, 1, 1), QTime(0, 0, 0, 0), Qt::UTC);
}

// Formats with ASCII digits whatever the system locale: QDateTime::toString
// would use the system locale's digits (Arabic-Indic in some), which neither
// read back as numbers nor belong in file names.
QString format(const QDateTime& dateTime, const QString& pattern)
{
    return QLocale::c().toString(dateTime, pattern);
}

int field(const QDateTime& dateTime, const char* pattern)
{
    return format(dateTime, QLatin1String(pattern)).toInt();
}

} // namespace

CTimeTranscoder::CTimeTranscoder(unsigned int milliseconds)
{
    setFrom(epochUtc().addMSecs(milliseconds).toLocalTime());
}

CTimeTranscoder::CTimeTranscoder(unsigned long long frameTime)
{
    setFrom(epochUtc().addMSecs(static_cast<qint64>(frameTime / 1000)).toLocalTime());
    m_microsecond = static_cast<qint32>(frameTime % 1000);
}

CTimeTranscoder::CTimeTranscoder(const CTimeTranscoder& other) = default;

CTimeTranscoder& CTimeTranscoder::operator=(const CTimeTranscoder& other) = default;

CTimeTranscoder::~CTimeTranscoder() = default;

void CTimeTranscoder::setFrom(const QDateTime& local)
{
    m_microsecond = 0;
    m_millisecond = field(local, "zzz");
    m_second = field(local, "ss");
    m_minute = field(local, "mm");
    m_hour = field(local, "hh");
    m_day = field(local, "dd");
    m_month = field(local, "MM");
    m_year = field(local, "yyyy");
    m_display = format(local, QStringLiteral("dd.MM.yyyy-hh:mm:ss.zzz")).toStdString();
    m_identifier = format(local, QStringLiteral("yyyyMMdd_hhmmss_zzz")).toStdString();
}

} // namespace ko
