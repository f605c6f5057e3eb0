#include "fields/describe.h"

#include "fields/numeric_field.h"
#include "ui/describe.h"

#include <QCoreApplication>
#include <QLineEdit>
#include <QPushButton>

namespace
{
QString translated(const char* text)
{
    return QCoreApplication::translate("ValueRow", text);
}

QString unitLettersHint(UnitFamily units)
{
    switch (units) {
    case UnitFamily::Frequency:
        return translated(
            QT_TRANSLATE_NOOP("ValueRow", "k, m or g after the number: kilo, mega, giga"));
    case UnitFamily::Time:
        return translated(
            QT_TRANSLATE_NOOP("ValueRow", "m or s after the number: milliseconds, seconds"));
    case UnitFamily::Voltage:
        return translated(QT_TRANSLATE_NOOP("ValueRow", "m after the number: millivolts"));
    case UnitFamily::None:
        break;
    }
    return QString();
}
} // namespace

void describeField(QLineEdit* field, const QString& name, const QString& toolTip)
{
    QStringList hints = {toolTip};
    if (const std::optional<NumericField> number = numericField(field))
        hints << unitLettersHint(unitFamily(number->kind));
    hints << translated(QT_TRANSLATE_NOOP("ValueRow", "Up and Down or the wheel: one step"));
    hints.removeAll(QString());
    describe(field, name, hints.join(QLatin1Char('\n')));
}

void describeKeypadKey(QPushButton* key, const QString& fieldName)
{
    describe(key, translated(QT_TRANSLATE_NOOP("ValueRow", "%1: keypad")).arg(fieldName),
             translated(QT_TRANSLATE_NOOP("ValueRow", "Enter the value with the keypad")));
}
