#include <CommonKit/support/crypto/RSAKeyPair.h>
#include "support/crypto/EvpDigest_p.h"

#include <openssl/bio.h>
#include <openssl/bn.h>
#include <openssl/core_names.h>
#include <openssl/decoder.h>
#include <openssl/err.h>
#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/rsa.h>

#include <QFile>

#include <cerrno>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <memory>
#include <vector>

#ifndef _WIN32
#  include <fcntl.h>
#  include <sys/stat.h>
#  include <unistd.h>
#endif

namespace ko {
namespace crypto {

struct RSAKeyPair::Key
{
    EVP_PKEY* pkey = nullptr;
    explicit Key(EVP_PKEY* key) : pkey(key) {}
    ~Key() { EVP_PKEY_free(pkey); }
};

namespace {

// `text` followed by OpenSSL's reason in parentheses, when it gave one; the
// error queue is emptied either way.
QString withOpensslReason(const QString& text)
{
    const unsigned long code = ERR_get_error();
    ERR_clear_error();
    if (!code)
        return text;
    char buffer[256];
    ERR_error_string_n(code, buffer, sizeof buffer);
    return QStringLiteral("%1 (%2)").arg(text, QString::fromLatin1(buffer));
}

bool hasPrivatePart(EVP_PKEY* pkey)
{
    BIGNUM* d = nullptr;
    const bool ok = EVP_PKEY_get_bn_param(pkey, OSSL_PKEY_PARAM_RSA_D, &d) == 1 && d;
    BN_clear_free(d);
    ERR_clear_error();
    return ok;
}

secure_string bioText(BIO* bio)
{
    char* data = nullptr;
    const long size = BIO_get_mem_data(bio, &data);
    return size > 0 ? secure_string(data, static_cast<std::size_t>(size)) : secure_string();
}

using BioPtr = std::unique_ptr<BIO, decltype(&BIO_free)>;
using PkeyCtxPtr = std::unique_ptr<EVP_PKEY_CTX, decltype(&EVP_PKEY_CTX_free)>;

// Base64 without line breaks.
secure_string toBase64(const unsigned char* data, std::size_t size)
{
    secure_string text(4 * ((size + 2) / 3) + 1, '\0');
    const int written = EVP_EncodeBlock(reinterpret_cast<unsigned char*>(&text[0]), data,
                                        static_cast<int>(size));
    text.resize(written > 0 ? static_cast<std::size_t>(written) : 0);
    return text;
}

// Strict Base64 (whitespace ignored); false on any other character or a
// wrong length.
bool fromBase64(const secure_string& text, secure_string& bytes)
{
    secure_string clean;
    clean.reserve(text.size());
    for (char c : text) {
        if (c == ' ' || c == '\n' || c == '\r' || c == '\t')
            continue;
        const bool valid = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9')
                           || c == '+' || c == '/' || c == '=';
        if (!valid)
            return false;
        clean += c;
    }
    if (clean.empty() || clean.size() % 4 != 0)
        return false;
    std::size_t pad = 0;
    while (pad < 2 && clean[clean.size() - 1 - pad] == '=')
        ++pad;
    if (clean.find('=') < clean.size() - pad)
        return false;
    bytes.assign(clean.size() / 4 * 3, '\0');
    const int size = EVP_DecodeBlock(reinterpret_cast<unsigned char*>(&bytes[0]),
                                     reinterpret_cast<const unsigned char*>(clean.data()),
                                     static_cast<int>(clean.size()));
    if (size < 0)
        return false;
    bytes.resize(static_cast<std::size_t>(size) - pad);
    return true;
}

} // namespace

RSAKeyPair::RSAKeyPair() = default;

RSAKeyPair::RSAKeyPair(const RSAKeyPair& other) : m_private(other.m_private)
{
    if (other.m_key && EVP_PKEY_up_ref(other.m_key->pkey))
        m_key = new Key(other.m_key->pkey);
}

RSAKeyPair::RSAKeyPair(RSAKeyPair&& other) noexcept
    : m_key(other.m_key), m_private(other.m_private)
{
    other.m_key = nullptr;
    other.m_private = false;
}

RSAKeyPair& RSAKeyPair::operator=(const RSAKeyPair& other)
{
    if (this != &other) {
        RSAKeyPair copy(other);
        *this = std::move(copy);
    }
    return *this;
}

RSAKeyPair& RSAKeyPair::operator=(RSAKeyPair&& other) noexcept
{
    if (this != &other) {
        delete m_key;
        m_key = other.m_key;
        m_private = other.m_private;
        other.m_key = nullptr;
        other.m_private = false;
    }
    return *this;
}

RSAKeyPair::~RSAKeyPair()
{
    delete m_key;
}

void RSAKeyPair::setError(const QString& text) const
{
    m_errorString = text;
    m_lastError = text.toStdString();
}

bool RSAKeyPair::loadPem(const secure_string& pem, const secure_string& passphrase)
{
    return loadPemFrom(pem, passphrase, tr("the PEM text"));
}

bool RSAKeyPair::loadPemFrom(const secure_string& pem, const secure_string& passphrase, const QString& source)
{
    EVP_PKEY* pkey = nullptr;
    OSSL_DECODER_CTX* decoder = OSSL_DECODER_CTX_new_for_pkey(&pkey, "PEM", nullptr, "RSA", 0,
                                                              nullptr, nullptr);
    if (!decoder) {
        setError(withOpensslReason(tr("Cannot set up the PEM decoder")));
        return false;
    }
    // An empty passphrase is still set, so an encrypted key never prompts.
    OSSL_DECODER_CTX_set_passphrase(decoder, reinterpret_cast<const unsigned char*>(passphrase.data()),
                                    passphrase.size());
    const unsigned char* data = reinterpret_cast<const unsigned char*>(pem.data());
    std::size_t size = pem.size();
    const bool ok = !pem.empty() && OSSL_DECODER_from_data(decoder, &data, &size) == 1 && pkey;
    OSSL_DECODER_CTX_free(decoder);
    if (!ok) {
        EVP_PKEY_free(pkey);
        setError(withOpensslReason(tr("No RSA key in %1").arg(source)));
        return false;
    }
    delete m_key;
    m_key = new Key(pkey);
    m_private = hasPrivatePart(pkey);
    setError(QString());
    return true;
}

bool RSAKeyPair::loadFile(const std::string& path, const secure_string& passphrase)
{
    const QString name = QFile::decodeName(path.c_str());
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly)) {
        setError(tr("Cannot open the key file %1: %2").arg(name, file.errorString()));
        return false;
    }
    secure_string text;
    char buffer[4096];
    for (;;) {
        const qint64 n = file.read(buffer, sizeof buffer);
        if (n < 0) {
            zeroOut(buffer, sizeof buffer);
            setError(tr("Cannot read the key file %1: %2").arg(name, file.errorString()));
            return false;
        }
        if (n == 0)
            break;
        text.append(buffer, static_cast<std::size_t>(n));
        if (text.size() > (1u << 20)) {
            zeroOut(buffer, sizeof buffer);
            setError(tr("The key file %1 is larger than 1 MiB").arg(name));
            return false;
        }
    }
    zeroOut(buffer, sizeof buffer);
    return loadPemFrom(text, passphrase, name);
}

bool RSAKeyPair::generate(int bits)
{
    if (bits < 1024) {
        setError(tr("An RSA key needs at least 1024 bits, not %1").arg(bits));
        return false;
    }
    EVP_PKEY* pkey = EVP_RSA_gen(static_cast<unsigned int>(bits));
    if (!pkey) {
        setError(withOpensslReason(tr("Generating the RSA key failed")));
        return false;
    }
    delete m_key;
    m_key = new Key(pkey);
    m_private = true;
    setError(QString());
    return true;
}

void RSAKeyPair::clear()
{
    delete m_key;
    m_key = nullptr;
    m_private = false;
}

secure_string RSAKeyPair::privateKeyPem() const
{
    if (!m_key || !m_private)
        return secure_string();
    BioPtr bio(BIO_new(BIO_s_secmem()), &BIO_free);
    if (!bio || !PEM_write_bio_PrivateKey(bio.get(), m_key->pkey, nullptr, nullptr, 0, nullptr, nullptr)) {
        setError(withOpensslReason(tr("Cannot write the private key as PEM text")));
        return secure_string();
    }
    return bioText(bio.get());
}

std::string RSAKeyPair::publicKeyPem() const
{
    if (!m_key)
        return std::string();
    BioPtr bio(BIO_new(BIO_s_mem()), &BIO_free);
    if (!bio || !PEM_write_bio_PUBKEY(bio.get(), m_key->pkey)) {
        setError(withOpensslReason(tr("Cannot write the public key as PEM text")));
        return std::string();
    }
    const secure_string text = bioText(bio.get());
    return std::string(text.data(), text.size());
}

namespace {

bool writeFile(const std::string& path, const char* data, std::size_t size, bool secret)
{
#ifndef _WIN32
    const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, secret ? 0600 : 0644);
    if (fd < 0)
        return false;
    if (secret)
        ::fchmod(fd, 0600);
    std::size_t done = 0;
    while (done < size) {
        const ssize_t n = ::write(fd, data + done, size - done);
        if (n <= 0) {
            ::close(fd);
            return false;
        }
        done += static_cast<std::size_t>(n);
    }
    return ::close(fd) == 0;
#else
    (void)secret;
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(data, static_cast<std::streamsize>(size));
    return static_cast<bool>(file.flush());
#endif
}

} // namespace

bool RSAKeyPair::savePrivateKey(const std::string& path) const
{
    if (emptyPrivateKey()) {
        setError(tr("There is no private key to save"));
        return false;
    }
    const secure_string pem = privateKeyPem();
    return !pem.empty() && saveFile(path, pem.data(), pem.size(), true);
}

bool RSAKeyPair::savePublicKey(const std::string& path) const
{
    if (emptyPublicKey()) {
        setError(tr("There is no key to save"));
        return false;
    }
    const std::string pem = publicKeyPem();
    return !pem.empty() && saveFile(path, pem.data(), pem.size(), false);
}

bool RSAKeyPair::saveFile(const std::string& path, const char* data, std::size_t size, bool secret) const
{
    errno = 0;
    if (writeFile(path, data, size, secret)) {
        setError(QString());
        return true;
    }
    const int error = errno;
    setError(tr("Cannot write the key file %1: %2").arg(QFile::decodeName(path.c_str()), qt_error_string(error)));
    return false;
}

bool RSAKeyPair::emptyPrivateKey() const
{
    return !m_key || !m_private;
}

bool RSAKeyPair::emptyPublicKey() const
{
    return !m_key;
}

int RSAKeyPair::bits() const
{
    return m_key ? EVP_PKEY_get_bits(m_key->pkey) : 0;
}

secure_string RSAKeyPair::sign(const secure_string& digest) const
{
    return sign(digest, MessageDigest::algorithmForDigestSize(digest.size()));
}

secure_string RSAKeyPair::sign(const secure_string& digest, MessageDigest::Algorithm algorithm) const
{
    if (emptyPrivateKey()) {
        setError(tr("There is no private key to sign with"));
        return secure_string();
    }
    const EVP_MD* md = evpDigest(algorithm);
    if (!md || static_cast<std::size_t>(MessageDigest::digestSize(algorithm)) != digest.size()) {
        setError(tr("The digest does not match a known algorithm"));
        return secure_string();
    }
    PkeyCtxPtr ctx(EVP_PKEY_CTX_new_from_pkey(nullptr, m_key->pkey, nullptr), &EVP_PKEY_CTX_free);
    std::size_t size = 0;
    if (!ctx || EVP_PKEY_sign_init(ctx.get()) <= 0
        || EVP_PKEY_CTX_set_rsa_padding(ctx.get(), RSA_PKCS1_PADDING) <= 0
        || EVP_PKEY_CTX_set_signature_md(ctx.get(), md) <= 0
        || EVP_PKEY_sign(ctx.get(), nullptr, &size,
                         reinterpret_cast<const unsigned char*>(digest.data()), digest.size()) <= 0) {
        setError(withOpensslReason(tr("Signing failed")));
        return secure_string();
    }
    std::vector<unsigned char, secure_allocator<unsigned char>> signature(size);
    if (EVP_PKEY_sign(ctx.get(), signature.data(), &size,
                      reinterpret_cast<const unsigned char*>(digest.data()), digest.size()) <= 0) {
        setError(withOpensslReason(tr("Signing failed")));
        return secure_string();
    }
    setError(QString());
    return toBase64(signature.data(), size);
}

bool RSAKeyPair::verify(const secure_string& digest, const secure_string& signature) const
{
    return verify(digest, signature, MessageDigest::algorithmForDigestSize(digest.size()));
}

bool RSAKeyPair::verify(const secure_string& digest, const secure_string& signature,
                        MessageDigest::Algorithm algorithm) const
{
    if (emptyPublicKey()) {
        setError(tr("There is no public key to check the signature with"));
        return false;
    }
    const EVP_MD* md = evpDigest(algorithm);
    if (!md || static_cast<std::size_t>(MessageDigest::digestSize(algorithm)) != digest.size()) {
        setError(tr("The digest does not match a known algorithm"));
        return false;
    }
    secure_string bytes;
    if (!fromBase64(signature, bytes)) {
        setError(tr("The signature is not Base64 text"));
        return false;
    }
    PkeyCtxPtr ctx(EVP_PKEY_CTX_new_from_pkey(nullptr, m_key->pkey, nullptr), &EVP_PKEY_CTX_free);
    const bool ok = ctx && EVP_PKEY_verify_init(ctx.get()) > 0
                    && EVP_PKEY_CTX_set_rsa_padding(ctx.get(), RSA_PKCS1_PADDING) > 0
                    && EVP_PKEY_CTX_set_signature_md(ctx.get(), md) > 0
                    && EVP_PKEY_verify(ctx.get(), reinterpret_cast<const unsigned char*>(bytes.data()),
                                       bytes.size(), reinterpret_cast<const unsigned char*>(digest.data()),
                                       digest.size()) == 1;
    setError(ok ? QString() : withOpensslReason(tr("The signature does not match the digest")));
    return ok;
}

} // namespace crypto
} // namespace ko
