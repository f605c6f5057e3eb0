#include "panel/unit_key_filter.h"

#include "numbers/number_text.h"
#include "panel/validators.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QValidator>
#include <QVariant>

#include <algorithm>
#include <iterator>

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

/// While a field's text is invalid, as a grouped "- 123" is among digits and minus signs, its
/// validator lets anything be typed.
QString withoutForeign(const QString& text, FieldKind kind)
{
    const QValidator* validator = entryValidator(entryPattern(kind));
    const auto isValid = [validator](QString part) {
        int position = 0;
        return validator->validate(part, position) != QValidator::Invalid;
    };
    if (isValid(text))
        return text;
    QString result;
    std::copy_if(text.begin(), text.end(), std::back_inserter(result),
                 [&](QChar c) { return isValid(QString(c)); });
    return result;
}

/// A typed text, or the part of it before the cursor, without blanks and unit letters.
QString convertedText(const QString& typed, FieldKind kind, int plainPower)
{
    return withoutForeign(convertUnitKeys(typed, unitFamily(kind), plainPower), kind);
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

QString acceptedText(const QLineEdit* field)
{
    return field->property(acceptedProperty).toString();
}

void setEdited(QLineEdit* field, bool isEdited)
{
    if (field->property(editedProperty).toBool() != isEdited)
        field->setProperty(editedProperty, isEdited);
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
    : QObject(field), m_field(field), m_kind(kind)
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

bool UnitKeyFilter::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusIn)
        m_convertedText.clear();
    if (event->type() == QEvent::KeyPress && isSurplusLetter(*static_cast<QKeyEvent*>(event)))
        return true;
    // Grouping would bring back a deleted blank at once: the digit beyond it is meant.
    if (event->type() == QEvent::KeyPress && !m_field->hasSelectedText()) {
        const auto* key = static_cast<const QKeyEvent*>(event);
        const int cursor = m_field->cursorPosition();
        if (key->key() == Qt::Key_Backspace && isBlankAt(m_field->text(), cursor - 1))
            m_field->setCursorPosition(cursor - 1);
        else if (key->key() == Qt::Key_Delete && isBlankAt(m_field->text(), cursor))
            m_field->setCursorPosition(cursor + 1);
    }
    return QObject::eventFilter(watched, event);
}
