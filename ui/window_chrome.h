#pragma once

#include <QObject>
#include <QPoint>

class QMouseEvent;

/// Makes a window frameless with see-through corners and lets the user move it by any spot where no
/// control takes the mouse. It draws nothing: border and corners are the style sheet's.
class WindowChrome : public QObject
{
    Q_OBJECT

public:
    /// Call before `window` is first shown; the chrome belongs to the window.
    explicit WindowChrome(QWidget* window);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void drag(const QMouseEvent& event);

    QWidget* m_window;
    QPoint m_grabbedAt;
    bool m_grabbed = false;
    bool m_movedByHand = false;
};
