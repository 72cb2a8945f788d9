// commonkit time: frame times (microseconds since 1970 UTC) and date-times.

#include "Command.h"
#include "CommandLine.h"

#include <CommonKit/util/TimeFunctions.h>
#include <CommonKit/util/TimeTranscoder.h>

#include <QDateTime>
#include <QLocale>
#include <QTextStream>

namespace cktool {
namespace {

// The UTC date-time of a frame time, on the same unbounded scale as the
// transcoder (ko::fromFrameTime() counts seconds in 32 bits and wraps after
// 2106), in ISO 8601 form also for years beyond 9999.
QString utcText(unsigned long long frameTime)
{
    const QDateTime epoch(QDate(1970, 1, 1), QTime(0, 0), Qt::UTC);
    const QDateTime utc = epoch.addMSecs(static_cast<qint64>(frameTime / 1000));
    return QLocale::c().toString(utc, QStringLiteral("yyyy-MM-ddThh:mm:ss.zzz")) + QLatin1Char('Z');
}

void printFrameTime(QTextStream& out, unsigned long long frameTime)
{
    const ko::CTimeTranscoder time(frameTime);
    out << tr("frame time:  %1").arg(frameTime) << "\n"
        << tr("local time:  %1").arg(QString::fromStdString(time.toString())) << "\n"
        << tr("identifier:  %1").arg(QString::fromStdString(time.toIdString())) << "\n"
        << tr("UTC:         %1").arg(utcText(frameTime)) << "\n"
        << tr("fields:      year %1, month %2, day %3, hour %4, minute %5, second %6, "
              "millisecond %7, microsecond %8")
               .arg(time.year()).arg(time.month()).arg(time.day()).arg(time.hour())
               .arg(time.minute()).arg(time.second()).arg(time.millisecond()).arg(time.microsecond())
        << "\n";
}

void printDateTime(QTextStream& out, const QString& text)
{
    const QDateTime dateTime = QDateTime::fromString(text, Qt::ISODateWithMs);
    if (!dateTime.isValid())
        throw CommandError(tr("time: '%1' is neither a frame time nor an ISO 8601 date-time").arg(text));
    const QDateTime first(QDate(1970, 1, 1), QTime(0, 0), Qt::UTC);
    const QDateTime last = first.addSecs(0xFFFFFFFFLL);
    if (dateTime < first || dateTime > last)
        throw CommandError(tr("time: '%1' is outside the range of frame times (1970 to 2106 UTC)").arg(text));
    out << tr("frame time:  %1").arg(ko::toFrameTime(dateTime)) << "\n"
        << tr("UTC:         %1").arg(dateTime.toUTC().toString(Qt::ISODateWithMs)) << "\n";
}

int runTime(const QStringList& arguments)
{
    CommandLine commandLine(QStringLiteral("time"),
                            tr("Shows a frame time (microseconds since 1970-01-01 00:00 UTC) as local "
                               "fields and texts, or the frame time of an ISO 8601 date-time."));
    commandLine.addPositional(QStringLiteral("value"),
                              tr("A frame time such as 1500000, or a date-time such as "
                                 "2024-05-06T07:08:09.123Z."));
    if (!commandLine.parse(arguments, 1, 1))
        return 0;

    const QString value = commandLine.positional().constFirst();
    QTextStream out(stdout);
    bool isNumber = false;
    const unsigned long long frameTime = value.toULongLong(&isNumber, 10);
    if (isNumber && !value.startsWith(QLatin1Char('+')))
        printFrameTime(out, frameTime);
    else
        printDateTime(out, value);
    return 0;
}

const CommandRegistration registration(
    {"time", QT_TRANSLATE_NOOP("cktool", "Convert between frame times and date-times"), runTime});

} // namespace
} // namespace cktool
