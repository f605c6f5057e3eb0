#pragma once

#include <QObject>
#include <QString>

class Connection;
class CwControls;
class QAbstractButton;
class QLabel;
class ScpiSession;

/// What the window shows of the RF output: its lamp, lit only while a connected instrument has been
/// set to RF on, and its button, released with the instrument. Sends nothing.
class OutputDisplay : public QObject
{
    Q_OBJECT

public:
    /// `lamp` is lit by being enabled.
    OutputDisplay(QAbstractButton& button, QLabel& lamp, const ScpiSession& session,
                  const Connection& connection, const CwControls& cw);

    /// Whether the output is on is not known until its state is sent again.
    void doubt();
    bool isDoubted() const { return m_isDoubted; }

    /// In the current language.
    void retranslate();

private:
    /// The button's state has been sent to the instrument.
    void outputSent();
    /// Releases the button only if an instrument had been connected: a user who switches on before
    /// connecting means the next instrument.
    void forgetInstrument(bool wasConnected);

    QAbstractButton& m_button;
    QLabel& m_lamp;
    const ScpiSession& m_session;
    QString m_word; ///< of the lamp
    bool m_isDoubted = false;
};
