#include "storage/EncryptedSettings.h"

#include "storage/BorrowedDevice.h"
#include "support/core/Log.h"
#include "support/crypto/DigestingIODevice.h"
#include "support/crypto/IODevice.h"

#include <QDataStream>

namespace ko {

using crypto::secure_string;

namespace {

// The digest kept for every file: MessageDigest::Algorithm value 12.
const crypto::MessageDigest::Algorithm k_digestAlgorithm = crypto::MessageDigest::SHA256;

// Overwrites the bytes of a secret, including a short one kept inside the
// string object, and empties it.
void wipe(secure_string& secret)
{
    if (!secret.empty())
        crypto::zeroOut(&secret[0], secret.size());
    secret.clear();
}

// Wipes a by-value key argument on every way out of a function.
class WipeOnExit
{
public:
    explicit WipeOnExit(secure_string& secret) : m_secret(secret) {}
    ~WipeOnExit() { wipe(m_secret); }
    WipeOnExit(const WipeOnExit&) = delete;
    WipeOnExit& operator=(const WipeOnExit&) = delete;

private:
    secure_string& m_secret;
};

void storeDigest(secure_string digest)
{
    wipe(EncryptedSettings::g_file_digest);
    EncryptedSettings::g_file_digest = std::move(digest);
}

} // namespace

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
    static const char tag[] = "ko::EncryptedSettings::readIni";
    BorrowedDevice source(device);
    crypto::DigestingIODevice digesting(&source, k_digestAlgorithm);
    if (!digesting.open(QIODevice::ReadOnly)) {
        LogLine(Log::Error, tag) << "Error: cannot read the settings, " << digesting.errorString();
        return secure_string();
    }
    QDataStream stream(&digesting);
    stream >> map;
    if (stream.status() != QDataStream::Ok) {
        LogLine(Log::Error, tag) << "Error: the settings map cannot be read (data stream status "
                                 << static_cast<int>(stream.status()) << "), " << device.errorString();
        return secure_string();
    }
    return digesting.digest();
}

secure_string EncryptedSettings::writeIni(QIODevice& device, const QMap<QString, QVariant>& map)
{
    static const char tag[] = "ko::EncryptedSettings::writeIni";
    BorrowedDevice sink(device);
    crypto::DigestingIODevice digesting(&sink, k_digestAlgorithm);
    if (!digesting.open(QIODevice::WriteOnly)) {
        LogLine(Log::Error, tag) << "Error: cannot write the settings, " << digesting.errorString();
        return secure_string();
    }
    QDataStream stream(&digesting);
    stream << map;
    if (stream.status() != QDataStream::Ok || sink.writeFailed()) {
        LogLine(Log::Error, tag) << "Error: writing the settings failed, " << device.errorString();
        return secure_string();
    }
    return digesting.digest();
}

secure_string EncryptedSettings::readIni(QIODevice& device, QMap<QString, QVariant>& map, secure_string key)
{
    const WipeOnExit wipeKey(key);
    if (key.empty())
        return readIni(device, map);
    BorrowedDevice source(device);
    crypto::IODevice cipher(&source, key);
    if (!cipher.open(QIODevice::ReadOnly)) {
        LogLine(Log::Error, "ko::EncryptedSettings::readIni") << "Error: cannot decrypt the settings, " << cipher.errorString();
        return secure_string();
    }
    secure_string digest = readIni(cipher, map);
    cipher.close();
    return digest;
}

secure_string EncryptedSettings::writeIni(QIODevice& device, const QMap<QString, QVariant>& map,
                                          secure_string key)
{
    const WipeOnExit wipeKey(key);
    if (key.empty())
        return writeIni(device, map);
    BorrowedDevice sink(device);
    crypto::IODevice cipher(&sink, key);
    if (!cipher.open(QIODevice::WriteOnly)) {
        LogLine(Log::Error, "ko::EncryptedSettings::writeIni") << "Error: cannot encrypt the settings, " << cipher.errorString();
        return secure_string();
    }
    secure_string digest = writeIni(cipher, map);
    // The last chunk reaches the file only now.
    cipher.close();
    if (sink.writeFailed()) {
        LogLine(Log::Error, "ko::EncryptedSettings::writeIni") << "Error: writing the settings failed, " << device.errorString();
        wipe(digest);
    }
    return digest;
}

} // namespace ko
