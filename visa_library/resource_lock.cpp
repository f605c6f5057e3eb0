#include "visa_library/resource_lock.h"

#include <chrono>

namespace
{

std::string newKey()
{
    const auto ticks = std::chrono::steady_clock::now().time_since_epoch().count();
    return "klv-" + std::to_string(ticks);
}

} // namespace

ViStatus ResourceLock::lockExclusive()
{
    if (m_exclusiveCount == 0 && !m_lock.lock(true)) {
        if (isShared())
            m_lock.lock(false);
        return VI_ERROR_RSRC_LOCKED;
    }
    return m_exclusiveCount++ == 0 ? VI_SUCCESS : VI_SUCCESS_NESTED_EXCLUSIVE;
}

ViStatus ResourceLock::lockShared(const std::string& requestedKey)
{
    if (isShared()) {
        if (!requestedKey.empty() && requestedKey != m_key)
            return VI_ERROR_INV_ACCESS_KEY;
        ++m_sharedCount;
        return VI_SUCCESS_NESTED_SHARED;
    }
    if (!share(requestedKey))
        return VI_ERROR_RSRC_LOCKED;
    ++m_sharedCount;
    return VI_SUCCESS;
}

ViStatus ResourceLock::unlock()
{
    if (!isExclusive() && !isShared())
        return VI_ERROR_SESN_NLOCKED;
    --(isExclusive() ? m_exclusiveCount : m_sharedCount);
    if (isExclusive())
        return VI_SUCCESS_NESTED_EXCLUSIVE;
    if (!isShared()) {
        m_lock.unlock();
        return VI_SUCCESS;
    }
    m_lock.lock(false);
    return VI_SUCCESS_NESTED_SHARED;
}

void ResourceLock::releaseAll()
{
    m_exclusiveCount = 0;
    m_sharedCount = 0;
    m_lock.unlock();
}

bool ResourceLock::isLockedElsewhere()
{
    if (isExclusive() || isShared())
        return false;
    const bool isFree = m_lock.lock(true);
    m_lock.unlock();
    return !isFree;
}

// A session that can lock exclusively is the first to share and writes down the key for those that
// follow.
bool ResourceLock::share(const std::string& requestedKey)
{
    if (isExclusive() || m_lock.lock(true)) {
        m_key = requestedKey.empty() ? newKey() : requestedKey;
        m_lock.setNote(m_key);
        return isExclusive() || m_lock.lock(false);
    }
    if (requestedKey.empty() || !m_lock.lock(false))
        return false;
    m_key = requestedKey;
    const bool isSame = m_lock.note() == m_key;
    if (!isSame)
        m_lock.unlock();
    return isSame;
}
