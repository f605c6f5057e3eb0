#include "sweep/picture/list_plot.h"

#include "sweep/picture/run_plot.h"
#include "ui/describe.h"
#include "ui/named.h"

#include <QEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QToolTip>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace
{
constexpr int spacing = 8;
constexpr int frameMargin = 6;
// The picture of frequencies stands above, and the one below has the times as well.
constexpr int upperPart = 8;
constexpr int lowerPart = 9;

constexpr double zoomStep = 0.8;
constexpr double moveStep = 0.1;
constexpr double notchAngle = 120.0;
// Of a pass that takes no time, and the shortest part of one that is shown.
constexpr double emptyPassUs = 1.0;
constexpr double shortestPart = 1e-6;
} // namespace

ListPlot::ListPlot(QWidget* parent)
    : QWidget(parent), m_header(named("plot_List_header", new QLabel(this))),
      m_logarithmic(named("logarithmicFrequency", new QPushButton(this))), m_note(new QLabel(this)),
      m_area(new QWidget(this)), m_plots{new RunPlot(RunQuantity::Frequency, m_area),
                                         new RunPlot(RunQuantity::Power, m_area)}
{
    setObjectName(QStringLiteral("plot_List"));
    // By keys alone: a click must not take the focus from a field that is half typed.
    setFocusPolicy(Qt::TabFocus);
    m_logarithmic->setFocusPolicy(Qt::TabFocus);
    m_redraw.setSingleShot(true);
    m_redraw.setInterval(0);
    connect(&m_redraw, &QTimer::timeout, this, &ListPlot::redraw);
    build();
    connect(m_logarithmic, &QAbstractButton::toggled, this, [this](bool isLogarithmic) {
        m_plots.front()->setLogarithmic(isLogarithmic);
        later();
    });
    retranslate();
    fit();
}

void ListPlot::build()
{
    m_logarithmic->setCheckable(true);
    m_note->setAlignment(Qt::AlignCenter);
    m_note->setWordWrap(true);

    auto* header = new QHBoxLayout;
    header->addWidget(m_header, 1);
    header->addWidget(m_logarithmic);
    auto* plots = new QVBoxLayout(m_area);
    plots->setContentsMargins(frameMargin, frameMargin, frameMargin, frameMargin);
    plots->setSpacing(spacing);
    plots->addWidget(m_note, upperPart + lowerPart);
    plots->addWidget(m_plots.front(), upperPart);
    plots->addWidget(m_plots.back(), lowerPart);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(spacing);
    column->addLayout(header);
    column->addWidget(m_area, 1);

    m_plots.front()->setTimesShown(false);
    for (RunPlot* plot : m_plots) {
        plot->setMinimumSize(1, 1);
        plot->canvas()->installEventFilter(this);
    }
}

void ListPlot::showRun(RunKind kind, const RunPoints& points)
{
    const bool keepsZoom = kind == m_kind && !isWhole();
    m_kind = kind;
    m_points = points;
    m_pointed = 0;
    if (keepsZoom)
        showPart(m_fromUs, m_toUs - m_fromUs);
    else
        fit();
}

void ListPlot::setRun(std::optional<RunClock::Pace> pace)
{
    m_pace = pace;
    showMarks();
    showHeader();
}

void ListPlot::setReached(int number)
{
    m_reached = number;
    showMarks();
    showHeader();
}

void ListPlot::setTime(double elapsedMs, double totalMs)
{
    m_elapsedMs = elapsedMs;
    m_totalMs = totalMs;
    showHeader();
}

void ListPlot::setMarkerColour(const QColor& colour)
{
    m_markerColour = colour;
    recolour();
}

void ListPlot::fit()
{
    showPart(0.0, lengthUs());
}

double ListPlot::lengthUs() const
{
    return m_points.totalUs() > 0.0 ? m_points.totalUs() : emptyPassUs;
}

bool ListPlot::isWhole() const
{
    return m_fromUs <= 0.0 && m_toUs >= lengthUs();
}

void ListPlot::showPart(double fromUs, double partUs)
{
    const double wholeUs = lengthUs();
    const double shownUs = std::clamp(partUs, wholeUs * shortestPart, wholeUs);
    m_fromUs = std::clamp(fromUs, 0.0, wholeUs - shownUs);
    m_toUs = m_fromUs + shownUs;
    later();
}

// From what is to be shown: the drawing may still be older.
double ListPlot::timeAt(const RunPlot& plot, double x) const
{
    return m_fromUs + (m_toUs - m_fromUs) * plot.partAt(x);
}

/// False when nothing is zoomed.
bool ListPlot::zoom(double factor, double anchorUs)
{
    if (m_points.isEmpty() || (factor > 1.0 && isWhole()))
        return false;
    showPart(anchorUs - (anchorUs - m_fromUs) * factor, (m_toUs - m_fromUs) * factor);
    return true;
}

void ListPlot::later()
{
    m_redraw.start();
}

void ListPlot::redraw()
{
    if (m_hasOldColours)
        applyColours();
    const bool isEmpty = m_points.isEmpty();
    const QString words = runWords(m_kind, m_points);
    setAccessibleDescription(words);
    m_note->setText(words);
    m_note->setVisible(isEmpty);
    for (RunPlot* plot : m_plots) {
        plot->setVisible(!isEmpty);
        plot->showPoints(m_points, m_fromUs, m_toUs);
    }
    showMarks();
    showHeader();
    if (isEmpty)
        return;
    alignScales();
    for (RunPlot* plot : m_plots)
        plot->replot();
}

/// A time is at the same place in both.
void ListPlot::alignScales()
{
    RunPlot::ScaleRoom room;
    for (RunPlot* plot : m_plots) {
        const RunPlot::ScaleRoom needed = plot->neededRoom();
        room = {std::max(room.left, needed.left), std::max(room.right, needed.right)};
    }
    for (RunPlot* plot : m_plots)
        plot->keepRoom(room);
}

void ListPlot::showMarks()
{
    for (RunPlot* plot : m_plots)
        plot->markPoints(m_pointed, m_pace ? m_reached : 0);
}

void ListPlot::showHeader()
{
    QString text = runSummary(m_points);
    const bool isWrong = !m_pace && m_points.firstWrong() > 0;
    if (m_pace == RunClock::Pace::Unknown)
        text = tr("Runs by external triggers");
    else if (m_pace && m_reached == 0)
        text = tr("Waits for the first step");
    else if (m_pace)
        text = tr("Point %1 of %2  ·  %3")
                   .arg(m_reached)
                   .arg(m_points.count())
                   .arg(progressWords(m_elapsedMs, m_totalMs));
    else if (isWrong)
        text += tr("  ·  Point %1 cannot run with these values").arg(m_points.firstWrong());
    m_header->setText(text);
    m_header->setProperty("warning", isWrong);
}

bool ListPlot::eventFilter(QObject* watched, QEvent* event)
{
    for (RunPlot* plot : m_plots) {
        if (watched == plot->canvas())
            return handleMouse(*plot, event);
    }
    return QWidget::eventFilter(watched, event);
}

bool ListPlot::handleMouse(const RunPlot& plot, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Wheel: {
        const auto& wheel = *static_cast<const QWheelEvent*>(event);
        const double notches = wheel.angleDelta().y() / notchAngle;
        event->setAccepted(notches != 0.0 &&
                           zoom(std::pow(zoomStep, notches), timeAt(plot, wheel.position().x())));
        return event->isAccepted();
    }
    case QEvent::MouseButtonPress: {
        const auto& mouse = *static_cast<const QMouseEvent*>(event);
        if (mouse.button() == Qt::LeftButton)
            m_heldUs = timeAt(plot, mouse.localPos().x());
        return m_heldUs.has_value();
    }
    case QEvent::MouseMove: {
        const auto& mouse = *static_cast<const QMouseEvent*>(event);
        if (!mouse.buttons().testFlag(Qt::LeftButton))
            m_heldUs.reset();
        // The time that is dragged stays under the mouse.
        if (m_heldUs)
            showPart(m_fromUs + *m_heldUs - timeAt(plot, mouse.localPos().x()), m_toUs - m_fromUs);
        else
            pointAt(plot, mouse.pos());
        return true;
    }
    case QEvent::MouseButtonRelease:
        m_heldUs.reset();
        return true;
    case QEvent::MouseButtonDblClick:
        fit();
        return true;
    case QEvent::ToolTip: // the point's stands there
        return true;
    case QEvent::Leave:
        m_pointed = 0;
        showMarks();
        return false;
    default:
        return false;
    }
}

void ListPlot::pointAt(const RunPlot& plot, const QPoint& place)
{
    if (m_points.isEmpty())
        return;
    const double fromUs = timeAt(plot, place.x());
    const PointRange near = m_points.pointsBetween(fromUs, timeAt(plot, place.x() + 1));
    // Among many in one column the one that must not be missed.
    const int wrong = m_points.firstWrong();
    const int number = near.first <= wrong && wrong <= near.last ? wrong : m_points.pointAt(fromUs);
    QToolTip::showText(plot.canvas()->mapToGlobal(place), pointWords(m_points, number),
                       const_cast<QWidget*>(plot.canvas()));
    m_pointed = number;
    showMarks();
}

void ListPlot::keyPressEvent(QKeyEvent* event)
{
    const double middleUs = (m_fromUs + m_toUs) / 2.0;
    const double partUs = m_toUs - m_fromUs;
    switch (event->key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        zoom(zoomStep, middleUs);
        break;
    case Qt::Key_Minus:
        zoom(1.0 / zoomStep, middleUs);
        break;
    case Qt::Key_Left:
        showPart(m_fromUs - moveStep * partUs, partUs);
        break;
    case Qt::Key_Right:
        showPart(m_fromUs + moveStep * partUs, partUs);
        break;
    case Qt::Key_Home:
        fit();
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

void ListPlot::paintEvent(QPaintEvent*)
{
    paintPlotFrame(*this, m_area->geometry());
}

void ListPlot::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    else if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange)
        recolour();
    QWidget::changeEvent(event);
}

/// Not at once: a new style sheet has yet to reach the parts, and resets their colours.
void ListPlot::recolour()
{
    m_hasOldColours = true;
    later();
}

void ListPlot::applyColours()
{
    m_hasOldColours = false;
    const auto colour = [this](QPalette::ColorRole role) { return palette().color(role); };
    for (RunPlot* plot : m_plots)
        plot->setColours({colour(QPalette::Base), colour(QPalette::PlaceholderText),
                          colour(QPalette::Link), colour(QPalette::PlaceholderText),
                          m_markerColour.isValid() ? m_markerColour : colour(QPalette::Text)});
}

void ListPlot::retranslate()
{
    setAccessibleName(tr("Picture of the run"));
    setToolTip(tr("Wheel: zoom. Drag: move. Double click: whole pass.\n"
                  "Keys: +, −, Left, Right, Home"));
    m_logarithmic->setText(tr("Log axis"));
    describe(m_logarithmic, tr("Logarithmic frequency"), tr("Logarithmic frequency axis"));
    later();
}
