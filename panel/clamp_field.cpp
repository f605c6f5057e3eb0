#include "panel/clamp_field.h"

#include <QLineEdit>

void clampField(double min, double max, FieldKind kind, QLineEdit* field)
{
    const QString clamped = clampText(field->text(), min, max, kind);
    // Setting the same text would still move the cursor and forget what can be undone.
    if (clamped != field->text())
        field->setText(clamped);
}
