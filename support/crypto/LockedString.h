#pragma once

#include <CommonKit/support/core/Export.h>
#include <CommonKit/support/crypto/SecureAllocator.h>

#include <cstddef>
#include <string_view>

namespace ko {
namespace crypto {

/// A byte string for long-lived secrets. Its bytes sit in memory that is
/// locked into RAM (mlock on POSIX, VirtualLock on Windows) so that they are
/// never written to swap, and they are wiped when the string is cleared,
/// grows into a new block, or is destroyed.
///
/// When the system refuses the lock (for example because the process limit
/// for locked memory is reached) the string still works and still wipes its
/// bytes; isLocked() then answers false.
class COMMONKIT_EXPORT locked_string
{
public:
    /// An empty string; it holds no block.
    locked_string() noexcept = default;
    /// A copy of `size` bytes at `data` (which may contain zero bytes).
    locked_string(const char* data, std::size_t size);
    /// A copy of the bytes of `text`.
    explicit locked_string(std::string_view text);
    /// A copy of the bytes of `text`.
    explicit locked_string(const secure_string& text);
    /// A copy, in a block of its own when not empty.
    locked_string(const locked_string& other);
    /// Takes over the block of `other`, which is left empty.
    locked_string(locked_string&& other) noexcept;
    /// Replaces the bytes with a copy of those of `other`.
    locked_string& operator=(const locked_string& other);
    /// Wipes and releases the own block, then takes over that of `other`,
    /// which is left empty.
    locked_string& operator=(locked_string&& other) noexcept;
    /// Wipes the bytes and releases the block.
    ~locked_string();

    /// Replaces the bytes with `size` bytes at `data`.
    void assign(const char* data, std::size_t size);
    /// Appends `size` bytes at `data`; a block that is too small is replaced
    /// by a larger one, and the old one is wiped.
    void append(const char* data, std::size_t size);
    /// Appends the bytes of `text`.
    void append(std::string_view text) { append(text.data(), text.size()); }
    /// Wipes the bytes and releases the block.
    void clear() noexcept;

    /// The bytes, followed by a zero byte; "" when empty.
    const char* data() const noexcept { return m_data ? m_data : ""; }
    /// Always NUL-terminated.
    const char* c_str() const noexcept { return data(); }
    /// The number of bytes.
    std::size_t size() const noexcept { return m_size; }
    /// Whether there are no bytes.
    bool empty() const noexcept { return m_size == 0; }
    /// The bytes the current block holds without growing.
    std::size_t capacity() const noexcept { return m_capacity; }
    /// Whether the current block is locked into RAM (false when empty).
    bool isLocked() const noexcept { return m_locked; }

    /// The bytes without copying them.
    std::string_view view() const noexcept { return std::string_view(data(), m_size); }
    /// A copy of the bytes in a secure_string (not locked, wiped when freed).
    secure_string str() const { return secure_string(data(), m_size); }

    /// Whether both hold the same bytes.
    bool operator==(const locked_string& other) const noexcept { return view() == other.view(); }
    /// Whether the bytes differ.
    bool operator!=(const locked_string& other) const noexcept { return !(*this == other); }

private:
    void reserveExact(std::size_t capacity);
    void release() noexcept;

    char* m_data = nullptr;
    std::size_t m_size = 0;
    std::size_t m_capacity = 0; // usable bytes, excluding the terminating NUL
    std::size_t m_blockSize = 0;
    bool m_locked = false;
};

} // namespace crypto
} // namespace ko
