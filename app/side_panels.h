#pragma once

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QSize>

#include <functional>
#include <vector>

class QAbstractButton;
class QParallelAnimationGroup;
class QWidget;
class WindowPlace;

/// Slides the side panels in and out of the drawer, at most one open at a time, and grows the
/// window with it. A panel takes the focus when it opens and gives it back when it closes. What a
/// panel shows and when its contents are refreshed is the window's.
class SidePanels : public QObject
{
    Q_OBJECT

public:
    /// `drawer` is an empty widget of `window`'s layout, `place` is the window's, too. Belongs to
    /// the window.
    SidePanels(QWidget* window, QWidget* drawer, WindowPlace& place);
    ~SidePanels() override;

    /// Takes a panel into the drawer, closed; `toggle` will always show whether it is open.
    void add(QWidget* panel, QAbstractButton* toggle);

    /// For a panel button's click: opens the panel, or closes it when it is the open one.
    void toggle(QWidget* panel);
    /// Opens `panel`, closing first whichever is open. Ignored while panels move.
    void open(QWidget* panel);
    /// Closes `panel` if it is the open one. Ignored while panels move.
    void close(QWidget* panel);

    /// The panel that is open or opening; null when none is.
    QWidget* current() const;

    /// Process-wide: set when panels start to move, cleared by the receiver of allMoved().
    static bool moving() { return s_moving; }
    static void setMoving(bool moving) { s_moving = moving; }

signals:
    /// Another panel is open or opening, or none.
    void currentChanged();
    void opened(QWidget* panel);
    /// The last animation of a sequence has finished.
    void allMoved();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Entry {
        QPointer<QWidget> panel;
        QPointer<QAbstractButton> toggle;
    };

    void change(QWidget* next);
    void growWindow();
    void slideIn(QWidget* panel);
    void slideOut(QWidget* panel, QWidget* next);
    void animate(QWidget* panel, const QPoint& target, const QSize& drawerSize, bool in,
                 const std::function<void()>& finished);
    void showTogglesState();
    void focusFirstIn(QWidget& panel);
    void takeFocusFrom(QWidget* panel);

    static bool s_moving;

    QWidget* m_window;
    QWidget* m_drawer;
    WindowPlace& m_place;
    std::vector<Entry> m_entries;
    QPointer<QWidget> m_current;
    QPointer<QWidget> m_focusBefore; ///< had the focus before any panel was open
    QPointer<QParallelAnimationGroup> m_running;
};
