#pragma once

#include <QObject>

class Connection;
class Notices;
class OutputDisplay;
class QKeyEvent;
class QWidget;
class StateButton;

/// Makes sure that the RF output can be switched off at once: by its key wherever the focus is,
/// also in a dialog, a popup or a profile's replay, and by a click that does not first commit what
/// is being typed elsewhere. Switches nothing on and sends nothing; the button is clicked. Released
/// while the output is in doubt it says nothing, and off is asked for.
class OutputOff : public QObject
{
    Q_OBJECT

public:
    /// `output` is checked while the RF output is on, and outlives this.
    OutputOff(StateButton& output, const OutputDisplay& display, const Connection& connection,
              Notices& notices);

signals:
    /// The button is released, and the output may be on all the same.
    void offWanted();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void followOutput(bool isOn);
    bool isOutputKey(const QKeyEvent& key) const;

    StateButton& m_output;
    const OutputDisplay& m_display;
    Notices& m_notices;
    /// Without an instrument the key does not switch on: it is pressed in haste, and the button may
    /// have been released by a connection that has just broken.
    bool m_isConnected = false;
};
