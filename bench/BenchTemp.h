// Where the benchmark programs put the data they generate.
#pragma once

#include <QDir>
#include <QString>

// A path for a QTemporaryDir under COMMONKIT_BENCH_TMP (scripts/bench.sh puts
// it under build/), else under the system's temporary folder.
inline QString benchTempPath(const QString& pattern)
{
    return QDir(qEnvironmentVariable("COMMONKIT_BENCH_TMP", QDir::tempPath())).filePath(pattern);
}
