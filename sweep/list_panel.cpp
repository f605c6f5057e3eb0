#include "sweep/list_panel.h"

#include "sweep/list_group.h"
#include "sweep/point_table.h"
#include "sweep/sweep_group.h"

#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace
{
constexpr int panelWidth = 560;
} // namespace

List::List(QWidget* parent)
    : SidePanel(QStringLiteral("List"), parent), m_sweep(new SweepGroup(this)),
      m_trigger(new TriggerGroup(this)), m_list(new ListGroup(this))
{
    build();
    wire();
    List::retranslate();
}

void List::build()
{
    setFixedWidth(panelWidth);
    content()->addWidget(m_trigger);
    content()->addWidget(m_sweep);
    content()->addWidget(m_list, 1);
    m_list->hide();
}

void List::wire()
{
    connect(m_sweep, &SweepGroup::keypadRequested, this, &List::keypadRequested);
    connect(m_sweep, &SweepGroup::settingsChanged, this, &List::sweepChanged);
    connect(m_trigger, &TriggerGroup::triggerChosen, this, &List::triggerChosen);
}

QPushButton& List::runSweep() const
{
    return m_sweep->run();
}
QPushButton& List::runList() const
{
    return m_list->run();
}
bool List::isRunning() const
{
    return runSweep().isChecked() || runList().isChecked();
}

bool List::isPowerSweep() const
{
    return m_sweep->isPowerSweep();
}
QLineEdit& List::fixedValue() const
{
    return m_sweep->fixedValue();
}
QLineEdit& List::start() const
{
    return m_sweep->start();
}
QLineEdit& List::stop() const
{
    return m_sweep->stop();
}
QLineEdit& List::points() const
{
    return m_sweep->points();
}
QLineEdit& List::dwell() const
{
    return m_sweep->dwell();
}
SweepValues& List::valuesAside() const
{
    return m_sweep->valuesAside();
}

TriggerChoice List::triggerChoice() const
{
    return m_trigger->choice();
}
bool List::isAllPoints() const
{
    return allPointsMode().isChecked();
}
bool List::isContinuous() const
{
    return continuousMode().isChecked();
}
QPushButton& List::previousPoint() const
{
    return m_trigger->previousPoint();
}
QPushButton& List::nextPoint() const
{
    return m_trigger->nextPoint();
}
QPushButton& List::continuousMode() const
{
    return m_trigger->continuousMode();
}
QPushButton& List::allPointsMode() const
{
    return m_trigger->allPointsMode();
}

PointTable& List::table() const
{
    return m_list->table();
}

void List::autoOff()
{
    for (QPushButton* run : {&runSweep(), &runList()}) {
        if (run->isChecked())
            run->click();
    }
    emit hide_();
}

void List::highlightPoint(int number)
{
    table().highlightPoint(number);
}

void List::retranslate()
{
    SidePanel::retranslate();
    setTitle(tr("Sweep/List"));
    m_sweep->retranslate();
    m_trigger->retranslate();
    m_list->retranslate();
}
