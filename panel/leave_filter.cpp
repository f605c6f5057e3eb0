#include "panel/leave_filter.h"

#include "panel/unit_key_filter.h"

#include <QEvent>
#include <QLineEdit>
#include <QSignalBlocker>

LeaveFilter::LeaveFilter(QLineEdit* field) : QObject(field), m_field(field)
{
    field->installEventFilter(this);
}

bool LeaveFilter::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::FocusOut || m_field->text() != acceptedText(m_field))
        return QObject::eventFilter(watched, event);
    const QSignalBlocker quiet(m_field);
    m_field->event(event);
    return true;
}
