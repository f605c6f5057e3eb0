#include "sweep/trigger_group.h"

#include "ui/describe.h"
#include "ui/two_part_button.h"

#include <QIcon>
#include <QPushButton>
#include <QVBoxLayout>
#include <QVariant>

namespace
{
constexpr int spacing = 8;
constexpr int margin = 12;
constexpr int iconSide = 24;

struct Button {
    const char* name;
    const char* icon;
    std::size_t line;
    int stretch;
};
constexpr std::array<Button, 8> buttons = {{
    {"List_is_Checked", "", 0, 2},
    {"time_select", "", 1, 1},
    {"int_select", ":/images/trigger_rise.png", 1, 1},
    {"ext_select", ":/images/trigger_fall.png", 1, 1},
    {"left_select", ":/images/step_back.png", 1, 1},
    {"right_select", ":/images/step_forward.png", 1, 1},
    {"trigMode", ":/images/repeat.png", 0, 1},
    {"modeFront", "", 0, 2},
}};
constexpr std::size_t shownIndex = 0;
constexpr std::array<TriggerChoice, 3> sources = {
    TriggerChoice::FreeRun, TriggerChoice::ExternalRising, TriggerChoice::ExternalFalling};
} // namespace

TriggerGroup::TriggerGroup(QWidget* parent)
    : QGroupBox(parent), m_shown(new TwoPartButton(QLatin1String(buttons[shownIndex].name), this))
{
    setObjectName(QStringLiteral("Trigger__"));
    setProperty("section", true);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    build();
    wire();
    source(TriggerChoice::FreeRun).setChecked(true);
    retranslate();
}

void TriggerGroup::build()
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(margin, spacing, margin, spacing);
    column->setSpacing(spacing);
    const std::array<QHBoxLayout*, 2> lines = {new QHBoxLayout, new QHBoxLayout};
    for (QHBoxLayout* line : lines) {
        line->setSpacing(spacing);
        column->addLayout(line);
    }
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        const Button& row = buttons[i];
        QPushButton* button = i == shownIndex ? m_shown : new QPushButton(this);
        button->setObjectName(QLatin1String(row.name));
        button->setCheckable(true);
        button->setIcon(QIcon(QLatin1String(row.icon)));
        button->setIconSize(QSize(iconSide, iconSide));
        // As wide as its part of the line, whatever stands on it.
        button->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        lines[row.line]->addWidget(button, row.stretch);
        m_buttons[i] = button;
    }
}

void TriggerGroup::wire()
{
    for (QPushButton* button : m_buttons)
        connect(button, &QAbstractButton::toggled, this, &TriggerGroup::changed);
    for (const TriggerChoice each : sources) {
        QPushButton* button = &source(each);
        connect(button, &QAbstractButton::toggled, this, [this, button](bool isChecked) {
            if (isChecked)
                excludeOthers(button);
        });
        connect(button, &QAbstractButton::clicked, this, &TriggerGroup::triggerChosen);
    }
    // A step is over at once; connected here, before any other receiver of the click.
    for (QPushButton* button : {&previousPoint(), &nextPoint()}) {
        connect(button, &QAbstractButton::clicked, this, [this, button] {
            button->setChecked(false);
            excludeOthers(button);
        });
    }
    connect(&listShown(), &QAbstractButton::toggled, this, &TriggerGroup::showArrows);
}

/// A list has its own, since a step is another command there.
void TriggerGroup::showArrows()
{
    for (QPushButton* button : {&previousPoint(), &nextPoint()})
        button->setHidden(listShown().isChecked());
}

QPushButton& TriggerGroup::source(TriggerChoice choice) const
{
    return *m_buttons[1 + static_cast<std::size_t>(choice)];
}

TriggerChoice TriggerGroup::choice() const
{
    for (const TriggerChoice each : sources) {
        if (source(each).isChecked())
            return each;
    }
    return TriggerChoice::Manual;
}

void TriggerGroup::choose(TriggerChoice wanted)
{
    const TriggerChoice present = choice();
    if (present == wanted)
        return;
    // A click on the checked source leaves none.
    source(wanted == TriggerChoice::Manual ? present : wanted).click();
}

void TriggerGroup::excludeOthers(const QPushButton* chosen)
{
    for (const TriggerChoice each : sources) {
        QPushButton& button = source(each);
        if (&button != chosen)
            button.setChecked(false);
    }
}

void TriggerGroup::retranslate()
{
    setAccessibleName(tr("Trigger"));
    m_shown->setTexts(tr("Sweep"), tr("List"));
    describe(&listShown(), tr("Sweep-List switch"), tr("Sweep-List switch"));
    QPushButton& automatic = source(TriggerChoice::FreeRun);
    automatic.setText(tr("AUTO"));
    describe(&automatic, tr("Automatic trigger"), tr("Automatic sweep/list control"));
    describe(&source(TriggerChoice::ExternalRising), tr("External trigger, rising edge"),
             tr("External trigger (positive polarity)"));
    describe(&source(TriggerChoice::ExternalFalling), tr("External trigger, falling edge"),
             tr("External trigger (negative polarity)"));
    describe(&previousPoint(), tr("Previous point"), tr("Go to previous point"));
    describe(&nextPoint(), tr("Next point"), tr("Go to next point"));
    describe(&continuousMode(), tr("Continuous"), tr("Continuous sweep/list mode"));
    allPointsMode().setText(tr("ALLPOINTS"));
    describe(&allPointsMode(), tr("All points"), tr("Sweep all points by the trigger signal"));
}
