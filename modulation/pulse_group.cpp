#include "modulation/pulse_group.h"

#include "modulation/waveform_picture.h"
#include "numbers/readable_quantity.h"
#include "ui/describe.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QVariant>

#include <algorithm>
#include <iterator>

namespace
{
constexpr char initialPeriod[] = "1 000";
constexpr char initialWidth[] = "1.00";
constexpr double secondsPerMicrosecond = 1e-6;
constexpr int microsecondPower = -6;
/// The units in the order they are cycled, as powers of ten of a microsecond.
constexpr int unitPowers[] = {0, 3, 6, -3};
} // namespace

PulseGroup::PulseGroup(const FieldContext& context, QWidget* selection, QWidget* parent)
    : FoldBox(QStringLiteral("PULM_"), QStringLiteral("titlePulse"), parent),
      m_state(newStateButton(QStringLiteral("Pulse"), selection)), m_summary(addSummary()),
      m_source(newSourceSwitch(QStringLiteral("IntExt_PULM"), this)),
      m_picture(new WaveformPicture(this))
{
    m_picture->hide();
    m_state->setIcon(QIcon(QStringLiteral(":/images/pulse.png")));
    build(context);
    for (const NumberEdit* field : {m_period.field, m_width.field}) {
        connect(field, &QLineEdit::textChanged, this, &PulseGroup::refresh);
        connect(field, &NumberEdit::accepted, this, &PulseGroup::lampChanged);
    }
    connect(m_source, &QAbstractButton::toggled, this, [this](bool isChecked) {
        setSettingsEnabled(!isChecked);
        refresh();
    });
    connect(m_state, &QAbstractButton::toggled, this, &PulseGroup::setLit);
    retranslate();
}

void PulseGroup::build(const FieldContext& context)
{
    header()->addWidget(m_source);
    auto* values = new QGridLayout(body());
    values->setContentsMargins(sectionMargin, 0, sectionMargin, sectionMargin);
    values->setSpacing(panelSpacing);
    m_period = addValueRow(
        values,
        {QStringLiteral("pulse_period"), QStringLiteral("line_period"), QStringLiteral("us_per")},
        new NumberEdit(Quantity::PulsePeriod, context, body(), QLatin1String(initialPeriod)));
    m_width = addValueRow(
        values,
        {QStringLiteral("pulse_width"), QStringLiteral("line_width"), QStringLiteral("us_wid")},
        new NumberEdit(Quantity::PulseWidth, context, body(), QLatin1String(initialWidth)));
    for (QPushButton* unit : {m_period.unit, m_width.unit}) {
        unit->setProperty("unitSwitch", true);
        unit->setFocusPolicy(Qt::TabFocus);
    }
}

bool PulseGroup::isExternal() const
{
    return m_source->isChecked();
}

void PulseGroup::setSettingsEnabled(bool isEnabled)
{
    m_period.setEnabled(isEnabled);
    m_width.setEnabled(isEnabled);
}

QString PulseGroup::lampWords() const
{
    QStringList words = {m_state->text()};
    if (isExternal())
        words << externalWord();
    else
        words << readableQuantity(period().acceptedValue() * secondsPerMicrosecond, Unit::Second)
              << readableQuantity(width().acceptedValue() * secondsPerMicrosecond, Unit::Second);
    return words.join(QLatin1Char(' '));
}

void PulseGroup::refresh()
{
    emit lampChanged();
    const double periodUs = period().value();
    const double widthUs = width().value();
    if (isExternal()) {
        m_picture->showNote(tr("External source"));
        m_picture->setHeading(tr("Pulse modulation"));
        m_summary->setText(tr("External source"));
        return;
    }
    Waveform pulses;
    pulses.shape = WaveShape::Square;
    pulses.periodSeconds = periodUs * secondsPerMicrosecond;
    pulses.dutyPercent = periodUs > 0.0 ? 100.0 * widthUs / periodUs : 0.0;
    pulses.high = 1.0;
    m_picture->showWaveform(pulses, Unit::None);
    QStringList summary = {readableQuantity(periodUs * secondsPerMicrosecond, Unit::Second),
                           readableQuantity(widthUs * secondsPerMicrosecond, Unit::Second)};
    m_summary->setText(summaryText(summary));
    summary.prepend(tr("Pulse modulation"));
    m_picture->setHeading(summaryText(summary));
}

void PulseGroup::retranslate()
{
    setHeading(tr("Pulse modulation"));
    m_state->setText(tr("PulM"));
    describe(m_state, tr("Pulse modulation"),
             tr("Switch pulse modulation on or off (Down: its settings)"));
    retranslateSourceSwitch(m_source, tr("Source of the pulses"));
    // The units are switches here and have names of their own.
    retranslateValueRow(m_period, tr("Period"), QString());
    retranslateValueRow(m_width, tr("Width"), QString());
    for (const ValueRow* row : {&m_period, &m_width})
        describe(row->unit, tr("%1: unit").arg(row->field->accessibleName()),
                 tr("Unit for display and entry: µs, ms, s or ns; a click selects the next one"));
    showUnits();
    refresh();
}

void PulseGroup::showUnits()
{
    for (const ValueRow* row : {&m_period, &m_width})
        row->unit->setText(unitSymbol(Unit::Second, microsecondPower + row->field->unitPower()));
}

void PulseGroup::nextUnit(NumberEdit& field)
{
    const auto* const present =
        std::find(std::begin(unitPowers), std::end(unitPowers), field.unitPower());
    const auto* const next = present + 1;
    field.setUnitPower(next == std::end(unitPowers) ? unitPowers[0] : *next);
    showUnits();
}

void PulseGroup::useMicroseconds()
{
    period().setUnitPower(0);
    width().setUnitPower(0);
    showUnits();
}
