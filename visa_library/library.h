#pragma once

#include "visa_library/objects.h"

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>

/// The whole state of this process's VISA library. Reached only through a VisaCall, which locks it.
struct Library {
    explicit Library(Bus& ownBus) : bus(ownBus) {}

    std::mutex mutex;
    std::condition_variable changed; ///< an instrument has a reply, an event came, ...
    Bus& bus;
    ObjectTable objects;
};

/// One call of a VISA function: holds the library locked from beginning to end.
class VisaCall
{
public:
    /// No use: not a client's call.
    explicit VisaCall(std::optional<Use> use = Use::Other);
    /// Runs what was deferred, without the lock.
    ~VisaCall();
    VisaCall(const VisaCall&) = delete;
    VisaCall& operator=(const VisaCall&) = delete;

    /// Runs something that takes time, without the lock.
    template <typename Action>
    void unlocked(Action action)
    {
        m_lock.unlock();
        action();
        m_lock.lock();
    }
    void sleep(std::chrono::microseconds interval);
    /// Waits without the lock until something changed, at most until the deadline and only for a
    /// short time.
    void wait(std::chrono::steady_clock::time_point deadline);
    /// Defers something until the library is no longer locked (the call of an event handler).
    void defer(std::function<void()> action) { m_deferred.push_back(std::move(action)); }

    /// Lets go of an object without the lock: closing an instrument may have to wait for it.
    void closeUnlocked(std::shared_ptr<Object> object) { m_closing.push_back(std::move(object)); }

    Library& library;
    ViUInt32 timeoutMs = VI_TMO_IMMEDIATE; ///< of the session that the call is for

private:
    std::unique_lock<std::mutex> m_lock;
    std::vector<std::function<void()>> m_deferred;
    std::vector<std::shared_ptr<Object>> m_closing;
};

/// The time at which a VISA time-out in milliseconds is over.
std::chrono::steady_clock::time_point deadlineAfter(ViUInt32 timeoutMs);
