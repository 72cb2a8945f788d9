#pragma once

#include <CommonKit/support/core/Export.h>
#include <CommonKit/support/crypto/MessageDigest.h>
#include <CommonKit/support/crypto/SecureAllocator.h>

#include <QCoreApplication>
#include <QString>

#include <string>

namespace ko {
namespace crypto {

/// An RSA key: a private key (which includes its public part) or only a
/// public key, loaded from PEM text or a PEM file, or generated.
///
/// sign() and verify() work on a finished digest: the signature is RSA
/// PKCS#1 v1.5 over the DigestInfo of that digest and its algorithm (the same
/// bytes `openssl pkeyutl -sign -pkeyopt digest:sha256` produces for a
/// SHA-256 digest), carried as Base64 text without line breaks.
///
/// Copies share the underlying key, which is immutable once loaded.
/// Operations report failure by their return value; errorString() says why
/// (translated, naming the file or the check that failed).
class COMMONKIT_EXPORT RSAKeyPair
{
public:
    /// No key: emptyPublicKey() and emptyPrivateKey() are true.
    RSAKeyPair();
    /// Shares the key of `other`.
    RSAKeyPair(const RSAKeyPair& other);
    /// Takes over the key of `other`, which is left without a key.
    RSAKeyPair(RSAKeyPair&& other) noexcept;
    /// Shares the key of `other` instead of the own one.
    RSAKeyPair& operator=(const RSAKeyPair& other);
    /// Takes over the key of `other`, which is left without a key.
    RSAKeyPair& operator=(RSAKeyPair&& other) noexcept;
    /// Releases this copy's share of the key.
    ~RSAKeyPair();

    /// Reads a PEM private key ("PRIVATE KEY", "RSA PRIVATE KEY", or an
    /// encrypted one with `passphrase`) or a PEM public key ("PUBLIC KEY",
    /// "RSA PUBLIC KEY"). Replaces the current key only on success.
    [[nodiscard]] bool loadPem(const secure_string& pem, const secure_string& passphrase = secure_string());
    /// loadPem() with the content of the file at `path` (in the local 8-bit
    /// encoding), which must not exceed 1 MiB; errorString() names the file.
    [[nodiscard]] bool loadFile(const std::string& path, const secure_string& passphrase = secure_string());
    /// Generates a new private key of `bits` bits (at least 1024).
    [[nodiscard]] bool generate(int bits = 3072);
    /// Drops the key.
    void clear();

    /// PKCS#8 "PRIVATE KEY" PEM text, unencrypted, or empty without a private
    /// key.
    secure_string privateKeyPem() const;
    /// "PUBLIC KEY" (SubjectPublicKeyInfo) PEM text, or empty without a key.
    std::string publicKeyPem() const;
    /// Writes privateKeyPem() to a file (mode 0600 on POSIX), replacing it.
    /// False when there is no private key or the file fails.
    [[nodiscard]] bool savePrivateKey(const std::string& path) const;
    /// Writes publicKeyPem() to a file, replacing it. False when there is no
    /// key or the file fails.
    [[nodiscard]] bool savePublicKey(const std::string& path) const;

    /// Whether there is no private key (none at all, or only a public one).
    bool emptyPrivateKey() const;
    /// Whether there is no key at all.
    bool emptyPublicKey() const;
    /// Key size in bits, 0 without a key.
    int bits() const;

    /// Signs a finished digest; the algorithm is the one whose digest size
    /// matches (MD5, SHA1, SHA224, SHA256, SHA384 or SHA512). Returns the
    /// Base64 signature, or an empty string on failure.
    secure_string sign(const secure_string& digest) const;
    /// Signs a finished digest of `algorithm`; empty on failure, also when
    /// the digest size does not match the algorithm.
    secure_string sign(const secure_string& digest, MessageDigest::Algorithm algorithm) const;
    /// Whether `signature` (Base64, as sign() returns it) is a valid signature
    /// of `digest` by this key's public part.
    /// The algorithm is the one whose digest size matches, as for sign().
    [[nodiscard]] bool verify(const secure_string& digest, const secure_string& signature) const;
    /// Whether `signature` is a valid signature of a finished digest of
    /// `algorithm`; false too when the digest size does not match it.
    [[nodiscard]] bool verify(const secure_string& digest, const secure_string& signature,
                              MessageDigest::Algorithm algorithm) const;

    /// Why the last operation that failed did, translated; empty after a
    /// load, generation, signature or check that succeeded.
    QString errorString() const { return m_errorString; }
    /// errorString() as UTF-8.
    const std::string& lastError() const { return m_lastError; }

private:
    Q_DECLARE_TR_FUNCTIONS(ko::crypto::RSAKeyPair)

    void setError(const QString& text) const;
    // `source` names where the PEM text came from in the error text.
    bool loadPemFrom(const secure_string& pem, const secure_string& passphrase, const QString& source);
    bool saveFile(const std::string& path, const char* data, std::size_t size, bool secret) const;

    struct Key;
    Key* m_key = nullptr;
    bool m_private = false;
    mutable QString m_errorString;
    mutable std::string m_lastError;
};

} // namespace crypto
} // namespace ko
