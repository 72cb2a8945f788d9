// Demo section: application settings in the JSON settings format, checked
// against a schema, then the same settings encrypted.

#include "Command.h"
#include "Demo.h"

#include <CommonKit/storage/EncryptedSettings.h>
#include <CommonKit/support/core/Log.h>
#include <CommonKit/support/json/JsonParser.h>
#include <CommonKit/support/json/Schema.h>

#include <QCryptographicHash>
#include <QFile>
#include <QSettings>

namespace cktool {
namespace {

using ko::EncryptedSettings;

const char k_schemaUrl[] = "https://schemas.commonkit.invalid/demo/viewer-settings.json";

const char k_schema[] = R"({
    "type": "object",
    "properties": {
        "camera": {
            "type": "object",
            "properties": {
                "name": {"type": "string"},
                "port": {"type": "integer", "minimum": 1, "maximum": 65535}
            }
        },
        "recorder": {
            "type": "object",
            "properties": {
                "hosts": {"type": "array", "items": {"type": "string"}}
            }
        },
        "ui": {
            "type": "object",
            "properties": {
                "theme": {"enum": ["light", "dark"]},
                "zoom": {"type": "number"}
            }
        }
    }
})";

using SettingsMap = QMap<QString, QVariant>;

SettingsMap viewerSettings()
{
    return {{QStringLiteral("camera/name"), QStringLiteral("Gate North")},
            {QStringLiteral("camera/port"), 70000}, // beyond the schema's maximum of 65535
            {QStringLiteral("recorder/hosts"), QStringList{QStringLiteral("rec-1.example"), QStringLiteral("rec-2.example")}},
            {QStringLiteral("ui/theme"), QStringLiteral("dark")},
            {QStringLiteral("ui/zoom"), 1.25}};
}

// Collects the library's diagnostic lines while it lives.
class LogCollector
{
public:
    LogCollector()
    {
        m_previous = ko::Log::instance().setSink([this](int, const std::string& line) {
            const std::size_t text = line.find('[');
            m_lines << QString::fromStdString(text == std::string::npos ? line : line.substr(text));
        });
    }
    ~LogCollector() { ko::Log::instance().setSink(m_previous); }
    LogCollector(const LogCollector&) = delete;
    LogCollector& operator=(const LogCollector&) = delete;
    const QStringList& lines() const { return m_lines; }

private:
    ko::Log::Sink m_previous;
    QStringList m_lines;
};

QByteArray fileBytes(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// QSettings keeps the contents of files it has seen; a copy under a new name
// makes it read the bytes for real.
QString freshCopy(DemoContext& context, const QString& path, const QString& name, int flipAt = -1)
{
    QByteArray bytes = fileBytes(path);
    if (flipAt >= 0 && flipAt < bytes.size())
        bytes[flipAt] = static_cast<char>(bytes[flipAt] ^ 0x01);
    const QString copy = context.path(name);
    QFile file(copy);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        file.write(bytes);
    return copy;
}

bool writeSettings(const QString& path, const SettingsMap& values)
{
    QSettings settings(path, EncryptedSettings::JsonFormat);
    for (auto it = values.begin(); it != values.end(); ++it)
        settings.setValue(it.key(), it.value());
    settings.sync();
    return settings.status() == QSettings::NoError;
}

QSettings::Status readSettings(const QString& path, SettingsMap* values)
{
    QSettings settings(path, EncryptedSettings::JsonFormat);
    values->clear();
    for (const QString& key : settings.allKeys())
        values->insert(key, settings.value(key));
    return settings.status();
}

QString statusText(QSettings::Status status)
{
    switch (status) {
    case QSettings::NoError:
        return tr("read");
    case QSettings::FormatError:
        return tr("format error");
    case QSettings::AccessError:
        return tr("access error");
    }
    return QString();
}

QString hexDigest()
{
    const ko::crypto::secure_string digest = EncryptedSettings::getFileDigest();
    return digest.empty() ? tr("(none)")
                          : QString::fromLatin1(QByteArray(digest.data(), static_cast<int>(digest.size())).toHex().left(16))
                                + QStringLiteral("...");
}

bool runSettingsDemo(DemoContext& context)
{
    QTextStream& out = context.out;
    bool ok = true;
    json::JsonParser parser;
    parser.parse(k_schema, sizeof k_schema - 1);
    json::Schema::registerSchema(k_schemaUrl, parser.parseComplete());
    EncryptedSettings::setJsonSchemaUrl(ko::Url(QString::fromLatin1(k_schemaUrl)));
    EncryptedSettings::clearEncryptionKey();
    const SettingsMap values = viewerSettings();

    // Plain JSON, with a value that breaks the schema.
    const QString plainPath = context.path(QStringLiteral("viewer.json"));
    {
        LogCollector log;
        ok = writeSettings(plainPath, values) && ok;
        out << tr("Wrote the viewer settings through QSettings in the JSON format. The port 70000 breaks the schema, "
                  "so the library warned, and wrote the file all the same:")
            << "\n";
        // The first line names the failure, the next one the reasons.
        for (QString line : log.lines()) {
            const int document = line.indexOf(QLatin1String("failed!"));
            if (document >= 0)
                line.truncate(document + 7);
            const int secondReason = line.indexOf(QLatin1String(" <root>"), line.indexOf(QLatin1String("<root>")) + 1);
            if (secondReason >= 0)
                line.truncate(secondReason);
            out << "  " << line << "\n";
        }
        ok = ok && !log.lines().isEmpty();
    }
    const QByteArray plainText = fileBytes(plainPath);
    out << QString::fromUtf8(plainText) << "\n";
    const QString plainDigest = hexDigest();
    const ko::crypto::secure_string digest = EncryptedSettings::getFileDigest();
    const bool digestMatches = QByteArray(digest.data(), static_cast<int>(digest.size()))
        == QCryptographicHash::hash(plainText, QCryptographicHash::Sha256);
    out << tr("SHA-256 of the file: %1 (kept by the library after the write)").arg(plainDigest) << "\n";

    SettingsMap back;
    QSettings::Status status;
    {
        LogCollector quiet; // reading warns about the port again
        status = readSettings(freshCopy(context, plainPath, QStringLiteral("viewer-copy.json")), &back);
    }
    out << tr("Read back: %1, %2 keys, equal to what was written: %3")
               .arg(statusText(status))
               .arg(back.size())
               .arg(back == values ? tr("yes") : tr("no"))
        << "\n\n";
    ok = ok && status == QSettings::NoError && back == values;

    // Encrypted.
    EncryptedSettings::setEncryptionKey(ko::crypto::secure_string("demo settings key"));
    const QString encryptedPath = context.path(QStringLiteral("viewer-encrypted.json"));
    {
        LogCollector quiet;
        ok = writeSettings(encryptedPath, values) && ok;
    }
    const QByteArray encrypted = fileBytes(encryptedPath);
    out << tr("The same settings with a key set: %1 bytes, compressed and then encrypted, beginning %2")
               .arg(encrypted.size())
               .arg(QString::fromLatin1(encrypted.left(12).toHex(' ')))
        << "\n"
        << tr("SHA-256 of the plain content: %1 (the same as above: %2)")
               .arg(hexDigest(), hexDigest() == plainDigest ? tr("yes") : tr("no"))
        << "\n";
    ok = ok && hexDigest() == plainDigest && encrypted.left(1) == QByteArray(1, '\x01');

    {
        LogCollector quiet;
        status = readSettings(freshCopy(context, encryptedPath, QStringLiteral("encrypted-copy.json")), &back);
    }
    out << tr("Read back with the key: %1, equal to what was written: %2")
               .arg(statusText(status), back == values ? tr("yes") : tr("no"))
        << "\n";
    ok = ok && status == QSettings::NoError && back == values;

    {
        LogCollector quiet;
        EncryptedSettings::clearEncryptionKey();
        status = readSettings(freshCopy(context, encryptedPath, QStringLiteral("no-key.json")), &back);
        out << tr("Read without the key: %1, %2 keys, digest %3").arg(statusText(status)).arg(back.size()).arg(hexDigest())
            << "\n";
        ok = ok && status == QSettings::FormatError && back.isEmpty();

        EncryptedSettings::setEncryptionKey(ko::crypto::secure_string("demo settings key"));
        const int middle = encrypted.size() / 2;
        status = readSettings(freshCopy(context, encryptedPath, QStringLiteral("flipped.json"), middle), &back);
        out << tr("Read with the key after one bit of byte %1 was flipped: %2, %3 keys, digest %4")
                   .arg(middle)
                   .arg(statusText(status))
                   .arg(back.size())
                   .arg(hexDigest())
            << "\n";
        ok = ok && status == QSettings::FormatError && back.isEmpty();
    }
    EncryptedSettings::clearEncryptionKey();
    EncryptedSettings::setJsonSchemaUrl(ko::Url());
    return ok && digestMatches;
}

const DemoRegistration registration({42, QT_TRANSLATE_NOOP("cktool", "Encrypted settings"), runSettingsDemo});

} // namespace
} // namespace cktool
