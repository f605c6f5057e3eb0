#include "sweep/picture/run_clock.h"

#include <algorithm>
#include <cmath>

namespace
{
// Ten updates a second are smooth enough for the eye.
constexpr int tickMs = 100;
constexpr double usPerMs = 1000.0;
constexpr double nsPerUs = 1000.0;
} // namespace

RunClock::RunClock(QObject* parent) : QObject(parent), m_ticker(this)
{
    m_ticker.setInterval(tickMs);
    connect(&m_ticker, &QTimer::timeout, this, &RunClock::tick);
}

void RunClock::start(const RunPoints& points, Pace pace, bool isContinuous)
{
    m_ticker.stop();
    m_points = points;
    m_pace = pace;
    m_isContinuous = isContinuous;
    m_isRunning = true;
    setOver(false);
    if (m_pace == Pace::Free)
        restartAt(0.0);
    else
        show(0, 0.0);
}

void RunClock::stop()
{
    if (!m_isRunning)
        return;
    m_ticker.stop();
    m_isRunning = false;
    m_points = RunPoints();
    setOver(false);
    show(0, 0.0);
}

void RunClock::setPace(Pace pace)
{
    if (!m_isRunning || pace == m_pace)
        return;
    tick();
    m_pace = pace;
    m_ticker.stop();
    if (m_pace == Pace::Free && !m_isOver)
        restartAt(m_points.startUs(std::max(m_reached, 1)));
    else if (m_pace == Pace::Unknown && !m_isOver)
        show(0, 0.0);
    emit paceChanged();
}

void RunClock::setContinuous(bool isContinuous)
{
    if (isContinuous == m_isContinuous)
        return;
    // Update first: the current pass ends or continues from where it is.
    tick();
    m_isContinuous = isContinuous;
    const bool beginsAnew = m_isOver && isContinuous;
    if (beginsAnew)
        setOver(false);
    if (m_isRunning && m_pace == Pace::Free)
        restartAt(beginsAnew ? 0.0 : m_elapsedUs);
    else if (beginsAnew)
        show(0, 0.0);
}

void RunClock::moveTo(int number)
{
    if (!m_isRunning || m_isOver || m_pace != Pace::Stepped || m_points.isEmpty())
        return;
    const int reached = std::clamp(number, 1, m_points.count());
    show(reached, m_points.startUs(reached));
}

void RunClock::restartAt(double elapsedUs)
{
    m_offsetUs = elapsedUs;
    m_sinceStart.start();
    m_ticker.start();
    tick();
}

double RunClock::sinceStartUs() const
{
    return m_offsetUs + static_cast<double>(m_sinceStart.nsecsElapsed()) / nsPerUs;
}

void RunClock::tick()
{
    if (!m_isRunning || m_isOver || m_pace != Pace::Free)
        return;
    const double totalUs = m_points.totalUs();
    double elapsedUs = sinceStartUs();
    const bool isLastEnd = !m_isContinuous && elapsedUs >= totalUs;
    if (!(totalUs > 0.0) || isLastEnd) {
        m_ticker.stop();
        elapsedUs = totalUs;
    } else {
        elapsedUs = std::fmod(elapsedUs, totalUs);
    }
    show(m_points.pointAt(elapsedUs), elapsedUs);
    if (isLastEnd && !m_points.isEmpty())
        setOver(true);
}

void RunClock::setOver(bool isOver)
{
    if (isOver == m_isOver)
        return;
    m_isOver = isOver;
    emit overChanged(isOver);
}

void RunClock::show(int number, double elapsedUs)
{
    m_elapsedUs = elapsedUs;
    if (number != m_reached) {
        m_reached = number;
        emit pointReached(number);
    }
    emit timeChanged(elapsedUs / usPerMs, m_points.totalUs() / usPerMs);
}
