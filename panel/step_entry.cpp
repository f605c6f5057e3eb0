#include "panel/step_entry.h"

#include "numbers/number_text.h"
#include "numbers/step_table.h"
#include "panel/unit_key_filter.h"

#include <QLineEdit>

namespace
{
/// No instrument tells how many points a list may have: this many stay fluent on the panel.
constexpr Range<double> pointCounts{1, 10000};

template <typename T>
Range<double> asReal(const Range<T>& range)
{
    return {static_cast<double>(range.min), static_cast<double>(range.max)};
}
} // namespace

Range<double> stepLimits(StepKind kind)
{
    const InstrumentLimits& limits = InstrumentLimits::global();
    switch (kind) {
    case StepKind::Frequency:
        return asReal(limits.frequencyHz);
    case StepKind::Power:
        return limits.powerDbm;
    case StepKind::PointCount:
        return pointCounts;
    case StepKind::Time:
        return asReal(limits.listDwellUs);
    case StepKind::PulsePeriod:
        return asReal(limits.pulsePeriodUs);
    case StepKind::PulseWidth:
        return asReal(limits.pulseWidthUs);
    case StepKind::AmRate:
        return limits.amRateHz;
    case StepKind::AmDepth:
        return limits.amDepth;
    case StepKind::AmDuty:
        return asReal(limits.amDuty);
    case StepKind::FmRate:
        return limits.fmRateHz;
    case StepKind::FmDeviation:
        return limits.fmDeviationHz;
    case StepKind::FmDuty:
        return asReal(limits.fmDuty);
    case StepKind::PmRate:
        return limits.pmRateHz;
    case StepKind::PmDeviation:
        return limits.pmDeviationRad;
    case StepKind::PmDuty:
        return asReal(limits.pmDuty);
    case StepKind::LfFrequency:
        return limits.lfFrequencyHz;
    case StepKind::LfAmplitude:
        return limits.lfAmplitudeV;
    case StepKind::LfDuty:
        return asReal(limits.lfDuty);
    }
    Q_UNREACHABLE();
}

bool acceptStepEntry(QLineEdit* line, StepKind kind)
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
    const Range<double> limits = stepLimits(kind);
    const double step = acceptedStep(kind, typed, limits.min, limits.max);
    line->setText(stepText(step));
    return StepTable::global().setStep(kind, step);
}
