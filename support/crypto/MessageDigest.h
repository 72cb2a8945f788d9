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
    enum Algorithm {
        Unknown = 0, // no algorithm; a digest of this kind stays empty
        MD5 = 1,
        SHA1 = 2,
        SHA224 = 11,
        SHA256 = 12,
        SHA384 = 13,
        SHA512 = 14
    };

    explicit MessageDigest(Algorithm algorithm = SHA256);
    MessageDigest(const MessageDigest& other);
    MessageDigest& operator=(const MessageDigest& other);
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

    Algorithm algorithm() const { return m_algorithm; }
    bool isValid() const;

    void update(const void* data, std::size_t size);
    void update(std::string_view bytes) { update(bytes.data(), bytes.size()); }
    /// Number of bytes fed since construction or the last reset.
    std::uint64_t count() const { return m_count; }

    /// The binary digest of the bytes fed so far.
    secure_string digest() const;
    /// The same digest as lowercase hexadecimal text.
    std::string hexDigest() const;

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
