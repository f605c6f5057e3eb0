#include "sweep/sweep_group.h"

#include "fields/power_guard.h"
#include "link/instrument_limits.h"
#include "numbers/entry_units.h"
#include "numbers/number_text.h"
#include "sweep/run_button.h"
#include "ui/describe.h"
#include "ui/named.h"
#include "ui/two_part_button.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVariant>

#include <utility>

namespace
{
constexpr int spacing = 8;
constexpr int margin = 12;
constexpr int labelWidth = 112;
constexpr int keyWidth = 40;

struct Row {
    const char* name;
    Quantity quantity;        ///< in a sweep over frequency
    Quantity quantityOfPower; ///< in a sweep over power
    const char* text;
};

using Q = Quantity;
constexpr std::array<Row, 5> rows = {{
    {"Freq_Pow", Q::SweepFixedPower, Q::SweepFixedFrequency, "0"},
    {"Start", Q::SweepStartFrequency, Q::SweepStartPower, "25 000 000"},
    {"Stop", Q::SweepStopFrequency, Q::SweepStopPower, "1 000 000 000"},
    {"Step", Q::SweepPoints, Q::SweepPoints, "100"},
    {"Time", Q::SweepDwell, Q::SweepDwell, "1 000"},
}};
/// Those whose quantity depends on the mode.
constexpr std::size_t modeRowCount = 3;

Quantity quantityOf(const Row& row, bool isPowerSweep)
{
    return isPowerSweep ? row.quantityOfPower : row.quantity;
}
} // namespace

SweepGroup::SweepGroup(const FieldContext& context, QWidget* parent)
    : QGroupBox(parent), m_title(named("title_Sweep", new QLabel(this))),
      m_mode(new TwoPartButton(QStringLiteral("power_toFrom_freq"), this)),
      m_run(new RunButton(QStringLiteral("button_Sweep"), this)),
      m_valuesAside{QStringLiteral("1 000 000 000"), QStringLiteral("-10"), QStringLiteral("0")},
      m_followedPower(QLatin1String(rows[0].text)), m_followedFrequency(QLatin1String(rows[1].text))
{
    setObjectName(QStringLiteral("Sweep__"));
    setProperty("section", true);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    build(context);
    wire();
    retranslate();
}

void SweepGroup::build(const FieldContext& context)
{
    m_title->setProperty("sectionTitle", true);

    auto* header = new QHBoxLayout;
    header->setSpacing(spacing);
    header->addWidget(m_title, 1);
    header->addWidget(m_mode);
    header->addWidget(m_run);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(margin, spacing, margin, margin);
    column->setSpacing(spacing);
    column->addLayout(header);
    column->addLayout(buildFields(context));
}

QGridLayout* SweepGroup::buildFields(const FieldContext& context)
{
    auto* grid = new QGridLayout;
    grid->setSpacing(spacing);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const Row& row = rows[i];
        const QString name = QLatin1String(row.name);
        FieldRow& made = m_rows[i];
        made.label = new QLabel(this);
        made.field = new NumberEdit(row.quantity, context, this, QLatin1String(row.text));
        made.key = new QPushButton(this);
        made.label->setObjectName(QStringLiteral("label_") + name);
        made.label->setMinimumWidth(labelWidth);
        made.label->setBuddy(made.field);
        made.field->setObjectName(name);
        made.field->setAlignment(Qt::AlignRight);
        made.key->setObjectName(QStringLiteral("key_") + name);
        made.key->setProperty("valueUnit", true);
        made.key->setFixedWidth(keyWidth);
        // A click must not take the focus from a field, which would commit what is half typed; Tab
        // goes from field to field.
        made.key->setFocusPolicy(Qt::NoFocus);
        const int line = static_cast<int>(i);
        grid->addWidget(made.label, line, 0);
        grid->addWidget(made.field, line, 1);
        grid->addWidget(made.key, line, 2);
    }
    return grid;
}

void SweepGroup::wire()
{
    for (std::size_t i = 0; i < rows.size(); ++i) {
        NumberEdit* field = m_rows[i].field;
        connect(field, &QLineEdit::editingFinished, this, [this, i] { commit(i); });
        connect(field, &QLineEdit::textChanged, this, &SweepGroup::settingsChanged);
        connect(m_rows[i].key, &QAbstractButton::clicked, this,
                [this, field] { emit keypadRequested(field); });
    }
    connect(m_mode, &QAbstractButton::toggled, this, &SweepGroup::changeMode);
}

QPushButton& SweepGroup::run() const
{
    return *m_run;
}

bool SweepGroup::isPowerSweep() const
{
    return m_mode->isChecked();
}

SweepTexts SweepGroup::texts() const
{
    return {isPowerSweep(), fixedValue().text(), start().text(),
            stop().text(),  points().text(),     dwell().text()};
}

void SweepGroup::changeMode()
{
    QString* const asides[] = {&m_valuesAside.fixed, &m_valuesAside.start, &m_valuesAside.stop};
    for (std::size_t i = 0; i < modeRowCount; ++i) {
        NumberEdit* field = m_rows[i].field;
        // Until all three are changed, they are the values of no mode.
        const QSignalBlocker quiet(field);
        field->setQuantity(quantityOf(rows[i], isPowerSweep()));
        const QString shown = std::exchange(*asides[i], field->text());
        field->showAccepted(shown);
    }
    holdCeiling();
    retranslate();
    emit settingsChanged();
}

void SweepGroup::clampToLimits(NumberEdit& field)
{
    field.clamp();
    if (m_guard && boundedAs(field.quantity()) == Quantity::Power)
        m_guard->bound(field);
}

void SweepGroup::setPowerGuard(PowerGuard& guard)
{
    m_guard = &guard;
    connect(m_guard, &PowerGuard::ceilingChanged, this, &SweepGroup::holdCeiling);
    holdCeiling();
}

/// Only of the mode that is shown; the other mode's values are bounded when it is chosen.
void SweepGroup::holdCeiling()
{
    for (std::size_t i = 0; m_guard && i < modeRowCount; ++i) {
        const NumberEdit& field = *m_rows[i].field;
        const QString bounded = m_guard->bounded(field.text());
        if (boundedAs(field.quantity()) == Quantity::Power && bounded != field.text())
            showBounded(i, bounded);
    }
}

/// Bounding is not an entry: a field that follows the display keeps following it.
void SweepGroup::showBounded(std::size_t index, const QString& text)
{
    NumberEdit& field = *m_rows[index].field;
    QString* const followed = followedBy(index);
    if (followed && field.text() == *followed)
        *followed = text;
    field.showAccepted(text);
}

void SweepGroup::follow(QString* followed, std::size_t index, const QString& text)
{
    NumberEdit& field = *m_rows[index].field;
    QString* const aside = index == 0 ? &m_valuesAside.fixed : &m_valuesAside.start;
    const QString present = isPowerSweep() ? *aside : field.text();
    if (followed->isNull() || !isPlainDecimal(withoutBlanks(text)))
        return;
    *followed = present == *followed || present == text ? text : QString();
    if (followed->isNull() || present == text)
        return;
    if (isPowerSweep())
        *aside = text;
    else
        field.showAccepted(text);
}

void SweepGroup::commit(std::size_t index)
{
    NumberEdit& field = *m_rows[index].field;
    const bool isNumber = field.takeNumber();
    m_isLeftForRun = !isNumber && m_run->hasFocus();
    if (!isNumber)
        return;
    clampToLimits(field);
    field.showAccepted(field.text());
    QString* const followed = followedBy(index);
    if (followed && field.text() != *followed)
        *followed = QString();
}

/// The value that the field follows; null for a field that follows nothing in the current mode.
QString* SweepGroup::followedBy(std::size_t index)
{
    if (isPowerSweep() || index > 1)
        return nullptr;
    return index == 0 ? &m_followedPower : &m_followedFrequency;
}

bool SweepGroup::canRun()
{
    // Leaving the field has reported it already.
    if (std::exchange(m_isLeftForRun, false))
        return false;
    for (const FieldRow& row : m_rows) {
        if (!row.field->takeNumber())
            return false;
    }
    const bool hasPoints = points().value() >= 1.0;
    if (!hasPoints)
        points().refuse([] { return tr("nothing to run"); });
    return hasPoints;
}

int SweepGroup::boundByLimits()
{
    const InstrumentLimits& limits = points().context().limits;
    int count = 0;
    QString* const asides[] = {&m_valuesAside.fixed, &m_valuesAside.start, &m_valuesAside.stop};
    for (std::size_t i = 0; i < rows.size(); ++i) {
        QString text = m_rows[i].field->text();
        if (limits.bound(text, m_rows[i].field->quantity())) {
            showBounded(i, text);
            ++count;
        }
        const Quantity aside = quantityOf(rows[i], !isPowerSweep());
        if (i < modeRowCount && limits.bound(*asides[i], aside))
            ++count;
    }
    return count;
}

void SweepGroup::retranslate()
{
    m_title->setText(tr("Sweep"));
    setAccessibleName(m_title->text());
    m_mode->setTexts(tr("Frequency"), tr("Power"));
    describe(m_mode, isPowerSweep() ? tr("Power sweep") : tr("Frequency sweep"),
             tr("Freq-Pow switch"));
    m_run->setTexts(tr("Run the sweep"), tr("Stop the sweep"),
                    tr("Run the sweep while pressed in"));

    const QString captions[] = {isPowerSweep() ? tr("Frequency") : tr("Power"), tr("Start"),
                                tr("Stop"), tr("Points"), tr("Dwell")};
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const FieldRow& row = m_rows[i];
        row.label->setText(captions[i]);
        row.field->describe();
        row.field->describeKeypadKey(*row.key);
        row.key->setText(unitText(entryUnits(row.field->kind(), 0), 0));
    }
}
