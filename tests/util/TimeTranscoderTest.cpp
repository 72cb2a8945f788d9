#include <CommonKit/util/TimeTranscoder.h>

#include <gtest/gtest.h>

#include <QDateTime>

#include <cstdlib>
#include <ctime>
#include <string>

namespace {

// The local calendar fields of a UTC millisecond count, computed with the C
// library instead of Qt.
struct LocalFields { int year, month, day, hour, minute, second; };

LocalFields cLocalFields(qint64 ms)
{
    const std::time_t seconds = static_cast<std::time_t>(ms / 1000);
    std::tm parts{};
    localtime_r(&seconds, &parts);
    return {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday, parts.tm_hour, parts.tm_min, parts.tm_sec};
}

std::string twoDigits(int value)
{
    return (value < 10 ? "0" : "") + std::to_string(value);
}

void expectFields(const ko::CTimeTranscoder& time, qint64 ms, int microsecond)
{
    const LocalFields local = cLocalFields(ms);
    EXPECT_EQ(time.year(), local.year);
    EXPECT_EQ(time.month(), local.month);
    EXPECT_EQ(time.day(), local.day);
    EXPECT_EQ(time.hour(), local.hour);
    EXPECT_EQ(time.minute(), local.minute);
    EXPECT_EQ(time.second(), local.second);
    EXPECT_EQ(time.millisecond(), static_cast<int>(ms % 1000));
    EXPECT_EQ(time.microsecond(), microsecond);
    const std::string msText = std::to_string(1000 + ms % 1000).substr(1);
    EXPECT_EQ(time.toString(), twoDigits(local.day) + "." + twoDigits(local.month) + "."
                                   + std::to_string(local.year) + "-" + twoDigits(local.hour) + ":"
                                   + twoDigits(local.minute) + ":" + twoDigits(local.second) + "." + msText);
    EXPECT_EQ(time.toIdString(), std::to_string(local.year) + twoDigits(local.month) + twoDigits(local.day) + "_"
                                     + twoDigits(local.hour) + twoDigits(local.minute) + twoDigits(local.second)
                                     + "_" + msText);
}

TEST(CTimeTranscoder, FrameTimesSplitIntoLocalFields)
{
    const unsigned long long frameTimes[] = {
        0ULL, 1500ULL, 999999ULL, 68256000000000ULL /* 1972-03-01 */, 951782400123456ULL /* 2000-02-29 */,
        1709251199999999ULL /* 2024-02-29 23:59:59.999999 */, 1714979289123789ULL, 1710054000000000ULL,
        4294967295999000ULL,
    };
    for (unsigned long long frameTime : frameTimes) {
        SCOPED_TRACE(frameTime);
        const ko::CTimeTranscoder time(frameTime);
        expectFields(time, static_cast<qint64>(frameTime / 1000), static_cast<int>(frameTime % 1000));
    }
}

TEST(CTimeTranscoder, MillisecondConstructorHasNoMicroseconds)
{
    for (unsigned int ms : {0u, 1500u, 86399999u, 4294967295u}) {
        SCOPED_TRACE(ms);
        const ko::CTimeTranscoder time(ms);
        expectFields(time, ms, 0);
    }
}

TEST(CTimeTranscoder, OneHourEastGivesShiftedTexts)
{
    const char* zone = std::getenv("TZ");
    if (!zone || std::string(zone) != "XYZ-1")
        GTEST_SKIP() << "runs in the zone one hour east of UTC only";
    const ko::CTimeTranscoder time(0ULL);
    EXPECT_EQ(time.toIdString(), "19700101_010000_000");
    EXPECT_EQ(time.toString(), "01.01.1970-01:00:00.000");
}

} // namespace
