#include <CommonKit/support/core/Url.h>

#include <gtest/gtest.h>

namespace {

TEST(Url, PathsBecomeFileUrlsAndRelativesResolve)
{
    const ko::Url file = ko::Url::fromUserInput(QStringLiteral("/tmp/schemas/../a.json"));
    EXPECT_TRUE(file.isLocalFile());
    EXPECT_EQ(file.toLocalFile(), QStringLiteral("/tmp/a.json"));

    const ko::Url base(QStringLiteral("qrc:/schemas/settings.json"));
    EXPECT_EQ(base.scheme(), QStringLiteral("qrc"));
    EXPECT_EQ(base.resolved(ko::Url(QStringLiteral("types.json#point"))).toString(),
              QStringLiteral("qrc:/schemas/types.json#point"));
    EXPECT_FALSE(ko::Url().isValid());
}

} // namespace
