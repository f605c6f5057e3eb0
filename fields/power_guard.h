#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>

#include <functional>
#include <optional>

class NumberEdit;
class PowerQuestion;
class QAbstractButton;
class QSettings;
class QWidget;
class ScpiSession;

/// Guards the RF output against an entered power that is too high. A rise by more than a set number
/// of decibels while the output is on has to be confirmed; the user's highest level bounds every
/// power. Keeps both in the settings, and owns the one question. Sends nothing.
class PowerGuard : public QObject
{
    Q_OBJECT

public:
    static constexpr int usualJumpDb = 20;

    /// `output` is checked while the RF output is on; the question belongs to `window`. Without
    /// settings the defaults apply and nothing is saved.
    PowerGuard(const ScpiSession& session, const QAbstractButton& output, QWidget& window,
               QSettings* settings);
    ~PowerGuard() override;

    /// The largest rise without a question, in dB; 0: never asks.
    int jumpDb() const { return m_jumpDb; }
    void setJumpDb(int jumpDb);

    /// The highest level in whole dBm; none: the instrument's own limit.
    std::optional<int> ceilingDbm() const { return m_ceilingDbm; }
    void setCeilingDbm(std::optional<int> ceilingDbm);
    bool isAboveCeiling(double dbm) const { return m_ceilingDbm && dbm > *m_ceilingDbm; }
    /// A power's text, or that of the highest level where it is above.
    QString bounded(const QString& powerText) const;
    /// Bounds a power field and reports it; a level that is not above stays as it is.
    void bound(NumberEdit& field);

    /// The level at which the rise begins that a change from the current level to the wanted one
    /// belongs to. Steps of less than a second apart are one rise, from the lowest level among
    /// them. For a change that is no rise, the wanted level.
    double riseStart(double presentDbm, double wantedDbm, bool isStep);

    using Answer = std::function<void()>;
    /// Asks before the level rises. True if it asks: one of the two is called later, `keep` also
    /// when the output is switched off or the instrument disconnected first, or another question
    /// follows. False when there is nothing to ask: neither is called.
    bool ask(double fromDbm, double toDbm, const Answer& raise, const Answer& keep = {});
    bool wouldAsk(double fromDbm, double toDbm) const;

    /// Waits while a question is open; false when the program is being ended.
    bool waitForAnswer();
    /// Whether a widget is the question or in it.
    bool isOfQuestion(const QWidget* widget) const;

public slots:
    /// Answers an open question with no.
    void cancel();

signals:
    void ceilingChanged();
    void answered(bool isRaised);

private:
    void keepSetting(const QString& key, const QVariant& value);

    const ScpiSession& m_session;
    const QAbstractButton& m_output;
    QWidget& m_window;
    QSettings* m_settings;
    int m_jumpDb = usualJumpDb;
    std::optional<int> m_ceilingDbm;
    QPointer<PowerQuestion> m_question;
    QElapsedTimer m_lastStep;
    double m_lowestDbm = 0.0;
};
