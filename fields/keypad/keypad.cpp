#include "fields/keypad/keypad.h"

#include "fields/keypad/keypad_keys.h"
#include "fields/keypad/keypad_place.h"
#include "fields/keypad/trailing_input.h"
#include "fields/number_edit.h"
#include "fields/range_text.h"
#include "fields/step_entry.h"
#include "fields/validators.h"
#include "link/instrument_limits.h"
#include "numbers/number_text.h"
#include "numbers/step_table.h"
#include "numbers/unit_keys.h"
#include "ui/named.h"

#include <QApplication>
#include <QCoreApplication>
#include <QEvent>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QToolButton>
#include <QVBoxLayout>
#include <QValidator>

namespace
{
constexpr int margin = 16;
constexpr int spacing = 8;

bool canBeTypedInto(const NumberEdit& field)
{
    return field.isVisible() && field.isEnabled() && !field.isReadOnly();
}

bool accepts(const NumberEdit& field, QString text)
{
    int position = 0;
    const bool isValid = field.validator()->validate(text, position) == QValidator::Acceptable;
    return isValid && text.size() <= field.maxLength();
}
} // namespace

Keypad::Keypad(const FieldContext& context, QWidget* window)
    : QFrame(window, Qt::Popup | Qt::FramelessWindowHint),
      m_title(named("keypad_title", new QLabel(this))),
      m_close(named("keypad_close", new QToolButton(this))),
      m_entry(named("keypad_entry", new NumberEdit(Quantity::Frequency, context, this))),
      m_unit(named("keypad_unit", new QLabel(this))),
      m_limits(named("keypad_limits", new QLabel(this))), m_keys(new KeypadKeys(this)),
      m_stepButton(KeypadKeys::makeButton(QStringLiteral("keypad_step"), this)),
      m_enter(KeypadKeys::makeButton(QStringLiteral("keypad_enter"), this))
{
    setObjectName(QStringLiteral("keypad"));
    build();
    wire();
    retranslate();
}

void Keypad::build()
{
    m_title->setProperty("panelTitle", true);
    m_close->setIcon(QIcon(QStringLiteral(":/images/close.png")));
    m_close->setIconSize(QSize(24, 24));
    m_close->setAutoRaise(true);
    m_close->setFocusPolicy(Qt::NoFocus);
    m_entry->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_stepButton->setCheckable(true);
    m_entry->setStepFlags({true, false});
    m_entry->installEventFilter(this);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(margin, spacing, margin, margin);
    column->setSpacing(spacing);
    column->setSizeConstraint(QLayout::SetFixedSize);
    auto* head = new QHBoxLayout;
    head->addWidget(m_title, 1);
    head->addWidget(m_close);
    auto* number = new QHBoxLayout;
    number->setSpacing(spacing);
    number->addWidget(m_entry, 1);
    number->addWidget(m_unit);
    auto* foot = new QHBoxLayout;
    foot->setSpacing(spacing);
    foot->addWidget(m_stepButton, 1);
    foot->addWidget(m_enter, 1);
    column->addLayout(head);
    column->addLayout(number);
    column->addWidget(m_limits);
    column->addWidget(m_keys);
    column->addLayout(foot);
}

void Keypad::wire()
{
    connect(m_close, &QToolButton::clicked, this, &Keypad::close);
    connect(m_keys, &KeypadKeys::typed, this, &Keypad::type);
    connect(m_keys, &KeypadKeys::signPressed, this, &Keypad::changeSign);
    connect(m_keys, &KeypadKeys::clearPressed, this, [this] {
        m_entry->selectAll();
        type(Qt::Key_Backspace, QString());
    });
    connect(m_keys, &KeypadKeys::stepPressed, this, &Keypad::stepField);
    connect(m_keys, &KeypadKeys::unitPressed, this, &Keypad::enterIn);
    connect(m_enter, &QPushButton::clicked, this, [this] { enterIn(plainPower()); });
    connect(m_stepButton, &QPushButton::clicked, this, &Keypad::showPage);
    connect(m_entry, &QLineEdit::textEdited, this, [this] { m_isTyped = true; });
    connect(m_entry, &QLineEdit::textChanged, this, &Keypad::updateKeys);
}

void Keypad::openFor(NumberEdit* field)
{
    if (!canBeTypedInto(*field))
        return;
    release();
    m_entry->setQuantity(field->quantity());
    watch(field);
    m_keys->setSteppable(step().has_value());
    m_stepButton->setVisible(step().has_value());
    showPage(false);
    if (!isVisible()) {
        TrailingInput::swallow();
        show();
    }
    m_entry->setFocus(Qt::PopupFocusReason);
    m_entry->selectAll();
}

NumberEdit* Keypad::field() const
{
    return m_field;
}

void Keypad::watch(NumberEdit* field)
{
    m_field = field;
    field->installEventFilter(this);
    field->window()->installEventFilter(this);
    connect(field, &QObject::destroyed, this, [this] {
        // The signal comes when the widget is no longer a line edit, but is still known by its
        // pointer.
        m_field.clear();
        close();
    });
    connect(field, &QLineEdit::textChanged, this, [this] {
        if (!m_isTyped && !m_isStepPage)
            showPresent();
    });
}

void Keypad::release()
{
    if (!m_field)
        return;
    m_field->disconnect(this);
    m_field->removeEventFilter(this);
    m_field->window()->removeEventFilter(this);
    m_field = nullptr;
}

bool Keypad::eventFilter(QObject* watched, QEvent* event)
{
    const bool isBlocked = event->type() == QEvent::WindowBlocked;
    const bool isFieldChange = watched == m_field && (event->type() == QEvent::Hide ||
                                                      event->type() == QEvent::EnabledChange ||
                                                      event->type() == QEvent::ReadOnlyChange);
    // Here Escape does not restore the number: it closes the keypad.
    const bool isEscape = watched == m_entry && event->type() == QEvent::KeyPress &&
                          static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
    if (isBlocked || isEscape || (isFieldChange && !canBeTypedInto(*m_field)))
        close();
    return isEscape;
}

void Keypad::hideEvent(QHideEvent* event)
{
    QFrame::hideEvent(event);
    release();
    TrailingInput::swallow();
}

void Keypad::place()
{
    // Before it is first shown the style sheet has not yet given the keys their sizes.
    for (QWidget* child : findChildren<QWidget*>())
        child->ensurePolished();
    layout()->activate();
    const QRect field(m_field->mapToGlobal(QPoint()), m_field->size());
    move(placeBeside(field, sizeHint(), m_field->screen()->availableGeometry()));
}

void Keypad::showPage(bool isStepPage)
{
    if (!m_field)
        return;
    m_isStepPage = isStepPage;
    m_stepButton->setChecked(isStepPage);
    setUpEntry();
    m_keys->setUnits(units());
    m_keys->enableStepping(!isStepPage);
    showPresent();
    retranslate();
    place();
}

FieldKind Keypad::kind() const
{
    return m_entry->kind();
}

std::optional<double> Keypad::step() const
{
    const std::optional<StepKind> stepped = stepKind(m_entry->quantity());
    return stepped ? std::optional(m_entry->context().steps.step(*stepped)) : std::nullopt;
}

void Keypad::setUpEntry()
{
    m_entry->setUnitPower(plainPower());
    m_entry->setQuantity(m_field->quantity());
    if (m_isStepPage && entryPattern(kind()) == EntryPattern::SignedWhole)
        m_entry->setValidator(entryValidator(EntryPattern::Whole));
    m_keys->setCharacters(accepts(*m_entry, QStringLiteral("-")),
                          accepts(*m_entry, QStringLiteral(".")));
}

void Keypad::showPresent()
{
    m_isTyped = false;
    m_entry->showAccepted(m_isStepPage ? stepText(*step()) : m_field->ownText());
    m_entry->selectAll();
    updateKeys();
}

void Keypad::updateKeys()
{
    const bool hasNumber = !enteredNumber().isEmpty();
    // A key of another unit would scale the current value by mistake.
    m_keys->enableUnits(hasNumber, m_isTyped ? std::nullopt : std::optional<int>(plainPower()));
    m_enter->setEnabled(hasNumber || (m_isStepPage && m_entry->text().isEmpty()));
}

std::vector<EntryUnit> Keypad::units() const
{
    return m_isStepPage ? stepUnits(kind()) : entryUnits(kind(), plainPower());
}

int Keypad::plainPower() const
{
    return m_isStepPage || !m_field ? 0 : m_field->unitPower();
}

QString Keypad::enteredNumber() const
{
    const QString number = convertUnitKeys(m_entry->text(), UnitFamily::None);
    return isPlainDecimal(number) ? number : QString();
}

void Keypad::retranslate()
{
    m_keys->retranslate();
    m_close->setToolTip(tr("Close without a change (Esc)"));
    m_close->setAccessibleName(tr("Close keypad"));
    m_enter->setText(tr("Enter"));
    m_enter->setToolTip(tr("Enter the number as it stands (Return)"));
    m_enter->setAccessibleName(tr("Enter the number"));
    m_stepButton->setToolTip(tr("Enter the step of the arrows and the wheel"));
    if (!m_field)
        return;
    const QString name = m_field->accessibleName();
    m_title->setText(m_isStepPage ? tr("%1: step").arg(name) : name);
    m_entry->setAccessibleName(m_title->text());
    m_entry->setToolTip(m_isStepPage ? tr("Type the step; Return applies it")
                                     : tr("Type the number; Return or a unit enters it"));
    m_unit->setText(unitText(units(), plainPower()));
    m_unit->setVisible(!m_unit->text().isEmpty());
    const QString range = rangeText(*m_entry, m_guard);
    m_limits->setText(m_isStepPage ? QString() : range);
    m_entry->setAccessibleDescription(m_limits->text());
    m_limits->setVisible(!range.isEmpty());
    if (step()) {
        m_stepButton->setText(tr("Step %1").arg(stepSizeText(*m_entry)));
        m_stepButton->setAccessibleName(m_stepButton->text());
    }
}

void Keypad::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
        if (m_field)
            place();
    }
    QFrame::changeEvent(event);
}

void Keypad::keyPressEvent(QKeyEvent* event)
{
    auto* button = qobject_cast<QAbstractButton*>(focusWidget());
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (button != nullptr)
            button->click();
        else
            m_enter->click();
    } else if (button != nullptr && !event->text().isEmpty() && event->text().at(0).isPrint()) {
        type(event->key(), event->text());
    } else {
        QFrame::keyPressEvent(event);
    }
}

/// As if typed on the keyboard, so that validator, grouping and unit letters work in the same way.
void Keypad::type(int key, const QString& text)
{
    // With this reason the selection stays as it is.
    m_entry->setFocus(Qt::PopupFocusReason);
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(m_entry, &press);
}

/// Over a selected number the sign begins a new one, as when typed; otherwise it changes the sign
/// of the number.
void Keypad::changeSign()
{
    const QString minus = QStringLiteral("-");
    const int cursor = m_entry->cursorPosition();
    if (m_entry->selectedText() == m_entry->text()) {
        type(Qt::Key_Minus, minus);
        return;
    }
    const bool isNegative = m_entry->text().startsWith(minus);
    // As by the user's hand: the sign then replaces nothing.
    type(Qt::Key_Home, QString());
    if (isNegative)
        type(Qt::Key_Delete, QString());
    else
        type(Qt::Key_Minus, minus);
    m_entry->setCursorPosition(qMax(0, isNegative ? cursor - 1 : cursor + 1));
}

void Keypad::stepField(int direction)
{
    if (!m_field)
        return;
    m_field->step(direction);
    if (m_field)
        showPresent();
}

void Keypad::enterIn(int power)
{
    if (!m_field)
        return;
    if (m_isStepPage) {
        acceptStep(power);
        return;
    }
    const QString number = enteredNumber();
    const int shift = power - plainPower();
    if (!number.isEmpty())
        commit(shift == 0 ? number : shiftedDecimal(number, shift));
}

void Keypad::acceptStep(int power)
{
    const QString number = enteredNumber();
    if (power != 0 && !number.isEmpty())
        m_entry->setText(shiftedDecimal(number, power));
    // An empty line takes the clipboard's text and stays open.
    if (acceptStepEntry(*m_entry))
        showPage(false);
}

void Keypad::commit(const QString& text)
{
    const QPointer<NumberEdit> field = m_field;
    if (!accepts(*field, text))
        return;
    // Closed first: the field's signal may open a dialog, or the keypad for another field.
    close();
    if (field)
        field->commit(text);
    // A question that the commit has opened keeps the focus.
    if (!field || isVisible() || QApplication::activeModalWidget())
        return;
    // A committed number is shown unselected.
    field->setFocus();
    field->deselect();
}
