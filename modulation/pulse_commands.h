#pragma once

#include <QObject>

class Modulat;
class NumberEdit;
class QLabel;
class ScpiSession;

/// The pulse modulation at work: its state, source, period and width go to the instrument, and what
/// it answers goes back into the fields. Lights its indicator while it is on. Owns no widget.
/// Period and width are bounded together, in microseconds, so that a width is always below its
/// period.
class PulseCommands : public QObject
{
    Q_OBJECT

public:
    PulseCommands(ScpiSession& session, Modulat& panel, QLabel& indicator);

    /// Sends state and source and, when pulses are made inside, period and width after a pause.
    void send();
    /// Number of the newest sequence: tells whether the pulses were clicked in somebody's pause.
    int run() const { return m_run; }
    void switchOff();
    void showIndicator();

    /// Beside another modulation a freshly connected instrument is told first that the pulses are
    /// on, and behind that modulation's own command what they look like.
    void restoreOn();
    void restoreValues();

public slots:
    void on_Pulse_clicked();
    void switchExtInt_PULM();
    void on_line_period_editingFinished();
    void on_line_width_editingFinished();

signals:
    /// The pulses are on: LF generator and sweep or list have to go off, before this returns.
    void switchedOn();

private:
    bool isInternalOn() const;
    /// Period or width has been typed.
    void commit(NumberEdit& field);
    void bound();
    bool keepWidthBelowPeriod();
    void send(const char* format, NumberEdit& field);

    ScpiSession& m_session;
    Modulat& m_panel;
    QLabel& m_indicator;
    /// Numbers the sequences, so that one that has paused knows of a newer one.
    int m_run = 0;
};
