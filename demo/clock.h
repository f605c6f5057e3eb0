#pragma once

#include <chrono>

/// The instruments' time: the steady clock, which a test may push forward. Safe from any thread.
namespace Clock
{

using Microseconds = std::chrono::microseconds;

Microseconds now();
void advance(Microseconds interval);
void reset();

} // namespace Clock
