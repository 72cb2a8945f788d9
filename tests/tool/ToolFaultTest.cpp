// Writes that fail part-way: the tool under a file size limit (set in the
// shell that starts it) reports the failure and leaves an existing output as
// it was, with no partial file beside it.

#include "testlib/TestFiles.h"
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
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
    QStringList quoted;
    for (const QString& argument : arguments)
        quoted << QLatin1Char('\'') + argument + QLatin1Char('\'');
    process.start(QStringLiteral("/bin/bash"),
                  {QStringLiteral("-c"), QStringLiteral("ulimit -f %1; exec '%2' %3")
                                             .arg(blocks)
                                             .arg(QStringLiteral(COMMONKIT_TOOL), quoted.join(QLatin1Char(' ')))});
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
    struct Row { QStringList arguments; const char* output; const char* message; };
    const std::vector<Row> rows = {
        {{"container", "create", "big", "out.ckc", "--key-file", "key"}, "out.ckc",
         "commonkit: container create: copying big failed: "},
        {{"container", "create", "big", "out.ckc", "--compress", "0", "--key-file", "key"}, "out.ckc",
         "commonkit: container create: copying big failed: "},
        {{"settings", "convert", "s.conf", "s.json"}, "s.json", "commonkit: settings convert: cannot write s.json: "},
        {{"settings", "convert", "s.conf", "s.ini", "--key-file", "key"}, "s.ini", "commonkit: settings convert: cannot write s.ini: "},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.arguments.join(' ').toStdString());
        const QString output = dir.filePath(QLatin1String(row.output));
        writeFile(output, old);
        const LimitedRun run = runLimited(row.arguments.contains("container") ? 64 : 0, row.arguments, dir.path());
        EXPECT_EQ(run.exitCode, 1);
        EXPECT_TRUE(run.err.startsWith(QLatin1String(row.message))) << run.err.toStdString();
        QFile kept(output);
        ASSERT_TRUE(kept.open(QIODevice::ReadOnly));
        EXPECT_EQ(kept.readAll(), old);
        EXPECT_TRUE(QDir(dir.path()).entryList({"*.partial*"}, QDir::Files | QDir::Hidden).isEmpty());
    }
}

} // namespace
