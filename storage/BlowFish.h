#pragma once

#include <CommonKit/support/core/Export.h>

#include <QByteArray>
#include <QString>

namespace ko {

/// Obscures short byte strings, such as a password kept in a settings file,
/// with Blowfish in 64-bit CFB mode under a key and initialisation vector
/// built into the library. This is not protection against anyone who has the
/// library: it only keeps the value from standing in clear text. Because key
/// and vector are fixed, what one installation writes, any other reads.
///
/// The output has exactly the length of the input. Each result is a new heap
/// object that the caller deletes.
class COMMONKIT_EXPORT BlowFish
{
public:
    /// The data encrypted; null for empty data.
    static QByteArray* blowFishEncode(const QByteArray& data);
    /// The data decrypted; null for empty data.
    static QByteArray* blowFishDecode(const QByteArray& data);
    /// blowFishEncode(text.toUtf8()).
    static QByteArray* blowFishEncodeString(const QString& text);
    /// The decrypted bytes as UTF-8 text. Empty data must not be passed (its
    /// decoding gives no array to convert); this implementation returns an
    /// empty string for it and logs a warning.
    static QString* blowFishDecodeString(const QByteArray& data);
};

} // namespace ko
