#pragma once

#include <CommonKit/support/core/Export.h>

#include <mutex>

namespace ko {

/// A recursive mutex; the owning thread may lock it again.
class COMMONKIT_EXPORT Mutex
{
public:
    Mutex();
    ~Mutex();
    Mutex(const Mutex&) = delete;
    Mutex& operator=(const Mutex&) = delete;

    void lock();
    bool tryLock();
    void unlock();

private:
    std::recursive_mutex m_mutex;
};

/// Holds a Mutex for the lifetime of the locker.
class COMMONKIT_EXPORT MutexLocker
{
public:
    explicit MutexLocker(Mutex& mutex) : m_mutex(mutex) { m_mutex.lock(); }
    ~MutexLocker() { m_mutex.unlock(); }
    MutexLocker(const MutexLocker&) = delete;
    MutexLocker& operator=(const MutexLocker&) = delete;

private:
    Mutex& m_mutex;
};

} // namespace ko
