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

int runAction(const QStringList& arguments, const std::vector<Action>& actions, void (*printHelp)(),
              const QString& missing, const QString& unknown)
{
    const QString action = arguments.value(1);
    for (const Action& candidate : actions) {
        if (action == QLatin1String(candidate.name))
            return candidate.run(arguments.mid(1));
    }
    if (action == QLatin1String("--help") || action == QLatin1String("-h") || action == QLatin1String("--help-all")) {
        printHelp();
        return 0;
    }
    if (action.isEmpty())
        throw CommandError(missing, 2);
    throw CommandError(unknown.arg(action), 2);
}

} // namespace cktool
