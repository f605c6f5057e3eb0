#include "demo/clock.h"

#include <atomic>

namespace
{
std::atomic<std::int64_t> pushedMicroseconds{0};
}

Clock::Microseconds Clock::now()
{
    const auto sinceStart = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<Microseconds>(sinceStart) +
           Microseconds(pushedMicroseconds.load());
}

void Clock::advance(Microseconds interval)
{
    pushedMicroseconds += interval.count();
}

void Clock::reset()
{
    pushedMicroseconds = 0;
}
