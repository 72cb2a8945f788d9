#pragma once

#include <CommonKit/support/core/Export.h>

#include <cstddef>
#include <limits>
#include <new>
#include <string>

namespace ko {
namespace crypto {

/// Overwrites `size` bytes at `data` with zeros in a way the compiler may not
/// optimise away. Use it on every buffer that held key material before the
/// buffer is freed or reused.
COMMONKIT_EXPORT void zeroOut(void* data, std::size_t size);

/// Allocation primitive behind secure_allocator: plain heap memory of `size`
/// bytes.
COMMONKIT_EXPORT void* secureAllocate(std::size_t size);
/// Wipes `size` bytes at `data` with zeroOut, calls the release hook if one is
/// set, and only then frees the block secureAllocate gave.
COMMONKIT_EXPORT void secureDeallocate(void* data, std::size_t size) noexcept;

/// Diagnostic hook, called with every block that secure_allocator or
/// locked_string gives back, after the block was wiped and before it is freed
/// (the memory is still valid during the call).
using ReleaseHook = void (*)(const void* data, std::size_t size);
/// Installs the release hook (meant for tests that check the wiping) and
/// returns the previous one; nullptr removes it.
COMMONKIT_EXPORT ReleaseHook setReleaseHook(ReleaseHook hook);

/// A standard allocator that wipes memory before it frees it, so that keys,
/// digests and signatures do not linger in freed heap blocks.
template<typename T>
class secure_allocator
{
public:
    /// The element type.
    using value_type = T;
    /// The type of element counts.
    using size_type = std::size_t;
    /// The type of pointer differences.
    using difference_type = std::ptrdiff_t;
    /// A container moved into another takes its allocator along.
    using propagate_on_container_move_assignment = std::true_type;
    /// All instances are interchangeable: any frees what another allocated.
    using is_always_equal = std::true_type;

    /// The allocator for another element type.
    template<typename U>
    struct rebind
    {
        /// secure_allocator of U.
        using other = secure_allocator<U>;
    };

    /// The allocator; it has no state.
    secure_allocator() noexcept = default;
    /// Converts from the allocator of another element type.
    template<typename U>
    secure_allocator(const secure_allocator<U>&) noexcept {}

    /// Memory for `n` elements, from secureAllocate(); throws
    /// std::bad_array_new_length when the size overflows and std::bad_alloc
    /// when memory runs out.
    T* allocate(std::size_t n)
    {
        if (n > std::numeric_limits<std::size_t>::max() / sizeof(T))
            throw std::bad_array_new_length();
        return static_cast<T*>(secureAllocate(n * sizeof(T)));
    }

    /// Wipes and frees the memory of `n` elements at `p`.
    void deallocate(T* p, std::size_t n) noexcept
    {
        secureDeallocate(p, n * sizeof(T));
    }

    /// Always true: the allocators are interchangeable.
    template<typename U>
    bool operator==(const secure_allocator<U>&) const noexcept { return true; }
    /// Always false: the allocators are interchangeable.
    template<typename U>
    bool operator!=(const secure_allocator<U>&) const noexcept { return false; }
};

/// The string type in which keys, digests and signatures travel. Its heap
/// buffer is wiped when it is released (grown, shrunk or destroyed).
/// Strings short enough for the small-string buffer (15 bytes with
/// libstdc++) live inside the string object and never reach the allocator;
/// wipe such a short secret with zeroOut(&s[0], s.size()) before the object
/// goes away, or keep it in a locked_string.
using secure_string = std::basic_string<char, std::char_traits<char>, secure_allocator<char>>;

} // namespace crypto
} // namespace ko
