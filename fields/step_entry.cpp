#include "fields/step_entry.h"

#include "numbers/number_text.h"
#include "numbers/step_table.h"
#include "fields/unit_key_filter.h"

#include <QLineEdit>

namespace
{
/// No instrument tells how many points a list may have: this many stay fluent on the panel.
constexpr Range pointCounts{1, 10000};
} // namespace

Range stepLimits(Quantity quantity)
{
    return quantity == Quantity::SweepPoints ? pointCounts : InstrumentLimits::global()[quantity];
}

bool acceptStepEntry(QLineEdit* line, Quantity quantity)
{
    const QString typed = withoutBlanks(line->text());
    if (typed.isEmpty()) {
        line->selectAll();
        if (auto* typing = line->findChild<UnitKeyFilter*>())
            typing->paste();
        else
            line->paste();
        return false;
    }
    const StepKind kind = *stepKind(quantity);
    const Range limits = stepLimits(quantity);
    const double step = acceptedStep(kind, typed, limits.min, limits.max);
    line->setText(stepText(step));
    return StepTable::global().setStep(kind, step);
}
