#include "util/TimeTranscoder.h"

#include <QDateTime>

namespace ko {

const qint32 CTimeTranscoder::MILLISECONDS_PER_DAY = 86400000;
const qint64 CTimeTranscoder::MICROSECONDS_PER_DAY = Q_INT64_C(86400000000);

namespace {

QDateTime epochUtc()
{
    return QDateTime(QDate(1970, 1, 1), QTime(0, 0, 0, 0), Qt::UTC);
}

int field(const QDateTime& dateTime, const char* format)
{
    return dateTime.toString(QLatin1String(format)).toInt();
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
    m_display = local.toString(QStringLiteral("dd.MM.yyyy-hh:mm:ss.zzz")).toStdString();
    m_identifier = local.toString(QStringLiteral("yyyyMMdd_hhmmss_zzz")).toStdString();
}

} // namespace ko
