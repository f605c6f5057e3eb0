#pragma once

#include <QObject>
#include <QString>

class Notices;
class NumberEdit;
class PowerGuard;
class QAbstractButton;
class QWidget;
class ScpiSession;
struct FieldContext;

/// Operates the continuous-wave controls: sends frequency, power, RF output state and reference
/// oscillator, and shows in the fields what is read back. Owns the stored external reference
/// frequency and no widget. While disconnected the controls still edit and bound.
class CwControls : public QObject
{
    Q_OBJECT

public:
    struct Widgets {
        NumberEdit& frequency;
        NumberEdit& power;
        QAbstractButton& output;
        QAbstractButton& reference; ///< checked: external
        NumberEdit& referenceEntry; ///< external frequency in whole MHz
        QWidget& unlockIndicator;
        /// Lit, that is enabled, while the reference is external; "unlocked" while the lock is
        /// lost.
        QWidget& externalIndicator;
    };

    CwControls(ScpiSession& session, const FieldContext& context, PowerGuard& guard,
               const Widgets& widgets, QObject* parent = nullptr);

    /// The last external reference frequency that the instrument confirmed, or that was entered
    /// without one; whole MHz without the unit.
    QString externalReferenceMHz() const { return m_externalReferenceMHz; }
    void setExternalReferenceMHz(const QString& frequencyMHz);

    /// Shows the external-frequency entry for typing.
    void openReferenceEntry();

    /// There is no instrument any more: clears the unlock lamp and closes the entry.
    void forgetInstrument();

    /// Captions again after a change of language.
    void retranslate();

    /// The parts of the panel's state that are sent to a freshly connected instrument.
    void pushReferenceSource();
    void pushOutput();
    /// The same. Asks nothing: the accepted power is also sent in place of one that would have to
    /// be confirmed.
    void pushPower();
    /// Sends the external reference frequency while the switch is external.
    void pushExternalReference();

    /// Whether the reference switch is external.
    bool isRoscExt() const;

    /// To a freshly connected instrument. Sends nothing if the field holds no number.
    void pushFrequency();

public slots:
    void on_FREQ_editingFinished();
    void on_POW_editingFinished();
    void on_Output_clicked();
    void on_ROSC_clicked();
    void RoscFreq_editingFinished();
    /// Captions the reference button with the frequency being typed.
    void slotSetTextButtonRosc(const QString& typedMHz);
    /// Shows which reference is selected.
    void animateSwitchRoscButton(bool isExternal);
    /// The external reference has lost its lock.
    void showUnlockRosc();
    void hideUnlockRosc();

signals:
    /// The RF output state has been sent to the instrument.
    void outputSent();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void setUpFields(const FieldContext& context);
    void sendPower();
    void leaveUnreadable(NumberEdit& field);
    void holdCeiling();
    void cancelReferenceEntry();
    void sendExternalReference();
    void captionReference(const QString& frequencyMHz);
    QString captionedReferenceMHz() const;
    void closeReferenceEntry();

    ScpiSession& m_session;
    Notices& m_notices;
    PowerGuard& m_guard;
    Widgets m_ui;
    QString m_externalReferenceMHz = QStringLiteral("10");
};
