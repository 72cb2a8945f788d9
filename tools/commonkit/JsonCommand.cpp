// commonkit json: checks JSON documents (their syntax, and a JSON Schema
// when one is named) and prints them indented or compact, as the library's
// parser reads them and its printer writes them.

#include "Command.h"
#include "CommandLine.h"
#include "ToolSchema.h"

#include <CommonKit/support/json/JsonParser.h>
#include <CommonKit/support/json/JsonPrinter.h>

#include <QFile>
#include <QTextStream>

#include <cstdio>

namespace cktool {
namespace {

// The document in the file ("-": standard input), or why it is not JSON.
bool readDocument(const QString& path, json::Variant* value, QString* error)
{
    QFile file(path);
    const bool opened = path == QLatin1String("-") ? file.open(stdin, QIODevice::ReadOnly)
                                                   : file.open(QIODevice::ReadOnly);
    if (!opened) {
        *error = tr("cannot read it: %1").arg(file.errorString());
        return false;
    }
    json::JsonParser parser;
    char block[65536];
    for (qint64 n; (n = file.read(block, sizeof block)) > 0;) {
        if (!parser.parse(block, static_cast<std::size_t>(n)))
            break;
    }
    *value = parser.parseComplete();
    if (parser.hasError()) {
        *error = QString::fromStdString(parser.lastError());
        return false;
    }
    return true;
}

int runCheck(const QStringList& arguments)
{
    CommandLine commandLine(QStringLiteral("json check"),
                            tr("Checks that each file is one JSON document and, with --schema, that it follows "
                               "the JSON Schema (draft 7). Prints one line per file; the exit code is 1 when "
                               "any file fails."));
    commandLine.addPositional(QStringLiteral("files"), tr("JSON files; - reads standard input."),
                              QStringLiteral("FILE..."));
    commandLine.addOption(QCommandLineOption(QStringLiteral("schema"),
                                             tr("The schema: a file name, or a file: or qrc: URL."),
                                             QStringLiteral("URL")));
    if (!commandLine.parse(arguments, 1, -1))
        return 0;
    const json::Schema::Ptr schema = schemaFromOptions(commandLine, QStringLiteral("json check"));

    QTextStream out(stdout);
    QTextStream err(stderr);
    int failures = 0;
    for (const QString& path : commandLine.positional()) {
        json::Variant value;
        QString error;
        if (!readDocument(path, &value, &error)) {
            err << path << ": " << error << "\n";
            ++failures;
        } else if (schema && !schema->validate(value)) {
            err << path << ": " << schema->errorString() << "\n";
            ++failures;
        } else {
            out << path << ": " << (schema ? tr("valid") : tr("well-formed")) << "\n";
        }
    }
    return failures ? 1 : 0;
}

int runFormat(const QStringList& arguments)
{
    CommandLine commandLine(QStringLiteral("json format"),
                            tr("Prints a JSON document indented by four blanks, or compact."));
    commandLine.addPositional(QStringLiteral("file"), tr("A JSON file; - reads standard input."));
    commandLine.addOption(QCommandLineOption(QStringLiteral("compact"), tr("No blanks and no line breaks.")));
    if (!commandLine.parse(arguments, 1, 1))
        return 0;
    const QString path = commandLine.positional().constFirst();
    json::Variant value;
    QString error;
    if (!readDocument(path, &value, &error))
        throw CommandError(tr("json format: %1: %2").arg(path, error));
    const std::string text =
        json::JsonPrinter::toString(value, commandLine.isSet(QStringLiteral("compact")) ? "" : "    ");
    std::fwrite(text.data(), 1, text.size(), stdout);
    std::fputc('\n', stdout);
    return 0;
}

void printJsonHelp()
{
    QTextStream(stdout)
        << tr("Usage: commonkit json <action> [options] [arguments]") << "\n\n"
        << tr("Actions:") << "\n"
        << "  check FILE... [--schema URL]\n"
        << "  format FILE [--compact]\n\n"
        << tr("Run 'commonkit json <action> --help' for the options of an action.") << "\n"
        << tr("Global options: --help, --version, --lang de|fr.") << "\n";
}

int runJson(const QStringList& arguments)
{
    return runAction(arguments, {{"check", runCheck}, {"format", runFormat}}, printJsonHelp,
                     tr("json: give an action: check or format"),
                     tr("json: unknown action '%1' (use check or format)"));
}

const CommandRegistration registration(
    {"json", QT_TRANSLATE_NOOP("cktool", "Check JSON documents against a schema and print them"), runJson});

} // namespace
} // namespace cktool
