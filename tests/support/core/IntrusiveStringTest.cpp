#include <CommonKit/support/core/IntrusiveString.h>

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace {

TEST(IntrusiveString, ConvertsFromEachSourceToTheSameUtf8WithZerosAndNull)
{
    const char* utf8 = "caf\xc3\xa9";
    const ko::IntrusiveString fromChars(utf8);
    const ko::IntrusiveString fromStd{std::string(utf8)};
    const ko::IntrusiveString fromQt(QString::fromUtf8(utf8));
    EXPECT_EQ(fromChars, fromStd);
    EXPECT_EQ(fromChars, fromQt);
    EXPECT_EQ(fromQt.toQString(), QString::fromUtf8(utf8));
    EXPECT_EQ(fromQt.toStdString(), utf8);

    EXPECT_TRUE(ko::IntrusiveString().empty());
    EXPECT_STREQ(ko::IntrusiveString(static_cast<const char*>(nullptr)).c_str(), "");
    EXPECT_EQ(ko::IntrusiveString(""), ko::IntrusiveString());
    const ko::IntrusiveString withZero{std::string("a\0b", 3)};
    EXPECT_EQ(withZero.size(), 3u);
    EXPECT_NE(withZero, ko::IntrusiveString("a"));
}

TEST(IntrusiveString, CopiesShareOneBufferAcrossThreads)
{
    const ko::IntrusiveString original{std::string(1000, 'x')};
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t)
        threads.emplace_back([&original] {
            for (int i = 0; i < 10000; ++i) {
                ko::IntrusiveString copy = original;
                ASSERT_EQ(copy.c_str(), original.c_str());
            }
        });
    for (auto& thread : threads)
        thread.join();
    EXPECT_EQ(original.size(), 1000u);
}

} // namespace
