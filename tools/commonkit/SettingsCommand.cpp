// commonkit settings: show settings files of the library's formats as JSON,
// and convert them from one format to another.
//
// Formats, by extension:
//   .json  JSON settings text; zlib-compressed and encrypted with a key
//   .ini   the binary key map (QDataStream image), encrypted with a key;
//          on reading, a file of INI text is taken for a plain QSettings
//          INI file
//   .conf  plain QSettings INI text

#include "Command.h"
#include "CommandLine.h"
#include "ToolSchema.h"
#include "ToolSecrets.h"

#include <CommonKit/json/JsonSettings.h>
#include <CommonKit/storage/EncryptedSettings.h>
#include <CommonKit/support/core/Log.h>
#include <CommonKit/support/json/JsonPrinter.h>
#include <CommonKit/support/json/Schema.h>

#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QTemporaryFile>
#include <QTextStream>

#include <filesystem>
#include <system_error>

namespace cktool {
namespace {

using ko::EncryptedSettings;
using ko::crypto::secure_string;
using SettingsMap = QMap<QString, QVariant>;

// The first byte of every encrypted stream (its format version). Neither
// JSON text, nor INI text, nor a key map of fewer than 2^24 keys starts so.
const char k_encryptedMark = 0x01;

enum class Kind { KeyMap, Json, IniText };

struct FileForm
{
    Kind kind;
    bool encrypted;
};

QString kindName(Kind kind)
{
    switch (kind) {
    case Kind::KeyMap:
        return tr("binary key map");
    case Kind::Json:
        return tr("JSON settings");
    case Kind::IniText:
        return tr("INI text");
    }
    return QString();
}

// The format that the extension names; throws for other extensions.
Kind kindOf(const QString& path, const QString& command)
{
    const QString suffix = QFileInfo(path).suffix();
    if (suffix == QLatin1String("json"))
        return Kind::Json;
    if (suffix == QLatin1String("ini"))
        return Kind::KeyMap;
    if (suffix == QLatin1String("conf"))
        return Kind::IniText;
    throw CommandError(tr("%1: %2: unknown settings format (use a file ending in .json, .ini or .conf)").arg(command, path), 2);
}

// How an existing file is stored: its extension, and its first byte.
FileForm inspect(const QString& path, const QString& command)
{
    const QFileInfo info(path);
    if (!info.exists())
        throw CommandError(tr("%1: %2 does not exist").arg(command, path));
    if (!info.isFile())
        throw CommandError(tr("%1: %2 is not a regular file").arg(command, path));
    const Kind kind = kindOf(path, command);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw CommandError(tr("%1: cannot read %2: %3").arg(command, path, file.errorString()));
    char first = 0;
    const bool empty = !file.getChar(&first);
    if (kind == Kind::IniText)
        return {kind, false};
    if (kind == Kind::KeyMap && !empty && first != 0 && first != k_encryptedMark)
        return {Kind::IniText, false};
    return {kind, !empty && first == k_encryptedMark};
}

secure_string keyFromFile(const CommandLine& commandLine, const QString& option, const QString& command)
{
    if (!commandLine.isSet(option))
        return secure_string();
    secure_string key = readSecret(commandLine.value(option), command);
    if (key.empty())
        throw CommandError(tr("%1: the key file is empty").arg(command));
    return key;
}

SettingsMap readSettings(const QString& path, const FileForm& form, const secure_string& key,
                         const json::Schema::Ptr& schema, const QString& command)
{
    SettingsMap map;
    if (form.kind == Kind::IniText) {
        QSettings settings(path, QSettings::IniFormat);
        for (const QString& name : settings.allKeys())
            map.insert(name, settings.value(name));
        if (settings.status() != QSettings::NoError)
            throw CommandError(tr("%1: %2 is damaged: it is not readable INI text").arg(command, path));
        return map;
    }
    if (form.encrypted && key.empty())
        throw CommandError(tr("%1: %2 is encrypted; give its key with --key-file").arg(command, path));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw CommandError(tr("%1: cannot read %2: %3").arg(command, path, file.errorString()));
    // QSettings takes an empty file for settings without keys.
    if (file.size() == 0)
        return map;
    const secure_string fileKey = form.encrypted ? key : secure_string();
    secure_string digest;
    {
        const QuietLog quiet;
        digest = form.kind == Kind::Json ? EncryptedSettings::readJson(file, map, fileKey, schema)
                                         : EncryptedSettings::readIni(file, map, fileKey);
    }
    if (digest.empty()) {
        if (form.encrypted)
            throw CommandError(tr("%1: cannot read %2: wrong key or damaged file").arg(command, path));
        throw CommandError(tr("%1: cannot read %2: the file is damaged or not a %3 file")
                               .arg(command, path, kindName(form.kind)));
    }
    return map;
}

// The JSON document of the settings; an empty object when there are none.
json::Variant jsonOf(const SettingsMap& map, const json::Schema::Ptr& schema)
{
    const QuietLog quiet;
    const json::Variant value = makeJsonSettings(map, schema);
    return value.isNull() ? json::Variant(json::Object()) : value;
}

// Why the value does not follow the schema; empty when it does.
QString schemaWarning(const json::Variant& value, const json::Schema::Ptr& schema)
{
    if (!schema || schema->validate(value))
        return QString();
    return schema->errorString();
}

// A file written beside the target and renamed over it only when complete,
// so that a failure leaves an existing target as it was.
class PartialFile
{
public:
    PartialFile(const QString& target, const QString& command)
        : m_target(target), m_partial(QFileInfo(target).absoluteFilePath() + QStringLiteral(".partial-XXXXXX"))
    {
        const QFileInfo info(target);
        if (info.exists() && !info.isFile())
            throw CommandError(cktool::tr("%1: %2 is not a regular file").arg(command, target), 2);
        if (!m_partial.open())
            throw CommandError(cktool::tr("%1: cannot create %2: %3").arg(command, target, m_partial.errorString()));
        m_partial.close();
        // A replaced file keeps its permissions; a new one is the owner's only.
        if (info.exists())
            QFile::setPermissions(m_partial.fileName(), QFile(target).permissions());
    }

    QString path() const { return m_partial.fileName(); }

    void commit(const QString& command)
    {
        std::error_code error;
        std::filesystem::rename(std::filesystem::path(path().toStdWString()),
                                std::filesystem::path(m_target.toStdWString()), error);
        if (error)
            throw CommandError(cktool::tr("%1: cannot write %2: %3")
                                   .arg(command, m_target, QString::fromLocal8Bit(error.message().c_str())));
        m_partial.setAutoRemove(false);
    }

private:
    QString m_target;
    QTemporaryFile m_partial;
};

void writeSettings(const QString& path, Kind kind, const SettingsMap& map, const secure_string& key,
                   const json::Schema::Ptr& schema, const QString& command)
{
    PartialFile partial(path, command);
    if (kind == Kind::IniText) {
        {
            QSettings settings(partial.path(), QSettings::IniFormat);
            for (auto it = map.begin(); it != map.end(); ++it)
                settings.setValue(it.key(), it.value());
            settings.sync();
            if (settings.status() != QSettings::NoError)
                throw CommandError(tr("%1: cannot write %2").arg(command, path));
        }
        partial.commit(command);
        return;
    }
    QFile file(partial.path());
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        throw CommandError(tr("%1: cannot write %2: %3").arg(command, path, file.errorString()));
    secure_string digest;
    {
        const QuietLog quiet;
        digest = kind == Kind::Json ? EncryptedSettings::writeJson(file, jsonOf(map, schema), key)
                                    : EncryptedSettings::writeIni(file, map, key);
    }
    const bool flushed = file.flush();
    file.close();
    if (digest.empty() || !flushed)
        throw CommandError(tr("%1: cannot write %2: %3").arg(command, path, file.errorString()));
    partial.commit(command);
}

QCommandLineOption keyFileOption()
{
    return QCommandLineOption(QStringLiteral("key-file"),
                              tr("Read the encryption key from this file (- for standard input)."),
                              QStringLiteral("file"));
}

QCommandLineOption schemaOption()
{
    return QCommandLineOption(QStringLiteral("schema"),
                              tr("Read and write JSON settings with this JSON schema (a file or a URL)."),
                              QStringLiteral("url"));
}

int runShow(const QStringList& arguments)
{
    const QString command = QStringLiteral("settings show");
    CommandLine commandLine(command, tr("Prints a settings file as JSON."));
    commandLine.addPositional(QStringLiteral("file"), tr("The settings file (.json, .ini or .conf)."));
    commandLine.addOption(keyFileOption());
    commandLine.addOption(schemaOption());
    if (!commandLine.parse(arguments, 1, 1))
        return 0;
    const QString path = commandLine.positional().at(0);
    const FileForm form = inspect(path, command);
    const secure_string key = keyFromFile(commandLine, QStringLiteral("key-file"), command);
    const json::Schema::Ptr schema = schemaFromOptions(commandLine, command);
    const SettingsMap map = readSettings(path, form, key, schema, command);

    const json::Variant value = jsonOf(map, schema);
    QTextStream err(stderr);
    const QString warning = schemaWarning(value, schema);
    if (!warning.isEmpty())
        err << tr("%1: warning: %2: %3").arg(command, path, warning) << "\n";
    err.flush();
    std::string text;
    json::JsonPrinter printer(&json::JsonPrinter::appendToString, &text);
    printer.setFloatingPointPrecision(15);
    printer.print(value);
    QTextStream(stdout) << QString::fromStdString(text) << "\n";
    return 0;
}

int runConvert(const QStringList& arguments)
{
    const QString command = QStringLiteral("settings convert");
    CommandLine commandLine(command, tr("Converts a settings file into another format, chosen by the extension of the output."));
    commandLine.addPositional(QStringLiteral("input"), tr("The settings file to read (.json, .ini or .conf)."));
    commandLine.addPositional(QStringLiteral("output"), tr("The settings file to write (.json, .ini or .conf)."));
    commandLine.addOption(keyFileOption());
    commandLine.addOption(QCommandLineOption(QStringLiteral("out-key-file"),
                                             tr("Encrypt the output with the key in this file instead (- for standard input)."),
                                             QStringLiteral("file")));
    commandLine.addOption(QCommandLineOption(QStringLiteral("plain"), tr("Write the output unencrypted.")));
    commandLine.addOption(schemaOption());
    if (!commandLine.parse(arguments, 2, 2))
        return 0;
    const QString input = commandLine.positional().at(0);
    const QString output = commandLine.positional().at(1);
    checkSingleStandardInput(commandLine, {QStringLiteral("key-file"), QStringLiteral("out-key-file")}, command);
    const bool plain = commandLine.isSet(QStringLiteral("plain"));
    if (plain && commandLine.isSet(QStringLiteral("out-key-file")))
        throw CommandError(tr("%1: --plain and --out-key-file exclude each other").arg(command), 2);

    const FileForm form = inspect(input, command);
    const Kind outKind = kindOf(output, command);
    const secure_string key = keyFromFile(commandLine, QStringLiteral("key-file"), command);
    secure_string outKey = plain ? secure_string()
        : commandLine.isSet(QStringLiteral("out-key-file")) ? keyFromFile(commandLine, QStringLiteral("out-key-file"), command)
                                                             : key;
    if (outKind == Kind::IniText && !outKey.empty())
        throw CommandError(tr("%1: %2 is INI text, which cannot be encrypted; add --plain to write it unencrypted")
                               .arg(command, output), 2);
    const json::Schema::Ptr schema = schemaFromOptions(commandLine, command);
    const SettingsMap map = readSettings(input, form, key, schema, command);
    writeSettings(output, outKind, map, outKey, schema, command);
    QTextStream(stdout) << tr("Converted %1 (%2) into %3 (%4): %5 keys.")
                               .arg(input, kindName(form.kind) + (form.encrypted ? tr(", encrypted") : QString()),
                                    output, kindName(outKind) + (outKey.empty() ? QString() : tr(", encrypted")))
                               .arg(map.size())
                        << "\n";
    return 0;
}

void printSettingsHelp()
{
    QTextStream(stdout)
        << tr("Usage: commonkit settings <action> [options] [arguments]") << "\n\n"
        << tr("Actions:") << "\n"
        << "  show FILE [--key-file F] [--schema URL]\n"
        << "  convert IN OUT [--key-file F] [--out-key-file F | --plain] [--schema URL]\n\n"
        << tr("The extension names the format: .json for JSON settings, .ini for the binary key map "
              "(a .ini file of INI text is read as plain QSettings INI), .conf for plain QSettings INI text.")
        << "\n"
        << tr("With a key, .json and .ini files are encrypted; the key also decrypts the input.") << "\n"
        << tr("Keys come from files, or from standard input with -; never from the command line.") << "\n"
        << tr("Run 'commonkit settings <action> --help' for the options of an action.") << "\n"
        << tr("Global options: --help, --version, --lang de|fr.") << "\n";
}

int runSettings(const QStringList& arguments)
{
    return runAction(arguments, {{"show", runShow}, {"convert", runConvert}}, printSettingsHelp,
                     tr("settings: give an action: show or convert"),
                     tr("settings: unknown action '%1' (use show or convert)"));
}

const CommandRegistration registration(
    {"settings", QT_TRANSLATE_NOOP("cktool", "Show and convert settings files, encrypted or not"), runSettings});

} // namespace
} // namespace cktool
