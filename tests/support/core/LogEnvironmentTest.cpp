// Runs once for each value of COMMONKIT_LOG_LEVEL listed in CMakeLists.txt
// (and once as the environment has it).

#include <CommonKit/support/core/Log.h>

#include <gtest/gtest.h>

#include <climits>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

TEST(LogEnvironment, ThresholdComesFromTheEnvironmentOnFirstUse)
{
    struct Case { const char* value; int threshold; };
    const Case cases[] = {
        {"1", 1}, {"3", 3}, {"abc", 2}, {"99999999999999999999", INT_MAX}, {"-99999999999999999999", INT_MIN},
    };
    const char* value = std::getenv("COMMONKIT_LOG_LEVEL");
    int expected = 2; // unset
    if (value) {
        const Case* match = nullptr;
        for (const Case& c : cases) {
            if (std::strcmp(c.value, value) == 0)
                match = &c;
        }
        if (!match)
            GTEST_SKIP() << "no expectation for COMMONKIT_LOG_LEVEL=" << value;
        expected = match->threshold;
    }
    SCOPED_TRACE(value ? value : "(unset)");
    EXPECT_EQ(ko::Log::instance().threshold(), expected);
}

} // namespace
