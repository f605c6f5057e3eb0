#pragma once

#include "link/instrument_error.h"

#include <QList>
#include <QObject>
#include <QStringList>

#include <optional>

class List;
class ListTransfer;
class Notices;
class NumberEdit;
class PowerGuard;
class QPushButton;
class QWidget;
class ScpiSession;
class TriggerCommands;

/// Starts and stops the sweep and the list by the run buttons of their panel. Owns no widget;
/// loading the table and the triggers belong to other classes. Only one of the two runs. In the
/// pauses of a start anything may be clicked: the newest click wins, and panel and instrument agree
/// when all is over.
class SweepCommands : public QObject
{
    Q_OBJECT

public:
    /// The continuous-wave controls, which are inactive while sweep or list runs and are sent again
    /// when it stops.
    struct CwWidgets {
        NumberEdit& frequency;
        NumberEdit& power;
        QList<QWidget*> others;
    };

    SweepCommands(ScpiSession& session, List& panel, TriggerCommands& triggers,
                  ListTransfer& transfer, PowerGuard& guard, Notices& notices, const CwWidgets& cw,
                  QObject* parent = nullptr);

public slots:
    /// The run button of the sweep or the list has changed: starts or stops what it says.
    void CommandSweep() { command(Mode::Sweep); }
    void CommandList() { command(Mode::List); }
    /// The instrument is gone, and the session knows: nothing runs any more, and nothing is sent.
    void connectionLost();

signals:
    /// A run is about to be sent to the instrument: modulation and LF generator have to be switched
    /// off before this returns.
    void runStarting();
    /// All of a run has been sent, and the instrument starts it.
    void runStarted();
    /// A run has ended, by the button or with the connection.
    void runStopped();

private:
    enum class Mode { Sweep, List };

    QPushButton& runButton(Mode mode) const;
    void command(Mode mode);
    void enableCw(bool isEnabled);
    bool isWanted(int run, Mode mode) const;
    bool canRun(Mode mode);
    bool goesOn(int run, Mode mode);
    double topDbm(Mode mode) const;
    void request(Mode mode);
    void sayAboveCeiling(Mode mode);
    void holdCeiling();
    bool isAsAgreed(Mode mode);
    void start(int run, Mode mode);
    bool startPrepared(int run, Mode mode);
    void sendSweep();
    QStringList sweepCommands() const;
    void stop(Mode mode);
    void restoreCw();
    void endRun();

    ScpiSession& m_session;
    List& m_panel;
    TriggerCommands& m_triggers;
    ListTransfer& m_transfer;
    PowerGuard& m_guard;
    Notices& m_notices;
    CwWidgets m_cw;
    /// Counts the starts, so that a start detects after a pause that there is a newer one.
    int m_run = 0;
    bool m_isStarted = false;
    bool m_isSettingUp = false;
    /// The first error that the instrument reported about the set-up.
    std::optional<InstrumentError> m_refusal;
    double m_topDbm = 0.0; ///< of what was started last
    /// A button is down whose command has not been sent yet.
    bool m_isPending = false;
    bool m_isRefusing = false; ///< a run that could not start has its button released
};
