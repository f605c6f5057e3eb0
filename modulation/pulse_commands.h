#pragma once

#include <QObject>

class Indicator;
class Modulat;
class NumberEdit;
class ScpiSession;

/// Operates the pulse modulation: sends its state, source, period and width, and shows in the
/// fields what is read back. Lights its indicator while it is on. Owns no widget. Period and width
/// are bounded together, in microseconds, so that a width is always below its period.
class PulseCommands : public QObject
{
    Q_OBJECT

public:
    PulseCommands(ScpiSession& session, Modulat& panel, Indicator& indicator);

    /// Sends state and source and, for the internal source, period and width after a pause.
    void send();
    /// Number of the newest sequence: shows whether the pulses were clicked during a pause of
    /// another sequence.
    int run() const { return m_run; }
    void switchOff();
    void showIndicator();

    /// Together with another modulation, a freshly connected instrument gets the pulses' state
    /// first, and their settings after that modulation's own command.
    void restoreOn();
    void restoreValues();

public slots:
    void on_Pulse_clicked();
    void switchExtInt_PULM();
    void on_line_period_editingFinished();
    void on_line_width_editingFinished();

signals:
    /// The pulses are on: LF generator and sweep or list have to be switched off before this
    /// returns.
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
    Indicator& m_indicator;
    /// Counts the sequences, so that a sequence detects after a pause that there is a newer one.
    int m_run = 0;
};
