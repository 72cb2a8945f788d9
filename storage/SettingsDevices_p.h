#pragma once

// Internal to the library: the device stacks of the encrypted settings
// formats, shared by the binary map form and the JSON form.

#include "storage/BorrowedDevice_p.h"
#include <CommonKit/storage/EncryptedSettings.h>
#include <CommonKit/support/compression/ZlibDevice.h>
#include <CommonKit/support/core/Log.h>
#include <CommonKit/support/crypto/DigestingIODevice.h>
#include <CommonKit/support/crypto/IODevice.h>
#include <CommonKit/support/crypto/SecureAllocator.h>

#include <memory>

namespace ko {
namespace settingsdevices {

using crypto::secure_string;

// The digest kept for every file: MessageDigest::Algorithm value 12.
constexpr crypto::MessageDigest::Algorithm k_digestAlgorithm = crypto::MessageDigest::SHA256;

// Overwrites the bytes of a secret, including a short one kept inside the
// string object, and empties it.
inline void wipe(secure_string& secret)
{
    if (!secret.empty())
        crypto::zeroOut(&secret[0], secret.size());
    secret.clear();
}

// Replaces the process-wide digest, wiping the previous one.
inline void storeDigest(secure_string digest)
{
    wipe(EncryptedSettings::g_file_digest);
    EncryptedSettings::g_file_digest = std::move(digest);
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
inline const char* direction(QIODevice::OpenMode mode)
{
    return mode == QIODevice::ReadOnly ? "read" : "write";
}

// Runs work(device) on a digesting device over `device` and returns the
// digest of what passed, or an empty string when work() fails or a read or
// write of `device` failed on the way (a failing read can look like the end
// of the data to the code above it).
template<typename Work>
secure_string digested(QIODevice& device, QIODevice::OpenMode mode, const char* tag, Work work)
{
    BorrowedDevice borrowed(device);
    crypto::DigestingIODevice digesting(&borrowed, k_digestAlgorithm);
    if (!digesting.open(mode)) {
        LogLine(Log::Error, tag) << "Error: cannot " << direction(mode) << " the settings, " << digesting.errorString();
        return secure_string();
    }
    const bool done = work(digesting);
    if (!done || borrowed.readFailed() || borrowed.writeFailed()) {
        LogLine(Log::Error, tag) << "Error: the settings cannot be " << (mode == QIODevice::ReadOnly ? "read" : "written")
                                 << ", " << (done ? borrowed.errorString() : device.errorString());
        return secure_string();
    }
    return digesting.digest();
}

// Runs work(device) on the AES stream device over `device` made with the
// key, with a zlib device at the default level on top when `compress` is
// set; then closes the compression device and the cipher device, in that
// order. The digest that work() returned is kept only when no device
// failed, including while the last bytes were written on closing.
template<typename Work>
secure_string throughCipher(QIODevice& device, const secure_string& key, bool compress, QIODevice::OpenMode mode,
                            const char* tag, Work work)
{
    BorrowedDevice borrowed(device);
    crypto::IODevice cipher(&borrowed, key);
    std::unique_ptr<ZlibDevice> zlib;
    if (compress)
        zlib = std::make_unique<ZlibDevice>(&cipher, ZlibDevice::k_defaultCompression);
    QIODevice& top = zlib ? static_cast<QIODevice&>(*zlib) : cipher;
    if (!top.open(mode)) {
        LogLine(Log::Error, tag) << "Error: cannot " << direction(mode) << " the encrypted settings, " << top.errorString();
        return secure_string();
    }
    secure_string digest = work(top);
    if (zlib)
        zlib->close();
    cipher.close();
    const bool failed = (zlib && zlib->hasError()) || cipher.hasError() || borrowed.readFailed() || borrowed.writeFailed();
    if (failed && !digest.empty()) {
        LogLine(Log::Error, tag) << "Error: the encrypted settings cannot be "
                                 << (mode == QIODevice::ReadOnly ? "read" : "written") << ", "
                                 << (zlib && zlib->hasError() ? zlib->errorString()
                                     : cipher.hasError()      ? cipher.errorString()
                                                              : borrowed.errorString());
        wipe(digest);
    }
    return digest;
}

} // namespace settingsdevices
} // namespace ko
