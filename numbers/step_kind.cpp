#include "numbers/step_kind.h"

#include "numbers/number_text.h"
#include "numbers/unit_keys.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

namespace
{
enum class StepType { Int32, Int64, Double };
enum class UpperBound { Span, SpanRounded, Maximum };

// Instead of a number of decimals:
constexpr int nearestWhole = -1;
constexpr int wholeText = -2;

struct StepRow {
    StepKind kind;
    const char* key;
    StepType type;
    UnitFamily units;
    double initial;
    int decimals;
    UpperBound bound;
    double smallest;
};

using K = StepKind;
using T = StepType;
using U = UnitFamily;
constexpr UpperBound span = UpperBound::Span;

constexpr StepRow stepRows[] = {
    {K::Frequency, "Freq_Step", T::Int64, U::Frequency, 1e6, nearestWhole, span, 1},
    {K::Power, "Pow_Step", T::Double, U::None, 1, 0, span, 1},
    {K::PointCount, "Point_Step", T::Int32, U::None, 1, wholeText, span, 1},
    {K::Time, "Time_Step", T::Int64, U::Time, 100, nearestWhole, span, 1},
    {K::PulsePeriod, "Time_Period_Step", T::Double, U::Time, 100, 1, span, 1},
    {K::PulseWidth, "Time_Width_Step", T::Double, U::Time, 100, 1, span, 1},
    {K::AmRate, "AM_F_Step", T::Double, U::Frequency, 100, 1, UpperBound::Maximum, 0.1},
    {K::AmDepth, "AM_Depth_Step", T::Double, U::None, 1, 2, span, 0.01},
    {K::AmDuty, "AM_Duty_Step", T::Int32, U::None, 1, wholeText, span, 1},
    {K::FmRate, "FM_F_Step", T::Double, U::Frequency, 100, 1, span, 0.1},
    {K::FmDeviation, "FM_Dev_Step", T::Double, U::Frequency, 1000, 6, span, 0.000001},
    {K::FmDuty, "FM_Duty_Step", T::Int32, U::None, 1, wholeText, span, 1},
    {K::PmRate, "PM_F_Step", T::Double, U::Frequency, 100, 1, span, 0.1},
    {K::PmDeviation, "PM_Dev_Step", T::Double, U::None, 0.1, 3, UpperBound::SpanRounded, 0.001},
    {K::PmDuty, "PM_Duty_Step", T::Int32, U::None, 1, wholeText, span, 1},
    {K::LfFrequency, "LF_F_Step", T::Double, U::Frequency, 100, 1, span, 0.1},
    {K::LfAmplitude, "LF_A_Step", T::Double, U::Voltage, 0.1, 3, span, 0.001},
    {K::LfDuty, "LF_Duty_Step", T::Int32, U::None, 1, wholeText, span, 1},
};

constexpr bool areRowsInOrder()
{
    for (int i = 0; i < stepKindCount; ++i) {
        if (static_cast<int>(stepRows[i].kind) != i)
            return false;
    }
    return true;
}
static_assert(std::size(stepRows) == stepKindCount && areRowsInOrder());

const StepRow& rowOf(StepKind kind)
{
    return stepRows[static_cast<int>(kind)];
}

/// Far larger than any quantity, and still exact to a thousandth as a double.
constexpr double largestOfAll = 1e12;

double largestStep(const StepRow& row)
{
    return row.type == T::Int32 ? std::numeric_limits<qint32>::max() : largestOfAll;
}

double rounded(const StepRow& row, const QString& text)
{
    if (row.decimals == wholeText)
        return static_cast<double>(toWholeNumber(text));
    if (row.decimals == nearestWhole)
        return static_cast<double>(truncated(toNumber(text) + 0.5));
    return toNumber(fixedText(toNumber(text), row.decimals));
}

double upperBound(const StepRow& row, double min, double max)
{
    switch (row.bound) {
    case UpperBound::Span:
        return max - min;
    case UpperBound::SpanRounded:
        return toNumber(fixedText(max - min, row.decimals));
    case UpperBound::Maximum:
        return max;
    }
    Q_UNREACHABLE();
}

} // namespace

QLatin1String stepKey(StepKind kind)
{
    return QLatin1String(rowOf(kind).key);
}

double defaultStep(StepKind kind)
{
    return rowOf(kind).initial;
}

bool isWholeStep(StepKind kind)
{
    return rowOf(kind).type != T::Double;
}

bool isPossibleStep(StepKind kind, double step)
{
    const StepRow& row = rowOf(kind);
    const bool isInside = step >= row.smallest && step <= largestStep(row);
    return isInside && (!isWholeStep(kind) || step == std::floor(step));
}

double acceptedStep(StepKind kind, const QString& typedText, double min, double max)
{
    const StepRow& row = rowOf(kind);
    double step = rounded(row, convertUnitKeys(typedText, row.units));
    step = std::min(step, largestStep(row));
    if (min != 0.0 || max != 0.0)
        step = std::min(step, upperBound(row, min, max));
    return std::max(step, row.smallest);
}

QString stepText(double step)
{
    return trimZeros(formatGrouped(shortestText(step)));
}
