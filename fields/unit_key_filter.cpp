#include "fields/unit_key_filter.h"

#include "numbers/number_text.h"
#include "numbers/quantity_text.h"
#include "fields/entry_notice.h"
#include "fields/validators.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QValidator>
#include <QVariant>

#include <algorithm>

namespace
{
constexpr char editedProperty[] = "edited";
constexpr char acceptedProperty[] = "accepted";
constexpr char unitPowerProperty[] = "unitPower";

/// The cursor position behind so many characters that are not blanks.
int positionBehind(const QString& text, int characters)
{
    int position = 0;
    for (int i = 0; i < text.size() && characters > 0; ++i) {
        if (!text.at(i).isSpace()) {
            --characters;
            position = i + 1;
        }
    }
    return position;
}

bool isBlankAt(const QString& text, int position)
{
    return position >= 0 && position < text.size() && text.at(position) == QLatin1Char(' ');
}

/// A typed text, or the part of it before the cursor, without blanks and unit letters.
QString convertedText(const QString& typed, FieldKind kind, int plainPower)
{
    return convertUnitKeys(typed, unitFamily(kind), plainPower);
}

/// A unit letter among what was typed has made another number of the digits.
bool isScaled(QString typed, const QString& result)
{
    const auto* lettersEnd =
        std::remove_if(typed.begin(), typed.end(), [](QChar c) { return c.isLetter(); });
    const int digits = static_cast<int>(lettersEnd - typed.cbegin());
    const bool hasLetter = digits < typed.size();
    typed.truncate(digits);
    return hasLetter && convertUnitKeys(typed, UnitFamily::None) != withoutBlanks(result);
}

bool isDigit(QChar c)
{
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

bool isSeparator(QChar c)
{
    return c == QLatin1Char('.') || c == QLatin1Char(',');
}

/// Whether the digits behind such a letter belong to a fraction or to an exponent: the keys of
/// comma and point type "б" and "ю" in the Russian layout.
bool continuesNumber(QChar letter)
{
    return QStringLiteral("eбю").contains(letter, Qt::CaseInsensitive);
}

/// The character that a key would type; null for any other key.
QChar typedCharacter(const QKeyEvent& key)
{
    const Qt::KeyboardModifiers control = key.modifiers() & ~Qt::ShiftModifier;
    const bool isTyping = control != Qt::ControlModifier && !key.text().isEmpty();
    return isTyping && key.text().at(0).isPrint() ? key.text().at(0) : QChar();
}

bool isModifierKey(const QKeyEvent& key)
{
    return key.key() == Qt::Key_Shift || key.key() == Qt::Key_Control || key.key() == Qt::Key_Alt ||
           key.key() == Qt::Key_AltGr || key.key() == Qt::Key_Meta;
}
} // namespace

void reformatEdited(QLineEdit* field, FieldKind kind)
{
    const QString typed = field->text();
    const QString converted = convertedText(typed, kind, unitPower(field));
    const QString text = isGrouped(kind) ? formatGrouped(converted) : converted;
    if (text == typed)
        return;
    const QString beforeCursor = typed.left(field->cursorPosition());
    const int charactersBefore = convertedText(beforeCursor, kind, unitPower(field)).size();
    field->setText(text);
    field->setCursorPosition(positionBehind(text, charactersBefore));
}

void showAccepted(QLineEdit* field, const QString& text)
{
    if (field->text() != text)
        field->setText(text);
    field->setProperty(acceptedProperty, text);
    setEdited(field, false);
}

void showAnswer(QLineEdit* field, const QString& text)
{
    const QString accepted = text.isEmpty() ? acceptedText(field) : text;
    showAccepted(field, text);
    field->setProperty(acceptedProperty, accepted);
}

QString acceptedText(const QLineEdit* field)
{
    return field->property(acceptedProperty).toString();
}

void setEdited(QLineEdit* field, bool isEdited)
{
    if (field->property(editedProperty).toBool() != isEdited)
        field->setProperty(editedProperty, isEdited);
}

bool isEdited(const QLineEdit* field)
{
    return field->property(editedProperty).toBool();
}

void setUnitPower(QLineEdit* field, int powerOfTen)
{
    field->setProperty(unitPowerProperty, powerOfTen);
}

int unitPower(const QLineEdit* field)
{
    return field->property(unitPowerProperty).toInt();
}

UnitKeyFilter::UnitKeyFilter(QLineEdit* field, FieldKind kind)
    : QObject(field), m_field(field), m_kind(kind),
      m_paste(
          field, [this](const QString& text) { takePasted(text); }, this)
{
    field->installEventFilter(this);
    connect(field, &QLineEdit::textEdited, this, [this](const QString& typed) {
        reformatEdited(m_field, m_kind);
        setEdited(m_field, m_field->text() != acceptedText(m_field));
        const QString result = m_field->text();
        m_convertedText = isScaled(typed, result) ? result : QString();
    });
}

/// One unit letter is all a number takes: a second one, as a key that bounces gives, would scale it
/// once more.
bool UnitKeyFilter::isSurplusLetter(const QKeyEvent& key) const
{
    const QString text = key.text();
    return !m_convertedText.isEmpty() && m_field->text() == m_convertedText &&
           !m_field->hasSelectedText() && !text.isEmpty() && text.at(0).isLetter();
}

/// With the Russian layout on, the letter that its key or its word stands for.
bool UnitKeyFilter::typeLatinLetter(const QKeyEvent& key)
{
    const QChar typed = typedCharacter(key);
    const QChar letter = latinUnitKey(typed);
    if (letter == typed || !unitKeyPower(letter, unitFamily(m_kind)))
        return false;
    QKeyEvent latin(QEvent::KeyPress, letter.toUpper().unicode(), Qt::NoModifier, letter);
    QCoreApplication::sendEvent(m_field, &latin);
    return true;
}

/// Why a character that is no digit cannot be typed here; empty where it can.
QString UnitKeyFilter::refusalOf(QChar typed) const
{
    QString rest = m_field->text();
    rest.remove(m_field->selectionStart(), m_field->selectedText().size());
    if (isSeparator(typed)) {
        if (!takesFraction(m_kind))
            return EntryNotice::wholeOnly(m_kind);
        return std::any_of(rest.begin(), rest.end(), isSeparator) ? EntryNotice::onePoint()
                                                                  : QString();
    }
    const QValidator* validator = m_field->validator();
    if (validator == nullptr)
        validator = entryValidator(entryPattern(m_kind));
    QString text(typed);
    int position = 0;
    const bool isAdmitted =
        typed.isSpace() || validator->validate(text, position) != QValidator::Invalid;
    return isAdmitted ? QString() : EntryNotice::foreign(typed);
}

/// True for a character that must not be typed: one that the number has no place for, and the
/// digits that follow it.
bool UnitKeyFilter::refuses(const QKeyEvent& key)
{
    const QChar typed = typedCharacter(key);
    if (isDigit(typed)) {
        if (!m_refusal.isEmpty())
            EntryNotice::global().refuse(*m_field, m_refusal);
        return !m_refusal.isEmpty();
    }
    if (typed.isNull() && isModifierKey(key))
        return false;
    m_refusal = typed.isNull() ? QString() : refusalOf(typed);
    if (m_refusal.isEmpty())
        return false;
    const bool hasNumber = m_field->selectedText() != m_field->text();
    if (isSeparator(typed))
        EntryNotice::global().refuse(*m_field, m_refusal);
    else if (!hasNumber || !continuesNumber(typed))
        m_refusal.clear();
    return true;
}

void UnitKeyFilter::takePasted(const QString& text)
{
    const std::optional<QString> number = readQuantity(text, m_kind, unitPower(m_field));
    const bool isWhole = number && !number->contains(QLatin1Char('.'));
    const bool hasSign = number && number->startsWith(QLatin1Char('-'));
    const int length = !number             ? 0
                       : isGrouped(m_kind) ? formatGrouped(*number).size()
                                           : number->size();
    m_refusal.clear();
    if (!number || (hasSign && !takesSign(m_kind)) || length > m_field->maxLength()) {
        EntryNotice::global().refuse(*m_field, EntryNotice::unreadable(text));
        return;
    }
    if (!isWhole && !takesFraction(m_kind)) {
        EntryNotice::global().refuse(*m_field, EntryNotice::wholeOnly(m_kind));
        return;
    }
    m_field->selectAll();
    m_field->insert(*number);
    // A unit letter typed behind it would scale it once more.
    if (std::any_of(text.begin(), text.end(), [](QChar c) { return c.isLetter(); }))
        m_convertedText = m_field->text();
}

/// Grouping would bring back a deleted blank at once: the digit beyond it is meant.
void UnitKeyFilter::skipBlank(const QKeyEvent& key)
{
    if (m_field->hasSelectedText())
        return;
    const int cursor = m_field->cursorPosition();
    if (key.key() == Qt::Key_Backspace && isBlankAt(m_field->text(), cursor - 1))
        m_field->setCursorPosition(cursor - 1);
    else if (key.key() == Qt::Key_Delete && isBlankAt(m_field->text(), cursor))
        m_field->setCursorPosition(cursor + 1);
}

bool UnitKeyFilter::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::FocusIn:
        m_convertedText.clear();
        m_refusal.clear();
        break;
    case QEvent::MouseButtonPress:
    case QEvent::Wheel:
        m_refusal.clear();
        break;
    case QEvent::KeyPress: {
        const auto& key = *static_cast<const QKeyEvent*>(event);
        if (isSurplusLetter(key) || typeLatinLetter(key) || refuses(key))
            return true;
        skipBlank(key);
        break;
    }
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}
