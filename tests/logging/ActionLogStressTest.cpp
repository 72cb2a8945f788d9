// The action log under concurrent threads, and under a writer process that is
// killed at random moments.

#include "ActionLogSupport.h"
#include "TestEntries.h"
#include "testlib/TestFiles.h"

#include <CommonKit/logging/ActionLogContextSwitchEntry.h>

#include <gtest/gtest.h>

#include <QDir>
#include <QFileInfo>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QSet>
#include <QTemporaryDir>
#include <QThread>

#include <csignal>
#include <thread>
#include <vector>

namespace {

constexpr int k_threads = 4;
constexpr int k_perThread = 5000;

// Whether the numbers of each thread ("t<thread>:<i>") come in order and
// complete; the texts of other kinds are skipped.
void expectEveryThreadInOrder(const QStringList& texts)
{
    std::vector<int> next(k_threads, 0);
    for (const QString& text : texts) {
        const QStringList parts = text.mid(1).split(QLatin1Char(':'));
        if (!text.startsWith(QLatin1Char('t')) || parts.size() != 2)
            continue;
        const int thread = parts[0].toInt();
        ASSERT_EQ(parts[1].toInt(), next[thread]) << text.toStdString();
        ++next[thread];
    }
    for (int count : next)
        EXPECT_EQ(count, k_perThread);
}

QStringList oldFileValues(const QString& path)
{
    QStringList texts;
    for (const auto& entry : cktest::fileEntries(path))
        texts << entry.value(QStringLiteral("Olif"));
    return texts;
}

struct ActionLogStress : ::testing::Test
{
    QTemporaryDir dir;
    QByteArray savedState = qgetenv("XDG_STATE_HOME");
    void SetUp() override { qputenv("XDG_STATE_HOME", dir.path().toUtf8()); }
    void TearDown() override
    {
        ko::ActionLog::deleteActionLog();
        qputenv("XDG_STATE_HOME", savedState);
    }

    void logFromThreads()
    {
        std::vector<std::thread> threads;
        for (int t = 0; t < k_threads; ++t) {
            threads.emplace_back([t] {
                for (int i = 0; i < k_perThread; ++i) {
                    ko::ActionLogContextSwitchEntry entry(QStringLiteral("t%1:%2").arg(t).arg(i), QString());
                    ko::ActionLog::getInstance()->log(entry);
                }
            });
        }
        for (std::thread& thread : threads)
            thread.join();
    }
};

// Without splitting, the file holds what the log holds, in the same order;
// with rollovers, the backups (named by the second they were made in) and
// the current file together hold every entry.
TEST_F(ActionLogStress, FourThreadsLoseNothingAndKeepTheirOrder)
{
    for (const bool split : {false, true}) {
        SCOPED_TRACE(split ? "split by size" : "no split");
        QDir(dir.path()).removeRecursively();
        ko::ActionLog* log = ko::ActionLog::getInstance();
        log->setSplitPolicy(split ? ko::ActionLog::BySize : ko::ActionLog::NoSplit, 64 * 1024);
        log->mute(false);
        logFromThreads();
        const QDir folder = ko::ActionLog::defaultFileInfo().absoluteDir();
        QStringList files = folder.entryList({QStringLiteral("*.kol")}, QDir::Files, QDir::Name);
        EXPECT_EQ(files.size() > 1, split);
        files.removeAll(ko::ActionLog::defaultFileInfo().fileName());
        files << ko::ActionLog::defaultFileInfo().fileName();
        QStringList inFiles;
        for (const QString& file : files)
            inFiles << oldFileValues(folder.filePath(file));
        EXPECT_EQ(inFiles.size(), k_threads * k_perThread);
        expectEveryThreadInOrder(inFiles);
        if (!split) {
            QStringList inMemory;
            for (int i = 0; i < log->count(); ++i)
                inMemory << static_cast<const ko::ActionLogContextSwitchEntry*>(log->entry(i))->oldFile();
            EXPECT_EQ(inFiles, inMemory);
        }
        ko::ActionLog::deleteActionLog();
    }
}

TEST_F(ActionLogStress, KilledWriterNeverLosesAReportedEntry)
{
    const QString path = dir.filePath(QStringLiteral("killed.kol"));
    QSet<long long> reported;
    long long next = 0;
    int kills = 0;
    for (int round = 0; round < 60; ++round) {
        QProcess child;
        child.start(QStringLiteral(ACTIONLOG_WRITER_CHILD), {path, QString::number(next)});
        ASSERT_TRUE(child.waitForStarted());
        // Once it logs (a slow start under a sanitizer or load is waited
        // out), kill it at a random moment.
        child.waitForReadyRead(30000);
        QThread::msleep(QRandomGenerator::global()->bounded(0, 30));
        ::kill(static_cast<pid_t>(child.processId()), SIGKILL);
        ASSERT_TRUE(child.waitForFinished());
        kills += child.exitStatus() == QProcess::CrashExit;
        // Only complete lines were printed after log() returned.
        const QList<QByteArray> lines = child.readAllStandardOutput().split('\n');
        for (int i = 0; i + 1 < lines.size(); ++i) {
            reported.insert(lines[i].toLongLong());
            next = std::max(next, lines[i].toLongLong() + 1);
        }
    }
    EXPECT_GE(kills, 50);
    EXPECT_GT(reported.size(), 0);

    bool wellFormed = false;
    const auto entries = cktest::fileEntries(path, &wellFormed);
    ASSERT_TRUE(wellFormed);
    QSet<long long> inFile;
    for (const auto& entry : entries)
        inFile.insert(entry.value(QStringLiteral("Olif")).toLongLong());
    for (long long number : qAsConst(reported))
        ASSERT_TRUE(inFile.contains(number)) << number;
}

TEST_F(ActionLogStress, AFileSizeLimitEndsLoggingWithAnErrorAndAWellFormedFile)
{
    const QString path = dir.filePath(QStringLiteral("limited.kol"));
    QProcess child;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_STATE_HOME"), dir.path()); // the default file it falls back to
    child.setProcessEnvironment(environment);
    child.start(QStringLiteral(ACTIONLOG_WRITER_CHILD), {path, QStringLiteral("0"), QStringLiteral("20000")});
    ASSERT_TRUE(child.waitForFinished(60000));
    EXPECT_EQ(child.exitCode(), 3);
    const QList<QByteArray> lines = child.readAllStandardOutput().split('\n');
    ASSERT_GE(lines.size(), 2);
    EXPECT_EQ(lines[lines.size() - 2], QByteArray("E2")); // the write error, reported by signal
    EXPECT_LE(QFileInfo(path).size(), 20000);
    bool wellFormed = false;
    const auto entries = cktest::fileEntries(path, &wellFormed);
    ASSERT_TRUE(wellFormed);
    ASSERT_EQ(entries.size(), lines.size() - 2); // every reported entry, nothing half written
    for (int i = 0; i < entries.size(); ++i)
        EXPECT_EQ(entries[i].value(QStringLiteral("Olif")), QString::fromLatin1(lines[i]));
}

TEST_F(ActionLogStress, AFileRemovedOrReplacedWhileOpenIsFollowed)
{
    const QString path = dir.filePath(QStringLiteral("moved.kol"));
    const QString other = dir.filePath(QStringLiteral("other.kol"));
    ko::ActionLog log(path);
    log.mute(false);
    auto logText = [&log](const char* text) {
        ko::ActionLogContextSwitchEntry entry(QString::fromLatin1(text), QString());
        log.log(entry);
    };
    logText("first");
    ASSERT_TRUE(QFile::remove(path));
    logText("after removal");
    EXPECT_EQ(oldFileValues(path), QStringList{"after removal"});

    const ko::ActionLogContextSwitchEntry elsewhere(QStringLiteral("from elsewhere"), QString());
    cktest::writeFile(other, cktest::writeDocument({&elsewhere}, false));
    ASSERT_TRUE(QFile::remove(path));
    ASSERT_TRUE(QFile::rename(other, path));
    logText("after replacement");
    EXPECT_EQ(oldFileValues(path), (QStringList{"from elsewhere", "after replacement"}));
    EXPECT_EQ(log.count(), 2);
}

} // namespace
