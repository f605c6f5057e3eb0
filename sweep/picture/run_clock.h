#pragma once

#include "sweep/picture/run_points.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

/// Keeps track of which point a run has reached and how far its pass is. It asks no instrument: a
/// free run is computed from the dwell times since its start, a stepped one counts the steps
/// reported to it. While stopped, and while nothing moves by itself, it needs no timer.
class RunClock : public QObject
{
    Q_OBJECT

public:
    /// What advances a run: time, steps reported here, or triggers that only the instrument sees.
    enum class Pace { Free, Stepped, Unknown };

    explicit RunClock(QObject* parent = nullptr);

    void start(const RunPoints& points, Pace pace, bool isContinuous);
    /// No point is reached any more.
    void stop();
    bool isRunning() const { return m_isRunning; }
    int reached() const { return m_reached; }
    /// A single free pass has come to its end: the instrument stands at the last point, and only a
    /// new pass moves it.
    bool isOver() const { return m_isOver; }
    /// Of the run; none while stopped.
    const RunPoints& points() const { return m_points; }
    Pace pace() const { return m_pace; }

    /// Follows a change in a run: stepping continues from the point that a free run has reached,
    /// and a free run from the one that was stepped to.
    void setPace(Pace pace);
    /// A pass that has ended starts again when it is to repeat; without repetition the current pass
    /// ends at its last point.
    void setContinuous(bool isContinuous);
    /// A stepped run goes to a point, or by some points from where it is; both within the run.
    void moveTo(int number);
    void stepBy(int points) { moveTo(m_reached + points); }

signals:
    /// From 1; 0 stands for none.
    void pointReached(int number);
    /// Since the start of the pass, and of the whole pass.
    void timeChanged(double elapsedMs, double totalMs);
    void paceChanged();
    void overChanged(bool isOver);

private:
    void tick();
    void show(int number, double elapsedUs);
    void restartAt(double elapsedUs);
    void setOver(bool isOver);
    double sinceStartUs() const;

    RunPoints m_points;
    Pace m_pace = Pace::Stepped;
    bool m_isContinuous = false;
    bool m_isRunning = false;
    bool m_isOver = false;
    int m_reached = 0;
    double m_elapsedUs = 0.0;
    // Time of the run when the timer was started.
    double m_offsetUs = 0.0;
    QElapsedTimer m_sinceStart;
    QTimer m_ticker;
};
