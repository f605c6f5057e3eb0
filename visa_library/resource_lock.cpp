#include "visa_library/resource_lock.h"

#include <chrono>

namespace
{

std::string fileNameOf(const std::string& serial)
{
    std::string name = serial;
    for (char& character : name)
        if (std::string("/\\:*?\"<>|").find(character) != std::string::npos)
            character = '_';
    return name;
}

std::string newKey()
{
    const auto ticks = std::chrono::steady_clock::now().time_since_epoch().count();
    return "klv-demo-" + std::to_string(ticks);
}

} // namespace

ResourceLock::ResourceLock(const std::string& serial) : m_file(fileNameOf(serial)) {}

ViStatus ResourceLock::lockExclusive()
{
    if (m_exclusiveCount == 0 && !m_file.lock(true)) {
        if (isShared())
            m_file.lock(false);
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
        m_file.unlock();
        return VI_SUCCESS;
    }
    m_file.lock(false);
    return VI_SUCCESS_NESTED_SHARED;
}

void ResourceLock::releaseAll()
{
    m_exclusiveCount = 0;
    m_sharedCount = 0;
    m_file.unlock();
}

bool ResourceLock::isLockedElsewhere()
{
    if (isExclusive() || isShared())
        return false;
    const bool isFree = m_file.lock(true);
    m_file.unlock();
    return !isFree;
}

// Whoever can lock alone is the first to share and writes down the key for those who follow.
bool ResourceLock::share(const std::string& requestedKey)
{
    if (isExclusive() || m_file.lock(true)) {
        m_key = requestedKey.empty() ? newKey() : requestedKey;
        m_file.setNote(m_key);
        return isExclusive() || m_file.lock(false);
    }
    if (requestedKey.empty() || !m_file.lock(false))
        return false;
    m_key = requestedKey;
    const bool isSame = m_file.note() == m_key;
    if (!isSame)
        m_file.unlock();
    return isSame;
}
