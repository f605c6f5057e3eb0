#include "sweep/mode_list.h"

#include "sweep/trigger_group.h"
#include "ui/describe.h"

#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <QVariant>

namespace
{
constexpr int spacing = 8;
constexpr int iconSide = 20;

QPushButton* namedButton(const char* name, QWidget* parent)
{
    auto* button = new QPushButton(parent);
    button->setObjectName(QLatin1String(name));
    button->setIconSize(QSize(iconSide, iconSide));
    return button;
}

QLabel* namedLabel(const QString& name, QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    label->setProperty("sectionSummary", true);
    return label;
}
} // namespace

ModeList::ModeList(TriggerGroup& trigger, QWidget* parent)
    : QFrame(parent), m_trigger(trigger), m_manual(namedButton("pushButton_Manual", this)),
      m_auto(namedButton("pushButton_Auto", this)), m_left(namedButton("leftButton", this)),
      m_right(namedButton("rightButton", this)),
      m_manualPoint(namedLabel(QStringLiteral("label_Manual"), this)),
      m_autoPoint(namedLabel(QStringLiteral("label_AutoPoint"), this)),
      m_status(namedLabel(QStringLiteral("lableStatus"), this))
{
    setObjectName(QStringLiteral("ModeList_Frame"));
    for (std::size_t i = 0; i < m_autoTexts.size(); ++i)
        m_autoTexts[i] = namedLabel(QStringLiteral("label_Auto%1").arg(i + 1), this);
    build();
    connect(m_manual, &QAbstractButton::clicked, this, &ModeList::buttonManualClick);
    connect(m_auto, &QAbstractButton::clicked, this, &ModeList::buttonAutoClick);
    connect(m_left, &QAbstractButton::clicked, this, &ModeList::leftButtonClick);
    connect(m_right, &QAbstractButton::clicked, this, &ModeList::rightButtonClick);
    connect(&trigger, &TriggerGroup::changed, this, &ModeList::refresh);
    retranslate();
}

void ModeList::build()
{
    m_manual->setCheckable(true);
    m_auto->setCheckable(true);
    m_left->setIcon(QIcon(QStringLiteral(":/images/step_back.png")));
    m_right->setIcon(QIcon(QStringLiteral(":/images/step_forward.png")));
    for (QPushButton* button : {m_left, m_right})
        button->setProperty("tool", true);

    auto* manual = new QHBoxLayout;
    manual->setSpacing(spacing);
    for (QWidget* widget : std::initializer_list<QWidget*>{m_manual, m_auto, m_left, m_right,
                                                           m_manualPoint, m_autoPoint})
        manual->addWidget(widget);
    manual->addStretch(1);
    manual->addWidget(m_status);
    auto* automatic = new QHBoxLayout;
    automatic->setSpacing(2 * spacing);
    for (QLabel* label : m_autoTexts)
        automatic->addWidget(label);
    automatic->addStretch(1);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(spacing / 2);
    column->addLayout(manual);
    column->addLayout(automatic);
    // The trigger group's own button says the same.
    m_auto->hide();
}

void ModeList::showPoint(int number, int count)
{
    m_point = number;
    m_pointCount = count;
    refresh();
}

void ModeList::buttonManualClick()
{
    m_trigger.choose(TriggerChoice::Manual);
    refresh();
}

/// An external trigger counts as automatic, too, and is kept.
void ModeList::buttonAutoClick()
{
    if (m_trigger.choice() == TriggerChoice::Manual)
        m_trigger.choose(TriggerChoice::FreeRun);
    refresh();
}

void ModeList::leftButtonClick()
{
    emit stepWanted(-1);
}

void ModeList::rightButtonClick()
{
    emit stepWanted(1);
}

QString ModeList::statusText() const
{
    const TriggerChoice choice = m_trigger.choice();
    const bool isExternal =
        choice == TriggerChoice::ExternalRising || choice == TriggerChoice::ExternalFalling;
    if (isExternal && !m_trigger.allPointsMode().isChecked())
        return tr("TRIG POINT");
    if (choice != TriggerChoice::Manual && !m_trigger.continuousMode().isChecked())
        return tr("Single");
    return tr("Freq -  Pow");
}

void ModeList::refresh()
{
    const TriggerChoice choice = m_trigger.choice();
    const bool isManual = choice == TriggerChoice::Manual;
    m_manual->setChecked(isManual);
    m_auto->setChecked(!isManual);

    const QString sources[] = {tr("Internal timing"), tr("External, rising"),
                               tr("External, falling"), tr("Step by step")};
    const bool isPointwise =
        isManual || (choice != TriggerChoice::FreeRun && !m_trigger.allPointsMode().isChecked());
    const QString point =
        m_point > 0 ? tr("Point %1 of %2").arg(m_point).arg(m_pointCount) : QString();
    const QString texts[] = {sources[static_cast<int>(choice)],
                             isPointwise ? tr("one point") : tr("all points"),
                             m_trigger.continuousMode().isChecked() ? tr("repeated") : tr("once"),
                             point.isEmpty() ? tr("points: %1").arg(m_pointCount) : QString()};
    for (std::size_t i = 0; i < m_autoTexts.size(); ++i)
        m_autoTexts[i]->setText(texts[i]);

    m_manualPoint->setText(isManual ? point : QString());
    m_autoPoint->setText(isManual ? QString() : point);
    m_status->setText(statusText());
}

void ModeList::retranslate()
{
    setAccessibleName(tr("List mode"));
    m_manual->setText(tr("Manual"));
    describe(m_manual, m_manual->text(), tr("Step through the points by hand"));
    m_auto->setText(tr("Auto"));
    describe(m_auto, m_auto->text(), tr("Let time or a trigger run through the points"));
    describe(m_left, m_trigger.previousPoint().accessibleName(),
             m_trigger.previousPoint().toolTip());
    describe(m_right, m_trigger.nextPoint().accessibleName(), m_trigger.nextPoint().toolTip());
    m_status->setToolTip(tr("What a run steps through"));
    refresh();
}
