#pragma once

#include <QObject>

class Connection;
class CwControls;
class QAbstractButton;
class QWidget;
class ScpiSession;

/// What the window shows of the RF output: its lamp, lit only while a connected instrument has been
/// set to RF on, and its button, released with the instrument. Sends nothing.
class OutputDisplay : public QObject
{
    Q_OBJECT

public:
    /// `lamp` is lit by being enabled.
    OutputDisplay(QAbstractButton& button, QWidget& lamp, const ScpiSession& session,
                  const Connection& connection, const CwControls& cw);

private:
    /// The button's state has been sent to the instrument.
    void outputSent();
    /// Releases the button only if an instrument had been connected: a user who switches on before
    /// connecting means the next instrument.
    void forgetInstrument(bool wasConnected);

    QAbstractButton& m_button;
    QWidget& m_lamp;
    const ScpiSession& m_session;
};
