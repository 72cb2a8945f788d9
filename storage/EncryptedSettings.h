#pragma once

#include <CommonKit/support/core/Export.h>
#include <CommonKit/support/core/Url.h>
#include <CommonKit/support/crypto/LockedString.h>
#include <CommonKit/support/crypto/SecureAllocator.h>
#include <CommonKit/support/json/Schema.h>
#include <CommonKit/support/json/Variant.h>

#include <boost/intrusive_ptr.hpp>

#include <QIODevice>
#include <QMap>
#include <QSettings>
#include <QString>
#include <QVariant>

namespace ko {

/// QSettings formats whose files are digested and, while a process-wide key
/// is set, encrypted.
///
/// Two formats are registered when the library loads: IniFormat (extension
/// "ini") keeps the settings as the QDataStream image of their key map (binary,
/// not INI text, despite the extension), JsonFormat (extension "json") keeps
/// them as JSON settings text. With a key, the binary image is encrypted with
/// the AES stream device, and the JSON text is zlib-compressed and then
/// encrypted. docs/settings-formats.md describes the bytes.
///
///     ko::EncryptedSettings::setEncryptionKey(key);
///     QSettings settings(path, ko::EncryptedSettings::JsonFormat);
///     settings.setValue("camera/name", "Gate");
///     settings.sync();
///     ko::crypto::secure_string digest = ko::EncryptedSettings::getFileDigest();
///
/// After every read or write through the formats, getFileDigest() returns
/// the SHA-256 digest of the plain content (before compression and
/// encryption), so that the application can tell whether the file changed;
/// it is empty after a failure, which QSettings reports as
/// QSettings::FormatError. A wrong key is not detected as such: the file
/// simply cannot be read.
///
/// The key, the schema URL and the digest are process-wide and unguarded: set
/// the key before the formats are used, and read the digest on the thread
/// that just synchronised its settings.
class COMMONKIT_EXPORT EncryptedSettings
{
public:
    /// The key; empty means that files are stored unencrypted.
    static crypto::locked_string g_encryption_key;
    /// Digest of the plain content of the last file read or written; empty
    /// after a failure.
    static crypto::secure_string g_file_digest;
    /// The JSON schema of the JSON form; an empty URL means no schema.
    static Url g_schema_url;

    /// Registered for the extension "ini" with readIniFunc/writeIniFunc.
    static QSettings::Format IniFormat;
    /// Registered for the extension "json" with readJsonFunc/writeJsonFunc.
    static QSettings::Format JsonFormat;
    /// The format of the latest registerFormat() call; QSettings::InvalidFormat
    /// before the first.
    static QSettings::Format EncryptedFormat;

    /// Registers a further format of the JSON form for the extension (keys
    /// case-sensitive), keeps it in EncryptedFormat and returns it.
    static QSettings::Format registerFormat(const QString& extension);

    /// Replaces the key. The by-value argument is wiped and emptied before
    /// the call returns.
    static void setEncryptionKey(crypto::secure_string key);
    /// Replaces the key; the argument is emptied.
    static void setEncryptionKey(crypto::locked_string key);
    /// Removes the key: files are written unencrypted from now on.
    static void clearEncryptionKey();
    /// A copy of g_file_digest.
    static crypto::secure_string getFileDigest();
    /// The schema that the JSON form reads and writes with, resolved on each
    /// use (json::Schema caches documents).
    static void setJsonSchemaUrl(Url url);

    /// QSettings format functions: they use the current key, keep the digest
    /// in g_file_digest (wiping the previous one) and report whether it is
    /// non-empty.
    static bool readIniFunc(QIODevice& device, QMap<QString, QVariant>& map);
    /// Writes the binary map form (see readIniFunc()).
    static bool writeIniFunc(QIODevice& device, const QMap<QString, QVariant>& map);
    /// Reads the JSON form with the schema of g_schema_url (see readIniFunc()).
    static bool readJsonFunc(QIODevice& device, QMap<QString, QVariant>& map);
    /// Writes nothing when the map makes an empty JSON value; the result then
    /// tells whether an earlier digest is still held.
    static bool writeJsonFunc(QIODevice& device, const QMap<QString, QVariant>& map);

    /// The binary map form, usable without QSettings. Each returns the digest
    /// of the plain content, or an empty string on failure. The device is
    /// read or written from its current position and left open. With a
    /// non-empty key the content passes the AES stream device; the key
    /// argument is wiped before the call returns. readIni replaces the map;
    /// on failure it leaves the map as it was. This overload reads
    /// unencrypted bytes.
    static crypto::secure_string readIni(QIODevice& device, QMap<QString, QVariant>& map);
    /// Writes the map unencrypted.
    static crypto::secure_string writeIni(QIODevice& device, const QMap<QString, QVariant>& map);
    /// Reads the map with `key` (empty: unencrypted).
    static crypto::secure_string readIni(QIODevice& device, QMap<QString, QVariant>& map,
                                         crypto::secure_string key);
    /// Writes the map with `key` (empty: unencrypted).
    static crypto::secure_string writeIni(QIODevice& device, const QMap<QString, QVariant>& map,
                                          crypto::secure_string key);

    /// The JSON form, likewise. With a non-empty key the text is compressed
    /// with zlib at its default level, and the compressed bytes are encrypted.
    /// A null schema reads and writes without validation and base64 handling.
    /// readJson adds the keys of the file to the map, and leaves the map as it
    /// was on failure. This overload reads unencrypted, uncompressed text.
    static crypto::secure_string readJson(QIODevice& device, QMap<QString, QVariant>& map,
                                          boost::intrusive_ptr<json::Schema> schema);
    /// Writes `value` as JSON settings text, uncompressed and unencrypted.
    static crypto::secure_string writeJson(QIODevice& device, json::Variant value);
    /// Reads with `key` (empty: unencrypted) and `schema`.
    static crypto::secure_string readJson(QIODevice& device, QMap<QString, QVariant>& map,
                                          crypto::secure_string key,
                                          boost::intrusive_ptr<json::Schema> schema);
    /// Writes `value` with `key` (empty: unencrypted).
    static crypto::secure_string writeJson(QIODevice& device, json::Variant value,
                                           crypto::secure_string key);

    EncryptedSettings() = delete;
};

} // namespace ko
