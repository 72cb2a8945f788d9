#include "Command.h"

#include <algorithm>
#include <cstring>

namespace cktool {

CommandRegistry& CommandRegistry::instance()
{
    static CommandRegistry registry;
    return registry;
}

void CommandRegistry::add(const Command& command)
{
    m_commands.push_back(command);
}

const Command* CommandRegistry::find(const QString& name) const
{
    for (const Command& command : m_commands) {
        if (name == QLatin1String(command.name))
            return &command;
    }
    return nullptr;
}

std::vector<Command> CommandRegistry::commands() const
{
    std::vector<Command> sorted = m_commands;
    std::sort(sorted.begin(), sorted.end(),
              [](const Command& a, const Command& b) { return std::strcmp(a.name, b.name) < 0; });
    return sorted;
}

} // namespace cktool
