#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <stdexcept>
#include <vector>

namespace cktool {

// A subcommand of the commonkit tool. Each one registers itself with a static
// CommandRegistration in its own source file.
struct Command
{
    const char* name;
    const char* summary; // translatable, context "cktool"
    // arguments: the subcommand's own arguments, starting with its name.
    int (*run)(const QStringList& arguments);
};

class CommandRegistry
{
public:
    static CommandRegistry& instance();
    void add(const Command& command);
    const Command* find(const QString& name) const;
    // Sorted by name.
    std::vector<Command> commands() const;

private:
    std::vector<Command> m_commands;
};

struct CommandRegistration
{
    explicit CommandRegistration(const Command& command) { CommandRegistry::instance().add(command); }
};

// Thrown by a subcommand for bad input: main prints "commonkit: <message>"
// and exits with the code.
class CommandError : public std::runtime_error
{
public:
    explicit CommandError(const QString& message, int exitCode = 1)
        : std::runtime_error(message.toStdString()), m_message(message), m_exitCode(exitCode)
    {
    }
    QString message() const { return m_message; }
    int exitCode() const { return m_exitCode; }

private:
    QString m_message;
    int m_exitCode;
};

// One action of a subcommand made of actions ("settings show ...").
struct Action
{
    const char* name;
    // arguments: the action's own arguments, starting with its name.
    int (*run)(const QStringList& arguments);
};

// Runs the action named by arguments[1] with the arguments from its name on;
// prints the subcommand's usage for --help, -h and --help-all. A missing or
// unknown action throws CommandError (exit code 2) with the given texts (the
// unknown one with %1 for the name).
int runAction(const QStringList& arguments, const std::vector<Action>& actions, void (*printHelp)(),
              const QString& missing, const QString& unknown);

inline QString tr(const char* text)
{
    return QCoreApplication::translate("cktool", text);
}

} // namespace cktool
