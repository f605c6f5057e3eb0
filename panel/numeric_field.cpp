#include "panel/numeric_field.h"

#include "panel/events_line_edit.h"
#include "panel/leave_filter.h"
#include "panel/select_line.h"
#include "panel/unit_key_filter.h"
#include "panel/validators.h"

#include <QLineEdit>
#include <QVariant>

namespace
{
constexpr char fieldKindProperty[] = "fieldKind";
constexpr char stepKindProperty[] = "stepKind";

template <typename Filter>
Filter* filterOf(QLineEdit* edit)
{
    return edit->findChild<Filter*>(QString(), Qt::FindDirectChildrenOnly);
}
} // namespace

void setUpNumericField(QLineEdit* edit, FieldKind kind, std::optional<StepKind> step)
{
    setEntryValidator(edit, kind);
    showAccepted(edit, edit->text());
    new LeaveFilter(edit);
    new UnitKeyFilter(edit, kind);
    new selectLine(edit);
    edit->setProperty(fieldKindProperty, static_cast<int>(kind));
    if (!step)
        return;
    new EventsLineEdit(edit, *step);
    edit->setProperty(stepKindProperty, static_cast<int>(*step));
}

void changeFieldKind(QLineEdit* edit, FieldKind kind, StepKind step)
{
    setEntryValidator(edit, kind);
    filterOf<UnitKeyFilter>(edit)->setKind(kind);
    filterOf<EventsLineEdit>(edit)->setKind(step);
    edit->setProperty(fieldKindProperty, static_cast<int>(kind));
    edit->setProperty(stepKindProperty, static_cast<int>(step));
}

std::optional<NumericField> numericField(QLineEdit* edit)
{
    const QVariant kind = edit->property(fieldKindProperty);
    if (!kind.isValid())
        return std::nullopt;
    NumericField field{edit, static_cast<FieldKind>(kind.toInt()), std::nullopt};
    const QVariant step = edit->property(stepKindProperty);
    if (step.isValid())
        field.step = static_cast<StepKind>(step.toInt());
    return field;
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
