#pragma once

#include "demo/instrument/clock.h"
#include "demo/instrument/settings.h"

/// Steps through the points of a sweep or list. It holds only the position of the run; the points
/// come from the settings and time from the clock, so that nothing happens until it is queried.
class SweepEngine
{
public:
    enum class State { Idle, Waiting, Running };

    /// Starts the run that the modes ask for. Errors: InitIgnored (already started),
    /// SettingsConflict (nothing to run, or a sweep mixed with a list), ListsNotSameLength.
    ScpiError initiate(const Settings& settings, Clock::Microseconds now);
    /// A trigger from this source. A run that listens to another source ignores it.
    ScpiError trigger(const Settings& settings, TriggerSource source, Clock::Microseconds now);
    /// Goes to a point (1 is the first) of the run; DataOutOfRange, SettingsConflict when idle.
    ScpiError moveTo(const Settings& settings, size_t point, Clock::Microseconds now);
    void abort();
    /// Updates the point to the current time; to be called before settings change or are read.
    void advance(const Settings& settings, Clock::Microseconds now);
    /// Follows a change in a run: of the trigger source, the list mode, or of the points, which
    /// ends the run when none are left or a sweep is mixed with a list.
    void settingsChanged(const Settings& settings, Clock::Microseconds now);

    State state() const { return m_state; }
    /// The current point, 1 for the first, 0 while none has been reached.
    size_t point() const { return m_point; }
    /// 0 when there is nothing to run.
    size_t pointCount(const Settings& settings) const;
    double frequencyHz(const Settings& settings) const;
    double powerDbm(const Settings& settings) const;

private:
    double dwellSeconds(const Settings& settings, size_t point) const;
    double secondsBefore(const Settings& settings, size_t point) const;
    size_t pointAt(const Settings& settings, double seconds) const;
    void run(const Settings& settings, size_t point, Clock::Microseconds now);

    State m_state = State::Idle;
    size_t m_point = 0;
    Clock::Microseconds m_firstPointTime{0};
};
