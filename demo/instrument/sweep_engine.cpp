#include "demo/instrument/sweep_engine.h"

#include <algorithm>
#include <cmath>

namespace
{

// With the immediate source no trigger is waited for: the run is free even point by point.
bool isStepwise(const Settings& settings)
{
    return settings.choiceAs<TriggerSource>(Choice::TriggerSource) != TriggerSource::Immediate &&
           settings.choice(Choice::ListMode) == 1;
}

bool isFree(const Settings& settings)
{
    return settings.choiceAs<TriggerSource>(Choice::TriggerSource) == TriggerSource::Immediate;
}

bool isMixed(const Settings& settings)
{
    const auto frequency = settings.choiceAs<RunMode>(Choice::FrequencyMode);
    const auto power = settings.choiceAs<RunMode>(Choice::PowerMode);
    return frequency != power && frequency != RunMode::Fixed && power != RunMode::Fixed;
}

RunMode modeOf(const Settings& settings)
{
    const auto frequency = settings.choiceAs<RunMode>(Choice::FrequencyMode);
    return frequency != RunMode::Fixed ? frequency : settings.choiceAs<RunMode>(Choice::PowerMode);
}

Clock::Microseconds microseconds(double seconds)
{
    return Clock::Microseconds(std::llround(seconds * 1e6));
}

double valueAt(RunMode mode, const std::vector<double>& list, double start, double stop,
               size_t point, size_t count)
{
    if (mode == RunMode::List)
        return list.size() == 1 ? list.front() : list[std::min(point, list.size()) - 1];
    if (count < 2)
        return start;
    return start + (stop - start) * static_cast<double>(point - 1) / static_cast<double>(count - 1);
}

} // namespace

ScpiError SweepEngine::initiate(const Settings& settings, Clock::Microseconds now)
{
    if (m_state != State::Idle)
        return ScpiError::InitIgnored;
    const size_t count = pointCount(settings);
    if (count == 0)
        return ScpiError::SettingsConflict;
    const auto frequency = settings.choiceAs<RunMode>(Choice::FrequencyMode);
    const auto power = settings.choiceAs<RunMode>(Choice::PowerMode);
    const auto fits = [count](const std::vector<double>& list, bool isUsed) {
        return !isUsed || list.size() == count || list.size() == 1;
    };
    if (modeOf(settings) == RunMode::List &&
        !(fits(settings.listFrequencyHz, frequency == RunMode::List) &&
          fits(settings.listPowerDbm, power == RunMode::List) &&
          fits(settings.listDwellSeconds, true)))
        return ScpiError::ListsNotSameLength;

    m_point = 0;
    m_state = State::Waiting;
    if (isFree(settings))
        run(settings, 1, now);
    return ScpiError::None;
}

ScpiError SweepEngine::trigger(const Settings& settings, TriggerSource source,
                               Clock::Microseconds now)
{
    if (settings.choiceAs<TriggerSource>(Choice::TriggerSource) != source)
        return ScpiError::None;
    if (m_state != State::Waiting)
        return ScpiError::TriggerIgnored;
    if (!isStepwise(settings)) {
        run(settings, 1, now);
    } else if (m_point < pointCount(settings)) {
        ++m_point;
    } else if (settings.isOn(Switch::Continuous)) {
        m_point = 1;
    } else {
        m_state = State::Idle;
    }
    return ScpiError::None;
}

ScpiError SweepEngine::moveTo(const Settings& settings, size_t point, Clock::Microseconds now)
{
    if (m_state == State::Idle)
        return ScpiError::SettingsConflict;
    if (point < 1 || point > pointCount(settings))
        return ScpiError::DataOutOfRange;
    if (m_state == State::Running)
        run(settings, point, now);
    m_point = point;
    return ScpiError::None;
}

void SweepEngine::abort()
{
    m_state = State::Idle;
    m_point = 0;
}

void SweepEngine::advance(const Settings& settings, Clock::Microseconds now)
{
    if (m_state != State::Running)
        return;
    const size_t count = pointCount(settings);
    const auto cycle =
        std::max(microseconds(secondsBefore(settings, count + 1)), Clock::Microseconds(1));
    if (now - m_firstPointTime >= cycle) {
        if (!settings.isOn(Switch::Continuous) || !isFree(settings)) {
            m_state = settings.isOn(Switch::Continuous) ? State::Waiting : State::Idle;
            m_point = count;
            return;
        }
        m_firstPointTime += cycle * ((now - m_firstPointTime) / cycle);
    }
    const double seconds = static_cast<double>((now - m_firstPointTime).count()) * 1e-6;
    m_point = pointAt(settings, seconds);
}

void SweepEngine::settingsChanged(const Settings& settings, Clock::Microseconds now)
{
    // A pass that has ended starts again when it is to be repeated.
    if (m_state == State::Idle && m_point > 0 && settings.isOn(Switch::Continuous)) {
        m_state = State::Waiting;
        m_point = 0;
    }
    const size_t count = pointCount(settings);
    if (count == 0) {
        abort();
        return;
    }
    // Also for a run that has ended and stays at its last point.
    m_point = std::min(m_point, count);
    if (m_state == State::Running && isStepwise(settings))
        m_state = State::Waiting;
    else if (m_state == State::Waiting && isFree(settings))
        run(settings, std::max<size_t>(m_point, 1), now);
}

size_t SweepEngine::pointCount(const Settings& settings) const
{
    if (isMixed(settings))
        return 0;
    switch (modeOf(settings)) {
    case RunMode::Fixed:
        return 0;
    case RunMode::Sweep:
        return static_cast<size_t>(settings.number(Quantity::SweepPoints));
    case RunMode::List:
        break;
    }
    if (settings.listDwellSeconds.empty())
        return 0;
    const bool runsFrequency = settings.choiceAs<RunMode>(Choice::FrequencyMode) == RunMode::List;
    const bool runsPower = settings.choiceAs<RunMode>(Choice::PowerMode) == RunMode::List;
    if ((runsFrequency && settings.listFrequencyHz.empty()) ||
        (runsPower && settings.listPowerDbm.empty()))
        return 0;
    return std::max(runsFrequency ? settings.listFrequencyHz.size() : 0,
                    runsPower ? settings.listPowerDbm.size() : 0);
}

double SweepEngine::frequencyHz(const Settings& settings) const
{
    const auto mode = settings.choiceAs<RunMode>(Choice::FrequencyMode);
    if (mode == RunMode::Fixed || m_point == 0)
        return settings.number(Quantity::Frequency);
    return valueAt(mode, settings.listFrequencyHz, settings.number(Quantity::StartFrequency),
                   settings.number(Quantity::StopFrequency), m_point, pointCount(settings));
}

double SweepEngine::powerDbm(const Settings& settings) const
{
    const auto mode = settings.choiceAs<RunMode>(Choice::PowerMode);
    if (mode == RunMode::Fixed || m_point == 0)
        return settings.number(Quantity::Power);
    return valueAt(mode, settings.listPowerDbm, settings.number(Quantity::StartPower),
                   settings.number(Quantity::StopPower), m_point, pointCount(settings));
}

double SweepEngine::dwellSeconds(const Settings& settings, size_t point) const
{
    const std::vector<double>& list = settings.listDwellSeconds;
    if (modeOf(settings) == RunMode::Sweep)
        return settings.number(Quantity::SweepDwell);
    return list[std::min(point, list.size()) - 1];
}

double SweepEngine::secondsBefore(const Settings& settings, size_t point) const
{
    if (modeOf(settings) == RunMode::Sweep)
        return settings.number(Quantity::SweepDwell) * static_cast<double>(point - 1);
    double seconds = 0;
    for (size_t earlier = 1; earlier < point; ++earlier)
        seconds += dwellSeconds(settings, earlier);
    return seconds;
}

size_t SweepEngine::pointAt(const Settings& settings, double seconds) const
{
    const size_t count = pointCount(settings);
    // Clock ticks are whole microseconds: half a tick keeps a boundary on the correct side.
    double left = seconds + 0.5e-6;
    size_t point = 1;
    if (modeOf(settings) == RunMode::Sweep)
        point = 1 + static_cast<size_t>(left / settings.number(Quantity::SweepDwell));
    else
        for (; point < count && left >= dwellSeconds(settings, point); ++point)
            left -= dwellSeconds(settings, point);
    return std::min(point, count);
}

void SweepEngine::run(const Settings& settings, size_t point, Clock::Microseconds now)
{
    m_state = State::Running;
    m_point = point;
    m_firstPointTime = now - microseconds(secondsBefore(settings, point));
}
