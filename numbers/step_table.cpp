#include "numbers/step_table.h"

#include "numbers/number_text.h"

#include <QVariant>

namespace
{
template <typename Action>
void forEachStepKind(Action action)
{
    for (int i = 0; i < stepKindCount; ++i)
        action(static_cast<StepKind>(i));
}

std::size_t indexOf(StepKind kind)
{
    return static_cast<std::size_t>(kind);
}
} // namespace

StepTable::StepTable()
{
    forEachStepKind([this](StepKind kind) { m_steps[indexOf(kind)] = defaultStep(kind); });
}

void StepTable::attach(QSettings* settings)
{
    forEachStepKind([&](StepKind kind) {
        bool isNumber = false;
        const double stored = settings->value(stepKey(kind)).toDouble(&isNumber);
        m_steps[indexOf(kind)] =
            isNumber && isPossibleStep(kind, stored) ? stored : defaultStep(kind);
    });
    m_settings = settings;
}

double StepTable::step(StepKind kind) const
{
    return m_steps[indexOf(kind)];
}

bool StepTable::setStep(StepKind kind, double step)
{
    if (!isPossibleStep(kind, step))
        return false;
    double& current = m_steps[indexOf(kind)];
    if (current == step)
        return true;
    current = step;
    if (m_settings)
        m_settings->setValue(stepKey(kind),
                             isWholeStep(kind) ? QVariant(truncated(step)) : QVariant(step));
    return true;
}
