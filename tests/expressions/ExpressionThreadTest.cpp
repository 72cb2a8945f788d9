// Expressions evaluated and printed from several threads at once: the
// function registry is read concurrently and the like pattern cache is
// filled, hit and evicted concurrently. Run under the ThreadSanitizer build,
// an unguarded cache shows up as a data race.

#include "ExpressionTestSupport.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

namespace {

using namespace kogen;

ExpressionHandle c(const QVariant& value) { return ConstExpression(value, false); }

TEST(ExpressionThreads, LikeCacheAndRegistryUnderConcurrentUse)
{
    constexpr int k_threads = 4;
    constexpr int k_patterns = 150; // more than the cache holds: entries are evicted
    std::atomic<int> failures{0};
    std::vector<std::thread> threads;
    for (int t = 0; t < k_threads; ++t) {
        threads.emplace_back([&, t] {
            for (int i = 0; i < k_patterns; ++i) {
                // Every thread walks the same patterns in its own order.
                const int n = (i * (2 * t + 1)) % k_patterns;
                const QString value = QStringLiteral("v%1x").arg(n);
                if (!like(c(value), QStringLiteral("v%1_").arg(n)).evaluate().toBool())
                    ++failures;
                if (like(c(value), QStringLiteral("v%1!_").arg(n), QStringLiteral("!")).evaluate().toBool())
                    ++failures;
                if (cktest::sql(like(c(value), QStringLiteral("a%"))) != "('" + value.toStdString() + "' LIKE 'a%' ESCAPE '')")
                    ++failures;
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(failures.load(), 0);
}

} // namespace
