#pragma once

#include "demo/control/faults.h"
#include "demo/control/rack.h"
#include "demo/control/wire_log.h"
#include "visa_library/objects.h"

#include <condition_variable>
#include <functional>
#include <mutex>

/// The whole state of this process's VISA library. Reached only through a VisaCall, which locks it.
struct Library {
    std::mutex mutex;
    std::condition_variable changed; ///< an instrument got something to say, an event came, ...
    Rack rack;
    ObjectTable objects;
    Faults faults;
    WireLog wire;
    unsigned long long callCount = 0;
};

/// One call of a VISA function: holds the library locked from beginning to end.
class VisaCall
{
public:
    explicit VisaCall(bool isCounted = true);
    /// Runs what was put off, without the lock.
    ~VisaCall();
    VisaCall(const VisaCall&) = delete;
    VisaCall& operator=(const VisaCall&) = delete;

    /// Sleeps without the lock.
    void sleep(std::chrono::microseconds interval);
    /// Waits without the lock until something changed, at most until the deadline.
    void wait(std::chrono::steady_clock::time_point deadline);
    /// Puts something off until the library is no longer locked (an event handler's call).
    void defer(std::function<void()> action) { m_deferred.push_back(std::move(action)); }

    Library& library;

private:
    std::unique_lock<std::mutex> m_lock;
    std::vector<std::function<void()>> m_deferred;
};

/// The time at which a VISA time-out in milliseconds is over.
std::chrono::steady_clock::time_point deadlineAfter(ViUInt32 timeoutMs);
