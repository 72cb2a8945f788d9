#pragma once

#include <CommonKit/support/compression/ZlibDevice.h>
#include <CommonKit/support/core/Export.h>
#include <CommonKit/support/core/IntrusiveString.h>
#include <CommonKit/support/crypto/MessageDigest.h>
#include <CommonKit/support/crypto/RSAKeyPair.h>
#include <CommonKit/support/crypto/SecureAllocator.h>
#include <CommonKit/support/json/Variant.h>

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <string>

namespace ko {

namespace crypto {
class ClippedIODevice;
class DigestingIODevice;
class IODevice;
} // namespace crypto

/// A file holding a payload that may be compressed, may be encrypted, is
/// always digested and may be signed, followed by a JSON trailer that says how
/// the payload was stored (docs/container-format.md has the bytes).
///
/// To its users it is a QFile: after create() they write plain bytes, after
/// open() they read plain bytes, through the ordinary QIODevice calls. Inside,
/// the bytes pass a stack of devices: digest (always), zlib compression
/// (unless the level is k_noCompression), AES encryption (with a non-empty
/// key), then the file itself.
///
///     ko::EncryptedFile out;
///     out.create(QFileInfo(path), key, ko::ZlibDevice::k_defaultCompression,
///                ko::crypto::MessageDigest::SHA256);
///     out.write(data);
///     out.close(privateKey, "signer name");   // writes trailer and signature
///
///     ko::EncryptedFile in;
///     in.open(QFileInfo(path), key);
///     QByteArray data = in.readAll();
///     bool genuine = in.verify(publicKey);
///
/// Memory use does not depend on the payload size. Opening a file whose
/// trailer is damaged (too short, a length beyond the file, metadata that is
/// not a JSON object or names no known digest) fails; a damaged payload or a
/// wrong key makes reading fail.
class COMMONKIT_EXPORT EncryptedFile : public QFile
{
public:
    /// Upper bound for the metadata text of a file that open() accepts (it
    /// keeps hostile trailers from taking unbounded memory). Metadata that a
    /// caller enlarged beyond it before close() is still written, with a
    /// logged error, but such a file cannot be opened again.
    static constexpr qint64 k_maxMetaInfoSize = 1 << 20;

    /// A container that is not open; create() or open() a file with it.
    explicit EncryptedFile(QObject* parent = nullptr);
    /// Closes without writing a trailer.
    ~EncryptedFile() override;

    /// Starts a new file for writing (truncating an existing one). An empty
    /// key stores the payload unencrypted. Returns whether the device stack
    /// was opened; when not, errorString() says why.
    [[nodiscard]] bool create(const QFileInfo& file, const crypto::secure_string& key,
                int compression = ZlibDevice::k_noCompression,
                crypto::MessageDigest::Algorithm algorithm = crypto::MessageDigest::SHA256);

    /// Opens an existing file for reading with the key it was created with
    /// (a wrong key shows up as failing reads). False when the file does not
    /// exist, cannot be opened or has a damaged trailer; errorString() then
    /// names the file and the check that failed.
    [[nodiscard]] bool open(const QFileInfo& file, const crypto::secure_string& key);

    /// Finishes a file started with create(): flushes the stack, adds
    /// "signer" (when not empty) and the lengths to the metadata, signs when
    /// the key pair holds a private key, and appends the trailer.
    void close(const crypto::RSAKeyPair& keyPair, const IntrusiveString& signer);

    /// After open(): reads (and digests) whatever plain bytes the caller has
    /// not read yet, then checks the signature with the public key. False when
    /// not open for reading, without public key or signature, when the payload
    /// has more or fewer plain bytes than recorded, or when the signature does
    /// not match, each with its reason in errorString(). Call it once.
    [[nodiscard]] bool verify(const crypto::RSAKeyPair& keyPair);

    /// The metadata: after create() what the trailer will hold (callers may
    /// add members before close()), after open() what the trailer holds.
    json::Variant& metaInfo() { return m_metaInfo; }
    /// The metadata, read-only.
    const json::Variant& metaInfo() const { return m_metaInfo; }

    /// The metadata of a file, read from its trailer only (no key needed).
    /// A JSON false when the file cannot be opened; null when the trailer is
    /// damaged.
    static json::Variant metaInfo(const QFileInfo& file);

    /// The current UTC time as YYYY-MM-DDTHH:MM:SS. Throws std::runtime_error
    /// "could not convert calendar time to UTC time" when the clock cannot be
    /// converted.
    static std::string currentDateTime();

    /// QIODevice: reads and writes go to the top of the device stack.
    bool isSequential() const override;
    /// Opens the top device with the mode (false without one).
    bool open(OpenMode mode) override;
    /// Closes the stack without writing a trailer; after create() use
    /// close(keyPair, signer) instead.
    void close() override;
    /// When reading: whether all plain bytes were read.
    bool atEnd() const override;
    /// Succeeds only when reading and no plain byte was read yet: the stack
    /// cannot move back.
    bool reset() override;
    /// Plain bytes read ahead and not handed out yet.
    qint64 bytesAvailable() const override;
    /// Bytes the stack has still to write.
    qint64 bytesToWrite() const override;

protected:
    /// Whether this host stores integers big-endian.
    static bool is_be();
    /// Reads `count` bytes that the file holds big-endian into `buffer` in
    /// host order (reversed on a little-endian host). True when all bytes
    /// were read.
    static bool read_be(QIODevice* device, char* buffer, int count);
    /// Writes `count` bytes of `buffer`, held in host order, big-endian; the
    /// caller's buffer stays as it was. True when all bytes were written.
    static bool write_be(QIODevice* device, char* buffer, int count);
    /// Reverses the bytes of [first, last).
    static void swap_bytes(char* first, char* last);

    /// Reads plain bytes from the top of the stack; on failure errorString()
    /// takes over the stack's reason.
    qint64 readData(char* data, qint64 maxSize) override;
    /// Writes plain bytes into the top of the stack; on failure errorString()
    /// takes over the stack's reason.
    qint64 writeData(const char* data, qint64 maxSize) override;

private:
    Q_DECLARE_TR_FUNCTIONS(ko::EncryptedFile)

    /// Reads the trailer of an open file: its metadata object and the
    /// payload length. False with the reason in *error when it is damaged.
    static bool readTrailer(QFile* file, json::Variant* metaInfo, qint64* payloadLength, QString* error);
    void deleteDevices();

    json::Variant m_metaInfo;
    QFile* m_file = nullptr;
    crypto::ClippedIODevice* m_clipping = nullptr;
    crypto::IODevice* m_cipher = nullptr;
    ZlibDevice* m_compression = nullptr;
    crypto::DigestingIODevice* m_digesting = nullptr;
    QIODevice* m_top = nullptr;
};

} // namespace ko
