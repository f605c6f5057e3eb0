#include "fields/step_entry.h"

#include "fields/number_edit.h"
#include "link/instrument_limits.h"
#include "numbers/number_text.h"
#include "numbers/step_table.h"

namespace
{
/// No instrument reports how many points are allowed: with this many the panel stays responsive.
constexpr Range pointCounts{1, 10000};
} // namespace

bool acceptStepEntry(NumberEdit& line)
{
    const QString typed = withoutBlanks(line.text());
    if (typed.isEmpty()) {
        line.selectAll();
        line.paste();
        return false;
    }
    const Quantity quantity = line.quantity();
    const StepKind kind = *stepKind(quantity);
    const Range limits = quantity == Quantity::SweepPoints ? pointCounts : line.range();
    const double step = acceptedStep(kind, typed, limits.min, limits.max);
    line.setText(stepText(step));
    return line.context().steps.setStep(kind, step);
}
