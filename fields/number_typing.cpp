#include "fields/number_typing.h"

#include "fields/validators.h"
#include "numbers/entry_units.h"
#include "numbers/number_text.h"
#include "numbers/quantity_text.h"
#include "numbers/unit_keys.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QValidator>

#include <algorithm>

namespace
{
/// More of a pasted text would not be read.
constexpr int longestQuote = 40;

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

/// Whether a unit letter in the typed text has changed the digits.
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

/// Dashes as other keyboards and programs have them.
bool isMinus(QChar c)
{
    return QStringLiteral("-\u2212\u2013").contains(c);
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
StatusWords unreadable(const QString& text)
{
    return [quote = text.simplified().left(longestQuote)] {
        return NumberTyping::tr("\"%1\" cannot be read").arg(quote);
    };
}

/// That such a field takes whole numbers only, in its unit.
StatusWords wholeOnly(FieldKind kind)
{
    return [kind] {
        const QString unit = unitText(entryUnits(kind, 0), 0);
        return unit.isEmpty() ? NumberTyping::tr("whole numbers only")
                              : NumberTyping::tr("whole %1").arg(unit);
    };
}

StatusWords onePoint()
{
    return [] { return NumberTyping::tr("only one decimal point"); };
}

StatusWords foreign(QChar typed)
{
    return [typed] { return NumberTyping::tr("\"%1\" is not allowed in this number").arg(typed); };
}
} // namespace

NumberTyping::NumberTyping(QLineEdit& field, Refuse refuse)
    : m_field(field), m_refuse(std::move(refuse)),
      m_paste(&field, [this](const QString& text) { takePasted(text); })
{
}

void NumberTyping::setForm(FieldKind kind, int unitPower)
{
    m_kind = kind;
    m_unitPower = unitPower;
}

void NumberTyping::forget()
{
    m_convertedText.clear();
    m_refusal = nullptr;
}

/// Grouping and unit letters, the cursor still at the same digit.
void NumberTyping::takeEdited(const QString& typed)
{
    const QString converted = convertedText(typed, m_kind, m_unitPower);
    const QString text = grouped(converted, m_kind);
    if (text != typed) {
        const QString beforeCursor = typed.left(m_field.cursorPosition());
        const int charactersBefore = convertedText(beforeCursor, m_kind, m_unitPower).size();
        m_field.setText(text);
        m_field.setCursorPosition(positionBehind(text, charactersBefore));
    }
    m_convertedText = isScaled(typed, text) ? text : QString();
}

/// One unit letter is all a number takes: a second one, as a key that bounces gives, would scale it
/// once more.
bool NumberTyping::isSurplusLetter(const QKeyEvent& key) const
{
    const QString text = key.text();
    return !m_convertedText.isEmpty() && m_field.text() == m_convertedText &&
           !m_field.hasSelectedText() && !text.isEmpty() && text.at(0).isLetter();
}

/// With the Russian layout on, the letter that its key or its word stands for.
bool NumberTyping::typeLatinLetter(const QKeyEvent& key)
{
    const QChar typed = typedCharacter(key);
    const QChar letter = latinUnitKey(typed);
    if (letter == typed || !unitKeyPower(letter, unitFamily(m_kind)))
        return false;
    QKeyEvent latin(QEvent::KeyPress, letter.toUpper().unicode(), Qt::NoModifier, letter);
    QCoreApplication::sendEvent(&m_field, &latin);
    return true;
}

/// Why a character other than a digit cannot be typed here; empty if it can.
StatusWords NumberTyping::refusalOf(QChar typed) const
{
    QString rest = m_field.text();
    rest.remove(m_field.selectionStart(), m_field.selectedText().size());
    if (isSeparator(typed)) {
        if (!takesFraction(m_kind))
            return wholeOnly(m_kind);
        return std::any_of(rest.begin(), rest.end(), isSeparator) ? onePoint() : nullptr;
    }
    QString text(typed);
    int position = 0;
    const bool isAdmitted =
        typed.isSpace() || m_field.validator()->validate(text, position) != QValidator::Invalid;
    return isAdmitted ? nullptr : foreign(typed);
}

/// True for a character that must not be typed: one that the number has no place for, and the
/// digits and the unit that follow it.
bool NumberTyping::refuses(const QKeyEvent& key)
{
    const QChar typed = typedCharacter(key);
    // A unit would scale what is left of the number.
    if (isDigit(typed) || (m_refusal && unitKeyPower(typed, unitFamily(m_kind)))) {
        if (m_refusal)
            m_refuse(m_refusal);
        return m_refusal != nullptr;
    }
    if (typed.isNull() && isModifierKey(key))
        return false;
    m_refusal = typed.isNull() ? nullptr : refusalOf(typed);
    if (!m_refusal)
        return false;
    const bool hasNumber = m_field.selectedText() != m_field.text();
    if (isSeparator(typed) || isMinus(typed))
        m_refuse(m_refusal);
    else if (!hasNumber || !continuesNumber(typed))
        m_refusal = nullptr;
    return true;
}

void NumberTyping::takePasted(const QString& text)
{
    const std::optional<QString> number = readQuantity(text, m_kind, m_unitPower);
    const bool isWhole = number && !number->contains(QLatin1Char('.'));
    const bool hasSign = number && number->startsWith(QLatin1Char('-'));
    const int length = number ? grouped(*number, m_kind).size() : 0;
    m_refusal = nullptr;
    if (!number || (hasSign && !takesSign(m_kind)) || length > m_field.maxLength()) {
        m_refuse(unreadable(text));
        return;
    }
    if (!isWhole && !takesFraction(m_kind)) {
        m_refuse(wholeOnly(m_kind));
        return;
    }
    m_field.selectAll();
    m_field.insert(*number);
    // A unit letter typed after it would scale it once more.
    if (std::any_of(text.begin(), text.end(), [](QChar c) { return c.isLetter(); }))
        m_convertedText = m_field.text();
}

/// Grouping would bring back a deleted blank at once: the digit next to it is deleted instead.
void NumberTyping::skipBlank(const QKeyEvent& key)
{
    if (m_field.hasSelectedText())
        return;
    const int cursor = m_field.cursorPosition();
    if (key.key() == Qt::Key_Backspace && isBlankAt(m_field.text(), cursor - 1))
        m_field.setCursorPosition(cursor - 1);
    else if (key.key() == Qt::Key_Delete && isBlankAt(m_field.text(), cursor))
        m_field.setCursorPosition(cursor + 1);
}

bool NumberTyping::swallows(const QKeyEvent& key)
{
    if (isSurplusLetter(key) || typeLatinLetter(key) || refuses(key))
        return true;
    skipBlank(key);
    return false;
}
