#include "fields/leave_filter.h"

#include "fields/unit_key_filter.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>

LeaveFilter::LeaveFilter(QLineEdit* field) : QObject(field)
{
    field->installEventFilter(this);
}

bool LeaveFilter::eventFilter(QObject* watched, QEvent* event)
{
    const bool isLeaving = event->type() == QEvent::FocusOut;
    const bool isEscape = event->type() == QEvent::KeyPress &&
                          static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
    // A field that is being destroyed loses its focus too, but is no line edit any more.
    auto* field = isLeaving || isEscape ? qobject_cast<QLineEdit*>(watched) : nullptr;
    // A failed answer has emptied it: what was accepted comes back without a word.
    if (field && isLeaving && field->text().isEmpty() && !isEdited(field))
        showAccepted(field, acceptedText(field));
    if (!field || (field->text() == acceptedText(field)) != isLeaving)
        return QObject::eventFilter(watched, event);
    if (isEscape) {
        showAccepted(field, acceptedText(field));
        field->selectAll();
        return true;
    }
    const QSignalBlocker quiet(field);
    field->event(event);
    return true;
}
