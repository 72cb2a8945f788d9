// Writes that fail part-way: the tool under a file size limit (set in the
// shell that starts it) reports the failure and leaves an existing output as
// it was, with no partial file beside it.

#include "testlib/TestFiles.h"
#include "testlib/ToolTable.h"
#include <gtest/gtest.h>

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

namespace {

using cktest::writeFile;

struct LimitedRun { int exitCode; QString err; };

// `ulimit -f blocks` (1024-byte blocks in bash), then the tool.
LimitedRun runLimited(int blocks, const QStringList& arguments, const QString& directory)
{
    QProcess process;
    process.setWorkingDirectory(directory);
    // Each argument in single quotes (the tables hold none).
    const QString command = QStringLiteral("ulimit -f %1; exec '%2' '%3'").arg(blocks);
    process.start("/bin/bash", {"-c", command.arg(COMMONKIT_TOOL, arguments.join("' '"))});
    EXPECT_TRUE(process.waitForFinished(60000));
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            QString::fromUtf8(process.readAllStandardError())};
}

TEST(ToolFaults, AFileSizeLimitLeavesTheOldOutputAndReportsWhy)
{
    QTemporaryDir dir;
    writeFile(dir.filePath("big"), QByteArray(300000, 'x'));
    writeFile(dir.filePath("key"), "a key of some length\n");
    writeFile(dir.filePath("s.conf"), "[camera]\nname=Gate\nport=554\n");
    const QByteArray old = "the good file that stood here";
    for (const cktest::DataRow& row : cktest::dataRows("tool/file-size-limit.tsv", -4)) {
        SCOPED_TRACE(row.where);
        const QString output = dir.filePath(QString::fromStdString(row[1]));
        writeFile(output, old);
        const LimitedRun run = runLimited(std::stoi(row[0]), cktest::argumentsOf(row, 3), dir.path());
        EXPECT_EQ(run.exitCode, 1);
        EXPECT_TRUE(run.err.startsWith(QString::fromStdString(row[2]))) << run.err.toStdString();
        EXPECT_EQ(cktest::readFile(output), old);
        EXPECT_TRUE(QDir(dir.path()).entryList({"*.partial*"}, QDir::Files | QDir::Hidden).isEmpty());
    }
}

} // namespace
