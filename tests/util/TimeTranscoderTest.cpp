#include <CommonKit/util/TimeTranscoder.h>
#include "testlib/DataTable.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <string>

namespace {

// The fields and texts of a UTC millisecond count in local time, against the
// C library's localtime_r() and strftime() instead of Qt.
void expectFields(const ko::CTimeTranscoder& time, qint64 ms, int microsecond)
{
    const std::time_t seconds = static_cast<std::time_t>(ms / 1000);
    std::tm local{};
    localtime_r(&seconds, &local);
    const int expected[] = {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,      local.tm_hour,
                            local.tm_min,         local.tm_sec,     int(ms % 1000), microsecond};
    const int fields[] = {time.year(),   time.month(),  time.day(),         time.hour(),
                          time.minute(), time.second(), time.millisecond(), time.microsecond()};
    for (int i = 0; i < 8; ++i)
        EXPECT_EQ(fields[i], expected[i]) << "field " << i << " (year, month, ... microsecond)";
    char text[40];
    char id[40];
    std::strftime(text, sizeof text, "%d.%m.%Y-%H:%M:%S.", &local);
    std::strftime(id, sizeof id, "%Y%m%d_%H%M%S_", &local);
    const std::string msText = std::to_string(1000 + ms % 1000).substr(1);
    EXPECT_EQ(time.toString(), text + msText);
    EXPECT_EQ(time.toIdString(), id + msText);
}

TEST(CTimeTranscoder, FrameTimesSplitIntoLocalFields)
{
    for (const cktest::DataRow& row : cktest::dataRows("util/frame-times.tsv", 2)) {
        SCOPED_TRACE(row.where);
        const unsigned long long frameTime = std::stoull(row[0]);
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
