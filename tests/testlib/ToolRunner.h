#pragma once

// Runs the commonkit tool as a user would, for tests of its subcommands.

#include <gtest/gtest.h>

#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

namespace cktest {

struct ToolRun { int exitCode; QString out; QString err; };

// Runs commonkit with the arguments, in time zone TZ=timeZone, optionally
// feeding input on standard input.
inline ToolRun runTool(const QStringList& arguments, const QByteArray& timeZone = "UTC0",
                       const QByteArray& input = QByteArray())
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("TZ"), QString::fromLatin1(timeZone));
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(COMMONKIT_TOOL), arguments);
    process.write(input);
    process.closeWriteChannel();
    EXPECT_TRUE(process.waitForFinished(120000)) << arguments.join(QLatin1Char(' ')).toStdString();
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

} // namespace cktest
