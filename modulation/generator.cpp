#include "modulation/generator.h"

#include "modulation/waveform_picture.h"
#include "numbers/number_text.h"
#include "numbers/readable_quantity.h"
#include "ui/arrow_keys.h"
#include "ui/describe.h"

#include <QEvent>
#include <QGridLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>
#include <QVariant>

#include <algorithm>

namespace
{
constexpr char initialFrequency[] = "10 000.0";
constexpr char initialAmplitude[] = "1.000";
constexpr char initialDuty[] = "50";
constexpr int shapeColumns = 3;
} // namespace

generator::generator(const FieldContext& context, QWidget* parent)
    : SidePanel(QStringLiteral("generator"), parent), m_picture(new WaveformPicture(this))
{
    build(context);
    wire();
    generator::retranslate();
}

void generator::build(const FieldContext& context)
{
    m_picture->hide();
    title()->setObjectName(QStringLiteral("name_generator"));
    content()->addLayout(buildShapes());
    auto* values = new QGridLayout;
    values->setSpacing(panelSpacing);
    const auto field = [&](Quantity quantity, const char* text) {
        return new NumberEdit(quantity, context, this, QLatin1String(text));
    };
    m_frequency = addValueRow(values,
                              {QStringLiteral("caption_FREQ"), QStringLiteral("FREQ"),
                               QStringLiteral("unit_generator_FREQ")},
                              field(Quantity::LfFrequency, initialFrequency));
    m_amplitude = addValueRow(values,
                              {QStringLiteral("caption_VOLTAGE"), QStringLiteral("VOLTAGE"),
                               QStringLiteral("unit_VOLTAGE")},
                              field(Quantity::LfAmplitude, initialAmplitude));
    m_duty = addValueRow(
        values,
        {QStringLiteral("vvod_Percent"), QStringLiteral("percent"), QStringLiteral("unit_percent")},
        field(Quantity::LfDuty, initialDuty));
    content()->addLayout(values);
}

QGridLayout* generator::buildShapes()
{
    auto* grid = new QGridLayout;
    grid->setSpacing(panelSpacing);
    for (int i = 0; i < shapeCount; ++i) {
        const ShapeNames& names = shapeNames(static_cast<WaveShape>(i));
        QPushButton* button = newShapeButton(names.shape, QLatin1String(names.lfButton), this);
        // The LF output's rectangle is drawn as the pulses are.
        if (names.shape == WaveShape::Square)
            button->setIcon(QIcon(QStringLiteral(":/images/pulse.png")));
        grid->addWidget(button, i / shapeColumns, i % shapeColumns);
        grid->setColumnStretch(i % shapeColumns, 1);
        m_shapes[static_cast<std::size_t>(i)] = button;
    }
    new ArrowKeys({m_shapes.begin(), m_shapes.end()}, shapeColumns, this);
    return grid;
}

void generator::wire()
{
    for (const QLineEdit* field : {&frequency(), &amplitude(), &duty()})
        connect(field, &QLineEdit::textChanged, this, &generator::refresh);
    for (const NumberEdit* field : {&frequency(), &amplitude()})
        connect(field, &NumberEdit::accepted, this, &generator::lampChanged);

    // Connected here, so that the choice is exclusive before any other receiver of the click.
    for (QPushButton* button : m_shapes) {
        connect(button, &QAbstractButton::clicked, this, [this, button] { chooseShape(button); });
        connect(button, &QAbstractButton::toggled, this, &generator::refresh);
        button->installEventFilter(this);
    }
    const struct {
        const ValueRow& row;
        void (generator::*slot)();
    } keys[] = {{m_frequency, &generator::F_click},
                {m_amplitude, &generator::A_click},
                {m_duty, &generator::vvod_Percent_click}};
    for (const auto& key : keys) {
        connect(key.row.caption, &QAbstractButton::clicked, this, key.slot);
        joinUnitToCaption(key.row);
    }
}

std::optional<WaveShape> generator::checkedShape() const
{
    for (std::size_t i = 0; i < m_shapes.size(); ++i) {
        if (m_shapes[i]->isChecked())
            return static_cast<WaveShape>(i);
    }
    return std::nullopt;
}

/// The click itself has already checked the button, or unchecked the one that was on.
void generator::chooseShape(const QAbstractButton* clicked)
{
    for (QPushButton* each : m_shapes) {
        if (each != clicked)
            each->setChecked(false);
    }
}

std::optional<WaveShape> generator::pointedShape() const
{
    for (std::size_t i = 0; i < m_shapes.size(); ++i) {
        if (m_shapes[i]->underMouse() || m_shapes[i]->hasFocus())
            return static_cast<WaveShape>(i);
    }
    return std::nullopt;
}

bool generator::eventFilter(QObject* watched, QEvent* event)
{
    static const std::array<QEvent::Type, 4> pointing = {QEvent::Enter, QEvent::Leave,
                                                         QEvent::FocusIn, QEvent::FocusOut};
    if (std::find(pointing.begin(), pointing.end(), event->type()) != pointing.end())
        QTimer::singleShot(0, this, &generator::refresh);
    return SidePanel::eventFilter(watched, event);
}

void generator::autoOff()
{
    if (const std::optional<WaveShape> shape = checkedShape())
        shapeButton(*shape)->click();
    emit hide_();
}

QString generator::lampWords() const
{
    const std::optional<WaveShape> shape = checkedShape();
    QStringList words = {tr("LF"), readableQuantity(amplitude().acceptedValue(), Unit::Volt)};
    if (shape == WaveShape::Dc)
        words.insert(1, shapeCaption(WaveShape::Dc));
    else if (shape != WaveShape::Random)
        words << readableQuantity(frequency().acceptedValue(), Unit::Hertz);
    return words.join(QLatin1Char(' '));
}

void generator::A_click()
{
    emit keypadRequested(&amplitude());
}
void generator::F_click()
{
    emit keypadRequested(&frequency());
}
void generator::vvod_Percent_click()
{
    emit keypadRequested(&duty());
}

/// Updates everything for the waveform and the fields.
void generator::refresh()
{
    emit lampChanged();
    const std::optional<WaveShape> shape = checkedShape();
    m_duty.setEnabled(shape == WaveShape::Square);
    const std::optional<WaveShape> shown = shape ? shape : pointedShape();
    if (!shown) {
        m_picture->showNote(tr("The LF generator is off"));
        m_picture->setHeading(tr("LF Generator"));
        return;
    }
    const bool hasFrequency = *shown != WaveShape::Random && *shown != WaveShape::Dc;
    const double frequencyHz = hasFrequency ? frequency().value() : 0.0;
    const double amplitudeV = amplitude().value();
    m_picture->showWaveform({*shown, frequencyHz > 0.0 ? 1.0 / frequencyHz : 0.0, duty().value(),
                             *shown == WaveShape::Dc ? amplitudeV : -amplitudeV, amplitudeV},
                            Unit::Volt);
    QStringList heading = {tr("LF Generator"), shapeCaption(*shown)};
    if (frequencyHz > 0.0)
        heading << readableQuantity(frequencyHz, Unit::Hertz);
    m_picture->setHeading(summaryText(heading << readableQuantity(amplitudeV, Unit::Volt)));
}

void generator::retranslate()
{
    SidePanel::retranslate();
    setTitle(tr("LF Generator"));
    for (std::size_t i = 0; i < m_shapes.size(); ++i) {
        const QString shapeName = shapeCaption(static_cast<WaveShape>(i));
        m_shapes[i]->setText(shapeName);
        describe(m_shapes[i], tr("LF generator: %1").arg(shapeName),
                 tr("Switch the LF generator on with this waveform; a click on the chosen one "
                    "switches it off"));
    }
    retranslateValueRow(m_frequency, tr("Frequency"), unitSymbol(Unit::Hertz));
    retranslateValueRow(m_amplitude, tr("Magnitude"), unitSymbol(Unit::Volt));
    retranslateValueRow(m_duty, tr("DUTY"), unitSymbol(Unit::Percent));
    refresh();
}
