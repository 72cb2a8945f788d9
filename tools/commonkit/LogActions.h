#pragma once

#include <QStringList>

namespace cktool {

// commonkit log append FILE [TEXT] [--kind CODE] [--value ID=TEXT]... [--split POLICY]
int runLogAppend(const QStringList& arguments);
// commonkit log finalize FILE
int runLogFinalize(const QStringList& arguments);
// commonkit log stats FILE [--where FILTER]
int runLogStats(const QStringList& arguments);

} // namespace cktool
