#include "visa_library/library.h"

#include <algorithm>
#include <thread>

namespace
{

// Null before the first constructor of this library runs, whichever that is.
Bus& (*giveBus)() = nullptr;

Library& theLibrary()
{
    static Library library(giveBus());
    return library;
}

} // namespace

LibraryBus::LibraryBus(Bus& (*bus)())
{
    giveBus = bus;
}

VisaCall::VisaCall(std::optional<Use> use) : library(theLibrary()), m_lock(library.mutex)
{
    if (use)
        library.bus.callBegins(*use);
}

VisaCall::~VisaCall()
{
    library.changed.notify_all();
    m_lock.unlock();
    for (const auto& action : m_deferred)
        action();
}

void VisaCall::sleep(std::chrono::microseconds interval)
{
    unlocked([interval] { std::this_thread::sleep_for(interval); });
}

// In slices: an event on the bus may not wake the waiting thread.
void VisaCall::wait(std::chrono::steady_clock::time_point deadline)
{
    const auto slice = std::chrono::steady_clock::now() + std::chrono::milliseconds(20);
    library.changed.wait_until(m_lock, std::min(deadline, slice));
}

std::chrono::steady_clock::time_point deadlineAfter(ViUInt32 timeoutMs)
{
    const auto now = std::chrono::steady_clock::now();
    if (timeoutMs == VI_TMO_INFINITE)
        return now + std::chrono::hours(24 * 365);
    return now + std::chrono::milliseconds(timeoutMs);
}
