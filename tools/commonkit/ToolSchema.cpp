#include "ToolSchema.h"

#include "Command.h"
#include "CommandLine.h"

#include <CommonKit/support/core/Url.h>

namespace cktool {

QuietLog::QuietLog()
{
    m_previous = ko::Log::instance().setSink([](int, const std::string&) {});
}

QuietLog::~QuietLog()
{
    ko::Log::instance().setSink(m_previous);
}

json::Schema::Ptr schemaFromOptions(const CommandLine& commandLine, const QString& command)
{
    if (!commandLine.isSet(QStringLiteral("schema")))
        return json::Schema::Ptr();
    const QString text = commandLine.value(QStringLiteral("schema"));
    const QString url = ko::Url::fromUserInput(text).toString();
    json::Schema::Ptr schema;
    {
        const QuietLog quiet;
        schema = json::Schema::resolve(url.toStdString());
    }
    if (!schema)
        throw CommandError(tr("%1: cannot load the schema %2").arg(command, text));
    return schema;
}

} // namespace cktool
