#include <CommonKit/properties/TypeTool.h>

#include "properties/TypeToolConversions_p.h"
#include <CommonKit/util/TimeFunctions.h>
#include <CommonKit/util/TimeTranscoder.h>

#include <QDate>
#include <QDateTime>
#include <QTime>

#include <limits>

// The type tool's date functions: dates, times and numbers on the one
// microsecond scale, moving along it and casting between the two kinds.

namespace kogen {

using namespace typetool;

namespace {

qint64 microSecondsPerDay()
{
    return ko::CTimeTranscoder::MICROSECONDS_PER_DAY;
}

// A double truncated toward zero into an unsigned 64-bit count. The whole
// unsigned range is kept; negative values wrap as their signed count does,
// and values beyond either end saturate (NaN is 0).
quint64 wrappingUInt64(double value)
{
    if (value >= 18446744073709551616.0)
        return std::numeric_limits<quint64>::max();
    if (value >= 9223372036854775808.0)
        return static_cast<quint64>(value);
    return static_cast<quint64>(saturatedInt64(value));
}

// a * factor for a positive factor, saturated instead of overflowing.
qint64 saturatedProduct(qint64 a, qint64 factor)
{
    if (a > kI64Max / factor)
        return kI64Max;
    if (a < kI64Min / factor)
        return kI64Min;
    return a * factor;
}

// Two's-complement addition without undefined overflow.
qint64 wrappingSum(qint64 a, qint64 b)
{
    return static_cast<qint64>(static_cast<quint64>(a) + static_cast<quint64>(b));
}

} // namespace

qint64 TypeTool::dateMicroSeconds(const QVariant& value)
{
    switch (static_cast<int>(value.type())) {
    case QVariant::Int:
        return static_cast<qint64>(value.toInt()) * 1000;
    case QVariant::UInt:
        return static_cast<qint64>(value.toUInt()) * 1000;
    case QVariant::LongLong:
        return value.toLongLong();
    case QVariant::ULongLong:
        return static_cast<qint64>(value.toULongLong());
    case QVariant::Double:
        return saturatedInt64(value.toDouble() * static_cast<double>(microSecondsPerDay()));
    case QVariant::Date: {
        static const QDate epoch(1970, 1, 1);
        return saturatedProduct(epoch.daysTo(value.toDate()), microSecondsPerDay());
    }
    case QVariant::Time:
        return static_cast<qint64>(QTime(0, 0).msecsTo(value.toTime())) * 1000;
    case QVariant::DateTime:
        return static_cast<qint64>(ko::toFrameTime(value.toDateTime()));
    default:
        if (convertsToString(value))
            return static_cast<qint64>(
                ko::toFrameTime(QDateTime::fromString(value.toString(), Qt::TextDate)));
        return 0;
    }
}

double TypeTool::dateSeconds(const QVariant& value)
{
    return static_cast<double>(dateMicroSeconds(value)) * 1e-6;
}

QVariant TypeTool::dateAdd(const QVariant& value, qint64 microseconds)
{
    const qint64 perDay = microSecondsPerDay();
    const qint64 total = wrappingSum(dateMicroSeconds(value), microseconds);
    const QDateTime moment = ko::fromMicroSeconds(total);
    switch (static_cast<int>(value.type())) {
    case QVariant::Int:
    case QVariant::UInt:
        return QVariant(static_cast<int>(total / 1000));
    case QVariant::LongLong:
    case QVariant::ULongLong:
        if (total % 1000 != 0)
            return QVariant(static_cast<qulonglong>(total));
        return QVariant(static_cast<int>(total / 1000));
    case QVariant::Double:
        return QVariant(static_cast<double>(static_cast<quint64>(total)) / static_cast<double>(perDay));
    case QVariant::Date:
        if (total % perDay == 0)
            return QVariant(moment.date());
        return QVariant(moment);
    case QVariant::Time:
        if (total > -perDay && total < perDay)
            return QVariant(moment.time());
        return QVariant(moment);
    default:
        return QVariant(moment);
    }
}

QVariant TypeTool::castDate(const QVariant& value, QVariant::Type type)
{
    const double perDay = static_cast<double>(microSecondsPerDay());
    if (isDate(value.type()) && isNumeric(type)) {
        const qint64 m = dateMicroSeconds(value);
        const quint32 low = static_cast<quint32>(static_cast<quint64>(m));
        switch (static_cast<int>(type)) {
        case QVariant::Int:
            return QVariant(static_cast<int>(static_cast<qint32>(low)) / 1000);
        case QVariant::UInt:
            return QVariant(static_cast<uint>(low / 1000));
        case QVariant::LongLong:
        case QVariant::ULongLong:
            return QVariant(static_cast<qulonglong>(m));
        default:
            return QVariant(static_cast<double>(static_cast<quint64>(m)) / perDay);
        }
    }
    if (isDate(type) && isNumeric(value.type())) {
        quint64 m = 0;
        switch (static_cast<int>(value.type())) {
        case QVariant::Int:
            m = static_cast<quint64>(static_cast<qint64>(value.toInt()) * 1000);
            break;
        case QVariant::UInt:
            m = static_cast<quint64>(value.toUInt()) * 1000;
            break;
        case QVariant::LongLong:
            m = static_cast<quint64>(value.toLongLong());
            break;
        case QVariant::ULongLong:
            m = value.toULongLong();
            break;
        default:
            m = wrappingUInt64(value.toDouble() * perDay);
            break;
        }
        const QDateTime moment = ko::fromFrameTime(m);
        switch (static_cast<int>(type)) {
        case QVariant::Date:
            return QVariant(moment.date());
        case QVariant::Time:
            return QVariant(moment.time());
        default:
            return QVariant(moment);
        }
    }
    return QVariant();
}

} // namespace kogen
