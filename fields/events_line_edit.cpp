#include "fields/events_line_edit.h"

#include "numbers/number_text.h"
#include "numbers/step_table.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QWheelEvent>

namespace
{
/// 0 for a wheel event that turns nothing, as a touchpad sends at the end of a movement.
int wheelDirection(const QWheelEvent& event)
{
    const QPoint turn = event.angleDelta();
    const int delta = turn.y() != 0 ? turn.y() : turn.x();
    return delta > 0 ? 1 : delta < 0 ? -1 : 0;
}

int keyDirection(const QKeyEvent& event)
{
    return event.key() == Qt::Key_Up ? 1 : event.key() == Qt::Key_Down ? -1 : 0;
}
} // namespace

EventsLineEdit::EventsLineEdit(QLineEdit* edit, StepKind kind, const StepTable& steps)
    : QObject(edit), m_edit(edit), m_kind(kind), m_steps(steps)
{
    edit->installEventFilter(this);
}

void EventsLineEdit::setKind(StepKind kind)
{
    m_kind = kind;
    m_lastStep = {};
}

void EventsLineEdit::set(StepFlags flags, int unitPower)
{
    m_flags = flags;
    m_unitPower = unitPower;
}

bool EventsLineEdit::eventFilter(QObject* watched, QEvent* event)
{
    const bool isWheel = event->type() == QEvent::Wheel;
    const bool isKey = event->type() == QEvent::KeyPress;
    if (!isWheel && !isKey)
        return QObject::eventFilter(watched, event);

    if (m_edit->hasFocus()) {
        const auto* input = static_cast<const QInputEvent*>(event);
        const int direction = isKey ? keyDirection(*static_cast<const QKeyEvent*>(event))
                                    : wheelDirection(*static_cast<const QWheelEvent*>(event));
        if (isKey && direction == 0)
            return QObject::eventFilter(watched, event);
        // Committing may delete the line edit and this filter with it: neither may be used below.
        event->accept();
        if (direction != 0 && input->modifiers().testFlag(Qt::ControlModifier))
            stepDigit(direction);
        else if (direction != 0)
            step(direction);
        return true;
    }
    // A wheel event that is only filtered, not accepted, still goes on to the parent.
    event->accept();
    return true;
}

std::optional<int> EventsLineEdit::placeAtCursor() const
{
    const bool isAtLastStep =
        m_edit->text() == m_lastStep.text && m_edit->cursorPosition() == m_lastStep.position;
    return isAtLastStep ? m_lastStep.decimalPlace
                        : decimalPlaceAt(m_edit->text(), m_edit->cursorPosition());
}

std::optional<int> EventsLineEdit::digitPosition() const
{
    const std::optional<int> place = placeAtCursor();
    const int behind = place ? cursorBehindPlace(m_edit->text(), *place) : 0;
    // A place that the number does not have gives its start or its end.
    const bool isThere = behind > 0 && decimalPlaceAt(m_edit->text(), behind) == place;
    return isThere ? std::optional(behind - 1) : std::nullopt;
}

void EventsLineEdit::step(int direction)
{
    const QString before = m_edit->text();
    const int cursor = m_edit->cursorPosition();
    const std::optional<int> decimalPlace = placeAtCursor();
    const QString text = shiftedText(before, m_unitPower);
    // What is not a number is not 0: its commit is refused.
    if (readsAsNumber(text)) {
        const QString stepped = steppedText(text, direction, m_kind, m_steps.step(m_kind), m_flags);
        m_edit->setText(shiftedText(stepped, -m_unitPower));
    }
    commitAtPlace(before, cursor, decimalPlace);
}

void EventsLineEdit::stepDigit(int direction)
{
    const QString before = m_edit->text();
    const int cursor = m_edit->cursorPosition();
    const std::optional<int> decimalPlace = placeAtCursor();
    if (!decimalPlace)
        return;
    m_edit->setText(steppedPlace(before, *decimalPlace, direction, stopsAtZero(m_kind, m_flags)));
    const QPointer<EventsLineEdit> self = this;
    commitAtPlace(before, cursor, decimalPlace);
    if (self)
        emit digitStepped();
}

/// The commit writes the accepted text and moves the cursor, which is put back at its digit.
void EventsLineEdit::commitAtPlace(const QString& before, int cursor,
                                   std::optional<int> decimalPlace)
{
    const QPointer<EventsLineEdit> self = this;
    commit();
    if (!self || !decimalPlace)
        return;
    const QString text = m_edit->text();
    const bool isSameLength = text.size() == before.size();
    m_lastStep = {text, isSameLength ? cursor : cursorBehindPlace(text, *decimalPlace),
                  *decimalPlace};
    m_edit->setCursorPosition(m_lastStep.position);
}

void EventsLineEdit::commit()
{
    if (m_flags.silent)
        return;
    // A receiver of the signal may delete the line edit and this filter with it.
    const QPointer<EventsLineEdit> self = this;
    m_isCommitting = true;
    emit m_edit->editingFinished();
    if (self)
        m_isCommitting = false;
}
