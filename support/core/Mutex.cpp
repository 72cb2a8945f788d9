#include <CommonKit/support/core/Mutex.h>

namespace ko {

Mutex::Mutex() = default;
Mutex::~Mutex() = default;

void Mutex::lock()
{
    m_mutex.lock();
}

bool Mutex::tryLock()
{
    return m_mutex.try_lock();
}

void Mutex::unlock()
{
    m_mutex.unlock();
}

} // namespace ko
