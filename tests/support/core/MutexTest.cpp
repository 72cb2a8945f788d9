#include <CommonKit/support/core/Mutex.h>

#include <gtest/gtest.h>

#include <thread>

namespace {

bool lockableFromAnotherThread(ko::Mutex& mutex)
{
    bool locked = false;
    std::thread other([&] {
        locked = mutex.tryLock();
        if (locked)
            mutex.unlock();
    });
    other.join();
    return locked;
}

TEST(Mutex, OwnerMayLockAgainAndOthersWaitUntilTheLastUnlock)
{
    ko::Mutex mutex;
    {
        ko::MutexLocker outer(mutex);
        ko::MutexLocker inner(mutex);   // the owner again: must not deadlock
        EXPECT_TRUE(mutex.tryLock());   // and once more
        mutex.unlock();
        EXPECT_FALSE(lockableFromAnotherThread(mutex));
    }
    EXPECT_TRUE(lockableFromAnotherThread(mutex));
}

} // namespace
