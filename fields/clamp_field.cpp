#include "fields/clamp_field.h"

#include "numbers/number_text.h"
#include "fields/numeric_field.h"

#include <QLineEdit>

void clampField(const InstrumentLimits& limits, QLineEdit* field)
{
    const NumericField number = *numericField(field);
    const Range& range = limits[number.quantity];
    const QString clamped = clampText(field->text(), range.min, range.max, number.kind);
    // Setting the same text would still move the cursor and forget what can be undone.
    if (clamped != field->text())
        field->setText(clamped);
}

bool boundText(QString& text, const InstrumentLimits& limits, Quantity quantity)
{
    const Range& range = limits[quantity];
    bool isNumber = false;
    const double value = withoutBlanks(text).toDouble(&isNumber);
    if (!isNumber || !range.isKnown() || (value >= range.min && value <= range.max))
        return false;
    text = clampText(text, range.min, range.max, fieldKind(quantity));
    return true;
}
