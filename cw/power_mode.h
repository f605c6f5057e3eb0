#pragma once

#include <QObject>

class QWidget;
class ScpiSession;
class WgtModePow;

/// Switches the instrument's maximum-power mode, in which its output power is not calibrated. The
/// indicator is the one record of the mode: shown while it is on. Owns no widget.
class PowerMode : public QObject
{
    Q_OBJECT

public:
    /// Switches when the prompt says so.
    PowerMode(ScpiSession& session, QWidget& indicator, const WgtModePow& prompt,
              QObject* parent = nullptr);

    /// For a freshly reset instrument: sends nothing while the mode is off.
    void restore();

public slots:
    void setModeMaxPow(bool isOn);
    /// Sends the mode that the indicator does not show; before slotGuiSwitchModePow().
    void slotCommandSwitchModePow();
    void slotGuiSwitchModePow();

private:
    bool isModeOn() const;

    ScpiSession& m_session;
    QWidget& m_indicator;
};
