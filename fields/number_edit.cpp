#include "fields/number_edit.h"

#include "fields/click_return.h"
#include "fields/events_line_edit.h"
#include "fields/select_line.h"
#include "fields/validators.h"
#include "link/instrument_limits.h"
#include "link/notices.h"
#include "numbers/number_text.h"
#include "numbers/unit_keys.h"
#include "ui/describe.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <QSignalBlocker>
#include <QVariant>

namespace
{
bool isEscape(const QEvent& event)
{
    return event.type() == QEvent::KeyPress &&
           static_cast<const QKeyEvent&>(event).key() == Qt::Key_Escape;
}
} // namespace

NumberEdit::NumberEdit(QWidget* parent)
    : QLineEdit(parent), m_typing(*this, [this](const StatusWords& reason) { refuse(reason); })
{
}

NumberEdit::NumberEdit(Quantity quantity, const FieldContext& context, QWidget* parent,
                       const QString& text)
    : NumberEdit(parent)
{
    setText(text);
    setUp(quantity, context);
}

void NumberEdit::setUp(Quantity quantity, const FieldContext& context)
{
    m_context = &context;
    m_acceptedText = text();
    connect(this, &QLineEdit::textEdited, this, [this](const QString& typed) {
        m_typing.takeEdited(typed);
        setEdited(text() != inShownUnit(m_acceptedText));
    });
    m_selection = new selectLine(this);
    // Qt repaints what the cursor covers only.
    const auto repaintAll = [this] { update(); };
    connect(m_selection, &selectLine::cursorChosenChanged, this, repaintAll);
    connect(this, &QLineEdit::cursorPositionChanged, this, repaintAll);
    setQuantity(quantity);
}

void NumberEdit::setQuantity(Quantity quantity)
{
    m_quantity = quantity;
    m_typing.setForm(kind(), m_unitPower);
    m_typing.forget();
    setValidator(entryValidator(entryPattern(kind())));
    const std::optional<StepKind> step = ::stepKind(quantity);
    if (step && m_stepping) {
        m_stepping->setKind(*step);
    } else {
        delete m_stepping;
        m_stepping = step ? new EventsLineEdit(this, *step, m_context->steps) : nullptr;
        setStepFlags(m_stepFlags);
        if (m_stepping)
            connect(m_stepping, &EventsLineEdit::digitStepped, m_selection,
                    &selectLine::chooseCursor);
    }
}

void NumberEdit::setStepFlags(StepFlags flags)
{
    m_stepFlags = flags;
    if (m_stepping)
        m_stepping->set(flags, m_unitPower);
}

const Range& NumberEdit::range() const
{
    return m_context->limits[m_quantity];
}

void NumberEdit::setUnitPower(int powerOfTen)
{
    if (powerOfTen == m_unitPower)
        return;
    const QString own = ownText();
    m_unitPower = powerOfTen;
    m_typing.setForm(kind(), m_unitPower);
    setStepFlags(m_stepFlags);
    setText(inShownUnit(own));
}

QString NumberEdit::inOwnUnit(const QString& text) const
{
    if (m_unitPower == 0)
        return text;
    const QString number = convertUnitKeys(text, unitFamily(kind()), m_unitPower);
    return clampText(shiftedText(number, m_unitPower), 0.0, 0.0, kind());
}

QString NumberEdit::inShownUnit(const QString& ownText) const
{
    return shiftedText(ownText, -m_unitPower);
}

double NumberEdit::value() const
{
    return toNumber(convertUnitKeys(ownText(), unitFamily(kind())));
}

double NumberEdit::acceptedValue() const
{
    return toNumber(m_acceptedText);
}

void NumberEdit::setEdited(bool isEdited)
{
    if (isEdited == m_isEdited)
        return;
    m_isEdited = isEdited;
    setProperty("edited", isEdited);
}

bool NumberEdit::hasNumber() const
{
    return readsAsNumber(text(), kind());
}

bool NumberEdit::takeNumber()
{
    settleDoubt();
    if (hasNumber())
        return true;
    refuse([] { return tr("not a number, nothing is sent"); });
    showAccepted(m_acceptedText);
    return false;
}

void NumberEdit::clamp()
{
    const QString clamped = inShownUnit(clampText(ownText(), range().min, range().max, kind()));
    // Setting the same text would still move the cursor and forget what can be undone.
    if (clamped != text())
        setText(clamped);
}

void NumberEdit::acceptClamped()
{
    settleDoubt();
    // What was accepted before may still come back.
    if (text().isEmpty())
        return;
    clamp();
    showAccepted(ownText());
}

void NumberEdit::showAccepted(const QString& ownText)
{
    const QString shown = inShownUnit(ownText);
    if (text() != shown)
        setText(shown);
    m_doubtedText.clear();
    setEdited(false);
    accept(ownText);
}

void NumberEdit::showAnswer(const QString& reply)
{
    const QString answered = ::displayText(reply, kind());
    if (!answered.isEmpty() && replyHasNumber(reply, kind())) {
        showAccepted(answered);
        return;
    }
    m_doubtedText = inShownUnit(answered);
    setText(m_doubtedText);
    setEdited(!answered.isEmpty());
    if (isEdited())
        refuse([] { return tr("the reply is not a number"); });
}

void NumberEdit::accept(const QString& ownText)
{
    if (ownText == m_acceptedText)
        return;
    m_acceptedText = ownText;
    emit accepted(ownText);
}

void NumberEdit::refuse(const StatusWords& reason)
{
    // Named by its quantity it follows the language.
    const bool isNamed = accessibleName() != quantityName(m_quantity);
    const QString name = isNamed ? accessibleName() : QString();
    m_context->notices.say([name, quantity = m_quantity, reason] {
        return tr("%1: %2").arg(name.isEmpty() ? quantityName(quantity) : name, reason());
    });
    emit refused(reason);
}

void NumberEdit::commit(const QString& text)
{
    const QPointer<NumberEdit> self = this;
    selectAll();
    insert(text);
    // A receiver of the signal may delete the field.
    if (self)
        emit returnPressed();
    if (self)
        emit editingFinished();
}

void NumberEdit::step(int direction)
{
    if (m_stepping)
        m_stepping->step(direction);
}

bool NumberEdit::isBeingStepped() const
{
    return m_stepping && m_stepping->isCommitting();
}

void NumberEdit::describe()
{
    ::describe(this, quantityName(m_quantity), quantityToolTip(m_quantity));
}

QString NumberEdit::unitLettersHint() const
{
    switch (unitFamily(kind())) {
    case UnitFamily::Frequency:
        return tr("k, m, g: kilo, mega, giga");
    case UnitFamily::Time:
        return tr("m, s: milliseconds, seconds");
    case UnitFamily::Voltage:
        return tr("m: millivolts");
    case UnitFamily::None:
        break;
    }
    return QString();
}

void NumberEdit::describeKeypadKey(QWidget& key) const
{
    ::describe(&key, tr("%1: keypad").arg(quantityName(m_quantity)),
               tr("Enter the value with the keypad (F8 in the field)"));
}

bool NumberEdit::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::FocusIn:
        m_typing.forget();
        break;
    case QEvent::MouseButtonPress:
    case QEvent::Wheel:
        m_typing.forgetRefusal();
        break;
    case QEvent::FocusOut:
        return leave(static_cast<QFocusEvent*>(event));
    case QEvent::KeyPress:
        if (m_typing.swallows(*static_cast<QKeyEvent*>(event)) || (isEscape(*event) && bringBack()))
            return true;
        break;
    default:
        break;
    }
    return QLineEdit::event(event);
}

/// Qt emits editingFinished whenever the focus is lost, and each one is a command on the wire: a
/// field that is left unchanged emits nothing.
bool NumberEdit::leave(QFocusEvent* event)
{
    // What is announced may delete the field.
    const QPointer<NumberEdit> self = this;
    refill();
    bool isTaken = false;
    {
        const QSignalBlocker quiet(text() == inShownUnit(m_acceptedText) ? this : nullptr);
        isTaken = QLineEdit::event(event);
    }
    if (!self)
        return isTaken;
    refill();
    auto* button = qobject_cast<QAbstractButton*>(QApplication::focusWidget());
    if (m_stepping && button && button->window() == window() &&
        !button->property("takesFocus").toBool() && event->reason() == Qt::MouseFocusReason)
        new ClickReturn(*this, *button);
    return isTaken;
}

/// A reply that was not a number is no value: it gives way to the accepted one, silently.
void NumberEdit::settleDoubt()
{
    if (!m_doubtedText.isEmpty() && text() == m_doubtedText)
        showAccepted(m_acceptedText);
}

/// So does the emptiness that a failed query has left.
void NumberEdit::refill()
{
    settleDoubt();
    if (text().isEmpty() && !m_isEdited)
        showAccepted(m_acceptedText);
}

/// Restores the accepted text; false if it is shown already.
bool NumberEdit::bringBack()
{
    if (text() == inShownUnit(m_acceptedText))
        return false;
    showAccepted(m_acceptedText);
    selectAll();
    return true;
}

void NumberEdit::paintEvent(QPaintEvent* event)
{
    QLineEdit::paintEvent(event);
    const QRect line = digitLine();
    if (!line.isEmpty())
        QPainter(this).fillRect(line, palette().highlight());
}

/// The line below the digit that the user has chosen; empty while there is none.
QRect NumberEdit::digitLine() const
{
    const bool isShown = m_stepping && hasFocus() && !isReadOnly() && !hasSelectedText() &&
                         m_selection->isCursorChosen();
    const std::optional<int> digit = isShown ? m_stepping->digitPosition() : std::nullopt;
    if (!digit)
        return {};
    // The cursor stands in the middle of its rectangle.
    const QRect cursorArea = cursorRect();
    const int cursorX = cursorArea.left() + cursorArea.width() / 2;
    const QFontMetrics font = fontMetrics();
    const int cursor = cursorPosition();
    const int x = *digit < cursor
                      ? cursorX - font.horizontalAdvance(text().mid(*digit, cursor - *digit))
                      : cursorX + font.horizontalAdvance(text().mid(cursor, *digit - cursor));
    const int thickness = qMax(2, font.lineWidth());
    const int y = cursorArea.top() + font.ascent() + thickness;
    return {x, qMin(y, height() - thickness), font.horizontalAdvance(text().at(*digit)), thickness};
}
