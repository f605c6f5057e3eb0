#include "fields/power_guard.h"

#include "fields/number_edit.h"
#include "fields/power_question.h"
#include "link/notices.h"
#include "link/scpi_session.h"
#include "numbers/number_text.h"

#include <QAbstractButton>
#include <QEventLoop>
#include <QSettings>

#include <algorithm>
#include <cmath>

namespace
{
constexpr qint64 longestStepGapMs = 1000;
constexpr int largestJumpDb = 1000;
constexpr double largestPowerDbm = 10000.0;

const QString jumpKey = QStringLiteral("Safety/jump");
const QString ceilingKey = QStringLiteral("Safety/ceiling");

/// None for an empty or unreadable setting. Fields hold whole powers: a value between two of them
/// is rounded down.
std::optional<int> ceilingOf(const QSettings& settings)
{
    bool isNumber = false;
    const double dbm = settings.value(ceilingKey).toString().toDouble(&isNumber);
    if (!isNumber || !(std::abs(dbm) <= largestPowerDbm))
        return std::nullopt;
    return static_cast<int>(std::floor(dbm));
}

int jumpOf(const QSettings& settings)
{
    bool isNumber = false;
    const int jumpDb = settings.value(jumpKey).toInt(&isNumber);
    const bool isPossible = isNumber && jumpDb >= 0 && jumpDb <= largestJumpDb;
    return isPossible ? jumpDb : PowerGuard::usualJumpDb;
}
} // namespace

PowerGuard::PowerGuard(const ScpiSession& session, const QAbstractButton& output, QWidget& window,
                       QSettings* settings)
    : m_session(session), m_output(output), m_window(window), m_settings(settings)
{
    if (m_settings) {
        m_jumpDb = jumpOf(*m_settings);
        m_ceilingDbm = ceilingOf(*m_settings);
    }
    connect(&m_output, &QAbstractButton::toggled, this, &PowerGuard::cancel);
}

PowerGuard::~PowerGuard()
{
    // The receiver of the answer may be gone already.
    if (m_question)
        m_question->disconnect(this);
    delete m_question;
}

void PowerGuard::keepSetting(const QString& key, const QVariant& value)
{
    if (m_settings)
        m_settings->setValue(key, value);
}

void PowerGuard::setJumpDb(int jumpDb)
{
    m_jumpDb = jumpDb;
    keepSetting(jumpKey, jumpDb);
}

void PowerGuard::setCeilingDbm(std::optional<int> ceilingDbm)
{
    cancel();
    m_ceilingDbm = ceilingDbm;
    keepSetting(ceilingKey, ceilingDbm ? QString::number(*ceilingDbm) : QString());
    emit ceilingChanged();
}

QString PowerGuard::bounded(const QString& powerText) const
{
    // A text that is not a number would read as 0 dBm.
    const bool isAbove = readsAsNumber(powerText) && isAboveCeiling(toNumber(powerText));
    return isAbove ? QString::number(*m_ceilingDbm) : powerText;
}

void PowerGuard::bound(NumberEdit& field)
{
    const QString text = bounded(field.text());
    if (text == field.text())
        return;
    field.setText(text);
    field.context().notices.say(
        [text] { return tr("Power: at most %1 dBm, as set in the menu").arg(text); });
}

double PowerGuard::riseStart(double presentDbm, double wantedDbm, bool isStep)
{
    const bool goesOn = isStep && m_lastStep.isValid() && m_lastStep.elapsed() < longestStepGapMs;
    m_lowestDbm = goesOn ? std::min(m_lowestDbm, presentDbm) : presentDbm;
    if (isStep)
        m_lastStep.start();
    else
        m_lastStep.invalidate();
    return wantedDbm > presentDbm ? m_lowestDbm : wantedDbm;
}

bool PowerGuard::wouldAsk(double fromDbm, double toDbm) const
{
    return m_jumpDb > 0 && m_output.isChecked() && m_session.isConnected() &&
           toDbm - fromDbm > m_jumpDb;
}

bool PowerGuard::ask(double fromDbm, double toDbm, const Answer& raise, const Answer& keep)
{
    cancel();
    if (!wouldAsk(fromDbm, toDbm))
        return false;
    m_question = new PowerQuestion(fromDbm, toDbm, &m_window);
    connect(m_question, &QDialog::finished, this, [this, raise, keep](int result) {
        m_question.clear();
        // Not every system gives the focus back to the field by itself.
        if (m_window.isVisible())
            m_window.activateWindow();
        const bool isRaised = result == QDialog::Accepted && m_session.isConnected();
        // The steps that follow must not raise the same question again.
        if (isRaised)
            m_lastStep.invalidate();
        if (const Answer& answer = isRaised ? raise : keep)
            answer();
        emit answered(isRaised);
    });
    m_question->open();
    return true;
}

void PowerGuard::cancel()
{
    if (m_question)
        m_question->reject();
}

bool PowerGuard::waitForAnswer()
{
    if (!m_question)
        return true;
    // When the program ends, the loop returns another code than its own.
    constexpr int isAnswered = 0x4B4C56;
    QEventLoop loop;
    connect(this, &PowerGuard::answered, &loop, [&loop] { loop.exit(isAnswered); });
    return loop.exec() == isAnswered;
}

bool PowerGuard::isOfQuestion(const QWidget* widget) const
{
    return m_question && widget && (m_question == widget || m_question->isAncestorOf(widget));
}
