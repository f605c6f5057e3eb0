#include "sweep/run_picture.h"

#include "sweep/list/point_table.h"
#include "sweep/list_panel.h"
#include "sweep/picture/list_plot.h"
#include "sweep/sweep_commands.h"
#include "sweep/sweep_group.h"
#include "sweep/trigger_commands.h"

#include <QEvent>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>

namespace
{
// Reading a long table takes time: not after every cell when many change one by one.
constexpr qint64 leastRefreshGapMs = 250;
} // namespace

RunPicture::RunPicture(List& panel, const QLineEdit& powerField, QObject* parent)
    : QObject(parent), m_panel(panel), m_power(powerField), m_clock(this)
{
    m_refresh.setSingleShot(true);
    wire();
    refreshSoon();
}

void RunPicture::wire()
{
    connect(&m_refresh, &QTimer::timeout, this, &RunPicture::refresh);
    connect(&m_panel, &List::sweepChanged, this, &RunPicture::refreshSoon);
    connect(&m_panel, &List::shownChanged, this, &RunPicture::refreshSoon);
    connect(&m_panel.table(), &PointTable::pointsChanged, this, &RunPicture::refreshSoon);
    connect(&m_power, &QLineEdit::textChanged, this, &RunPicture::refreshSoon);
    m_panel.plot().installEventFilter(this);

    connect(&m_panel, &List::triggerChosen, this, &RunPicture::followPace);
    connect(&m_panel.trigger().continuousMode(), &QAbstractButton::toggled, &m_clock,
            &RunClock::setContinuous);
    connect(&m_clock, &RunClock::pointReached, this, &RunPicture::showReached);
    connect(&m_clock, &RunClock::timeChanged, &m_panel.plot(), &ListPlot::setTime);
}

void RunPicture::follow(const SweepCommands& runs, const TriggerCommands& triggers)
{
    connect(&runs, &SweepCommands::runStarted, this, &RunPicture::runStarted);
    connect(&runs, &SweepCommands::runStopped, this, &RunPicture::runStopped);
    connect(&triggers, &TriggerCommands::stepped, this, &RunPicture::stepped);
    connect(&triggers, &TriggerCommands::movedTo, this, &RunPicture::movedTo);
    // A list that is only made ready for steps waits, too.
    connect(&triggers, &TriggerCommands::refreshWanted, this, &RunPicture::followPace);
}

void RunPicture::runStarted()
{
    m_running = m_panel.runList().isChecked() ? RunKind::List : RunKind::Sweep;
    const RunPoints points = pointsOf(m_running);
    m_panel.plot().showRun(m_running, points);
    m_clock.start(points, pace(), m_panel.trigger().continuousMode().isChecked());
    // The trigger that starts a sweep is its first step; a list waits for one.
    if (m_running == RunKind::Sweep)
        m_clock.moveTo(1);
    m_panel.plot().setRun(pace());
}

void RunPicture::runStopped()
{
    m_clock.stop();
    m_panel.plot().setRun({});
}

void RunPicture::stepped(int direction)
{
    followPace();
    m_clock.stepBy(direction);
}

void RunPicture::movedTo(int number)
{
    followPace();
    m_clock.moveTo(number);
}

RunPoints RunPicture::pointsOf(RunKind kind) const
{
    if (kind == RunKind::Sweep)
        return RunPoints::ofSweep(m_panel.sweep().texts());
    const PointRows& rows = m_panel.table().points();
    const auto texts = [&rows](int row) {
        const PointRow& cells = rows[static_cast<std::size_t>(row)];
        return RowTexts{cells[PointTable::Frequency], cells[PointTable::Power],
                        cells[PointTable::Dwell]};
    };
    return RunPoints::ofTable(static_cast<int>(rows.size()), texts, m_power.text());
}

RunClock::Pace RunPicture::pace() const
{
    switch (m_panel.trigger().choice()) {
    case TriggerChoice::FreeRun:
        return RunClock::Pace::Free;
    case TriggerChoice::Manual:
        return RunClock::Pace::Stepped;
    default:
        return RunClock::Pace::Unknown;
    }
}

void RunPicture::followPace()
{
    if (!m_clock.isRunning())
        return;
    m_clock.setPace(pace());
    m_panel.plot().setRun(pace());
}

void RunPicture::showReached(int number)
{
    m_panel.plot().setReached(number);
    if (m_running == RunKind::List)
        m_panel.highlightPoint(number);
}

bool RunPicture::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Show && m_isStale)
        refreshSoon();
    return QObject::eventFilter(watched, event);
}

/// A hidden picture is drawn when it is shown.
void RunPicture::refreshSoon()
{
    m_isStale = true;
    if (m_refresh.isActive() || !m_panel.plot().isVisible())
        return;
    const qint64 passedMs = m_sinceRefresh.isValid() ? m_sinceRefresh.elapsed() : leastRefreshGapMs;
    m_refresh.start(static_cast<int>(std::max<qint64>(0, leastRefreshGapMs - passedMs)));
}

void RunPicture::refresh()
{
    if (!m_panel.plot().isVisible())
        return;
    m_isStale = false;
    const RunKind kind = m_panel.isListShown() ? RunKind::List : RunKind::Sweep;
    m_panel.plot().showRun(kind, pointsOf(kind));
    m_sinceRefresh.start();
}
