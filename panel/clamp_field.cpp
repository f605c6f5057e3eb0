#include "panel/clamp_field.h"

#include "numbers/number_text.h"

#include <QLineEdit>

void clampField(double min, double max, FieldKind kind, QLineEdit* field)
{
    const QString clamped = clampText(field->text(), min, max, kind);
    // Setting the same text would still move the cursor and forget what can be undone.
    if (clamped != field->text())
        field->setText(clamped);
}

bool boundText(QString& text, const Range<double>& range, FieldKind kind)
{
    bool isNumber = false;
    const double value = withoutBlanks(text).toDouble(&isNumber);
    if (!isNumber || !range.isKnown() || (value >= range.min && value <= range.max))
        return false;
    text = clampText(text, range.min, range.max, kind);
    return true;
}
