#include <CommonKit/util/TimeFunctions.h>
#include "testlib/DataTable.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

// Days since 1970-01-01 of a proleptic Gregorian date, computed without Qt.
qint64 daysFromCivil(qint64 y, unsigned m, unsigned d)
{
    y -= m <= 2;
    const qint64 era = (y >= 0 ? y : y - 399) / 400;
    const unsigned yoe = static_cast<unsigned>(y - era * 400);
    const unsigned doy = (153 * (m + (m > 2 ? -3 : 9)) + 2) / 5 + d - 1;
    const unsigned doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
    return era * 146097 + static_cast<qint64>(doe) - 719468;
}

// The stamps of an instant, from its UTC and local forms, and back to a UTC
// date-time (fromSeconds gives local time: compared as instants).
TEST(TimeFunctions, StampsAgreeWithCivilArithmeticBothWays)
{
    for (const cktest::DataRow& row : cktest::dataRows("util/utc-instants.tsv", 7)) {
        int f[7]; // year, month, day, hour, minute, second, millisecond
        for (int i = 0; i < 7; ++i)
            f[i] = std::stoi(row[i]);
        const QDateTime utc(QDate(f[0], f[1], f[2]), QTime(f[3], f[4], f[5], f[6]), Qt::UTC);
        const qint64 days = daysFromCivil(f[0], static_cast<unsigned>(f[1]), static_cast<unsigned>(f[2]));
        const qint64 ms = ((days * 24 + f[3]) * 60 + f[4]) * 60000 + f[5] * 1000 + f[6];
        SCOPED_TRACE(utc.toString(Qt::ISODateWithMs).toStdString());
        EXPECT_EQ(ms, utc.toMSecsSinceEpoch());
        for (const QDateTime& dateTime : {utc, utc.toLocalTime()}) {
            EXPECT_EQ(ko::toMilliSeconds(dateTime), ms);
            EXPECT_EQ(ko::toMicroSeconds(dateTime), ms * 1000);
            EXPECT_EQ(ko::toFrameTime(dateTime), static_cast<quint64>(ms) * 1000);
            EXPECT_EQ(ko::toNanoSeconds(dateTime), ms * 1000000);
            EXPECT_EQ(ko::toSeconds(dateTime), ms / 1000);
            EXPECT_DOUBLE_EQ(ko::toSecondsFrac(dateTime), static_cast<double>(ms) / 1000.0);
        }
        EXPECT_EQ(ko::fromMilliSeconds(ms), utc);
        EXPECT_EQ(ko::fromMilliSeconds(ms).timeSpec(), Qt::UTC);
        EXPECT_EQ(ko::fromMicroSeconds(ms * 1000 + 999), utc);
        EXPECT_EQ(ko::fromFrameTime(static_cast<quint64>(ms) * 1000 + 999), utc);
        EXPECT_EQ(ko::fromNanoSeconds(ms * 1000000 + 999999), utc);
        EXPECT_EQ(ko::fromSeconds(ms / 1000).toMSecsSinceEpoch(), ms / 1000 * 1000);
        EXPECT_EQ(ko::fromSeconds(ms / 1000).timeSpec(), Qt::LocalTime);
        EXPECT_EQ(ko::fromSeconds(static_cast<double>(ms) / 1000.0 + 1e-4).toMSecsSinceEpoch(), ms);
        EXPECT_DOUBLE_EQ(ko::toSecondsFrac(static_cast<quint64>(ms) * 1000), static_cast<double>(ms) * 1e-3);
    }
}

TEST(TimeFunctions, SecondsWrapAsUnsigned32Bit)
{
    // A second or more before 1970 Qt's time_t is the error value 0xFFFFFFFF;
    // the milliseconds of the time of day are still added.
    for (const QDateTime& before : {QDateTime(QDate(1969, 12, 31), QTime(23, 59, 58, 250), Qt::UTC),
                                    QDateTime(QDate(1960, 2, 29), QTime(12, 0, 0, 250), Qt::UTC)}) {
        EXPECT_EQ(ko::toSeconds(before), 0xFFFFFFFFLL);
        EXPECT_EQ(ko::toMilliSeconds(before), 0xFFFFFFFFLL * 1000 + 250);
        EXPECT_EQ(ko::toFrameTime(before), (0xFFFFFFFFULL * 1000 + 250) * 1000);
    }
    // An invalid date-time gives the same error value.
    EXPECT_EQ(ko::toSeconds(QDateTime()), 0xFFFFFFFFLL);

    const QDateTime epoch(QDate(1970, 1, 1), QTime(0, 0), Qt::UTC);
    for (const cktest::DataRow& row : cktest::dataRows("util/wrapped-milliseconds.tsv", 3)) {
        const QDateTime expected = epoch.addSecs(std::stoll(row[1])).addMSecs(std::stoll(row[2]));
        EXPECT_EQ(ko::fromMilliSeconds(std::stoll(row[0])), expected) << row.where;
    }
    EXPECT_EQ(ko::fromSeconds(qint64(-1)), QDateTime::fromMSecsSinceEpoch(0xFFFFFFFFLL * 1000));

    // Frame times are divided as unsigned numbers: the largest one is
    // 18446744073709551 ms, whose 18446744073709 seconds wrap to 4154504685.
    EXPECT_EQ(ko::fromFrameTime(std::numeric_limits<quint64>::max()),
              QDateTime(QDate(2101, 8, 26), QTime(13, 4, 45, 551), Qt::UTC));
    EXPECT_EQ(ko::fromFrameTime(Q_UINT64_C(9223372036854775808)),
              QDateTime(QDate(2035, 10, 29), QTime(6, 32, 22, 775), Qt::UTC));
    EXPECT_EQ(ko::fromSeconds(qint64(0x100000005LL)), QDateTime::fromMSecsSinceEpoch(5000));
}

TEST(TimeFunctions, FractionalSecondsOutsideSixtyFourBitsSaturate)
{
    for (const cktest::DataRow& row : cktest::dataRows("util/fractional-seconds.tsv", 2))
        EXPECT_EQ(ko::fromSeconds(std::stod(row[0])), ko::fromNanoSeconds(std::stoll(row[1]))) << row.where;
}

// Each current value lies between two readings of Qt's clock, in whole
// milliseconds.
TEST(TimeFunctions, CurrentValuesAreConsistent)
{
    const qint64 before = QDateTime::currentMSecsSinceEpoch();
    const quint64 frame = ko::currentFrameTime();
    const qint64 ns = ko::currentNanoSeconds();
    const qint64 values[] = {ko::currentMilliSeconds(), ko::currentMicroSeconds() / 1000,
                             static_cast<qint64>(frame / 1000), ns / 1000000,
                             std::llround(ko::currentSecondsFrac() * 1000)};
    const qint64 seconds = ko::currentSeconds();
    const qint64 after = QDateTime::currentMSecsSinceEpoch();
    for (const qint64 value : values) {
        EXPECT_GE(value, before);
        EXPECT_LE(value, after);
    }
    EXPECT_GE(seconds, before / 1000);
    EXPECT_LE(seconds, after / 1000);
    EXPECT_EQ(frame % 1000, 0u);
    EXPECT_EQ(ns % 1000000, 0);
}

} // namespace
