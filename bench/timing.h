#pragma once

#include <QElapsedTimer>

#include <algorithm>
#include <limits>

/// Microseconds for one call of `action`.
template <typename Action>
double microsecondsOf(int calls, Action action)
{
    QElapsedTimer timer;
    timer.start();
    for (int call = 0; call < calls; ++call)
        action();
    return static_cast<double>(timer.nsecsElapsed()) / 1000.0 / calls;
}

/// The same, the best of several rounds, which a noisy machine disturbs least.
template <typename Action>
double microsecondsEach(int calls, Action action)
{
    constexpr int rounds = 7;
    double best = std::numeric_limits<double>::max();
    for (int round = 0; round < rounds; ++round)
        best = std::min(best, microsecondsOf(calls, action));
    return best;
}

/// A measured time and the one to compare it with.
struct Comparison {
    double us = std::numeric_limits<double>::max();
    double bareUs = std::numeric_limits<double>::max();
};

/// The best of both over `rounds` in which they take turns, so that other load on the machine
/// affects both. `measure` and `measureBare` return microseconds.
template <typename Measure, typename MeasureBare>
Comparison comparedInTurns(int rounds, Measure measure, MeasureBare measureBare)
{
    Comparison best;
    for (int round = 0; round < rounds; ++round) {
        best.us = std::min(best.us, measure());
        best.bareUs = std::min(best.bareUs, measureBare());
    }
    return best;
}
