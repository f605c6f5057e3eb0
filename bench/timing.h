#pragma once

#include <QElapsedTimer>

#include <algorithm>
#include <limits>

/// Microseconds for one call of `action`: the best of several rounds, which is what a noisy machine
/// disturbs least.
template <typename Action>
double microsecondsEach(int calls, Action action)
{
    constexpr int rounds = 7;
    double best = std::numeric_limits<double>::max();
    for (int round = 0; round < rounds; ++round) {
        QElapsedTimer timer;
        timer.start();
        for (int call = 0; call < calls; ++call)
            action();
        best = std::min(best, static_cast<double>(timer.nsecsElapsed()) / 1000.0 / calls);
    }
    return best;
}
