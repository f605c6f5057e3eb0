#pragma once

#include <chrono>

/// The instruments' time: the steady clock, which a test may advance or stop. Safe from any
/// thread.
namespace Clock
{

using Microseconds = std::chrono::microseconds;

Microseconds now();
void advance(Microseconds interval);
/// From now on only advance() moves it.
void stop();
void reset();

} // namespace Clock
