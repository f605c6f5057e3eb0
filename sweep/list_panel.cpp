#include "sweep/list_panel.h"

#include "fields/power_guard.h"
#include "link/notices.h"
#include "numbers/number_text.h"
#include "sweep/list/list_document.h"
#include "sweep/list/list_file.h"
#include "sweep/list/list_file_dialogs.h"
#include "sweep/list/point_actions.h"
#include "sweep/list/point_table.h"
#include "sweep/list_group.h"
#include "sweep/mode_list.h"
#include "sweep/picture/list_plot.h"
#include "sweep/sweep_group.h"
#include "ui/named.h"
#include "ui/progress_bar_for_table.h"

#include <QAction>
#include <QDir>
#include <QFileInfo>
#include <QMenu>
#include <QPushButton>
#include <QScrollArea>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <limits>

namespace
{
/// The least that the groups can do with.
constexpr int leastHeight = 320;
constexpr int spacing = 8;

/// As the table shows such numbers.
PointRows rowsOfRun(const RunPoints& run)
{
    PointRows rows;
    rows.reserve(static_cast<std::size_t>(run.count()));
    for (int number = 1; number <= run.count(); ++number) {
        const RunPoint point = run.point(number);
        rows.push_back({fieldText(point.frequencyHz, FieldKind::Frequency),
                        fieldText(point.powerDbm, FieldKind::Power),
                        fieldText(point.dwellUs, FieldKind::Dwell)});
    }
    return rows;
}
} // namespace

List::List(const FieldContext& context, QWidget* parent)
    : SidePanel(QStringLiteral("List"), parent), m_notices(context.notices),
      m_sweep(new SweepGroup(context, this)), m_trigger(new TriggerGroup(this)),
      m_list(new ListGroup(context, *m_trigger, this)), m_plot(new ListPlot(this)),
      m_files(new ListFileDialogs(&m_list->table()))
{
    build();
    wire();
    wireList();
    List::retranslate();
}

void List::build()
{
    auto* scroll = new QScrollArea(this);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    // Otherwise it takes the focus, which a click on a button leaves where it is.
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto* groups = named("list_groups", new QWidget(scroll));
    scroll->setWidget(groups);
    scroll->setMinimumHeight(leastHeight);
    content()->addWidget(scroll, 1);
    growContent();

    auto* column = new QVBoxLayout(groups);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(spacing);
    column->addWidget(m_trigger);
    column->addWidget(m_sweep);
    column->addWidget(m_list, 1);
    column->addStretch(0);
    m_plot->hide();
    showChosenGroup();
}

void List::wire()
{
    connect(m_sweep, &SweepGroup::keypadRequested, this, &List::keypadRequested);
    connect(m_sweep, &SweepGroup::settingsChanged, this, &List::sweepChanged);
    connect(m_trigger, &TriggerGroup::triggerChosen, this, &List::triggerChosen);
    connect(&m_trigger->listShown(), &QAbstractButton::toggled, this, &List::showChosenGroup);
    // One of the two runs, and it is the one shown.
    connect(&runSweep(), &QAbstractButton::toggled, this, [this](bool isChecked) {
        if (isChecked)
            m_trigger->listShown().setChecked(false);
    });
    connect(&runList(), &QAbstractButton::toggled, this, [this](bool isChecked) {
        m_chosenRow = -1;
        table().setGrowing(!isChecked);
        if (isChecked)
            m_trigger->listShown().setChecked(true);
    });
    connect(m_files, &ListFileDialogs::errorMessage, this, &List::errorMessage);
}

void List::wireList()
{
    connect(&table(), &QTableWidget::cellChanged, this, &List::editTable);
    connect(&m_list->actions(), &PointActions::generateWanted, this, &List::generateList);
    // The empty table names its key, wherever the focus is.
    addAction(m_list->actions().action(PointActions::Generate));
    connect(&m_list->save(), &QAbstractButton::clicked, m_files, &ListFileDialogs::save);
    connect(&m_list->open(), &QAbstractButton::clicked, this, &List::openList);

    connect(&m_list->recent(), &QMenu::aboutToShow, this, &List::fillRecent);
    connect(&m_files->document(), &ListDocument::changed, this, &List::showFile);
    showFile();

    connect(&table(), &QTableWidget::currentCellChanged, this, &List::chooseRow);
    connect(&table(), &QTableWidget::cellPressed, this, &List::chooseRow);
    connect(m_trigger, &TriggerGroup::changed, this, [this] {
        if (m_trigger->choice() != TriggerChoice::Manual)
            m_chosenRow = -1;
    });
    connect(&m_list->mode(), &ModeList::stepWanted, this, &List::step);
    for (const QPushButton* button : {&m_trigger->previousPoint(), &m_trigger->nextPoint()}) {
        connect(button, &QAbstractButton::clicked, this, [this] {
            if (runList().isChecked())
                m_notices.say(
                    [] { return tr("Step a list by its rows or by the arrows above them"); });
        });
    }
}

void List::showChosenGroup()
{
    stopRun(isListShown() ? runSweep() : runList());
    m_sweep->setVisible(!isListShown());
    m_list->setVisible(isListShown());
    m_list->actions().action(PointActions::Generate)->setEnabled(isListShown());
    emit shownChanged();
}

void List::stopRun(QPushButton& run)
{
    if (run.isChecked())
        run.click();
}

bool List::isListShown() const
{
    return m_trigger->listShown().isChecked();
}

QSize List::sizeHint() const
{
    const QSize least = minimumSizeHint();
    const int groups = m_trigger->sizeHint().height() + spacing +
                       std::max(m_sweep->sizeHint().height(), m_list->sizeHint().height());
    return {least.width(), least.height() - leastHeight + groups};
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

bool List::canRunSweep()
{
    return m_sweep->canRun();
}
bool List::canRunList()
{
    table().dropUnusedRow();
    const bool hasPoints = table().rowCount() > 0;
    if (!hasPoints)
        m_notices.say([] { return tr("The list has no points to run"); });
    return hasPoints;
}

PointTable& List::table() const
{
    return m_list->table();
}

void List::setPowerGuard(PowerGuard& guard)
{
    m_sweep->setPowerGuard(guard);
    table().setPowerGuard(guard);
}

double List::sweepTopDbm() const
{
    if (!m_sweep->isPowerSweep())
        return m_sweep->fixedValue().value();
    return std::max(m_sweep->start().value(), m_sweep->stop().value());
}

double List::listTopDbm() const
{
    double topDbm = -std::numeric_limits<double>::infinity();
    for (int row = 0; row < table().rowCount(); ++row) {
        const QString power = table().text(row, PointTable::Power);
        if (!withoutBlanks(power).isEmpty())
            topDbm = std::max(topDbm, toNumber(power));
    }
    return topDbm;
}

void List::stopRuns()
{
    stopRun(runSweep());
    stopRun(runList());
}

void List::autoOff()
{
    stopRuns();
    emit hide_();
}

/// Not before the click that has chosen it is over, which signals it twice.
void List::forgetChosenPoint()
{
    QTimer::singleShot(0, this, [this] { m_chosenRow = table().highlightedPoint() - 1; });
}

int List::boundByLimits()
{
    return m_sweep->boundByLimits() + table().boundByLimits();
}

void List::highlightPoint(int number)
{
    table().highlightPoint(number);
    m_list->mode().showPoint(number, table().rowCount());
}

void List::editTable(int row, int column)
{
    table().acceptCell(row, column);
}

void List::restorePoints(QSettings& settings)
{
    m_files->document().restore(settings);
}

void List::keepPoints()
{
    m_files->document().keep();
}

void List::showFile()
{
    const ListDocument& document = m_files->document();
    m_list->showFile(document.title(), document.file(), !document.recentFiles().isEmpty());
}

/// Each with its folder where other menus have keys.
void List::fillRecent()
{
    QMenu& menu = m_list->recent();
    menu.clear();
    for (const QString& path : m_files->document().recentFiles()) {
        QString text = QFileInfo(path).fileName() + QLatin1Char('\t') +
                       QDir::toNativeSeparators(QFileInfo(path).absolutePath());
        text.replace(QLatin1Char('&'), QLatin1String("&&"));
        connect(menu.addAction(text), &QAction::triggered, this, [this, path] {
            if (makesRoomForFile())
                m_files->openFile(path);
        });
    }
}

/// No run goes on with other points. False while a table is being transferred.
bool List::makesRoomForFile()
{
    if (progressBarForTable::liesWithin(*window())) {
        m_notices.say(
            [] { return tr("No list can be opened while a table is being transferred"); });
        return false;
    }
    stopRuns();
    return true;
}

void List::openList()
{
    if (makesRoomForFile())
        m_files->open();
}

void List::generateList()
{
    const RunPoints run = RunPoints::ofSweep(m_sweep->texts());
    if (run.isEmpty() || run.firstWrong() > 0 || run.count() > mostListLines)
        m_notices.say([] { return tr("The sweep settings define no points for a list"); });
    else
        m_list->actions().generate(rowsOfRun(run));
}

bool List::isManualListRun() const
{
    return runList().isChecked() && m_trigger->choice() == TriggerChoice::Manual &&
           !progressBarForTable::liesWithin(*window());
}

/// Moves a list that is stepped by hand to a row, unless it stands there already.
void List::chooseRow(int row)
{
    if (row < 0 || row == m_chosenRow || !isManualListRun())
        return;
    m_chosenRow = row;
    emit pointChosen(row + 1);
}

/// A list that runs steps by its rows; else as the trigger group's own buttons say.
void List::step(int direction)
{
    if (!runList().isChecked()) {
        (direction < 0 ? m_trigger->previousPoint() : m_trigger->nextPoint()).click();
        return;
    }
    // The receivers of the choice prepare the instrument for the step.
    m_trigger->choose(TriggerChoice::Manual);
    if (isManualListRun())
        stepRow(direction);
}

void List::stepRow(int direction)
{
    const int present = m_chosenRow >= 0 ? m_chosenRow : table().highlightedPoint() - 1;
    const int row = present + direction;
    if (row < 0 || row >= table().rowCount())
        return;
    table().setCurrentCell(row, std::max(table().currentColumn(), 0));
    chooseRow(row);
}

void List::retranslate()
{
    SidePanel::retranslate();
    setTitle(tr("Sweep/List"));
    m_sweep->retranslate();
    m_trigger->retranslate();
    m_list->retranslate();
    showFile();
}
