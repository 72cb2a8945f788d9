#include <CommonKit/storage/BlowFish.h>
#include "storage/OpenSslLegacy_p.h"

#include <CommonKit/support/core/Log.h>

#include <openssl/blowfish.h>

#include <cstring>
#include <memory>

namespace ko {

namespace {

// Built into every installation: values written by one are read by any other.
const unsigned char kKey[4] = {0x6b, 0x31, 0xd4, 0x0e};
const unsigned char kInitialVector[8] = {0x52, 0x9a, 0x07, 0xe3, 0x1c, 0x44, 0xb8, 0x6f};

// Blowfish's key schedule costs about as much as enciphering 8 KiB. The key
// is built in (no secret beyond what the binary holds), so its schedule is
// made once and shared by every call and thread.
const BF_KEY& keySchedule()
{
    static const BF_KEY schedule = [] {
        BF_KEY key;
        COMMONKIT_OPENSSL_LEGACY_BEGIN
        BF_set_key(&key, sizeof kKey, kKey);
        COMMONKIT_OPENSSL_LEGACY_END
        return key;
    }();
    return schedule;
}

QByteArray* runCipher(const QByteArray& data, int mode)
{
    if (data.isEmpty())
        return nullptr;
    // One pass straight into the result: CFB works on any length.
    auto result = std::make_unique<QByteArray>(data.size(), Qt::Uninitialized);
    unsigned char vector[8];
    std::memcpy(vector, kInitialVector, sizeof vector);
    int position = 0;
    COMMONKIT_OPENSSL_LEGACY_BEGIN
    BF_cfb64_encrypt(reinterpret_cast<const unsigned char*>(data.constData()),
                     reinterpret_cast<unsigned char*>(result->data()), data.size(), &keySchedule(), vector, &position,
                     mode);
    COMMONKIT_OPENSSL_LEGACY_END
    return result.release();
}

} // namespace

QByteArray* BlowFish::blowFishEncode(const QByteArray& data)
{
    return runCipher(data, BF_ENCRYPT);
}

QByteArray* BlowFish::blowFishDecode(const QByteArray& data)
{
    return runCipher(data, BF_DECRYPT);
}

QByteArray* BlowFish::blowFishEncodeString(const QString& text)
{
    return blowFishEncode(text.toUtf8());
}

QString* BlowFish::blowFishDecodeString(const QByteArray& data)
{
    const std::unique_ptr<QByteArray> decoded(blowFishDecode(data));
    if (!decoded) {
        LogLine(Log::Warning, "ko::BlowFish::blowFishDecodeString") << "empty data, nothing to decode";
        return new QString();
    }
    return new QString(QString::fromUtf8(*decoded));
}

} // namespace ko
