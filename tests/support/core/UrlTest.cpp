#include <CommonKit/support/core/Url.h>

#include <gtest/gtest.h>

namespace {

TEST(Url, PathsBecomeCleanFileUrlsAndUrlsStayAsTheyAre)
{
    const ko::Url file = ko::Url::fromUserInput(QStringLiteral("/tmp/schemas/../a.json"));
    EXPECT_TRUE(file.isLocalFile());
    EXPECT_EQ(file.toLocalFile(), QStringLiteral("/tmp/a.json"));

    EXPECT_EQ(ko::Url::fromUserInput(QStringLiteral("qrc:/schemas/a.json")).scheme(), QStringLiteral("qrc"));
    EXPECT_FALSE(ko::Url().isValid());
}

} // namespace
