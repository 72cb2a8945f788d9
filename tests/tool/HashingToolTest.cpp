// commonkit crypt, ha1 and access-line, run as a user would.

#include <CommonKit/storage/Crypt.h>
#include "testlib/ToolRunner.h"
#include "testlib/ToolTable.h"

#include <gtest/gtest.h>

namespace {

using namespace cktest;
using kogen::Crypt;

TEST(HashingTool, CryptPrintsTheHashOfTheLibrary)
{
    for (const cktest::DataRow& row : cktest::dataRows("tool/crypt.tsv", -5)) {
        const ToolRun run = runTool(QStringList{"crypt"} + cktest::argumentsOf(row, 4), "UTC0", row[2].c_str());
        EXPECT_EQ(run.exitCode, 0) << row.where << ": " << run.err.toStdString();
        const QString hash = Crypt::crypt(QString::fromStdString(row[0]), QString::fromStdString(row[1]));
        EXPECT_EQ(run.out.toStdString(), hash.toStdString() + "\n") << row.where;
        EXPECT_EQ(run.err.isEmpty(), row[3].empty()) << row.where << ": " << run.err.toStdString();
        EXPECT_TRUE(run.err.contains(QString::fromStdString(row[3]))) << row.where << ": " << run.err.toStdString();
    }
    // Without --salt: the library's generated salt.
    EXPECT_EQ(runTool({"crypt", "password"}).out, Crypt::crypt(QStringLiteral("password")) + "\n");
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
    // user:group:crypt hash with the salt the tool drew:HA1 of user, password and realm.
    const QString salt = run.out.section(':', 2, 2).left(2);
    const QStringList fields = {"operator", "viewer", Crypt::crypt(salt, QStringLiteral("s3cret")),
                                Crypt::createSessionKey("operator", "s3cret", "camera")};
    EXPECT_EQ(run.out.toStdString(), fields.join(':').toStdString() + "\n");
}

} // namespace
