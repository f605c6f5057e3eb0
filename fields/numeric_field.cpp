#include "fields/numeric_field.h"

#include "fields/events_line_edit.h"
#include "fields/leave_filter.h"
#include "fields/select_line.h"
#include "fields/unit_key_filter.h"
#include "fields/validators.h"

#include <QLineEdit>
#include <QVariant>

namespace
{
constexpr char quantityProperty[] = "quantity";

template <typename Filter>
Filter* filterOf(QLineEdit* edit)
{
    return edit->findChild<Filter*>(QString(), Qt::FindDirectChildrenOnly);
}
} // namespace

void setUpNumericField(QLineEdit* edit, Quantity quantity)
{
    const FieldKind kind = fieldKind(quantity);
    setEntryValidator(edit, kind);
    showAccepted(edit, edit->text());
    new LeaveFilter(edit);
    new UnitKeyFilter(edit, kind);
    new selectLine(edit);
    edit->setProperty(quantityProperty, static_cast<int>(quantity));
    if (const std::optional<StepKind> step = stepKind(quantity))
        new EventsLineEdit(edit, *step);
}

void changeQuantity(QLineEdit* edit, Quantity quantity)
{
    const FieldKind kind = fieldKind(quantity);
    setEntryValidator(edit, kind);
    filterOf<UnitKeyFilter>(edit)->setKind(kind);
    filterOf<EventsLineEdit>(edit)->setKind(*stepKind(quantity));
    edit->setProperty(quantityProperty, static_cast<int>(quantity));
}

std::optional<NumericField> numericField(QLineEdit* edit)
{
    const QVariant property = edit->property(quantityProperty);
    if (!property.isValid())
        return std::nullopt;
    const auto quantity = static_cast<Quantity>(property.toInt());
    return NumericField{edit, quantity, fieldKind(quantity), stepKind(quantity)};
}

bool isBeingStepped(QLineEdit* edit)
{
    const auto* events = filterOf<EventsLineEdit>(edit);
    return events && events->isCommitting();
}

void stepNumericField(QLineEdit* edit, int direction)
{
    if (auto* events = filterOf<EventsLineEdit>(edit))
        events->step(direction);
}
