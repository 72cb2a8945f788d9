// commonkit log show, run as a user would.

#include "../logging/TestEntries.h"

#include <CommonKit/logging/XMLLogReader.h>
#include "testlib/TestFiles.h"
#include "testlib/ToolRunner.h"
#include "testlib/ToolTable.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QDomDocument>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

namespace {

using namespace cktest;

class LogCommandTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        // Error entries are a kind the tool knows without any application.
        m_first = std::make_unique<ko::ParseXMLLogEntry>("Bad & <worse>",
                                                         "Grüße.kol", 4, 2);
        m_first->setTime(QDateTime(QDate(2024, 5, 6), QTime(7, 8)));
        m_first->setUser("anna\nmaria");
        m_second = std::make_unique<ko::ParseXMLLogEntry>("Other", "b.kol", 9, 1);
        m_live = cktest::writeDocument({m_first.get(), m_second.get()}, false, "orig.kol");
    }

    QString store(const QByteArray& bytes, const QString& name = "live.kol")
    {
        cktest::writeFile(m_dir.filePath(name), bytes);
        return m_dir.filePath(name);
    }
    // `commonkit log <arguments>`.
    static ToolRun log(const QStringList& arguments) { return runTool(QStringList{"log"} + arguments); }

    std::unique_ptr<ko::ParseXMLLogEntry> m_first;
    std::unique_ptr<ko::ParseXMLLogEntry> m_second;
    QByteArray m_live;
    QTemporaryDir m_dir;
};

TEST_F(LogCommandTest, ShowPrintsOneLinePerEntry)
{
    const ToolRun run = log({"show", store(m_live)});
    EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
    const QStringList lines = run.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 2) << run.out.toStdString();
    const QDateTime time = cktest::afterRoundTrip(m_first->time());
    EXPECT_EQ(lines.at(0), time.toString("yyyy-MM-dd hh:mm:ss")
                               + QStringLiteral("  anna maria  [Error]  Action log error: Error 'Bad & <worse>' "
                                                "reading action log 'Grüße.kol' in line '4', column '2'."));
    EXPECT_TRUE(lines.at(1).endsWith("in line '9', column '1'.")) << lines.at(1).toStdString();
    EXPECT_TRUE(run.err.isEmpty());
}

TEST_F(LogCommandTest, XmlReemitsAClosedDocument)
{
    const QString path = store(m_live);
    const ToolRun run = log({"show", "--xml", path});
    EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_EQ(run.out.toUtf8(), m_live + "</Entries>") << "same header, same entries, closed";
    QDomDocument document;
    EXPECT_TRUE(document.setContent(run.out));
}

TEST_F(LogCommandTest, MalformedFilesShowTheEntriesBeforeTheFaultThenFail)
{
    const QString path = store(m_live + "\n  </Bogus>", "bad.kol");
    for (bool xml : {false, true}) {
        const ToolRun run = log(xml ? QStringList{"show", path, "--xml"} : QStringList{"show", path});
        EXPECT_EQ(run.exitCode, 1);
        EXPECT_EQ(run.out.count("Action log error"), xml ? 0 : 2) << run.out.toStdString();
        EXPECT_EQ(run.out.count("<Entry "), xml ? 2 : 0) << run.out.toStdString();
        EXPECT_EQ(run.err, QStringLiteral("commonkit: log: %1: malformed at line 2, column 10: "
                                          "Opening and ending tag mismatch.\n").arg(path));
    }
}

TEST_F(LogCommandTest, UnknownKindsAreCountedAndSkipped)
{
    const QString unknown = store("<?xml version=\"1.0\"?><Entries><Entry ID=\"Abcd\"/><Entry ID=\"Efgh\"/>");
    const ToolRun skipped = log({"show", unknown});
    EXPECT_EQ(skipped.exitCode, 0);
    EXPECT_TRUE(skipped.out.isEmpty());
    EXPECT_TRUE(skipped.err.contains("2 entries")) << skipped.err.toStdString();
}

// `commonkit log append <path> --kind ALog <options>`: its exit code.
int append(const QString& path, const QStringList& options)
{
    return runTool(QStringList{"log", "append", path, "--kind", "ALog"} + options).exitCode;
}

// append, finalize and show --follow on a file in a scratch directory.
TEST(LogWriteCommands, AppendFinalizeAndTheirRefusals)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("a.kol"));
    for (const cktest::DataRow& row : cktest::dataRows("tool/log-write.tsv", -3)) {
        const ToolRun run = runTool(QStringList{"log"} + cktest::argumentsOf(row, 2, dir.path()));
        EXPECT_EQ(run.exitCode, std::stoi(row[0])) << row.where << ": " << run.err.toStdString();
        EXPECT_EQ(run.err.toStdString().rfind(row[1], 0), 0u) << row.where << ": " << run.err.toStdString();
    }
    QDomDocument document;
    ASSERT_TRUE(document.setContent(cktest::readFile(path))); // finalized: a complete document
    const QDomNodeList entries = document.elementsByTagName(QStringLiteral("Entry"));
    ASSERT_EQ(entries.size(), 2);
    EXPECT_EQ(entries.at(0).toElement().attribute(QStringLiteral("Nlif")), QStringLiteral("/new"));
    EXPECT_EQ(entries.at(1).toElement().attribute(QStringLiteral("Olif")), QStringLiteral("second"));
}

TEST(LogWriteCommands, FollowPrintsWhatAnotherProcessAppends)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("f.kol"));
    ASSERT_EQ(append(path, {"--value", "Olif=before"}), 0);
    QProcess follower;
    follower.start(QStringLiteral(COMMONKIT_TOOL), {"log", "show", path, "--follow"});
    ASSERT_TRUE(follower.waitForStarted());
    QByteArray seen;
    auto waitFor = [&](const QByteArray& text) {
        for (int i = 0; i < 50 && !seen.contains(text); ++i) {
            follower.waitForReadyRead(200);
            seen += follower.readAllStandardOutput();
        }
        return seen.contains(text);
    };
    EXPECT_TRUE(waitFor("'before'"));
    ASSERT_EQ(append(path, {"--value", "Olif=after"}), 0);
    EXPECT_TRUE(waitFor("'after'")) << seen.constData();
    // A rollover (--split) moves the file aside under its date; following
    // goes on in the new one.
    ASSERT_EQ(append(path, {"--value", "Olif=rolled", "--split", "size:10"}), 0);
    EXPECT_TRUE(waitFor("'rolled'")) << seen.constData();
    EXPECT_EQ(seen.count("'after'"), 1);
    const QStringList backups = QDir(dir.path()).entryList({"commonkit *.kol"}, QDir::Files);
    ASSERT_EQ(backups.size(), 1);
    const QRegularExpression backupName("^commonkit \\d{4}-\\d\\d-\\d\\d \\d\\d-\\d\\d-\\d\\d\\.kol$");
    EXPECT_TRUE(backupName.match(backups[0]).hasMatch()) << backups[0].toStdString();
    follower.kill();
    follower.waitForFinished();
}

TEST(LogReadCommands, WhereFormatsAndStats)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("s.kol"));
    const QStringList olds = {"a,b", "say \"hi\"", "plain"};
    for (const QString& old : olds)
        ASSERT_EQ(append(path, {"--value", "Olif=" + old, "--value", "Nlif=n"}), 0);

    // JSON: one object per line with every value by its id.
    const ToolRun json = runTool({"log", "show", path, "--format", "json", "--where", "oldFile <> 'plain'"});
    ASSERT_EQ(json.exitCode, 0) << json.err.toStdString();
    // (The values of filtered entries are compared with the log view's.)
    const QStringList lines = json.out.split('\n', Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 2);
    const QJsonObject record = QJsonDocument::fromJson(lines[1].toUtf8()).object();
    EXPECT_EQ(record.value("type").toString(), "ALog");
    EXPECT_EQ(record.value("category").toString(), "aLog");
    EXPECT_EQ(record.value("values").toObject().value("Olif").toString(), olds[1]);

    // CSV (RFC 4180): quoted fields where needed, a header row first.
    const ToolRun csv = runTool({"log", "show", path, "--format", "csv"});
    ASSERT_EQ(csv.exitCode, 0);
    const QStringList rows = csv.out.split(QStringLiteral("\r\n"), Qt::SkipEmptyParts);
    ASSERT_EQ(rows.size(), 4);
    EXPECT_TRUE(rows[0].startsWith(QStringLiteral("time,user,category,type,title,description,")));
    EXPECT_TRUE(rows[1].contains(QStringLiteral(",\"a,b\","))) << rows[1].toStdString();
    EXPECT_TRUE(rows[2].contains(QStringLiteral(",\"say \"\"hi\"\"\","))) << rows[2].toStdString();

    const ToolRun stats = runTool({"log", "stats", path, "--where", "newFile = 'n'"});
    ASSERT_EQ(stats.exitCode, 0);
    EXPECT_TRUE(stats.out.startsWith(QStringLiteral("3 entries\nPer category:\n  3\tAction log\n"))) << stats.out.toStdString();

    for (const cktest::DataRow& row : cktest::dataRows("tool/log-read-refusals.tsv", -3)) {
        const ToolRun run = runTool(QStringList{"log"} + cktest::argumentsOf(row, 2, dir.path()));
        EXPECT_EQ(run.exitCode, std::stoi(row[0])) << row.where;
        EXPECT_EQ(run.err.trimmed().toStdString(), row[1]) << row.where;
    }
}

} // namespace
