#include "ui/arrow_keys.h"

#include <QAbstractButton>
#include <QKeyEvent>

#include <algorithm>

namespace
{
constexpr char isOne[] = "arrowKeys";
} // namespace

ArrowKeys::ArrowKeys(const QVector<QAbstractButton*>& buttons, int columns, QObject* parent)
    : QObject(parent), m_buttons(buttons), m_columns(columns)
{
    for (QAbstractButton* button : m_buttons) {
        button->setProperty(isOne, true);
        button->installEventFilter(this);
        connect(button, &QAbstractButton::toggled, this, [this, button](bool isChecked) {
            if (isChecked)
                makeStop(button);
        });
    }
    makeStop(m_buttons.first());
}

bool ArrowKeys::moveAt(const QWidget& widget)
{
    return widget.property(isOne).toBool();
}

bool ArrowKeys::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusIn) {
        makeStop(watched);
    } else if (event->type() == QEvent::KeyPress) {
        const auto* const at = std::find(m_buttons.begin(), m_buttons.end(), watched);
        return move(static_cast<int>(at - m_buttons.begin()),
                    static_cast<QKeyEvent*>(event)->key());
    }
    return QObject::eventFilter(watched, event);
}

void ArrowKeys::makeStop(const QObject* stop)
{
    for (QAbstractButton* button : m_buttons)
        button->setFocusPolicy(button == stop ? Qt::StrongFocus : Qt::ClickFocus);
}

/// Whether the key is one that moves; at an edge it stays where it is.
bool ArrowKeys::move(int index, int key)
{
    const int column = index % m_columns;
    int target = index;
    if (key == Qt::Key_Left && column > 0)
        --target;
    else if (key == Qt::Key_Right && column + 1 < m_columns)
        ++target;
    else if (key == Qt::Key_Up)
        target -= m_columns;
    else if (key == Qt::Key_Down)
        target += m_columns;
    else if (key != Qt::Key_Left && key != Qt::Key_Right)
        return false;
    if (target >= 0 && target < m_buttons.size())
        m_buttons[target]->setFocus(Qt::TabFocusReason);
    return true;
}
