#include <CommonKit/storage/EncryptedSettings.h>

#include "expressions/VariantStream_p.h"
#include "storage/SettingsDevices_p.h"

#include <QDataStream>

namespace ko {

using crypto::secure_string;
using namespace settingsdevices;

crypto::locked_string EncryptedSettings::g_encryption_key;
secure_string EncryptedSettings::g_file_digest;
QSettings::Format EncryptedSettings::IniFormat =
    QSettings::registerFormat(QStringLiteral("ini"), &EncryptedSettings::readIniFunc,
                              &EncryptedSettings::writeIniFunc, Qt::CaseSensitive);

void EncryptedSettings::setEncryptionKey(secure_string key)
{
    g_encryption_key.assign(key.data(), key.size());
    wipe(key);
}

void EncryptedSettings::setEncryptionKey(crypto::locked_string key)
{
    g_encryption_key = std::move(key);
}

void EncryptedSettings::clearEncryptionKey()
{
    g_encryption_key.clear();
}

secure_string EncryptedSettings::getFileDigest()
{
    return g_file_digest;
}

bool EncryptedSettings::readIniFunc(QIODevice& device, QMap<QString, QVariant>& map)
{
    storeDigest(readIni(device, map, g_encryption_key.str()));
    return !g_file_digest.empty();
}

bool EncryptedSettings::writeIniFunc(QIODevice& device, const QMap<QString, QVariant>& map)
{
    storeDigest(writeIni(device, map, g_encryption_key.str()));
    return !g_file_digest.empty();
}

secure_string EncryptedSettings::readIni(QIODevice& device, QMap<QString, QVariant>& map)
{
    QMap<QString, QVariant> result;
    secure_string digest = digested(device, QIODevice::ReadOnly, "ko::EncryptedSettings::readIni", [&](QIODevice& in) {
        // The bounded reader, not Qt's: see kogen::readVariant.
        QDataStream stream(&in);
        result = kogen::readVariantMap(stream);
        return stream.status() == QDataStream::Ok;
    });
    if (!digest.empty())
        map.swap(result);
    return digest;
}

secure_string EncryptedSettings::writeIni(QIODevice& device, const QMap<QString, QVariant>& map)
{
    return digested(device, QIODevice::WriteOnly, "ko::EncryptedSettings::writeIni", [&](QIODevice& out) {
        QDataStream stream(&out);
        stream << map;
        return stream.status() == QDataStream::Ok;
    });
}

secure_string EncryptedSettings::readIni(QIODevice& device, QMap<QString, QVariant>& map, secure_string key)
{
    const WipeOnExit wipeKey(key);
    if (key.empty())
        return readIni(device, map);
    QMap<QString, QVariant> result;
    secure_string digest = throughCipher(device, key, false, QIODevice::ReadOnly, "ko::EncryptedSettings::readIni",
                                         [&](QIODevice& in) { return readIni(in, result); });
    if (!digest.empty())
        map.swap(result);
    return digest;
}

secure_string EncryptedSettings::writeIni(QIODevice& device, const QMap<QString, QVariant>& map, secure_string key)
{
    const WipeOnExit wipeKey(key);
    if (key.empty())
        return writeIni(device, map);
    return throughCipher(device, key, false, QIODevice::WriteOnly, "ko::EncryptedSettings::writeIni",
                         [&](QIODevice& out) { return writeIni(out, map); });
}

} // namespace ko
