#include "modulation/pulse_commands.h"

#include "link/activity.h"
#include "link/pause.h"
#include "link/scpi_session.h"
#include "modulation/modulat.h"
#include "modulation/settling.h"
#include "numbers/field_kind.h"
#include "numbers/number_text.h"
#include "ui/indicator.h"

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

/// Bounds a time in microseconds and shows it as accepted.
void acceptUs(NumberEdit& field, double us)
{
    const Range& range = field.range();
    field.showAccepted(clampText(fieldText(us, field.kind()), range.min, range.max, field.kind()));
}
} // namespace

PulseCommands::PulseCommands(ScpiSession& session, Modulat& panel, Indicator& indicator)
    : m_session(session), m_panel(panel), m_indicator(indicator)
{
    using Self = PulseCommands;
    connect(panel.pulse(), &QAbstractButton::clicked, this, &Self::on_Pulse_clicked);
    connect(panel.pulseSource(), &QAbstractButton::clicked, this, &Self::switchExtInt_PULM);
    connect(&panel.pulsePeriod(), &QLineEdit::editingFinished, this,
            &Self::on_line_period_editingFinished);
    connect(&panel.pulseWidth(), &QLineEdit::editingFinished, this,
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
    send(periodFormat, m_panel.pulsePeriod());
    send(widthFormat, m_panel.pulseWidth());
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
    send(widthFormat, m_panel.pulseWidth());
    send(periodFormat, m_panel.pulsePeriod());
}

void PulseCommands::on_line_period_editingFinished()
{
    commit(m_panel.pulsePeriod());
}

void PulseCommands::on_line_width_editingFinished()
{
    commit(m_panel.pulseWidth());
}

void PulseCommands::commit(NumberEdit& field)
{
    if (!field.takeNumber())
        return;
    NumberEdit& period = m_panel.pulsePeriod();
    NumberEdit& width = m_panel.pulseWidth();
    const double periodUs = period.acceptedValue();
    const double widthUs = width.acceptedValue();
    field.acceptClamped();
    keepWidthBelowPeriod();
    // The one may have changed the other, so both are sent. The period first: the instrument may
    // refuse a width that is longer.
    if (&field == &period || period.acceptedValue() != periodUs)
        send(periodFormat, period);
    if (&field == &width || width.acceptedValue() != widthUs)
        send(widthFormat, width);
    // The instrument has its own resolution: its answers may have met.
    if (m_session.isConnected() && keepWidthBelowPeriod())
        send(periodFormat, period);
}

void PulseCommands::bound()
{
    for (NumberEdit* field : {&m_panel.pulseWidth(), &m_panel.pulsePeriod()}) {
        if (field->hasNumber())
            field->acceptClamped();
    }
    keepWidthBelowPeriod();
}

/// The width is kept, unless no longer period is possible. Text being typed into the other field
/// does not count. True if the period has changed.
bool PulseCommands::keepWidthBelowPeriod()
{
    NumberEdit& period = m_panel.pulsePeriod();
    NumberEdit& width = m_panel.pulseWidth();
    const double widthUs = width.acceptedValue();
    const double presentUs = period.acceptedValue();
    // A field that a failed reply has emptied is compared with nothing.
    if (widthUs < presentUs || period.text().isEmpty() || width.text().isEmpty())
        return false;
    acceptUs(period, widthUs + periodResolutionUs);
    const double periodUs = period.acceptedValue();
    if (widthUs >= periodUs)
        acceptUs(width, periodUs - periodResolutionUs);
    return periodUs != presentUs;
}

void PulseCommands::send(const char* format, NumberEdit& field)
{
    if (!m_session.isConnected() || !field.takeNumber())
        return;
    field.showAnswer(m_session.setAndReadBack(format, field.value()));
    m_session.checkErrors();
}
