#pragma once

#include <CommonKit/support/core/Export.h>
#include <CommonKit/support/crypto/SecureAllocator.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace ko {
namespace crypto {

/// A running message digest over bytes fed with update().
///
/// The algorithm values are stable (they are stored in files): 12 is SHA-256.
/// digest() does not end the computation; more bytes can follow and digest()
/// then covers everything fed so far. reset() starts over.
class COMMONKIT_EXPORT MessageDigest
{
public:
    /// The digest algorithms; the values are stored in files and never change.
    enum Algorithm {
        Unknown = 0, ///< No algorithm; a digest of this kind stays empty.
        MD5 = 1,     ///< MD5, 16 bytes.
        SHA1 = 2,    ///< SHA-1, 20 bytes.
        SHA224 = 11, ///< SHA-224, 28 bytes.
        SHA256 = 12, ///< SHA-256, 32 bytes.
        SHA384 = 13, ///< SHA-384, 48 bytes.
        SHA512 = 14  ///< SHA-512, 64 bytes.
    };

    /// A digest of `algorithm` over no bytes yet.
    explicit MessageDigest(Algorithm algorithm = SHA256);
    /// A copy that continues independently from the same state.
    MessageDigest(const MessageDigest& other);
    /// Takes over the algorithm and the state of `other`.
    MessageDigest& operator=(const MessageDigest& other);
    /// Releases the digest state.
    virtual ~MessageDigest();

    /// "MD5", "SHA1", "SHA224", "SHA256", "SHA384", "SHA512"; an empty string
    /// for Unknown or any other value.
    static std::string algorithmName(Algorithm algorithm);
    /// The reverse of algorithmName, case-insensitive; Unknown for any other
    /// text.
    static Algorithm algorithmFromName(std::string_view name);
    /// Size in bytes of the algorithm's digest, 0 for Unknown.
    static int digestSize(Algorithm algorithm);
    /// The algorithm whose digests have `size` bytes (the sizes are distinct),
    /// Unknown if none.
    static Algorithm algorithmForDigestSize(std::size_t size);

    /// The algorithm given to the constructor.
    Algorithm algorithm() const { return m_algorithm; }
    /// Whether the algorithm is known and its state could be set up.
    bool isValid() const;

    /// Feeds `size` bytes at `data` into the digest.
    void update(const void* data, std::size_t size);
    /// Feeds the bytes of `bytes` into the digest.
    void update(std::string_view bytes) { update(bytes.data(), bytes.size()); }
    /// Number of bytes fed since construction or the last reset.
    std::uint64_t count() const { return m_count; }

    /// The binary digest of the bytes fed so far.
    secure_string digest() const;
    /// The same digest as lowercase hexadecimal text.
    std::string hexDigest() const;

    /// Starts over: no bytes fed, count() 0.
    void reset();

    /// One-shot digest of `size` bytes.
    static secure_string digest(Algorithm algorithm, const void* data, std::size_t size);

private:
    Algorithm m_algorithm;
    std::uint64_t m_count = 0;
    struct Context;
    Context* m_context;
};

} // namespace crypto
} // namespace ko
