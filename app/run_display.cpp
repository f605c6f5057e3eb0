#include "app/run_display.h"

#include "fields/number_edit.h"
#include "link/notices.h"
#include "numbers/number_text.h"
#include "sweep/list_panel.h"
#include "sweep/run_picture.h"
#include "sweep/sweep_commands.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

#include <cmath>

namespace
{
constexpr int powerDecimals = 2;

/// As the display writes them; powers between whole dB keep their decimals.
QString frequencyText(double frequencyHz)
{
    return std::isnan(frequencyHz) ? QString(QChar(0x2013))
                                   : groupDigits(fixedText(frequencyHz, 0));
}

QString powerText(double powerDbm)
{
    return std::isnan(powerDbm) ? QString(QChar(0x2013))
                                : trimZeros(fixedText(powerDbm, powerDecimals));
}

/// Hidden or shown, it takes the same room: nothing around it moves.
void keepRoomOf(QWidget& widget)
{
    QSizePolicy policy = widget.sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget.setSizePolicy(policy);
}
} // namespace

RunDisplay::RunDisplay(const Widgets& widgets, List& panel, const RunPicture& picture,
                       const SweepCommands& runs, Notices& notices, QObject* parent)
    : QObject(parent), m_ui(widgets), m_panel(panel), m_picture(picture), m_notices(notices),
      m_frequency(figureOver(widgets.frequency, widgets.frequencyUnit, "run_FREQ")),
      m_power(figureOver(widgets.power, widgets.powerUnit, "run_POW"))
{
    keepRoomOf(m_ui.progress);
    wire(runs);
    setRunning(false);
}

RunDisplay::Figure RunDisplay::figureOver(NumberEdit& field, QWidget& unit, const char* name)
{
    auto* label = new QLabel(&field);
    label->setObjectName(QLatin1String(name));
    label->setProperty("runFigure", true);
    label->setAlignment(field.alignment());
    label->setIndent(0);
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    label->hide();
    auto* whole = new QHBoxLayout(&field);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(label);
    keepRoomOf(unit);
    return {label, &unit};
}

void RunDisplay::wire(const SweepCommands& runs)
{
    for (const QPushButton* run : {&m_panel.runSweep(), &m_panel.runList()}) {
        connect(run, &QAbstractButton::toggled, this, &RunDisplay::showStop);
    }
    connect(&m_ui.stop, &QAbstractButton::clicked, &m_panel, &List::stopRuns);
    connect(&runs, &SweepCommands::runStarted, this, [this] { setRunning(true); });
    connect(&runs, &SweepCommands::runStopped, this, [this] { setRunning(false); });
    const RunClock& clock = m_picture.clock();
    connect(&clock, &RunClock::pointReached, this, &RunDisplay::showPoint);
    connect(&clock, &RunClock::paceChanged, this, &RunDisplay::showPoint);
    connect(&clock, &RunClock::timeChanged, this, &RunDisplay::showTime);
    connect(&clock, &RunClock::overChanged, this, &RunDisplay::showOver);
}

/// The key that has stopped the run must not reach the button's neighbour.
void RunDisplay::showStop()
{
    const bool isShown = m_panel.isRunning();
    if (!isShown && m_ui.stop.hasFocus())
        m_ui.frequency.setFocus();
    m_ui.stop.setVisible(isShown);
}

void RunDisplay::setRunning(bool isRunning)
{
    m_isRunning = isRunning;
    retranslate();
    m_ui.lamp.setVisible(isRunning);
    m_ui.progress.setVisible(isRunning);
    showOver(m_picture.clock().isOver());
}

void RunDisplay::showOver(bool isOver)
{
    m_ui.lamp.setEnabled(m_isRunning && !isOver);
    if (m_isRunning && isOver) {
        m_notice = m_notices.sayDone(
            [frequency = m_ui.frequency.text()] {
                return tr("Pass finished: Stop returns to %1 Hz").arg(frequency);
            },
            Notice::About::Instrument);
    } else if (m_notice) {
        m_notices.takeBack(*m_notice);
        m_notice.reset();
    }
}

void RunDisplay::showTime(double elapsedMs, double totalMs)
{
    const RunClock& clock = m_picture.clock();
    const bool isFree = clock.pace() == RunClock::Pace::Free || clock.isOver();
    double part = isFree && totalMs > 0.0 ? elapsedMs / totalMs : 0.0;
    if (!isFree && !clock.points().isEmpty())
        part = static_cast<double>(clock.reached()) / clock.points().count();
    m_ui.progress.setValue(static_cast<int>(part * m_ui.progress.maximum()));
}

void RunDisplay::retranslate()
{
    m_ui.lamp.setText(m_picture.running() == RunKind::List ? tr("LIST") : tr("SWEEP"));
    m_frequency.label->setAccessibleName(tr("Current frequency of the run"));
    m_power.label->setAccessibleName(tr("Current power of the run"));
    showPoint();
}

void RunDisplay::showPoint()
{
    m_ui.point.setText(m_isRunning ? pointText() : QString());
    showFigures();
}

QString RunDisplay::pointText() const
{
    const RunClock& clock = m_picture.clock();
    const QString count = groupDigits(QString::number(clock.points().count()));
    if (clock.reached() > 0)
        return tr("Point %1 of %2").arg(groupDigits(QString::number(clock.reached())), count);
    return clock.pace() == RunClock::Pace::Unknown ? tr("by trigger, points: %1").arg(count)
                                                   : tr("waits for a step, points: %1").arg(count);
}

/// Until a run has reached a point, the instrument is at what the fields show. Where only the
/// instrument knows its point, a value that is the same at all points is still known.
void RunDisplay::showFigures()
{
    const RunClock& clock = m_picture.clock();
    const RunPoints& points = clock.points();
    const bool isUnknown = clock.pace() == RunClock::Pace::Unknown && clock.reached() == 0;
    const bool isShown = m_isRunning && !points.isEmpty() && (isUnknown || clock.reached() > 0);
    const RunPoint point = isShown ? points.point(isUnknown ? 1 : clock.reached()) : RunPoint();
    const auto show = [&](const Figure& figure, RunQuantity quantity, const QString& text) {
        const ValueCourse course = isShown && isUnknown ? points.course(quantity) : ValueCourse();
        const bool isKnown = !isUnknown || course.low == course.high;
        figure.label->setProperty("lit", isKnown);
        figure.label->setText(isKnown ? text : tr("by trigger"));
        figure.label->setVisible(isShown);
        figure.unit->setVisible(!isShown || isKnown);
    };
    show(m_frequency, RunQuantity::Frequency, frequencyText(point.frequencyHz));
    show(m_power, RunQuantity::Power, powerText(point.powerDbm));
}
