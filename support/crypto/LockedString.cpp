#include <CommonKit/support/crypto/LockedString.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>
#include <stdexcept>

#ifdef _WIN32
#  ifndef NOMINMAX
#    define NOMINMAX
#  endif
#  include <windows.h>
#else
#  include <sys/mman.h>
#  include <unistd.h>
#endif

namespace ko {
namespace crypto {

namespace detail {
ReleaseHook releaseHook(); // SecureAllocator.cpp
}

namespace {

std::size_t pageSize()
{
#ifdef _WIN32
    SYSTEM_INFO info;
    GetSystemInfo(&info);
    return info.dwPageSize;
#else
    const long size = sysconf(_SC_PAGESIZE);
    return size > 0 ? static_cast<std::size_t>(size) : 4096;
#endif
}

// Page-aligned blocks, so that locking one never pins a neighbour's pages
// and unlocking one never unlocks a neighbour's.
void* allocatePages(std::size_t size)
{
#ifdef _WIN32
    return VirtualAlloc(nullptr, size, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE);
#else
    void* p = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    return p == MAP_FAILED ? nullptr : p;
#endif
}

void freePages(void* p, std::size_t size)
{
#ifdef _WIN32
    (void)size;
    VirtualFree(p, 0, MEM_RELEASE);
#else
    munmap(p, size);
#endif
}

bool lockPages(void* p, std::size_t size)
{
#ifdef _WIN32
    return VirtualLock(p, size) != 0;
#else
    return mlock(p, size) == 0;
#endif
}

void unlockPages(void* p, std::size_t size)
{
#ifdef _WIN32
    VirtualUnlock(p, size);
#else
    munlock(p, size);
#endif
}

} // namespace

locked_string::locked_string(const char* data, std::size_t size)
{
    assign(data, size);
}

locked_string::locked_string(std::string_view text)
{
    assign(text.data(), text.size());
}

locked_string::locked_string(const secure_string& text)
{
    assign(text.data(), text.size());
}

locked_string::locked_string(const locked_string& other)
{
    assign(other.data(), other.size());
}

locked_string::locked_string(locked_string&& other) noexcept
    : m_data(other.m_data), m_size(other.m_size), m_capacity(other.m_capacity),
      m_blockSize(other.m_blockSize), m_locked(other.m_locked)
{
    other.m_data = nullptr;
    other.m_size = other.m_capacity = other.m_blockSize = 0;
    other.m_locked = false;
}

locked_string& locked_string::operator=(const locked_string& other)
{
    if (this != &other)
        assign(other.data(), other.size());
    return *this;
}

locked_string& locked_string::operator=(locked_string&& other) noexcept
{
    if (this != &other) {
        release();
        m_data = other.m_data;
        m_size = other.m_size;
        m_capacity = other.m_capacity;
        m_blockSize = other.m_blockSize;
        m_locked = other.m_locked;
        other.m_data = nullptr;
        other.m_size = other.m_capacity = other.m_blockSize = 0;
        other.m_locked = false;
    }
    return *this;
}

locked_string::~locked_string()
{
    release();
}

void locked_string::assign(const char* data, std::size_t size)
{
    if (size == 0) {
        clear();
        return;
    }
    if (size > m_capacity) {
        // A fresh block: the old one is wiped as it goes.
        release();
        reserveExact(size);
    }
    // memmove: `data` may point into our own block.
    std::memmove(m_data, data, size);
    if (m_size > size)
        zeroOut(m_data + size, m_size - size);
    m_size = size;
    m_data[m_size] = '\0';
}

void locked_string::append(const char* data, std::size_t size)
{
    if (size == 0)
        return;
    if (size > std::numeric_limits<std::size_t>::max() / 2 - m_size)
        throw std::length_error("locked_string too long");
    const std::size_t needed = m_size + size;
    if (needed > m_capacity) {
        locked_string grown;
        grown.reserveExact(std::max(needed, m_capacity * 2));
        if (m_size)
            std::memcpy(grown.m_data, m_data, m_size);
        std::memcpy(grown.m_data + m_size, data, size);
        grown.m_size = needed;
        grown.m_data[needed] = '\0';
        *this = std::move(grown);
        return;
    }
    std::memmove(m_data + m_size, data, size);
    m_size = needed;
    m_data[m_size] = '\0';
}

void locked_string::clear() noexcept
{
    release();
}

void locked_string::reserveExact(std::size_t capacity)
{
    const std::size_t page = pageSize();
    if (capacity > std::numeric_limits<std::size_t>::max() - page)
        throw std::length_error("locked_string too long");
    const std::size_t block = (capacity + 1 + page - 1) / page * page;
    void* p = allocatePages(block);
    if (!p)
        throw std::bad_alloc();
    m_data = static_cast<char*>(p);
    m_blockSize = block;
    m_capacity = block - 1;
    m_size = 0;
    m_data[0] = '\0';
    m_locked = lockPages(p, block);
}

void locked_string::release() noexcept
{
    if (!m_data)
        return;
    zeroOut(m_data, m_blockSize);
    // The hook sees the wiped block while it is still mapped.
    if (ReleaseHook hook = detail::releaseHook())
        hook(m_data, m_blockSize);
    if (m_locked)
        unlockPages(m_data, m_blockSize);
    freePages(m_data, m_blockSize);
    m_data = nullptr;
    m_size = m_capacity = m_blockSize = 0;
    m_locked = false;
}

} // namespace crypto
} // namespace ko
