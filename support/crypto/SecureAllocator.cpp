#include <CommonKit/support/crypto/SecureAllocator.h>

#include <openssl/crypto.h>

#include <atomic>
#include <cstdlib>

namespace ko {
namespace crypto {

namespace {
std::atomic<ReleaseHook> g_releaseHook{nullptr};
} // namespace

namespace detail {
ReleaseHook releaseHook()
{
    return g_releaseHook.load(std::memory_order_acquire);
}
} // namespace detail

void zeroOut(void* data, std::size_t size)
{
    if (data && size)
        OPENSSL_cleanse(data, size);
}

void* secureAllocate(std::size_t size)
{
    void* p = std::malloc(size ? size : 1);
    if (!p)
        throw std::bad_alloc();
    return p;
}

void secureDeallocate(void* data, std::size_t size) noexcept
{
    if (!data)
        return;
    zeroOut(data, size);
    if (ReleaseHook hook = detail::releaseHook())
        hook(data, size);
    std::free(data);
}

ReleaseHook setReleaseHook(ReleaseHook hook)
{
    return g_releaseHook.exchange(hook, std::memory_order_acq_rel);
}

} // namespace crypto
} // namespace ko
