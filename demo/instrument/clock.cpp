#include "demo/instrument/clock.h"

#include <atomic>

namespace
{

std::atomic<std::int64_t> pushedMicroseconds{0};
std::atomic<bool> isStopped{false};

std::int64_t steadyMicroseconds()
{
    const auto sinceStart = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<Clock::Microseconds>(sinceStart).count();
}

} // namespace

Clock::Microseconds Clock::now()
{
    return Microseconds((isStopped ? 0 : steadyMicroseconds()) + pushedMicroseconds);
}

void Clock::advance(Microseconds interval)
{
    pushedMicroseconds += interval.count();
}

void Clock::stop()
{
    if (!isStopped.exchange(true))
        pushedMicroseconds += steadyMicroseconds();
}

void Clock::reset()
{
    isStopped = false;
    pushedMicroseconds = 0;
}
