// The JSON form of the encrypted settings formats.

#include <CommonKit/storage/EncryptedSettings.h>

#include <CommonKit/json/JsonSettings.h>
#include "storage/SettingsDevices_p.h"

#include <QMap>
#include <QMutex>

namespace ko {

using crypto::secure_string;
using namespace settingsdevices;

namespace {

json::Schema::Ptr currentSchema()
{
    const QString url = EncryptedSettings::g_schema_url.toString();
    if (url.isEmpty())
        return json::Schema::Ptr();
    return json::Schema::resolve(url.toStdString(), std::string());
}

// What makeJsonSettings gives for a map without keys.
bool isEmptyValue(const json::Variant& value)
{
    return value.isNull() || (value.isComposite() && value.empty());
}

} // namespace

Url EncryptedSettings::g_schema_url;
QSettings::Format EncryptedSettings::JsonFormat =
    QSettings::registerFormat(QStringLiteral("json"), &EncryptedSettings::readJsonFunc,
                              &EncryptedSettings::writeJsonFunc, Qt::CaseSensitive);
QSettings::Format EncryptedSettings::EncryptedFormat = QSettings::InvalidFormat;

QSettings::Format EncryptedSettings::registerFormat(const QString& extension)
{
    // Qt has room for only 16 formats of its own in a process, so an
    // extension registered again keeps the format it got the first time.
    static QMutex mutex;
    static QMap<QString, QSettings::Format> formats;
    const QMutexLocker lock(&mutex);
    QSettings::Format format = formats.value(extension, QSettings::InvalidFormat);
    if (format == QSettings::InvalidFormat) {
        format = QSettings::registerFormat(extension, &EncryptedSettings::readJsonFunc,
                                           &EncryptedSettings::writeJsonFunc, Qt::CaseSensitive);
        if (format != QSettings::InvalidFormat)
            formats.insert(extension, format);
    }
    EncryptedFormat = format;
    return format;
}

void EncryptedSettings::setJsonSchemaUrl(Url url)
{
    g_schema_url = std::move(url);
}

bool EncryptedSettings::readJsonFunc(QIODevice& device, QMap<QString, QVariant>& map)
{
    storeDigest(readJson(device, map, g_encryption_key.str(), currentSchema()));
    return !g_file_digest.empty();
}

bool EncryptedSettings::writeJsonFunc(QIODevice& device, const QMap<QString, QVariant>& map)
{
    const json::Variant value = makeJsonSettings(map, currentSchema());
    if (!isEmptyValue(value))
        storeDigest(writeJson(device, value, g_encryption_key.str()));
    return !g_file_digest.empty();
}

secure_string EncryptedSettings::readJson(QIODevice& device, QMap<QString, QVariant>& map,
                                          boost::intrusive_ptr<json::Schema> schema)
{
    QMap<QString, QVariant> result = map;
    secure_string digest = digested(device, QIODevice::ReadOnly, "ko::EncryptedSettings::readJson",
                                    [&](QIODevice& in) { return readJsonQSettings(in, result, schema); });
    if (!digest.empty())
        map.swap(result);
    return digest;
}

secure_string EncryptedSettings::writeJson(QIODevice& device, json::Variant value)
{
    return digested(device, QIODevice::WriteOnly, "ko::EncryptedSettings::writeJson",
                    [&](QIODevice& out) { return writeJsonSettings(out, value); });
}

secure_string EncryptedSettings::readJson(QIODevice& device, QMap<QString, QVariant>& map, secure_string key,
                                          boost::intrusive_ptr<json::Schema> schema)
{
    const WipeOnExit wipeKey(key);
    if (key.empty())
        return readJson(device, map, schema);
    QMap<QString, QVariant> result = map;
    secure_string digest = throughCipher(device, key, true, QIODevice::ReadOnly, "ko::EncryptedSettings::readJson",
                                         [&](QIODevice& in) { return readJson(in, result, schema); });
    if (!digest.empty())
        map.swap(result);
    return digest;
}

secure_string EncryptedSettings::writeJson(QIODevice& device, json::Variant value, secure_string key)
{
    const WipeOnExit wipeKey(key);
    if (key.empty())
        return writeJson(device, value);
    return throughCipher(device, key, true, QIODevice::WriteOnly, "ko::EncryptedSettings::writeJson",
                         [&](QIODevice& out) { return writeJson(out, value); });
}

} // namespace ko
