// For ThreadSanitizer builds of the tests only.
//
// QMutex::lock() and unlock() live in the Qt library, which is not built
// with the sanitizer, so it never learns that a QMutex orders the accesses
// made under it and reports every access guarded by one as a race. These
// definitions come before Qt in the tests' link line, so the library's calls
// reach them first; each forwards to Qt's own function and tells the
// sanitizer that the mutex was acquired or released.

#include <QMutex>

#include <dlfcn.h>

#include <cstdlib>

extern "C" void __tsan_acquire(void* address);
extern "C" void __tsan_release(void* address);

namespace {

template <typename Function>
Function qtFunction(const char* name)
{
    void* function = dlsym(RTLD_NEXT, name);
    if (!function)
        std::abort();
    return reinterpret_cast<Function>(function);
}

} // namespace

void QMutex::lock() QT_MUTEX_LOCK_NOEXCEPT
{
    static const auto qtLock = qtFunction<void (*)(QMutex*)>("_ZN6QMutex4lockEv");
    qtLock(this);
    __tsan_acquire(this);
}

bool QMutex::tryLock(int timeout) QT_MUTEX_LOCK_NOEXCEPT
{
    static const auto qtTryLock = qtFunction<bool (*)(QMutex*, int)>("_ZN6QMutex7tryLockEi");
    const bool locked = qtTryLock(this, timeout);
    if (locked)
        __tsan_acquire(this);
    return locked;
}

void QMutex::unlock() noexcept
{
    static const auto qtUnlock = qtFunction<void (*)(QMutex*)>("_ZN6QMutex6unlockEv");
    __tsan_release(this);
    qtUnlock(this);
}
