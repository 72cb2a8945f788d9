#pragma once

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QString>
#include <QStringList>

namespace cktool {

// A QCommandLineParser set up the way every subcommand wants it: --help and
// --lang, errors as CommandError (exit code 2) instead of exiting.
class CommandLine
{
public:
    CommandLine(const QString& command, const QString& description);

    QCommandLineParser& parser() { return m_parser; }
    void addPositional(const QString& name, const QString& description, const QString& syntax = QString());
    void addOption(const QCommandLineOption& option) { m_parser.addOption(option); }

    // Parses; prints help and returns false for --help. Throws CommandError
    // for unknown options or a wrong number of positional arguments
    // (between minPositional and maxPositional, -1 for no upper limit).
    bool parse(const QStringList& arguments, int minPositional, int maxPositional);

    QStringList positional() const;
    bool isSet(const QString& option) const { return m_parser.isSet(option); }
    QString value(const QString& option) const;

private:
    QString m_command;
    QCommandLineParser m_parser;
};

// Handles a leading or embedded "--lang de|fr" for the whole tool: installs
// the library's translations. Throws CommandError for an unknown language.
void applyLanguage(const QStringList& arguments);

} // namespace cktool
