#include "app/side_panels.h"

#include "app/window_place.h"
#include "ui/reading_order.h"

#include <QAbstractButton>
#include <QEvent>
#include <QLayout>
#include <QParallelAnimationGroup>
#include <QPropertyAnimation>
#include <QScreen>

#include <algorithm>

namespace
{
constexpr int gap = 16;
/// What the desktop draws below the window.
constexpr int shadow = 8;
constexpr int grid = 8;
constexpr int narrowest = 420;
constexpr int widest = 560;
constexpr int openingMs = 260;
constexpr int closingMs = 200;

/// As tall as it likes to be, as far as there is room.
QSize panelSize(const QWidget& panel, int room)
{
    const QSize hint = panel.sizeHint().expandedTo(panel.minimumSize());
    const int onGrid = (hint.width() + grid - 1) / grid * grid;
    const int least = std::max({panel.minimumSizeHint().height(), panel.minimumHeight(), 0});
    return {std::clamp(onGrid, narrowest, widest),
            std::clamp(hint.height(), least, std::max(least, room))};
}

QPropertyAnimation* slide(QWidget* widget, const char* name, const QVariant& target, bool in)
{
    auto* animation = new QPropertyAnimation(widget, name);
    animation->setDuration(in ? openingMs : closingMs);
    animation->setEasingCurve(in ? QEasingCurve::OutCubic : QEasingCurve::InOutCubic);
    animation->setStartValue(widget->property(name));
    animation->setEndValue(target);
    return animation;
}
} // namespace

bool SidePanels::s_moving = false;

SidePanels::SidePanels(QWidget* window, QWidget* drawer, WindowPlace& place)
    : QObject(window), m_window(window), m_drawer(drawer), m_place(place)
{
    drawer->installEventFilter(this);
}

SidePanels::~SidePanels()
{
    if (m_running) {
        delete m_running;
        s_moving = false;
    }
}

void SidePanels::add(QWidget* panel, QAbstractButton* toggle)
{
    panel->setParent(m_drawer);
    panel->hide();
    m_entries.push_back({panel, toggle});
    showTogglesState();
}

void SidePanels::toggle(QWidget* panel)
{
    change(m_current == panel ? nullptr : panel);
}

void SidePanels::open(QWidget* panel)
{
    change(panel);
}

void SidePanels::close(QWidget* panel)
{
    if (m_current == panel)
        change(nullptr);
}

QWidget* SidePanels::current() const
{
    return m_current;
}

void SidePanels::change(QWidget* next)
{
    if (s_moving || m_current == next) {
        showTogglesState();
        return;
    }
    s_moving = true;
    QWidget* leaving = m_current;
    m_current = next;
    if (!leaving)
        m_focusBefore = m_window->focusWidget();
    showTogglesState();
    m_place.hold();
    emit currentChanged();
    // What else the change brings counts when the panel looks for its room.
    growWindow();
    if (leaving)
        slideOut(leaving, next);
    else
        slideIn(next);
}

void SidePanels::slideIn(QWidget* panel)
{
    const int besides = m_window->height() - m_drawer->height();
    const int room = m_window->screen()->availableGeometry().height() - shadow - besides;
    const QSize size = panelSize(*panel, room);
    panel->setGeometry(-size.width(), 0, size.width(), m_drawer->height());
    panel->show();
    panel->raise();
    focusFirstIn(*panel);
    animate(panel, QPoint(gap, 0), size + QSize(gap, 0), true, [this, panel] {
        m_place.settle(true);
        emit opened(panel);
        // What had the focus may have been disabled meanwhile.
        if (m_current == panel && !m_window->focusWidget())
            focusFirstIn(*panel);
        emit allMoved();
    });
}

void SidePanels::slideOut(QWidget* panel, QWidget* next)
{
    takeFocusFrom(panel);
    // When another panel follows, the window keeps its size in between instead of shrinking and
    // growing again.
    const QSize drawerSize = next ? m_drawer->minimumSize() : QSize(0, 0);
    animate(panel, QPoint(-panel->width(), 0), drawerSize, false, [this, panel, next] {
        panel->hide();
        if (next)
            slideIn(next);
        else {
            m_place.settle(false);
            emit allMoved();
        }
    });
}

void SidePanels::animate(QWidget* panel, const QPoint& target, const QSize& drawerSize, bool in,
                         const std::function<void()>& finished)
{
    auto* group = new QParallelAnimationGroup(this);
    group->addAnimation(slide(panel, "pos", target, in));
    QPropertyAnimation* drawer = slide(m_drawer, "minimumSize", drawerSize, in);
    // The window follows within the same step: what is beside the drawer is never squeezed.
    connect(drawer, &QVariantAnimation::valueChanged, this, &SidePanels::growWindow);
    group->addAnimation(drawer);
    const QPoint windowPos =
        drawerSize.isNull() ? m_place.home() : m_place.placeFor(drawerSize - m_drawer->size());
    if (windowPos != m_window->pos())
        group->addAnimation(slide(m_window, "pos", windowPos, in));
    connect(group, &QAbstractAnimation::finished, group, &QObject::deleteLater);
    connect(group, &QAbstractAnimation::finished, this, finished);
    m_running = group;
    group->start();
}

void SidePanels::growWindow()
{
    for (QWidget* widget = m_drawer->parentWidget(); widget; widget = widget->parentWidget()) {
        if (widget->layout())
            widget->layout()->activate();
        if (widget == m_window)
            break;
    }
    m_place.fit();
}

void SidePanels::showTogglesState()
{
    for (const Entry& entry : m_entries)
        if (entry.toggle)
            entry.toggle->setChecked(entry.panel && entry.panel == m_current);
}

void SidePanels::focusFirstIn(QWidget& panel)
{
    const QList<QWidget*> stops = stopsInReadingOrder(panel);
    const auto first = std::find_if(stops.begin(), stops.end(), [&panel](const QWidget* stop) {
        return stop->isEnabled() && stop->isVisibleTo(&panel) &&
               (stop->focusPolicy() & Qt::TabFocus);
    });
    if (first != stops.end())
        (*first)->setFocus(Qt::OtherFocusReason);
}

/// Back to where the focus came from, or to the panel's button.
void SidePanels::takeFocusFrom(QWidget* panel)
{
    const auto entry = std::find_if(m_entries.begin(), m_entries.end(),
                                    [panel](const Entry& each) { return each.panel == panel; });
    QWidget* toggle = entry == m_entries.end() ? nullptr : entry->toggle.data();
    const QWidget* focus = m_window->focusWidget();
    if (focus && focus != toggle && !panel->isAncestorOf(focus))
        return;
    const bool canReturn =
        m_focusBefore && m_focusBefore->isVisible() && m_focusBefore->isEnabled();
    // As after a menu, the cursor is where it was.
    if (QWidget* next = canReturn ? m_focusBefore.data() : toggle)
        next->setFocus(Qt::PopupFocusReason);
}

bool SidePanels::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize)
        for (const Entry& entry : m_entries)
            if (entry.panel)
                entry.panel->resize(entry.panel->width(), m_drawer->height());
    return QObject::eventFilter(watched, event);
}
