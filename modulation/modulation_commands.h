#pragma once

#include "modulation/field_exchange.h"
#include "modulation/modulat.h"
#include "modulation/pulse_commands.h"

#include <QObject>

#include <array>

class Indicator;
class ScpiSession;

/// Operates AM, FM and PM: sends the modulation panel's choices and values, and shows in the fields
/// what is read back. Owns the pulse modulation's commands, since all four are restored and
/// switched off together. Shows on two indicators what is on. Owns no widget. In the 400 ms pauses
/// of its sequences anything may be clicked: the newest click wins, and panel, indicators and
/// instrument agree when all is over.
class ModulationCommands : public QObject
{
    Q_OBJECT

public:
    struct Indicators {
        Indicator& amPmFm; ///< the icon of the one of AM, FM and PM that is on, else empty
        Indicator& pulse;
    };

    ModulationCommands(ScpiSession& session, Modulat& panel, const Indicators& indicators,
                       QObject* parent = nullptr);

    /// Sends the panel's state to a freshly connected instrument; nothing while no modulation is
    /// on.
    void restore();

    /// Switches AM, FM, PM and pulse off and folds their groups. A modulation switched on in a
    /// pause of this stays on.
    void switchEverythingOff(bool isAnimated);

public slots:
    void on_AM_clicked() { switchClicked(Modulation::Am); }
    void on_FM_clicked() { switchClicked(Modulation::Fm); }
    void on_PM_clicked() { switchClicked(Modulation::Pm); }
    void switchExtInt_AM_FM_PM();
    /// Sends a shape just clicked and the rate that goes with it.
    void sendClickedShape(Modulation modulation, WaveShape shape);

    void line_Ampl_1_Finished() { sendRate(Modulation::Am); }
    void line_Ampl_2_Finished() { sendLevel(Modulation::Am); }
    void line_FREQ_1_Finished() { sendRate(Modulation::Fm); }
    void line_FREQ_2_Finished() { sendLevel(Modulation::Fm); }
    void line_Phase_1_Finished() { sendRate(Modulation::Pm); }
    void on_line_Phase_2_editingFinished() { sendLevel(Modulation::Pm); }
    void on_percentLine_Ampl_editingFinished() { sendDuty(Modulation::Am); }
    void on_percentLine_FREQ_editingFinished() { sendDuty(Modulation::Fm); }
    void on_percentLine_Phase_editingFinished() { sendDuty(Modulation::Pm); }

    /// Updates indicators and groups from the panel's buttons.
    void update_Modulation();

signals:
    /// A modulation is being switched on: LF generator and sweep or list have to be switched off
    /// before this returns.
    void switchedOn();

private:
    void wireButtons();
    void wireFields();
    std::optional<Modulation> checkedModulation() const;
    bool isInternalOn(Modulation modulation) const;
    void showIndicators();
    void showLampWords();

    void switchClicked(Modulation modulation);
    bool switch_ImageText_commandExtInt(Modulation modulation, int run);
    void sendPendingOff();
    void pauseAndSetUp(Modulation modulation, int setup);
    void setUpInternalSource(Modulation modulation);
    void sendValues(Modulation modulation);

    void sendShape(Modulation modulation, WaveShape shape);
    void sendRate(Modulation modulation);
    void sendLevel(Modulation modulation);
    void sendDuty(Modulation modulation);

    ScpiSession& m_session;
    Modulat& m_panel;
    Indicators m_indicators;
    FieldExchange m_exchange;
    PulseCommands m_pulse;

    // Each kind of sequence counts its starts, so that a sequence detects a newer one after a
    // pause.
    int m_switchRun = 0;
    int m_setupRun = 0;
    /// Unchecked, but not yet switched off at the instrument.
    std::array<bool, modulations.size()> m_isOffPending{};
};
