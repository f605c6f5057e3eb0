#include "panel/leave_filter.h"

#include "panel/unit_key_filter.h"

#include <QEvent>
#include <QLineEdit>
#include <QSignalBlocker>

LeaveFilter::LeaveFilter(QLineEdit* field) : QObject(field)
{
    field->installEventFilter(this);
}

bool LeaveFilter::eventFilter(QObject* watched, QEvent* event)
{
    // A field that is being destroyed loses its focus too, but is no line edit any more.
    auto* field = event->type() == QEvent::FocusOut ? qobject_cast<QLineEdit*>(watched) : nullptr;
    if (!field || field->text() != acceptedText(field))
        return QObject::eventFilter(watched, event);
    const QSignalBlocker quiet(field);
    field->event(event);
    return true;
}
