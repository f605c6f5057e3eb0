#pragma once

#include "sweep/picture/run_clock.h"
#include "sweep/picture/run_words.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

class List;
class QLineEdit;
class SweepCommands;
class TriggerCommands;

/// Keeps the picture of the list panel, and the marked row in its table, in step with the settings
/// and with the run. Owns the clock of the run; the widgets are the panel's, and it sends nothing.
class RunPicture : public QObject
{
    Q_OBJECT

public:
    /// `powerField` holds what empty power cells send, in dBm.
    RunPicture(List& panel, const QLineEdit& powerField, QObject* parent = nullptr);

    /// Notified by those who start, stop and step runs.
    void follow(const SweepCommands& runs, const TriggerCommands& triggers);

    /// The clock of the current run, and what runs.
    const RunClock& clock() const { return m_clock; }
    RunKind running() const { return m_running; }

public slots:
    /// The sweep or the list whose run button is checked.
    void runStarted();
    void runStopped();
    /// By one point up (1) or down (-1).
    void stepped(int direction);
    /// A list went to a point, counted from 1.
    void movedTo(int number);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void wire();
    RunPoints pointsOf(RunKind kind) const;
    RunClock::Pace pace() const;
    void followPace();
    void showReached(int number);
    void refreshSoon();
    void refresh();

    List& m_panel;
    const QLineEdit& m_power;
    RunClock m_clock;
    RunKind m_running = RunKind::Sweep;
    bool m_isStale = true;
    QElapsedTimer m_sinceRefresh;
    QTimer m_refresh;
};
