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
    locked_string() noexcept = default;
    locked_string(const char* data, std::size_t size);
    explicit locked_string(std::string_view text);
    explicit locked_string(const secure_string& text);
    locked_string(const locked_string& other);
    locked_string(locked_string&& other) noexcept;
    locked_string& operator=(const locked_string& other);
    locked_string& operator=(locked_string&& other) noexcept;
    ~locked_string();

    void assign(const char* data, std::size_t size);
    void append(const char* data, std::size_t size);
    void append(std::string_view text) { append(text.data(), text.size()); }
    /// Wipes the bytes and releases the block.
    void clear() noexcept;

    const char* data() const noexcept { return m_data ? m_data : ""; }
    /// Always NUL-terminated.
    const char* c_str() const noexcept { return data(); }
    std::size_t size() const noexcept { return m_size; }
    bool empty() const noexcept { return m_size == 0; }
    std::size_t capacity() const noexcept { return m_capacity; }
    /// Whether the current block is locked into RAM (false when empty).
    bool isLocked() const noexcept { return m_locked; }

    std::string_view view() const noexcept { return std::string_view(data(), m_size); }
    secure_string str() const { return secure_string(data(), m_size); }

    bool operator==(const locked_string& other) const noexcept { return view() == other.view(); }
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
