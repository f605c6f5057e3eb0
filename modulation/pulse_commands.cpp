#include "modulation/pulse_commands.h"

#include "link/activity.h"
#include "link/instrument_limits.h"
#include "link/pause.h"
#include "link/scpi_session.h"
#include "modulation/modulat.h"
#include "modulation/settling.h"
#include "numbers/field_kind.h"
#include "numbers/number_text.h"
#include "fields/entry_notice.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace
{
const QString onCommand = QStringLiteral("PULM:STATe ON");
const QString offCommand = QStringLiteral("PULM:STATe OFF");
const QString restoredOnCommand = QStringLiteral("PULM:STAT ON");
const QString internalCommand = QStringLiteral("PULM:SOUR INT");
const QString externalCommand = QStringLiteral("PULM:SOUR EXT");
constexpr char periodFormat[] = "PULM:INT:PER %lf U;PER?";
constexpr char widthFormat[] = "PULM:INT:PWID %lf U;PWID?";
/// The resolution of the period: the least by which it exceeds the width.
constexpr double periodResolutionUs = 0.1;

QString boundedText(const QString& text, const Range& range, FieldKind kind)
{
    return clampText(text, range.min, range.max, kind);
}

double acceptedUs(const PulseTime& time)
{
    return toNumber(time.acceptedTextUs());
}
} // namespace

PulseCommands::PulseCommands(ScpiSession& session, const InstrumentLimits& limits, Modulat& panel,
                             QLabel& indicator)
    : m_session(session), m_limits(limits), m_panel(panel), m_indicator(indicator)
{
    using Self = PulseCommands;
    connect(panel.pulse(), &QAbstractButton::clicked, this, &Self::on_Pulse_clicked);
    connect(panel.pulseSource(), &QAbstractButton::clicked, this, &Self::switchExtInt_PULM);
    connect(panel.pulsePeriod().field(), &QLineEdit::editingFinished, this,
            &Self::on_line_period_editingFinished);
    connect(panel.pulseWidth().field(), &QLineEdit::editingFinished, this,
            &Self::on_line_width_editingFinished);
}

void PulseCommands::on_Pulse_clicked()
{
    send();
    if (m_panel.pulse()->isChecked())
        emit switchedOn();
}

void PulseCommands::switchExtInt_PULM()
{
    send();
}

void PulseCommands::showIndicator()
{
    showIcon(m_indicator, m_panel.pulse());
}

bool PulseCommands::isInternalOn() const
{
    return m_panel.pulse()->isChecked() && !m_panel.pulseSource()->isChecked();
}

void PulseCommands::send()
{
    const int run = ++m_run;
    showIndicator();
    if (!m_session.isConnected())
        return;
    const std::unique_ptr<Activity> going = settingModulation(m_session);
    if (m_panel.pulse()->isChecked())
        m_session.write(onCommand);
    else
        m_session.switchOff(offCommand);
    if (!m_session.isConnected())
        return;
    m_session.write(m_panel.pulseSource()->isChecked() ? externalCommand : internalCommand);
    if (!isInternalOn() || !pause(settleMs) || run != m_run || !isInternalOn())
        return;
    bound();
    sendPeriod();
    sendWidth();
}

void PulseCommands::switchOff()
{
    if (m_session.isConnected())
        m_session.switchOff(offCommand);
    m_panel.pulse()->setChecked(false);
    m_indicator.clear();
}

void PulseCommands::restoreOn()
{
    m_session.write(restoredOnCommand);
}

void PulseCommands::restoreValues()
{
    if (m_panel.pulseSource()->isChecked())
        return;
    bound();
    sendWidth();
    sendPeriod();
}

void PulseCommands::commit(bool isPeriod)
{
    if (!takeNumber((isPeriod ? m_panel.pulsePeriod() : m_panel.pulseWidth()).field()))
        return;
    const double periodUs = acceptedUs(m_panel.pulsePeriod());
    const double widthUs = acceptedUs(m_panel.pulseWidth());
    if (isPeriod)
        boundPeriod();
    else
        boundWidth();
    keepWidthBelowPeriod();
    // What the one has changed of the other goes out too. The period first: the instrument
    // may refuse a width that is longer.
    const bool isPeriodChanged = acceptedUs(m_panel.pulsePeriod()) != periodUs;
    const bool isWidthChanged = acceptedUs(m_panel.pulseWidth()) != widthUs;
    if (isPeriod || isPeriodChanged)
        sendPeriod();
    if (!isPeriod || isWidthChanged)
        sendWidth();
    // The instrument has its own resolution: its answers may have met.
    if (m_session.isConnected() && keepWidthBelowPeriod())
        sendPeriod();
}

void PulseCommands::bound()
{
    boundWidth();
    boundPeriod();
    keepWidthBelowPeriod();
}

void PulseCommands::boundPeriod()
{
    m_panel.showPulsePeriodUs(periodWithinLimits(m_panel.pulsePeriod().textUs()));
}

void PulseCommands::boundWidth()
{
    m_panel.showPulseWidthUs(widthWithinLimits(m_panel.pulseWidth().textUs()));
}

/// The width is the one kept, unless no period is longer. What is being typed into the other field
/// does not count. True if the period has changed.
bool PulseCommands::keepWidthBelowPeriod()
{
    const double widthUs = acceptedUs(m_panel.pulseWidth());
    const double presentUs = acceptedUs(m_panel.pulsePeriod());
    if (widthUs < presentUs || m_panel.pulsePeriod().acceptedTextUs().isEmpty())
        return false;
    m_panel.showPulsePeriodUs(
        periodWithinLimits(fieldText(widthUs + periodResolutionUs, FieldKind::PulsePeriod)));
    const double periodUs = acceptedUs(m_panel.pulsePeriod());
    if (widthUs >= periodUs)
        m_panel.showPulseWidthUs(
            widthWithinLimits(fieldText(periodUs - periodResolutionUs, FieldKind::PulseWidth)));
    return periodUs != presentUs;
}

QString PulseCommands::periodWithinLimits(const QString& textUs) const
{
    return boundedText(textUs, m_limits[Quantity::PulsePeriod], FieldKind::PulsePeriod);
}

QString PulseCommands::widthWithinLimits(const QString& textUs) const
{
    return boundedText(textUs, m_limits[Quantity::PulseWidth], FieldKind::PulseWidth);
}

void PulseCommands::sendPeriod()
{
    const QString periodUs = m_panel.pulsePeriod().textUs();
    if (!m_session.isConnected() || periodUs.isEmpty())
        return;
    m_panel.showPulsePeriodUs(
        m_session.setAndReadBack(periodFormat, toNumber(periodUs), FieldKind::PulsePeriod));
    m_session.checkErrors();
}

void PulseCommands::sendWidth()
{
    const QString widthUs = m_panel.pulseWidth().textUs();
    if (!m_session.isConnected() || widthUs.isEmpty())
        return;
    m_panel.showPulseWidthUs(
        m_session.setAndReadBack(widthFormat, toNumber(widthUs), FieldKind::PulseWidth));
    m_session.checkErrors();
}
