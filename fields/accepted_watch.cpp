#include "fields/accepted_watch.h"

#include "fields/unit_key_filter.h"

#include <QEvent>
#include <QLineEdit>

AcceptedWatch::AcceptedWatch(QLineEdit* field) : QObject(field), m_text(acceptedText(field))
{
    field->installEventFilter(this);
}

bool AcceptedWatch::eventFilter(QObject* watched, QEvent* event)
{
    // The text is kept as a property.
    if (event->type() == QEvent::DynamicPropertyChange) {
        const QString text = acceptedText(static_cast<QLineEdit*>(watched));
        if (text != m_text) {
            m_text = text;
            emit accepted(text);
        }
    }
    return QObject::eventFilter(watched, event);
}
