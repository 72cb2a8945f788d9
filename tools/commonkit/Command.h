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

inline QString tr(const char* text)
{
    return QCoreApplication::translate("cktool", text);
}

} // namespace cktool
