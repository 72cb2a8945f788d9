// commonkit crypt, ha1 and access-line, run as a user would.

#include <CommonKit/storage/Crypt.h>
#include "testlib/ToolRunner.h"

#include <gtest/gtest.h>

namespace {

using cktest::runTool;
using cktest::ToolRun;

QStringList args(std::initializer_list<const char*> list)
{
    QStringList result;
    for (const char* a : list)
        result << QString::fromUtf8(a);
    return result;
}

TEST(HashingTool, CryptPrintsTheHashOfTheLibrary)
{
    ToolRun run = runTool(args({"crypt", "--salt", "ab", "password"}));
    EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_EQ(run.out, kogen::Crypt::crypt(QStringLiteral("ab"), QStringLiteral("password")) + "\n");
    EXPECT_TRUE(run.err.isEmpty());

    // Without --salt: the library's generated salt.
    run = runTool(args({"crypt", "password"}));
    EXPECT_EQ(run.out, kogen::Crypt::crypt(QStringLiteral("password")) + "\n");

    // "-": the first line of standard input, without its line end.
    run = runTool(args({"crypt", "--salt", "Zz", "-"}), "UTC0", "s\xc3\xa9" "cret\r\nignored\n");
    EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_EQ(run.out, kogen::Crypt::crypt(QStringLiteral("Zz"), QStringLiteral("s\u00e9cret")) + "\n");

    // A password from the command line may be non-ASCII Latin-1.
    run = runTool(args({"crypt", "--salt", "Zz", "s\xc3\xa9" "cret"}));
    EXPECT_EQ(run.out, kogen::Crypt::crypt(QStringLiteral("Zz"), QStringLiteral("s\u00e9cret")) + "\n");

    run = runTool(args({"crypt", "--salt", "ab", "passwordTooLong"}));
    EXPECT_EQ(run.out, kogen::Crypt::crypt(QStringLiteral("ab"), QStringLiteral("password")) + "\n");
    EXPECT_TRUE(run.err.contains(QStringLiteral("first 8 characters"))) << run.err.toStdString();
}

TEST(HashingTool, Ha1AndAccessLine)
{
    ToolRun run = runTool(args({"ha1", "Mufasa", "testrealm@host.com", "Circle Of Life"}));
    EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_EQ(run.out, QStringLiteral("939e7578ed9e3c518a452acee763bce9\n"));

    run = runTool(args({"ha1", "Mufasa", "testrealm@host.com", "-"}), "UTC0", "Circle Of Life\n");
    EXPECT_EQ(run.out, QStringLiteral("939e7578ed9e3c518a452acee763bce9\n"));

    run = runTool(args({"access-line", "operator", "-", "viewer", "camera"}), "UTC0", "s3cret");
    EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
    const QStringList fields = run.out.trimmed().split(QLatin1Char(':'));
    ASSERT_EQ(fields.size(), 4) << run.out.toStdString();
    EXPECT_EQ(fields.at(0), QStringLiteral("operator"));
    EXPECT_EQ(fields.at(1), QStringLiteral("viewer"));
    EXPECT_EQ(fields.at(2), kogen::Crypt::crypt(fields.at(2).left(2), QStringLiteral("s3cret")));
    EXPECT_EQ(fields.at(3), kogen::Crypt::createSessionKey(QStringLiteral("operator"), QStringLiteral("s3cret"),
                                                           QStringLiteral("camera")));
}

TEST(HashingTool, SaltErrorIsTranslated)
{
    for (const char* language : {"de", "fr"}) {
        const ToolRun run = runTool(args({"--lang", language, "crypt", "--salt", "a", "pw"}));
        EXPECT_EQ(run.exitCode, 2);
        EXPECT_FALSE(run.err.contains(QStringLiteral("the salt must be"))) << run.err.toStdString();
        EXPECT_TRUE(run.err.contains(QStringLiteral("./0-9A-Za-z"))) << run.err.toStdString();
    }
}

} // namespace
