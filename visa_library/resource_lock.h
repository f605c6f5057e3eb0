#pragma once

#include "visa_library/bus.h"

/// What one session holds of its instrument's lock, honoured by all sessions of all processes of
/// this user. Locks nest; an exclusive one may lie over a shared one. It never waits.
class ResourceLock
{
public:
    explicit ResourceLock(DeviceLock& lock) : m_lock(lock) {}

    /// VI_SUCCESS, VI_SUCCESS_NESTED_EXCLUSIVE or VI_ERROR_RSRC_LOCKED.
    ViStatus lockExclusive();
    /// The same for a shared lock; sessions with the same key share it. An empty key makes one up.
    ViStatus lockShared(const std::string& requestedKey);
    /// Undoes the newest lock; VI_ERROR_SESN_NLOCKED when there is none.
    ViStatus unlock();
    void releaseAll();
    /// Whether another session's lock forbids this one to talk.
    bool isLockedElsewhere();

    bool isExclusive() const { return m_exclusiveCount > 0; }
    bool isShared() const { return m_sharedCount > 0; }
    const std::string& key() const { return m_key; }

private:
    bool share(const std::string& requestedKey);

    DeviceLock& m_lock;
    unsigned m_exclusiveCount = 0;
    unsigned m_sharedCount = 0;
    std::string m_key;
};
