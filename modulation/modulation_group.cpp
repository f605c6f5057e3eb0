#include "modulation/modulation_group.h"

#include "modulation/waveform_picture.h"
#include "numbers/number_text.h"
#include "numbers/readable_quantity.h"
#include "ui/arrow_keys.h"
#include "ui/describe.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVariant>

#include <algorithm>
#include <iterator>

/// What differs between the three groups.
struct ModulationGroup::Row {
    const char* name;
    const char* image;
    const char* suffix;
    const char* heading;
    const char* levelCaption;
    Unit levelUnit;
    const char* levelText;
    Quantity rate;
    Quantity level;
    Quantity duty;
    const char* rateNames[2]; ///< caption button, unit button
    const char* levelNames[2];
    const char* dutyUnitName;
    const char* labelNames[2]; ///< summary, caption of the duty
};

namespace
{
using Row = ModulationGroup::Row;
using Q = Quantity;

// clang-format off
const Row rows[] = {
    {QT_TRANSLATE_NOOP("ModulationGroup", "AM"), ":/images/am.png", "Ampl",
     QT_TRANSLATE_NOOP("ModulationGroup", "Amplitude modulation"),
     QT_TRANSLATE_NOOP("ModulationGroup", "Depth"), Unit::Percent, "1.00",
     Q::AmRate, Q::AmDepth, Q::AmDuty,
     {"Ampl_F", "pushButton"}, {"Ampl_depth", "pushButton_2"}, "pushButton_7", {"label_3", "label_4"}},
    {QT_TRANSLATE_NOOP("ModulationGroup", "FM"), ":/images/fm.png", "FREQ",
     QT_TRANSLATE_NOOP("ModulationGroup", "Frequency modulation"),
     QT_TRANSLATE_NOOP("ModulationGroup", "Deviation"), Unit::Hertz, "0.0015625",
     Q::FmRate, Q::FmDeviation, Q::FmDuty,
     {"FREQ_T", "pushButton_3"}, {"FREQ_Dev", "pushButton_4"}, "pushButton_8", {"label_7", "label_8"}},
    {QT_TRANSLATE_NOOP("ModulationGroup", "PM"), ":/images/pm.png", "Phase",
     QT_TRANSLATE_NOOP("ModulationGroup", "Phase modulation"),
     QT_TRANSLATE_NOOP("ModulationGroup", "Deviation"), Unit::Radian, "0.001",
     Q::PmRate, Q::PmDeviation, Q::PmDuty,
     {"Phase_T", "pushButton_5"}, {"Phase_Dev", "pushButton_6"}, "pushButton_9", {"label_9", "label_10"}},
};
// clang-format on

constexpr char initialRate[] = "1 000";
constexpr char initialDuty[] = "50";
constexpr int shapeColumns = 3;
} // namespace

ModulationGroup::ModulationGroup(Modulation modulation, const FieldContext& context,
                                 QWidget* selection, QWidget* parent)
    : FoldBox(QLatin1String(rows[static_cast<int>(modulation)].name) + QLatin1Char('_'),
              QStringLiteral("title") + QLatin1String(rows[static_cast<int>(modulation)].name),
              parent),
      m_row(rows[static_cast<int>(modulation)]), m_state(newStateButton(name(), selection)),
      m_summary(addSummary()), m_source(newSourceSwitch(QStringLiteral("IntExt_") + name(), this)),
      m_dutyCaption(new QLabel(body())), m_picture(new WaveformPicture(this))
{
    m_picture->hide();
    m_state->setIcon(QIcon(QLatin1String(m_row.image)));
    build(context);
    shapeButton(WaveShape::Sine)->setChecked(true);
    for (const QLineEdit* field : {m_rate.field, m_level.field, m_duty.field})
        connect(field, &QLineEdit::textChanged, this, &ModulationGroup::refresh);
    for (const NumberEdit* field : {m_rate.field, m_level.field})
        connect(field, &NumberEdit::accepted, this, &ModulationGroup::lampChanged);
    for (const QPushButton* button : m_shapes)
        connect(button, &QAbstractButton::toggled, this, &ModulationGroup::refresh);
    connect(m_source, &QAbstractButton::toggled, this, &ModulationGroup::refresh);
    connect(m_state, &QAbstractButton::toggled, this, &ModulationGroup::setLit);
    retranslate();
}

void ModulationGroup::build(const FieldContext& context)
{
    m_summary->setObjectName(QLatin1String(m_row.labelNames[0]));
    header()->addWidget(m_source);
    auto* column = new QVBoxLayout(body());
    column->setContentsMargins(sectionMargin, 0, sectionMargin, sectionMargin);
    column->setSpacing(panelSpacing);
    column->addLayout(buildShapes());
    column->addLayout(buildValues(context));
}

QGridLayout* ModulationGroup::buildShapes()
{
    auto* grid = new QGridLayout;
    grid->setSpacing(panelSpacing);
    for (int i = 0; i < modulationShapeCount; ++i) {
        const auto shape = static_cast<WaveShape>(i);
        QPushButton* button = newShapeButton(
            shape, QLatin1String(shapeNames(shape).modulationPrefix) + QLatin1String(m_row.suffix),
            body());
        grid->addWidget(button, i / shapeColumns, i % shapeColumns);
        grid->setColumnStretch(i % shapeColumns, 1);
        m_shapes[static_cast<std::size_t>(i)] = button;
    }
    new ArrowKeys({m_shapes.begin(), m_shapes.end()}, shapeColumns, this);
    return grid;
}

QGridLayout* ModulationGroup::buildValues(const FieldContext& context)
{
    const QString suffix = QLatin1String(m_row.suffix);
    const auto names = [](const char* const(&keys)[2], const QString& field) {
        return ValueRowNames{QLatin1String(keys[0]), field, QLatin1String(keys[1])};
    };
    auto* grid = new QGridLayout;
    grid->setSpacing(panelSpacing);
    const auto field = [&](Quantity quantity, const char* text) {
        return new NumberEdit(quantity, context, body(), QLatin1String(text));
    };
    m_rate = addValueRow(grid, names(m_row.rateNames, QStringLiteral("line_%1_1").arg(suffix)),
                         field(m_row.rate, initialRate));
    m_level = addValueRow(grid, names(m_row.levelNames, QStringLiteral("line_%1_2").arg(suffix)),
                          field(m_row.level, m_row.levelText));
    m_duty =
        addValueRow(grid,
                    {QStringLiteral("percentButton_") + suffix,
                     QStringLiteral("percentLine_") + suffix, QLatin1String(m_row.dutyUnitName)},
                    field(m_row.duty, initialDuty));
    for (const ValueRow* row : {&m_rate, &m_level, &m_duty})
        joinUnitToCaption(*row);

    // The button is captioned with the duty, and shows the label's word.
    m_dutyCaption->setObjectName(QLatin1String(m_row.labelNames[1]));
    m_dutyCaption->hide();
    return grid;
}

Modulation ModulationGroup::modulation() const
{
    return static_cast<Modulation>(&m_row - rows);
}

QString ModulationGroup::name() const
{
    return QLatin1String(m_row.name);
}

QString ModulationGroup::caption() const
{
    return tr(m_row.name);
}

bool ModulationGroup::isExternal() const
{
    return m_source->isChecked();
}

WaveShape ModulationGroup::checkedShape() const
{
    const auto* checked =
        std::find_if(m_shapes.begin(), m_shapes.end(),
                     [](const QPushButton* button) { return button->isChecked(); });
    return checked == m_shapes.end() ? WaveShape::Sine
                                     : static_cast<WaveShape>(checked - m_shapes.begin());
}

bool ModulationGroup::chooseShape(const QPushButton* button)
{
    if (std::find(m_shapes.begin(), m_shapes.end(), button) == m_shapes.end())
        return false;
    for (QPushButton* each : m_shapes)
        each->setChecked(each == button);
    return true;
}

/// Updates everything for the shape, the source and the fields.
void ModulationGroup::refresh()
{
    const WaveShape shape = checkedShape();
    m_rate.setEnabled(shape != WaveShape::Random);
    m_duty.setEnabled(shape == WaveShape::Square);
    m_duty.caption->setText(withoutBlanks(m_duty.field->text()));

    const double level = m_level.field->value();
    const double rateHz = shape == WaveShape::Random ? 0.0 : m_rate.field->value();
    const double duty = m_duty.field->value();
    if (isExternal())
        m_picture->showNote(tr("External source"));
    else
        m_picture->showWaveform({shape, rateHz > 0.0 ? 1.0 / rateHz : 0.0, duty, -level, level},
                                m_row.levelUnit);
    QStringList summary;
    if (rateHz > 0.0 && !isExternal())
        summary << readableQuantity(rateHz, Unit::Hertz);
    const QStringList heading = QStringList(tr(m_row.heading)) + summary;
    m_picture->setHeading(
        summaryText(heading + QStringList(readableQuantity(level, m_row.levelUnit))));
    // What nobody has set yet is no setting to be read at a glance.
    if (m_level.field->text() != QLatin1String(m_row.levelText))
        summary << readableQuantity(level, m_row.levelUnit);
    m_summary->setText(summaryText(summary));
    emit lampChanged();
}

QString ModulationGroup::lampWords() const
{
    QStringList words = {caption(),
                         readableQuantity(m_level.field->acceptedValue(), m_row.levelUnit)};
    if (isExternal())
        words << externalWord();
    else if (checkedShape() != WaveShape::Random)
        words << readableQuantity(m_rate.field->acceptedValue(), Unit::Hertz);
    return words.join(QLatin1Char(' '));
}

void ModulationGroup::retranslate()
{
    setHeading(tr(m_row.heading));
    m_state->setText(caption());
    describe(m_state, tr(m_row.heading),
             tr("Switch the modulation on or off (Down: its settings)"));
    for (std::size_t i = 0; i < m_shapes.size(); ++i) {
        const QString shapeName = shapeCaption(static_cast<WaveShape>(i));
        m_shapes[i]->setText(shapeName);
        describe(m_shapes[i], caption() + QLatin1Char(' ') + shapeName,
                 tr("Shape of the internal source: %1").arg(shapeName));
    }
    retranslateSourceSwitch(m_source, tr("%1 source").arg(caption()));
    m_summary->setToolTip(tr("Settings of the modulation"));

    m_dutyCaption->setText(tr("DUTY"));
    m_duty.caption->setWord(m_dutyCaption->text());
    retranslateValueRow(m_rate, tr("Frequency"), unitSymbol(Unit::Hertz));
    retranslateValueRow(m_level, tr(m_row.levelCaption), unitSymbol(m_row.levelUnit));
    retranslateValueRow(m_duty, QString(), unitSymbol(Unit::Percent));
    refresh();
}
