// The action log's file: creation, appending, rollover, switching and
// recovery, checked against the files as an independent XML parser sees them.

#include "testlib/DataTable.h"
#include "testlib/TestFiles.h"
#include "ActionLogSupport.h"
#include "TestEntries.h"

#include <CommonKit/logging/ActionLogContextSwitchEntry.h>

#include <gtest/gtest.h>

#include <functional>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLocale>
#include <QTemporaryDir>

namespace {

using cktest::readFile;
using cktest::writeFile;

using cktest::fileEntries;
using cktest::SignalRecorder;
using cktest::TestLog;
using cktest::TextEntry;

QDateTime at(const char* text)
{
    return QDateTime::fromString(QString::fromLatin1(text), Qt::ISODate);
}

QStringList filesIn(const QTemporaryDir& dir)
{
    return QDir(dir.path()).entryList(QDir::Files, QDir::Name);
}

struct ActionLogFile : ::testing::Test
{
    QTemporaryDir dir;
    QString path = dir.filePath(QStringLiteral("act.kol"));

    void logText(TestLog& log, const QString& text, const char* when = nullptr)
    {
        if (when)
            log.now = at(when);
        TextEntry entry(text, 1);
        log.log(entry);
    }
    void emptyDir() const
    {
        QDir(dir.path()).removeRecursively();
        QDir().mkpath(dir.path());
    }
};

TEST_F(ActionLogFile, MutedUntilUnmutedThenHeaderOnceAndAppends)
{
    writeFile(path, QByteArray()); // a file of size 0 counts as new
    TestLog log(path);
    log.mute(true);
    logText(log, QStringLiteral("ignored"));
    EXPECT_EQ(log.count(), 0);
    EXPECT_TRUE(readFile(path).isEmpty());

    log.mute(false);
    SignalRecorder recorder(log);
    logText(log, QStringLiteral("one"));
    logText(log, QStringLiteral("two"));
    EXPECT_EQ(readFile(path).count("<Entries"), 1);
    const auto entries = fileEntries(path);
    ASSERT_EQ(entries.size(), 2);
    EXPECT_EQ(entries[1].value(QStringLiteral("Text")), QStringLiteral("two"));
    EXPECT_EQ(recorder.lines, QStringList({"adding(0,0)", "added(0,0)", "adding(1,1)", "added(1,1)"}));

    // The log stamps its time and user into the caller's entry. (A second
    // log on a file appends after its entries: see the partly written file.)
    log.now = at("2026-03-04T10:00:00");
    TextEntry entry(QStringLiteral("x"), 1);
    entry.setTime(at("2001-01-01T00:00:00"));
    entry.setUser(QStringLiteral("caller"));
    log.log(entry);
    EXPECT_EQ(entry.time(), log.now);
    EXPECT_EQ(entry.user(), log.userName());
}

TEST_F(ActionLogFile, PeriodSplitsNameTheBackupAfterThePreviousEntry)
{
    const QString march = QLocale::system().monthName(3, QLocale::ShortFormat);
    for (const cktest::DataRow& row : cktest::dataRows("logging/period-splits.tsv", 4)) {
        SCOPED_TRACE(row.where);
        emptyDir();
        TestLog log(path);
        log.setSplitPolicy(static_cast<ko::ActionLog::ESplitPolicy>(std::stoi(row[0])), 1048576);
        logText(log, QStringLiteral("before"), row[1].c_str());
        SignalRecorder recorder(log);
        logText(log, QStringLiteral("after"), row[2].c_str());
        const bool split = row[3] != "-";
        QStringList expectedFiles{QStringLiteral("act.kol")};
        if (split) {
            const QString backup = QString::fromStdString(row[3]).replace(QStringLiteral("MAR"), march);
            expectedFiles << backup;
            EXPECT_EQ(fileEntries(dir.filePath(backup)).size(), 1);
            EXPECT_EQ(recorder.lines.first(), QStringLiteral("removing(0,1)"));
        }
        expectedFiles.sort();
        EXPECT_EQ(filesIn(dir), expectedFiles);
        EXPECT_EQ(log.count(), split ? 1 : 2);
        EXPECT_EQ(fileEntries(path).size(), split ? 1 : 2);
    }
}

TEST_F(ActionLogFile, SizeSplitStartsAFreshFileNamedAfterTheApplication)
{
    TestLog log(path);
    log.setSplitPolicy(ko::ActionLog::BySize, 400);
    int logged = 0;
    while (QFileInfo(path).size() <= 400)
        logText(log, QStringLiteral("entry %1").arg(logged++), "2026-03-04T10:00:00");
    logText(log, QStringLiteral("entry %1").arg(logged++), "2026-03-04T10:20:30");
    const QString backup = QCoreApplication::applicationName() + QStringLiteral(" 2026-03-04 10-20-30.kol");
    EXPECT_EQ(fileEntries(dir.filePath(backup)).size(), logged - 1);
    const auto current = fileEntries(path);
    ASSERT_EQ(current.size(), 1);
    EXPECT_EQ(current[0].value(QStringLiteral("Text")), QStringLiteral("entry %1").arg(logged - 1));

    // A second split within the same second finds the name taken: the entry
    // stays in the current file.
    while (QFileInfo(path).size() <= 400)
        logText(log, QStringLiteral("more"));
    logText(log, QStringLiteral("kept"), "2026-03-04T10:20:30");
    EXPECT_EQ(fileEntries(path).last().value(QStringLiteral("Text")), QStringLiteral("kept"));
}

TEST_F(ActionLogFile, DamagedFilesAreMovedAsideWithTheirSignals)
{
    struct Row
    {
        QByteArray content;
        const char* suffix;
        const char* error; // the one error signal it starts with; %1: the log file
    };
    const QByteArray header = R"(<?xml version="1.0" encoding="UTF-8"?><Entries Version="v0.1">)";
    const std::vector<Row> rows = {
        {header + R"(<Entry ID="TstE" Text="a"/><<garbage>>)", ".kol.corrupt", "errorXml(1,"},
        {"plain text, not a log", ".kol.invalidHeader", "errorFile(%1,4)"},
    };
    for (const Row& row : rows) {
        emptyDir();
        writeFile(path, row.content);
        TestLog reader(path); // reading alone reports, but moves nothing
        SignalRecorder readerSignals(reader);
        reader.readLog();
        EXPECT_EQ(readerSignals.lines.filter(QStringLiteral("error")).size(), 1);
        EXPECT_TRUE(QFile::exists(path));
        TestLog log(path);
        log.now = at("2026-03-04T10:20:30");
        SignalRecorder recorder(log);
        logText(log, QStringLiteral("lost"));
        const QString backup = QStringLiteral("act 2026-03-04 10-20-30") + QLatin1String(row.suffix);
        const QStringList observed = recorder.lines.filter(QStringLiteral("error"));
        ASSERT_EQ(observed.size(), 1) << observed.join(' ').toStdString();
        EXPECT_TRUE(observed[0].startsWith(QString::fromLatin1(row.error).replace(QStringLiteral("%1"), path)))
            << observed[0].toStdString();
        EXPECT_EQ(filesIn(dir), QStringList{backup});
        EXPECT_EQ(readFile(dir.filePath(backup)), row.content);

        // The next entry starts a fresh file.
        logText(log, QStringLiteral("fresh"));
        const auto entries = fileEntries(path);
        ASSERT_EQ(entries.size(), 1);
        EXPECT_EQ(entries[0].value(QStringLiteral("Text")), QStringLiteral("fresh"));
    }
}

TEST_F(ActionLogFile, PartlyWrittenEntryIsCutAndTheNextFollowsACompleteOne)
{
    TextEntry a(QString::fromUtf8("\xc3\xa4\xe2\x82\xac\xf0\x9f\x99\x82"), 1); // 2-, 3- and 4-byte characters
    const QByteArray complete = cktest::writeDocument({&a}, false);
    const std::vector<QByteArray> tails = {
        "<Entry ID=\"TstE\" Text=\"cut", "<Entry ID=\"TstE\" Text=\"\xc3\xa4\xe2\x82", "<", " ",
    };
    for (const QByteArray& tail : tails) {
        SCOPED_TRACE(tail.constData());
        writeFile(path, complete + tail);
        TestLog log(path);
        SignalRecorder recorder(log);
        logText(log, QStringLiteral("next"));
        bool wellFormed = false;
        const auto entries = fileEntries(path, &wellFormed);
        EXPECT_TRUE(wellFormed);
        ASSERT_EQ(entries.size(), 2);
        EXPECT_EQ(log.count(), 2);
        EXPECT_EQ(entries[0].value(QStringLiteral("Text")), a.text.value);
        EXPECT_EQ(entries[1].value(QStringLiteral("Text")), QStringLiteral("next"));
        EXPECT_TRUE(readFile(path).startsWith(complete));
        EXPECT_TRUE(recorder.lines.filter(QStringLiteral("error")).isEmpty());
    }

    // A header cut short leaves nothing to keep: a fresh header is written.
    writeFile(path, "<?xml version=\"1.0\" encoding=\"UTF-8\"?><Entries Vers");
    TestLog log(path);
    logText(log, QStringLiteral("only"));
    EXPECT_EQ(readFile(path).count("<Entries"), 1);
    EXPECT_EQ(fileEntries(path).size(), 1);
}

TEST_F(ActionLogFile, SwitchingWritesTheContextSwitchIntoBothFiles)
{
    const QString other = dir.filePath(QStringLiteral("other.kol"));
    TestLog log(path);
    logText(log, QStringLiteral("first"));
    SignalRecorder recorder(log);
    log.setFileInfo(QFileInfo(other));
    EXPECT_FALSE(log.defaultActive());
    EXPECT_EQ(recorder.lines.first(), QStringLiteral("removing(0,1)"));
    EXPECT_EQ(recorder.lines.last(), QStringLiteral("switched(other.kol)"));
    for (const QString& file : {path, other}) {
        const auto entries = fileEntries(file);
        ASSERT_FALSE(entries.isEmpty());
        EXPECT_EQ(entries.last().value(QStringLiteral("ID")), QStringLiteral("ALog"));
        EXPECT_EQ(entries.last().value(QStringLiteral("Olif")), QFileInfo(path).absoluteFilePath());
        EXPECT_EQ(entries.last().value(QStringLiteral("Nlif")), other);
    }
    // Logged once into each file, so held twice.
    ASSERT_EQ(log.count(), 2);
    EXPECT_EQ(log.entry(1)->description(),
              QStringLiteral("Switched logging from '%1' to '%2'.").arg(QFileInfo(path).absoluteFilePath(), other));

    // The same file again changes nothing.
    recorder.lines.clear();
    log.setFileInfo(QFileInfo(other));
    EXPECT_TRUE(recorder.lines.isEmpty());
}

TEST_F(ActionLogFile, EntryListOperationsAndTheirSignals)
{
    TestLog log(path);
    SignalRecorder recorder(log);
    log.removeAllLogEntries();
    EXPECT_TRUE(recorder.lines.isEmpty());
    for (int i = 0; i < 3; ++i)
        logText(log, QString::number(i));
    recorder.lines.clear();
    QList<ko::LogEntry*> doomed{log.entry(2), log.entry(0)};
    EXPECT_TRUE(log.deleteEntries(doomed));
    EXPECT_EQ(recorder.lines, QStringList({"removing(2,2)", "removed(2,2)", "removing(0,0)", "removed(0,0)"}));
    ASSERT_EQ(log.count(), 1);
    EXPECT_EQ(static_cast<TextEntry*>(log.entry(0))->text.value, QStringLiteral("1"));

    const QString copy = dir.filePath(QStringLiteral("copy.kol"));
    QList<ko::LogEntry*> all{log.entry(0)};
    EXPECT_TRUE(log.backupEntries(all, copy));
    EXPECT_TRUE(readFile(copy).endsWith("</Entries>"));
    EXPECT_EQ(fileEntries(copy).size(), 1);
    const QByteArray before = readFile(copy);
    QList<ko::LogEntry*> none;
    EXPECT_TRUE(log.backupEntries(none, copy)); // an existing file is left alone
    EXPECT_EQ(readFile(copy), before);

    // Failures tell the file and the reason.
    const QString missing = dir.filePath(QStringLiteral("no/such.kol"));
    QFile absent(missing);
    QString taken = QStringLiteral("copy.kol");
    const std::pair<std::function<bool()>, QString> failures[] = {
        {[&] { return log.backupEntries(all, missing); }, QStringLiteral("Could not open file '%1': ").arg(missing)},
        {[&] { return log.finalize(absent); }, QStringLiteral("Could not open file '%1': ").arg(missing)},
        {[&] { return log.backupFile(taken); },
         QStringLiteral("Could not back up '%1' to '%2': the backup file exists").arg(path, copy)},
    };
    for (const auto& failure : failures) {
        EXPECT_FALSE(failure.first());
        EXPECT_TRUE(log.errorString().startsWith(failure.second)) << log.errorString().toStdString();
    }

    // Removing all reports the count as the last index: checked with the
    // rollovers, which remove all.
    QFile file(path);
    EXPECT_TRUE(log.finalize(file));
    EXPECT_TRUE(readFile(path).endsWith("\n</Entries>\n"));
    EXPECT_EQ(fileEntries(path).size(), 3) << "the closed file parses, deleted entries stay in it";
}

} // namespace

namespace {

// Empty, complete and missing files opened for reading and writing are
// covered by the log's own tests.
TEST(FileEncrypt, OpensXmlFilesAndTellsAHeaderFromAnOpenError)
{
    QTemporaryDir dir;
    for (const cktest::DataRow& row : cktest::dataRows("logging/file-open.tsv", 3)) {
        SCOPED_TRACE(row.where);
        const QString path = dir.filePath(QString::fromStdString(row.where).section(QLatin1Char(':'), -1));
        if (row[0] != "-")
            writeFile(path, QByteArray::fromStdString(row[0]));
        ko::FileEncrypt file(path);
        const int expected = std::stoi(row[2]);
        EXPECT_EQ(file.open(QIODevice::OpenMode(std::stoi(row[1]))), expected == ko::FileEncrypt::NoError);
        EXPECT_EQ(file.openError(), expected);
        EXPECT_EQ(file.isOpen(), expected == ko::FileEncrypt::NoError);
    }
}

} // namespace
