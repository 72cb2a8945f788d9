#include "testlib/LogCapture.h"
#include <CommonKit/support/core/Log.h>

#include <gtest/gtest.h>

#include <QString>

#include <regex>
#include <string>
#include <thread>
#include <vector>

namespace {

TEST(Log, LineHasUtcPrefixLevelLetterTagAndText)
{
    cktest::LogCapture log(ko::Log::Information);
    ko::Log::log(ko::Log::Information, "ko::FeatureMatrix::load", "first");
    ko::Log::log(ko::Log::Warning, "tag", "second");
    ko::Log::log(ko::Log::Error, "tag", "third");
    ASSERT_EQ(log.lines.size(), 3u);
    const std::regex shape(R"(^\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{3}Z ([IWE]) \[([^\]]*)\] (.*)$)");
    const char* letters[] = {"I", "W", "E"};
    for (size_t i = 0; i < 3; ++i) {
        std::smatch match;
        ASSERT_TRUE(std::regex_match(log.lines[i], match, shape)) << log.lines[i];
        EXPECT_EQ(match[1].str(), letters[i]);
    }
    EXPECT_NE(log.lines[0].find("[ko::FeatureMatrix::load] first"), std::string::npos);
}

TEST(Log, ThresholdFiltersLowerLevels)
{
    cktest::LogCapture log;
    struct Case { int threshold; int level; bool written; };
    const Case cases[] = {
        {2, 1, false}, {2, 2, true}, {2, 3, true}, {3, 2, false}, {3, 3, true}, {1, 1, true}, {4, 3, false},
    };
    for (const Case& c : cases) {
        log.lines.clear();
        ko::Log::instance().setThreshold(c.threshold);
        EXPECT_EQ(ko::Log::instance().isEnabled(c.level), c.written);
        ko::Log::log(c.level, "t", "x");
        EXPECT_EQ(log.lines.size(), c.written ? 1u : 0u) << c.threshold << "/" << c.level;
    }
}

TEST(Log, LogLineStreamsValuesAndQString)
{
    cktest::LogCapture log(ko::Log::Warning);
    ko::LogLine(ko::Log::Warning, "jsonVariant") << "numeric overflow at: " << QString::fromUtf8("1e999 \xc3\xa4") << ' ' << 42;
    ko::LogLine(ko::Log::Information, "hidden") << "not written";
    ASSERT_EQ(log.lines.size(), 1u);
    EXPECT_NE(log.lines[0].find("[jsonVariant] numeric overflow at: 1e999 \xc3\xa4 42"), std::string::npos);
}

TEST(Log, LinesFromManyThreadsStayWhole)
{
    cktest::LogCapture log(ko::Log::Warning);
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t)
        threads.emplace_back([t] {
            for (int i = 0; i < 200; ++i)
                ko::Log::log(ko::Log::Warning, "thread" + std::to_string(t), std::string(50, char('a' + t)));
        });
    for (auto& thread : threads)
        thread.join();
    ASSERT_EQ(log.lines.size(), 800u);
    for (const std::string& line : log.lines) {
        const auto open = line.find('[');
        const int t = line.at(open + 7) - '0';
        EXPECT_EQ(line.substr(line.size() - 50), std::string(50, char('a' + t)));
    }
}

} // namespace
