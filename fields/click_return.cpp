#include "fields/click_return.h"

#include <QAbstractButton>
#include <QEvent>

ClickReturn::ClickReturn(QWidget& field, QAbstractButton& button)
    : QObject(&button), m_field(&field), m_button(button)
{
    button.installEventFilter(this);
}

bool ClickReturn::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusOut) {
        // A question that the commit has opened keeps the click away.
        deleteLater();
    } else if (event->type() == QEvent::MouseButtonPress) {
        m_button.removeEventFilter(this);
        deleteLater();
        if (m_field && m_field->isVisible() && m_field->isEnabled())
            m_field->setFocus(Qt::PopupFocusReason);
    }
    return QObject::eventFilter(watched, event);
}
