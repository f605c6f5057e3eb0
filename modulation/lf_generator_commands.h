#pragma once

#include "modulation/field_exchange.h"
#include "modulation/waveform.h"

#include <QObject>

class Indicator;
class ScpiSession;
class generator;

/// Operates the LF generator: sends the panel's waveform and values, and shows in the fields what
/// is read back. Shows on an indicator whether the generator is on. Owns no widget. In the 400 ms
/// pauses of its sequences anything may be clicked: the newest click wins.
class LfGeneratorCommands : public QObject
{
    Q_OBJECT

public:
    LfGeneratorCommands(ScpiSession& session, generator& panel, Indicator& indicator,
                        QObject* parent = nullptr);

    /// Sends the panel's state to a freshly connected instrument; nothing while the generator is
    /// off.
    void restore();

public slots:
    void Gen_Sine() { switchClicked(WaveShape::Sine); }
    void Gen_SawNeg() { switchClicked(WaveShape::SawNegative); }
    void Gen_SawPos() { switchClicked(WaveShape::SawPositive); }
    void Gen_Train() { switchClicked(WaveShape::Triangle); }
    void Gen_Rand() { switchClicked(WaveShape::Random); }
    void Gen_Rect() { switchClicked(WaveShape::Square); }
    void Gen_Dc() { switchClicked(WaveShape::Dc); }
    void editFreqGenerator();
    void editVoltGenerator();
    void editPercentGenerator();
    /// Sends those of frequency, amplitude and duty cycle that the chosen waveform has.
    void initial_FREQ_AMPL_GENER();
    /// Updates the indicator from the panel's buttons.
    void update_Generator();

signals:
    /// The generator is being switched on: every modulation has to be switched off before this
    /// returns.
    void wantsModulationOff();
    /// The generator is on: sweep or list has to be stopped.
    void wantsSweepOff();

private:
    void wire();
    void switchClicked(WaveShape shape);
    bool isCurrent(int run, WaveShape shape) const;
    bool pauseWhile(int run, WaveShape shape) const;
    void Gen_On(int run, WaveShape shape);
    bool sendShape(int run, WaveShape shape, bool isRestore);

    ScpiSession& m_session;
    generator& m_panel;
    Indicator& m_indicator;
    FieldExchange m_exchange;
    /// Counts the sequences, so that a sequence detects after a pause that there is a newer one.
    int m_run = 0;
};
