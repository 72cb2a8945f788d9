#pragma once

#include <CommonKit/support/core/Export.h>
#include <CommonKit/support/crypto/SecureAllocator.h>

#include <QByteArray>
#include <QIODevice>

#include <cstdint>

namespace ko {

class FilterDevice;

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
    static constexpr int k_version = 1;
    static constexpr int k_saltSize = 16;
    static constexpr int k_headerSize = 1 + k_saltSize;
    static constexpr int k_chunkSize = 65536;
    static constexpr int k_tagSize = 16;
    static constexpr int k_keySize = 32;
    static constexpr int k_nonceSize = 12;

    explicit aes_context(const secure_string& key);
    aes_context(const aes_context&) = delete;
    aes_context& operator=(const aes_context&) = delete;
    virtual ~aes_context();

    /// The input key bytes as given.
    const secure_string& key() const { return m_key; }

    /// Derives the chunk key for a stream with this salt (k_saltSize bytes).
    bool setSalt(const unsigned char* salt);
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
/// Open it ReadOnly or WriteOnly (not both). Opening opens the wrapped device
/// with the same mode when that one is not open yet; closing a writer seals
/// the buffered rest as the last chunk, and closing either kind closes the
/// wrapped device. The device does not own the wrapped device, which must outlive it
/// (destroying an open device closes it).
///
/// A reader checks every chunk before it hands out its bytes. read() returns
/// -1 and errorString() says why when a chunk was tampered with, the key is
/// wrong, the stream is not one of ours, or the stream ends before its last
/// chunk. Memory use is bounded by two chunks whatever the stream size.
class COMMONKIT_EXPORT IODevice : public QIODevice, public aes_context
{
    Q_OBJECT
public:
    IODevice(QIODevice* device, const secure_string& key, QObject* parent = nullptr);
    ~IODevice() override;

    QIODevice* device() const;

    bool open(OpenMode mode) override;
    void close() override;
    bool isSequential() const override;
    bool atEnd() const override;
    qint64 bytesAvailable() const override;
    /// Whether reading met an error (the stream stays failed until closed).
    bool hasError() const;

protected:
    qint64 readData(char* data, qint64 maxSize) override;
    qint64 writeData(const char* data, qint64 maxSize) override;

private:
    FilterDevice* m_filter;
};

} // namespace crypto
} // namespace ko
