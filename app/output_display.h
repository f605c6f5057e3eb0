#pragma once

#include <QObject>

class Connection;
class CwControls;
class QAbstractButton;
class QWidget;
class ScpiSession;

/// What the window shows of the RF output: its lamp, lit only while a connected instrument has been
/// told to switch it on, and its button, let go with the instrument. Sends nothing.
class OutputDisplay : public QObject
{
    Q_OBJECT

public:
    /// `lamp` is lit by being enabled.
    OutputDisplay(QAbstractButton& button, QWidget& lamp, const ScpiSession& session,
                  const Connection& connection, const CwControls& cw);

private:
    /// The instrument has been told what the button says.
    void outputSent();
    /// Only an instrument that had been connected takes the button with it: a hand that has
    /// switched on beforehand means the next one.
    void forgetInstrument(bool wasConnected);

    QAbstractButton& m_button;
    QWidget& m_lamp;
    const ScpiSession& m_session;
};
