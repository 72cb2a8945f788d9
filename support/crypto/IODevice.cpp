#include <CommonKit/support/crypto/IODevice.h>

#include "support/core/WrappedDevice_p.h"

#include <openssl/evp.h>
#include <openssl/hmac.h>
#include <openssl/rand.h>

#include <algorithm>
#include <cstring>

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

IODevice::IODevice(QIODevice* device, const secure_string& key, QObject* parent)
    : QIODevice(parent), aes_context(key), m_device(device)
{
}

IODevice::~IODevice()
{
    if (isOpen())
        close();
    zeroOut(m_plain.data(), static_cast<std::size_t>(m_plain.size()));
}

bool IODevice::open(OpenMode mode)
{
    const bool reading = mode & ReadOnly;
    const bool writing = mode & WriteOnly;
    QString error;
    if (reading == writing || (mode & Append))
        error = tr("The encrypting device is opened either for reading or for writing.");
    if (!error.isEmpty() || !openWrappedDevice(*this, m_device, mode, &error)) {
        setErrorString(error);
        return false;
    }

    m_in.clear();
    m_plain.clear();
    m_plainPos = 0;
    m_counter = 0;
    m_headerDone = false;
    m_finished = false;
    m_failed = false;
    m_sourceEnd = false;

    if (writing) {
        unsigned char header[k_headerSize];
        header[0] = k_version;
        if (RAND_bytes(header + 1, k_saltSize) != 1 || !setSalt(header + 1)) {
            setErrorString(tr("Cannot set up the stream key."));
            return false;
        }
        if (m_device->write(reinterpret_cast<const char*>(header), k_headerSize) != k_headerSize) {
            setErrorString(m_device->errorString());
            return false;
        }
        m_headerDone = true;
        m_plain.reserve(k_chunkSize);
    }
    return QIODevice::open(mode | Unbuffered);
}

void IODevice::close()
{
    if (!isOpen())
        return;
    if ((openMode() & WriteOnly) && !m_failed)
        flushChunk(true);
    QIODevice::close();
    zeroOut(m_plain.data(), static_cast<std::size_t>(m_plain.size()));
    m_plain.clear();
    m_in.clear();
    m_plainPos = 0;
    if (m_device && m_device->isOpen())
        m_device->close();
}

bool IODevice::isSequential() const
{
    return true;
}

bool IODevice::atEnd() const
{
    if (!isOpen())
        return true;
    if (!(openMode() & ReadOnly))
        return true;
    if (m_plainPos < m_plain.size())
        return false;
    fill();
    return m_plainPos >= m_plain.size();
}

qint64 IODevice::bytesAvailable() const
{
    return (m_plain.size() - m_plainPos) + QIODevice::bytesAvailable();
}

qint64 IODevice::readData(char* data, qint64 maxSize)
{
    if (m_failed)
        return -1;
    if (!(openMode() & ReadOnly))
        return -1;
    qint64 done = 0;
    while (done < maxSize) {
        if (m_plainPos >= m_plain.size() && !fill())
            return done > 0 ? done : -1;
        const qint64 available = m_plain.size() - m_plainPos;
        if (available == 0)
            break;
        const qint64 take = std::min(available, maxSize - done);
        std::memcpy(data + done, m_plain.constData() + m_plainPos, static_cast<std::size_t>(take));
        m_plainPos += take;
        done += take;
    }
    return done;
}

qint64 IODevice::writeData(const char* data, qint64 maxSize)
{
    if (m_failed || !(openMode() & WriteOnly))
        return -1;
    qint64 done = 0;
    while (done < maxSize) {
        // A full chunk is sealed only once more bytes follow, so that a
        // stream whose length is a multiple of the chunk size still ends
        // with a non-empty last chunk.
        if (m_plain.size() == k_chunkSize && !flushChunk(false))
            return -1;
        const qint64 take = std::min<qint64>(maxSize - done, k_chunkSize - m_plain.size());
        m_plain.append(data + done, static_cast<int>(take));
        done += take;
    }
    return done;
}

bool IODevice::flushChunk(bool last)
{
    QByteArray sealed(m_plain.size() + k_tagSize, Qt::Uninitialized);
    if (!sealChunk(m_counter, last, reinterpret_cast<const unsigned char*>(m_plain.constData()),
                   m_plain.size(), reinterpret_cast<unsigned char*>(sealed.data()))) {
        fail(tr("Encryption failed."));
        return false;
    }
    zeroOut(m_plain.data(), static_cast<std::size_t>(m_plain.size()));
    m_plain.resize(0);
    ++m_counter;
    qint64 written = 0;
    while (written < sealed.size()) {
        const qint64 n = m_device->write(sealed.constData() + written, sealed.size() - written);
        if (n <= 0) {
            fail(tr("Cannot write the encrypted stream: %1").arg(m_device->errorString()));
            return false;
        }
        written += n;
    }
    return true;
}

qint64 IODevice::readSource(char* data, qint64 size)
{
    qint64 done = 0;
    while (done < size && !m_sourceEnd) {
        const qint64 n = m_device->read(data + done, size - done);
        if (n < 0) {
            fail(tr("Cannot read the encrypted stream: %1").arg(m_device->errorString()));
            return -1;
        }
        if (n == 0)
            m_sourceEnd = true;
        done += n;
    }
    return done;
}

bool IODevice::readHeader()
{
    char header[k_headerSize];
    const qint64 n = readSource(header, k_headerSize);
    if (n < 0)
        return false;
    if (n < k_headerSize) {
        fail(tr("The encrypted stream ends before its last chunk."));
        return false;
    }
    if (header[0] != k_version) {
        fail(tr("The stream is not encrypted in a known format (version %1).")
                 .arg(static_cast<unsigned char>(header[0])));
        return false;
    }
    if (!setSalt(reinterpret_cast<const unsigned char*>(header + 1))) {
        fail(tr("Cannot set up the stream key."));
        return false;
    }
    m_headerDone = true;
    return true;
}

bool IODevice::fill() const
{
    // Reading ahead changes no observable state but the buffers.
    return const_cast<IODevice*>(this)->fillImpl();
}

bool IODevice::fillImpl()
{
    if (m_failed)
        return false;
    if (!(openMode() & ReadOnly))
        return false;
    if (!m_headerDone && !readHeader())
        return false;
    while (m_plainPos >= m_plain.size() && !m_finished) {
        // One sealed chunk plus one byte tells whether the chunk is the last.
        const int sealedSize = k_chunkSize + k_tagSize;
        const int want = sealedSize + 1;
        if (m_in.size() < want && !m_sourceEnd) {
            const int had = m_in.size();
            m_in.resize(want);
            const qint64 n = readSource(m_in.data() + had, want - had);
            if (n < 0)
                return false;
            m_in.resize(had + static_cast<int>(n));
        }
        const bool last = m_in.size() <= sealedSize;
        const int size = last ? m_in.size() : sealedSize;
        if (size < k_tagSize) {
            fail(tr("The encrypted stream ends before its last chunk."));
            return false;
        }
        zeroOut(m_plain.data(), static_cast<std::size_t>(m_plain.size()));
        m_plain.resize(size - k_tagSize);
        m_plainPos = 0;
        const unsigned char* sealed = reinterpret_cast<const unsigned char*>(m_in.constData());
        unsigned char* plain = reinterpret_cast<unsigned char*>(m_plain.data());
        if (!openChunk(m_counter, last, sealed, size, plain)) {
            // A final chunk that opens as an inner chunk means the stream
            // was cut right after it. fail() wipes what that trial opened.
            if (last && openChunk(m_counter, false, sealed, size, plain))
                fail(tr("The encrypted stream ends before its last chunk."));
            else
                fail(tr("Decryption failed at chunk %1: wrong key, or the stream was changed or cut.")
                         .arg(m_counter));
            return false;
        }
        ++m_counter;
        m_in.remove(0, size);
        if (last)
            m_finished = true;
    }
    return true;
}

void IODevice::fail(const QString& reason)
{
    m_failed = true;
    zeroOut(m_plain.data(), static_cast<std::size_t>(m_plain.size()));
    m_plain.resize(0);
    m_plainPos = 0;
    setErrorString(reason);
}

} // namespace crypto
} // namespace ko
