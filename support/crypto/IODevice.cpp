#include <CommonKit/support/crypto/IODevice.h>

#include "support/core/FilterDevice_p.h"

#include <openssl/evp.h>
#include <openssl/hmac.h>
#include <openssl/rand.h>

#include <algorithm>
#include <cstring>
#include <memory>

namespace ko {
namespace crypto {

namespace {

const char k_info[] = "CommonKit stream v1";

// HKDF-SHA256 (RFC 5869) for one output block of 32 bytes:
//     PRK = HMAC(salt, key);  OKM = HMAC(PRK, info || 0x01)
// Written out on HMAC so that an empty input key derives a key like any
// other (a stream opened with an empty key then simply fails to decrypt).
bool hkdfSha256(const secure_string& key, const unsigned char* salt, int saltSize,
                unsigned char out[aes_context::k_keySize])
{
    unsigned char prk[EVP_MAX_MD_SIZE];
    unsigned int prkSize = 0;
    static const unsigned char k_empty = 0;
    const unsigned char* keyData = key.empty() ? &k_empty : reinterpret_cast<const unsigned char*>(key.data());
    if (!HMAC(EVP_sha256(), salt, saltSize, keyData, key.size(), prk, &prkSize))
        return false;
    unsigned char message[sizeof k_info];
    std::memcpy(message, k_info, sizeof k_info - 1);
    message[sizeof k_info - 1] = 0x01;
    unsigned char okm[EVP_MAX_MD_SIZE];
    unsigned int okmSize = 0;
    const bool ok = HMAC(EVP_sha256(), prk, static_cast<int>(prkSize), message, sizeof message, okm, &okmSize)
                    && okmSize >= static_cast<unsigned int>(aes_context::k_keySize);
    if (ok)
        std::memcpy(out, okm, aes_context::k_keySize);
    zeroOut(prk, sizeof prk);
    zeroOut(okm, sizeof okm);
    return ok;
}

} // namespace

struct aes_context::Cipher
{
    EVP_CIPHER_CTX* ctx = EVP_CIPHER_CTX_new();
    ~Cipher() { EVP_CIPHER_CTX_free(ctx); }
};

aes_context::aes_context(const secure_string& key) : m_key(key), m_cipher(new Cipher)
{
}

aes_context::~aes_context()
{
    // A short key sits in the string object itself, out of reach of the
    // secure allocator: wipe it here, whatever its length.
    if (!m_key.empty())
        zeroOut(&m_key[0], m_key.size());
    zeroOut(m_chunkKey, sizeof m_chunkKey);
    delete m_cipher;
}

bool aes_context::setSalt(const unsigned char* salt)
{
    m_ready = hkdfSha256(m_key, salt, k_saltSize, m_chunkKey);
    return m_ready;
}

void aes_context::chunkNonce(std::uint64_t counter, bool last, unsigned char nonce[k_nonceSize])
{
    // Eleven bytes of big-endian counter; the top three are always zero
    // for a 64-bit counter.
    std::memset(nonce, 0, k_nonceSize);
    for (int i = 10; i >= 0 && counter; --i) {
        nonce[i] = static_cast<unsigned char>(counter & 0xff);
        counter >>= 8;
    }
    nonce[11] = last ? 1 : 0;
}

bool aes_context::sealChunk(std::uint64_t counter, bool last, const unsigned char* in, int size,
                            unsigned char* out)
{
    if (!m_ready || !m_cipher->ctx || size < 0 || size > k_chunkSize)
        return false;
    unsigned char nonce[k_nonceSize];
    chunkNonce(counter, last, nonce);
    EVP_CIPHER_CTX* ctx = m_cipher->ctx;
    int length = 0;
    int finalLength = 0;
    const bool ok = EVP_EncryptInit_ex(ctx, EVP_aes_256_gcm(), nullptr, m_chunkKey, nonce)
                    && (size == 0 || EVP_EncryptUpdate(ctx, out, &length, in, size))
                    && EVP_EncryptFinal_ex(ctx, out + length, &finalLength)
                    && length + finalLength == size
                    && EVP_CIPHER_CTX_ctrl(ctx, EVP_CTRL_GCM_GET_TAG, k_tagSize, out + size);
    return ok;
}

bool aes_context::openChunk(std::uint64_t counter, bool last, const unsigned char* in, int size,
                            unsigned char* out)
{
    if (!m_ready || !m_cipher->ctx || size < k_tagSize || size > k_chunkSize + k_tagSize)
        return false;
    const int plainSize = size - k_tagSize;
    unsigned char nonce[k_nonceSize];
    chunkNonce(counter, last, nonce);
    unsigned char tag[k_tagSize];
    std::memcpy(tag, in + plainSize, k_tagSize);
    EVP_CIPHER_CTX* ctx = m_cipher->ctx;
    int length = 0;
    int finalLength = 0;
    const bool ok = EVP_DecryptInit_ex(ctx, EVP_aes_256_gcm(), nullptr, m_chunkKey, nonce)
                    && (plainSize == 0 || EVP_DecryptUpdate(ctx, out, &length, in, plainSize))
                    && EVP_CIPHER_CTX_ctrl(ctx, EVP_CTRL_GCM_SET_TAG, k_tagSize, tag)
                    && EVP_DecryptFinal_ex(ctx, out + length, &finalLength) > 0;
    if (!ok && plainSize > 0)
        zeroOut(out, static_cast<std::size_t>(plainSize));
    return ok;
}

namespace {

// The chunked stream of one IODevice: the header with the salt, then sealed
// chunks, the last one marked as such.
class CipherTransform : public StreamTransform
{
public:
    explicit CipherTransform(aes_context& cipher) : m_cipher(cipher) {}
    ~CipherTransform() override { stop(); }

    QString openError(QIODevice::OpenMode mode) const override
    {
        return isOneWay(mode) ? QString()
                              : IODevice::tr("The encrypting device is opened either for reading or for writing.");
    }

    bool start(FilterDevicePrivate& device, QIODevice::OpenMode mode) override
    {
        m_counter = 0;
        m_headerDone = false;
        if (!(mode & QIODevice::WriteOnly))
            return true;
        unsigned char header[aes_context::k_headerSize];
        header[0] = aes_context::k_version;
        if (RAND_bytes(header + 1, aes_context::k_saltSize) != 1 || !m_cipher.setSalt(header + 1)) {
            device.fail(IODevice::tr("Cannot set up the stream key."));
            return false;
        }
        QIODevice* wrapped = device.wrapped();
        if (wrapped->write(reinterpret_cast<const char*>(header), aes_context::k_headerSize) != aes_context::k_headerSize) {
            device.fail(wrapped->errorString());
            return false;
        }
        m_headerDone = true;
        if (!m_pending)
            m_pending.reset(new unsigned char[aes_context::k_chunkSize]);
        m_pendingSize = 0;
        return true;
    }

    void stop() override
    {
        // The buffer is reused chunk after chunk without wiping in between
        // (each chunk overwrites the last); once the stream is over it is
        // wiped whole.
        if (m_pending)
            zeroOut(m_pending.get(), aes_context::k_chunkSize);
        m_pendingSize = 0;
        m_in.clear();
    }

    QString wrappedFailed(bool reading, const QString& reason) const override
    {
        return (reading ? IODevice::tr("Cannot read the encrypted stream: %1")
                        : IODevice::tr("Cannot write the encrypted stream: %1"))
            .arg(reason);
    }

    bool decode(FilterDevicePrivate& device, QByteArray& out) override
    {
        out.resize(aes_context::k_chunkSize);
        const qint64 n = decodeInto(device, out.data());
        out.resize(n < 0 ? 0 : static_cast<int>(n));
        return n >= 0;
    }

    qint64 directPieceSize() const override { return aes_context::k_chunkSize; }

    qint64 decodeInto(FilterDevicePrivate& device, char* data) override
    {
        if (!m_headerDone && !readHeader(device))
            return -1;
        // One sealed chunk plus one byte tells whether the chunk is the last.
        const int sealedSize = aes_context::k_chunkSize + aes_context::k_tagSize;
        const int want = sealedSize + 1;
        if (m_in.size() < want && !device.wrappedEnded()) {
            const int had = m_in.size();
            m_in.resize(want);
            const qint64 n = device.readWrappedFully(m_in.data() + had, want - had);
            if (n < 0)
                return -1;
            m_in.resize(had + static_cast<int>(n));
        }
        const bool last = m_in.size() <= sealedSize;
        const int size = last ? m_in.size() : sealedSize;
        if (size < aes_context::k_tagSize) {
            device.fail(IODevice::tr("The encrypted stream ends before its last chunk."));
            return -1;
        }
        const unsigned char* sealed = reinterpret_cast<const unsigned char*>(m_in.constData());
        unsigned char* plain = reinterpret_cast<unsigned char*>(data);
        if (!m_cipher.openChunk(m_counter, last, sealed, size, plain)) {
            // A final chunk that opens as an inner chunk means the stream
            // was cut right after it; openChunk() wipes what that trial opened.
            if (last && m_cipher.openChunk(m_counter, false, sealed, size, plain)) {
                zeroOut(plain, static_cast<std::size_t>(size - aes_context::k_tagSize));
                device.fail(IODevice::tr("The encrypted stream ends before its last chunk."));
            } else {
                device.fail(IODevice::tr("Decryption failed at chunk %1: wrong key, or the stream was changed or cut.")
                                .arg(m_counter));
            }
            return -1;
        }
        ++m_counter;
        m_in.remove(0, size);
        if (last)
            device.endOfStream();
        return size - aes_context::k_tagSize;
    }

    bool encode(FilterDevicePrivate& device, const char* data, qint64 size) override
    {
        const auto* bytes = reinterpret_cast<const unsigned char*>(data);
        qint64 done = 0;
        while (done < size) {
            // A full chunk is sealed only once more bytes follow, so that a
            // stream whose length is a multiple of the chunk size still ends
            // with a non-empty last chunk.
            if (m_pendingSize == aes_context::k_chunkSize) {
                if (!seal(device, m_pending.get(), m_pendingSize, false))
                    return false;
                m_pendingSize = 0;
            }
            // Whole chunks of a large write are sealed straight from the
            // caller's bytes.
            while (m_pendingSize == 0 && size - done > aes_context::k_chunkSize) {
                if (!seal(device, bytes + done, aes_context::k_chunkSize, false))
                    return false;
                done += aes_context::k_chunkSize;
            }
            const int take = static_cast<int>(std::min<qint64>(size - done, aes_context::k_chunkSize - m_pendingSize));
            std::memcpy(m_pending.get() + m_pendingSize, bytes + done, static_cast<std::size_t>(take));
            m_pendingSize += take;
            done += take;
        }
        return true;
    }

    bool finish(FilterDevicePrivate& device) override
    {
        const bool ok = seal(device, m_pending.get(), m_pendingSize, true);
        m_pendingSize = 0;
        return ok;
    }

private:
    bool readHeader(FilterDevicePrivate& device)
    {
        char header[aes_context::k_headerSize];
        const qint64 n = device.readWrappedFully(header, aes_context::k_headerSize);
        if (n < 0)
            return false;
        if (n < aes_context::k_headerSize) {
            device.fail(IODevice::tr("The encrypted stream ends before its last chunk."));
            return false;
        }
        if (header[0] != aes_context::k_version) {
            device.fail(IODevice::tr("The stream is not encrypted in a known format (version %1).")
                            .arg(static_cast<unsigned char>(header[0])));
            return false;
        }
        if (!m_cipher.setSalt(reinterpret_cast<const unsigned char*>(header + 1))) {
            device.fail(IODevice::tr("Cannot set up the stream key."));
            return false;
        }
        m_headerDone = true;
        return true;
    }

    // Seals one chunk of `size` plain bytes and writes it.
    bool seal(FilterDevicePrivate& device, const unsigned char* plain, int size, bool last)
    {
        m_sealed.resize(size + aes_context::k_tagSize);
        if (!m_cipher.sealChunk(m_counter, last, plain, size, reinterpret_cast<unsigned char*>(m_sealed.data()))) {
            device.fail(IODevice::tr("Encryption failed."));
            return false;
        }
        ++m_counter;
        return device.writeWrappedFully(m_sealed.constData(), m_sealed.size());
    }

    aes_context& m_cipher;
    QByteArray m_in;     // reader: sealed bytes not opened yet
    QByteArray m_sealed; // writer: the chunk being written (ciphertext only)
    std::unique_ptr<unsigned char[]> m_pending; // writer: plain bytes waiting for their chunk
    int m_pendingSize = 0;
    std::uint64_t m_counter = 0;
    bool m_headerDone = false;
};

} // namespace

IODevice::IODevice(QIODevice* device, const secure_string& key, QObject* parent)
    : FilterDevice(device, new CipherTransform(*this), parent), aes_context(key)
{
}

IODevice::~IODevice()
{
    close();
}

} // namespace crypto
} // namespace ko
