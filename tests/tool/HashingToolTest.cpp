// commonkit crypt, ha1 and access-line, run as a user would.

#include <CommonKit/storage/Crypt.h>
#include "testlib/ToolRunner.h"

#include <gtest/gtest.h>

namespace {

using cktest::runTool;
using cktest::ToolRun;
using kogen::Crypt;

// "-" reads the first line of standard input, without its line end; a
// password from the command line may be non-ASCII Latin-1; only its first
// eight characters count, with a note.
TEST(HashingTool, CryptPrintsTheHashOfTheLibrary)
{
    struct Row { QStringList arguments; QByteArray input; const char* salt; const char* password; const char* note; };
    const Row rows[] = {
        {{"crypt", "--salt", "ab", "password"}, {}, "ab", "password", ""},
        {{"crypt", "--salt", "Zz", "-"}, "s\xc3\xa9" "cret\r\nignored\n", "Zz", "s\xc3\xa9" "cret", ""},
        {{"crypt", "--salt", "Zz", "s\xc3\xa9" "cret"}, {}, "Zz", "s\xc3\xa9" "cret", ""},
        {{"crypt", "--salt", "ab", "passwordTooLong"}, {}, "ab", "password", "first 8 characters"},
    };
    for (const auto& row : rows) {
        const ToolRun run = runTool(row.arguments, "UTC0", row.input);
        EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
        EXPECT_EQ(run.out.toStdString(), Crypt::crypt(row.salt, QString::fromUtf8(row.password)).toStdString() + "\n");
        EXPECT_EQ(run.err.isEmpty(), !*row.note) << run.err.toStdString();
        EXPECT_TRUE(run.err.contains(row.note)) << run.err.toStdString();
    }
    // Without --salt: the library's generated salt.
    EXPECT_EQ(runTool({"crypt", "password"}).out, Crypt::crypt(QStringLiteral("password")) + "\n");
    for (const char* language : {"de", "fr"}) {
        const ToolRun run = runTool({"--lang", language, "crypt", "--salt", "a", "pw"});
        EXPECT_EQ(run.exitCode, 2);
        EXPECT_FALSE(run.err.contains("the salt must be")) << run.err.toStdString();
        EXPECT_TRUE(run.err.contains("./0-9A-Za-z")) << run.err.toStdString();
    }
}

TEST(HashingTool, Ha1AndAccessLine)
{
    // The published digest example.
    for (const char* password : {"Circle Of Life", "-"}) {
        const ToolRun run = runTool({"ha1", "Mufasa", "testrealm@host.com", password}, "UTC0", "Circle Of Life\n");
        EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
        EXPECT_EQ(run.out, "939e7578ed9e3c518a452acee763bce9\n");
    }
    const ToolRun run = runTool({"access-line", "operator", "-", "viewer", "camera"}, "UTC0", "s3cret");
    EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
    const QStringList fields = run.out.trimmed().split(':');
    ASSERT_EQ(fields.size(), 4) << run.out.toStdString();
    EXPECT_EQ(fields.at(0), "operator");
    EXPECT_EQ(fields.at(1), "viewer");
    EXPECT_EQ(fields.at(2), Crypt::crypt(fields.at(2).left(2), QStringLiteral("s3cret")));
    EXPECT_EQ(fields.at(3), Crypt::createSessionKey(QStringLiteral("operator"), QStringLiteral("s3cret"),
                                                    QStringLiteral("camera")));
}

} // namespace
