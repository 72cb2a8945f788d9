#include <CommonKit/support/core/Mutex.h>

#include <gtest/gtest.h>

#include <thread>
#include <vector>

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

    // Counting under the lock from several threads loses no increment.
    int counter = 0;
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t)
        threads.emplace_back([&] {
            for (int i = 0; i < 10000; ++i) {
                ko::MutexLocker lock(mutex);
                ++counter;
            }
        });
    for (auto& thread : threads)
        thread.join();
    EXPECT_EQ(counter, 40000);
}

} // namespace
