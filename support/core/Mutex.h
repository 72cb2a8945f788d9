#pragma once

#include <CommonKit/support/core/Export.h>

#include <mutex>

namespace ko {

/// A recursive mutex; the owning thread may lock it again.
class COMMONKIT_EXPORT Mutex
{
public:
    /// An unlocked mutex.
    Mutex();
    /// Destroys the mutex, which must not be locked.
    ~Mutex();
    Mutex(const Mutex&) = delete;            ///< Not copyable.
    Mutex& operator=(const Mutex&) = delete; ///< Not copyable.

    /// Locks, waiting while another thread holds the mutex; the owning thread
    /// may lock again and must unlock as often.
    void lock();
    /// Locks without waiting; false when another thread holds the mutex.
    bool tryLock();
    /// Undoes one lock() or successful tryLock() of the calling thread.
    void unlock();

private:
    std::recursive_mutex m_mutex;
};

/// Holds a Mutex for the lifetime of the locker.
class COMMONKIT_EXPORT MutexLocker
{
public:
    /// Locks mutex, which must outlive the locker.
    explicit MutexLocker(Mutex& mutex) : m_mutex(mutex) { m_mutex.lock(); }
    /// Unlocks the mutex.
    ~MutexLocker() { m_mutex.unlock(); }
    MutexLocker(const MutexLocker&) = delete;            ///< Not copyable.
    MutexLocker& operator=(const MutexLocker&) = delete; ///< Not copyable.

private:
    Mutex& m_mutex;
};

} // namespace ko
