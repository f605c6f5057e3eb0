#include "modulation/pulse_group.h"

#include "modulation/waveform_picture.h"
#include "numbers/readable_quantity.h"
#include "ui/describe.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVariant>

namespace
{
constexpr char initialPeriod[] = "1 000";
constexpr char initialWidth[] = "1.00";
constexpr double secondsPerMicrosecond = 1e-6;
} // namespace

PulseGroup::PulseGroup(QWidget* selection, QWidget* parent)
    : FoldBox(QStringLiteral("PULM_"), QStringLiteral("titlePulse"), parent),
      m_state(newStateButton(QStringLiteral("Pulse"), selection)), m_summary(addSummary()),
      m_source(newSourceSwitch(QStringLiteral("IntExt_PULM"), this)),
      m_picture(new WaveformPicture(body()))
{
    m_state->setIcon(QIcon(QStringLiteral(":/images/pulse.png")));
    build();
    m_period.emplace(m_periodRow.field, m_periodRow.unit, Quantity::PulsePeriod);
    m_width.emplace(m_widthRow.field, m_widthRow.unit, Quantity::PulseWidth);
    for (const QLineEdit* field : {m_periodRow.field, m_widthRow.field})
        connect(field, &QLineEdit::textChanged, this, &PulseGroup::refresh);
    connect(m_source, &QAbstractButton::toggled, this, [this](bool isChecked) {
        setSettingsEnabled(!isChecked);
        refresh();
    });
    connect(m_state, &QAbstractButton::toggled, this, &PulseGroup::setLit);
    retranslate();
}

void PulseGroup::build()
{
    header()->addWidget(m_source);
    auto* values = new QGridLayout;
    values->setSpacing(panelSpacing);
    m_periodRow = addValueRow(
        values,
        {QStringLiteral("pulse_period"), QStringLiteral("line_period"), QStringLiteral("us_per")},
        QLatin1String(initialPeriod), body());
    m_widthRow = addValueRow(
        values,
        {QStringLiteral("pulse_width"), QStringLiteral("line_width"), QStringLiteral("us_wid")},
        QLatin1String(initialWidth), body());
    for (QPushButton* unit : {m_periodRow.unit, m_widthRow.unit})
        unit->setProperty("unitSwitch", true);
    auto* row = new QHBoxLayout(body());
    row->setContentsMargins(sectionMargin, 0, sectionMargin, sectionMargin);
    row->setSpacing(2 * panelSpacing);
    row->addLayout(values);
    row->addWidget(m_picture, 1);
}

bool PulseGroup::isExternal() const
{
    return m_source->isChecked();
}

void PulseGroup::setSettingsEnabled(bool isEnabled)
{
    m_periodRow.setEnabled(isEnabled);
    m_widthRow.setEnabled(isEnabled);
}

void PulseGroup::refresh()
{
    const double periodUs = m_period->microseconds();
    const double widthUs = m_width->microseconds();
    if (isExternal()) {
        m_picture->showNote(tr("External source"));
        m_summary->setText(tr("External source"));
        return;
    }
    Waveform pulses;
    pulses.shape = WaveShape::Square;
    pulses.periodSeconds = periodUs * secondsPerMicrosecond;
    pulses.dutyPercent = periodUs > 0.0 ? 100.0 * widthUs / periodUs : 0.0;
    pulses.high = 1.0;
    m_picture->showWaveform(pulses, Unit::None);
    m_summary->setText(
        summaryText({readableQuantity(periodUs * secondsPerMicrosecond, Unit::Second),
                     readableQuantity(widthUs * secondsPerMicrosecond, Unit::Second)}));
}

void PulseGroup::retranslate()
{
    setHeading(tr("Pulse modulation"));
    m_state->setText(tr("PulM"));
    describe(m_state, tr("Pulse modulation"), tr("Switch pulse modulation on or off"));
    retranslateSourceSwitch(m_source, tr("Source of the pulses"));
    // The units are switches here and have names of their own.
    retranslateValueRow(m_periodRow, {tr("Pulse period"), tr("Period"), QString(),
                                      tr("Period of the pulses in the unit beside it")});
    retranslateValueRow(m_widthRow, {tr("Pulse width"), tr("Width"), QString(),
                                     tr("Width of the pulses in the unit beside it")});
    for (const ValueRow* row : {&m_periodRow, &m_widthRow})
        describe(row->unit, tr("%1: unit").arg(row->field->accessibleName()),
                 tr("Unit shown and typed: µs, ms, s or ns; a click takes the next one"));
    m_period->retranslate();
    m_width->retranslate();
    refresh();
}
