#pragma once

#include <CommonKit/support/core/Export.h>
#include <CommonKit/support/core/FilterDevice.h>
#include <CommonKit/support/crypto/SecureAllocator.h>

#include <cstdint>

namespace ko {
namespace crypto {

/// The cipher behind IODevice: AES-256-GCM over numbered chunks.
///
/// It holds the input key bytes; setSalt() derives the chunk key from them
/// with HKDF-SHA256 (salt = the stream's 16 salt bytes, info =
/// "CommonKit stream v1", 32 bytes of output). Each chunk is sealed with the
/// nonce counter (11 bytes, big-endian) || last flag (1 byte, 1 for the
/// stream's last chunk, else 0). docs/stream-encryption.md describes the
/// format byte by byte.
class COMMONKIT_EXPORT aes_context
{
public:
    /// The format version, the first byte of a stream.
    static constexpr int k_version = 1;
    /// Bytes of salt after the version byte.
    static constexpr int k_saltSize = 16;
    /// Bytes before the first chunk: version and salt.
    static constexpr int k_headerSize = 1 + k_saltSize;
    /// Plain bytes in every chunk but the last, which holds 0 to k_chunkSize.
    static constexpr int k_chunkSize = 65536;
    /// Bytes of GCM tag after each chunk's ciphertext.
    static constexpr int k_tagSize = 16;
    /// Bytes of the derived chunk key (AES-256).
    static constexpr int k_keySize = 32;
    /// Bytes of a chunk's nonce.
    static constexpr int k_nonceSize = 12;

    /// Keeps a copy of `key` (any length, even empty); there is no chunk key
    /// until setSalt().
    explicit aes_context(const secure_string& key);
    aes_context(const aes_context&) = delete;
    aes_context& operator=(const aes_context&) = delete;
    virtual ~aes_context();

    /// The input key bytes as given.
    const secure_string& key() const { return m_key; }

    /// Derives the chunk key for a stream with this salt (k_saltSize bytes).
    /// False when the derivation failed; there is no chunk key then.
    bool setSalt(const unsigned char* salt);
    /// Whether setSalt() derived a chunk key.
    bool hasChunkKey() const { return m_ready; }

    /// Encrypts `size` (at most k_chunkSize) bytes into `out`, which receives
    /// size + k_tagSize bytes (ciphertext, then tag).
    bool sealChunk(std::uint64_t counter, bool last, const unsigned char* in, int size,
                   unsigned char* out);
    /// Decrypts a sealed chunk of `size` bytes (ciphertext and tag) into
    /// `out` (size - k_tagSize bytes); false when the tag does not match.
    bool openChunk(std::uint64_t counter, bool last, const unsigned char* in, int size,
                   unsigned char* out);

    /// The nonce of a chunk, as documented.
    static void chunkNonce(std::uint64_t counter, bool last, unsigned char nonce[k_nonceSize]);

private:
    secure_string m_key;
    unsigned char m_chunkKey[k_keySize] = {};
    bool m_ready = false;
    struct Cipher;
    Cipher* m_cipher = nullptr;
};

/// A QIODevice that encrypts what is written to it into another device, or
/// decrypts what it reads from another device: authenticated streaming
/// encryption with AES-256-GCM in chunks of 64 KiB (see aes_context).
///
/// Open it ReadOnly or WriteOnly (not both). Opening a writer writes the
/// header with a new random salt; closing it seals the buffered rest as the
/// last chunk. The wrapped device is opened, closed and not owned as
/// FilterDevice describes.
///
/// A reader checks every chunk before it hands out its bytes. read() returns
/// -1 and errorString() says why when a chunk was tampered with, the key is
/// wrong, the stream is not one of ours, or the stream ends before its last
/// chunk. Memory use is bounded by two chunks whatever the stream size.
class COMMONKIT_EXPORT IODevice : public FilterDevice, public aes_context
{
    Q_OBJECT
public:
    /// A device over `device`, which it does not own, encrypting with
    /// chunk keys derived from `key`.
    IODevice(QIODevice* device, const secure_string& key, QObject* parent = nullptr);
    /// Closes the device when it is open (a writer seals its last chunk
    /// while the cipher is still there) and wipes the buffered plain bytes.
    ~IODevice() override;
};

} // namespace crypto
} // namespace ko
