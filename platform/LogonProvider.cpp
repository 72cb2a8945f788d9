#include <CommonKit/platform/Platform.h>

#include <atomic>

namespace ko {
namespace platform {

namespace {
std::atomic<LogonProvider*> g_installed{nullptr};
}

LogonProvider::~LogonProvider() = default;

LogonProvider& logonProvider()
{
    LogonProvider* installed = g_installed.load(std::memory_order_acquire);
    return installed ? *installed : systemLogonProvider();
}

LogonProvider* setLogonProvider(LogonProvider* provider)
{
    return g_installed.exchange(provider, std::memory_order_acq_rel);
}

} // namespace platform
} // namespace ko
