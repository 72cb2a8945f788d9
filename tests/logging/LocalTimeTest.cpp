// The log's date-time values against Qt's own formatter and parser in the
// system locale's short format. This program runs once per time zone and
// system locale (see CMakeLists.txt); every case compares with Qt in the
// zone and locale it runs in.

#include "TestEntries.h"
#include "testlib/DataTable.h"
#include <CommonKit/logging/LogValue.h>

#include <CommonKit/support/core/QtDeprecated.h>

#include <gtest/gtest.h>

#include <QDateTime>
#include <QProcess>

#include <ctime>

namespace {

COMMONKIT_DEPRECATED_BEGIN
QString qtText(const QDateTime& value)
{
    return value.toString(Qt::SystemLocaleShortDate);
}
QDateTime qtParse(const QString& text)
{
    return QDateTime::fromString(text, Qt::SystemLocaleShortDate);
}
COMMONKIT_DEPRECATED_END

QString ourText(const QDateTime& value)
{
    ko::TLogValue<QDateTime> field("When", QStringLiteral("when"), value);
    return field.toString();
}

QDateTime ourParse(const QString& text)
{
    ko::TLogValue<QDateTime> field("When", QStringLiteral("when"));
    field.fromString(text);
    return field.value;
}

// Equal as values and in every part the log shows or compares.
void expectSame(const QDateTime& ours, const QDateTime& qt, const QString& text)
{
    SCOPED_TRACE(text.toStdString());
    EXPECT_EQ(ours.isValid(), qt.isValid());
    EXPECT_EQ(ours.isNull(), qt.isNull());
    EXPECT_EQ(ours.timeSpec(), qt.timeSpec());
    EXPECT_EQ(ours.date(), qt.date());
    EXPECT_EQ(ours.time(), qt.time());
    if (qt.isValid()) {
        EXPECT_EQ(ours.toMSecsSinceEpoch(), qt.toMSecsSinceEpoch());
    }
}

TEST(LogDateTime, WritesAndReadsBackWhatQtDoes)
{
    for (const cktest::DataRow& row : cktest::dataRows("logging/local-times.tsv", 1)) {
        const QDateTime value = QDateTime::fromString(QString::fromStdString(row[0]), Qt::ISODateWithMs);
        ASSERT_TRUE(value.date().isValid()) << row.where;
        const QString text = qtText(value);
        EXPECT_EQ(ourText(value), text) << qPrintable(value.toString(Qt::ISODateWithMs));
        // Twice: the second read may come from what the first one kept.
        expectSame(ourParse(text), qtParse(text), text);
        expectSame(ourParse(text), qtParse(text), text);
    }
    // Times in other specs and invalid ones are written as Qt writes them.
    for (const QDateTime& value : {QDateTime(QDate(2026, 1, 5), QTime(7, 0), Qt::UTC),
                                   QDateTime(QDate(2026, 1, 5), QTime(7, 0), Qt::OffsetFromUTC, 3600),
                                   QDateTime(), QDateTime(QDate(10000, 1, 1), QTime(0, 0))})
        EXPECT_EQ(ourText(value), qtText(value));

    // Texts the formatter would not write: each must read as Qt's parser
    // reads it (a valid time or an invalid one).
    const QString canonical = qtText(QDateTime(QDate(2026, 1, 5), QTime(7, 8, 9)));
    const QString morning = qtText(QDateTime(QDate(2026, 1, 5), QTime(9, 8, 9)));
    QStringList texts = {
        QString(), QStringLiteral("garbage"), canonical + QLatin1Char(' '), QLatin1Char(' ') + canonical,
        canonical.toLower(), canonical.toUpper(), canonical.left(canonical.size() - 1),
        QString(canonical).replace(QLatin1Char('5'), QStringLiteral("05")),
        QString(canonical).replace(QLatin1Char('5'), QStringLiteral("35")),
        QString(canonical).replace(QLatin1Char('7'), QStringLiteral("24")),
        QString(canonical).replace(QLatin1Char('7'), QStringLiteral("13")),
        QString(canonical).replace(QLatin1Char('9'), QStringLiteral("60")),
        QString(morning).replace(QLatin1Char('9'), QStringLiteral("0")),
        QString(canonical).replace(QStringLiteral("2026"), QStringLiteral("0000")),
        QString(canonical).replace(QStringLiteral("26"), QStringLiteral("2x")),
    };
    for (const QString& text : texts)
        expectSame(ourParse(text), qtParse(text), text);
}

// A zone change within the process (TZ set and tzset()) must not hand out
// results kept from the old zone; new entries carry the current local time.
TEST(LogDateTime, FollowsTimeZoneChangesInTheProcess)
{
    const QByteArray saved = qgetenv("TZ");
    const bool wasSet = qEnvironmentVariableIsSet("TZ");
    const QString text = qtText(QDateTime(QDate(2024, 7, 1), QTime(12, 0, 0)));
    for (const char* zone : {"UTC0", "XYZ-1", "EST5EDT,M3.2.0,M11.1.0", "UTC0"}) {
        qputenv("TZ", zone);
        tzset();
        SCOPED_TRACE(zone);
        expectSame(ourParse(text), qtParse(text), text);
        const QDateTime before = QDateTime::currentDateTime();
        const QDateTime now = cktest::TextEntry(QStringLiteral("x"), 1).time();
        EXPECT_EQ(now.timeSpec(), Qt::LocalTime);
        EXPECT_TRUE(before <= now && now <= QDateTime::currentDateTime());
        EXPECT_EQ(now.offsetFromUtc(), before.offsetFromUtc());
    }
    if (wasSet)
        qputenv("TZ", saved);
    else
        qunsetenv("TZ");
    tzset();
}

#if defined(__GLIBC__)
// Where TZ was unset, the library names the system zone's file in it; the
// offset must be the one a program without TZ sees.
TEST(LogDateTime, NamedSystemZoneIsTheSystemZone)
{
    if (qgetenv("TZ") != ":/etc/localtime")
        GTEST_SKIP() << "TZ was set before the library loaded";
    QProcess date;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("TZ"));
    date.setProcessEnvironment(environment);
    const qint64 seconds = QDateTime::currentSecsSinceEpoch();
    date.start(QStringLiteral("date"), {QStringLiteral("-d"), QStringLiteral("@%1").arg(seconds), QStringLiteral("+%z")});
    ASSERT_TRUE(date.waitForFinished(10000));
    const QString offset = QString::fromLatin1(date.readAllStandardOutput()).trimmed();
    const int local = QDateTime::fromSecsSinceEpoch(seconds).offsetFromUtc();
    const QString expected = QStringLiteral("%1%2%3")
                                 .arg(local < 0 ? QLatin1Char('-') : QLatin1Char('+'))
                                 .arg(qAbs(local) / 3600, 2, 10, QLatin1Char('0'))
                                 .arg(qAbs(local) % 3600 / 60, 2, 10, QLatin1Char('0'));
    EXPECT_EQ(offset, expected);
}
#endif

} // namespace
