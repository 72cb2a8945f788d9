#pragma once

#include <CommonKit/support/core/Log.h>
#include <CommonKit/support/json/Schema.h>

#include <QString>

namespace cktool {

class CommandLine;

// Keeps the library's diagnostics off standard error while a file is read
// or written; the tool reports one line of its own.
class QuietLog
{
public:
    QuietLog();
    ~QuietLog();
    QuietLog(const QuietLog&) = delete;
    QuietLog& operator=(const QuietLog&) = delete;

private:
    ko::Log::Sink m_previous;
};

// The schema named by the command's --schema option (a file name or a URL);
// null without the option. Throws CommandError when it cannot be loaded.
json::Schema::Ptr schemaFromOptions(const CommandLine& commandLine, const QString& command);

} // namespace cktool
