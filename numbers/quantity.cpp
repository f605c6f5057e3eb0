#include "numbers/quantity.h"

#include "numbers/number_text.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

namespace
{
enum class Limit { None, Real, Count, BigCount };

struct QuantityRow {
    Quantity quantity;
    FieldKind kind;
    std::optional<StepKind> step;
    const char* limitQuery = "";
    Limit limit = Limit::None;
    double (*limitOfReply)(const QString& reply) = toNumber;
};

using Q = Quantity;
using K = FieldKind;
using S = StepKind;
using L = Limit;

const QuantityRow quantityRows[] = {
    {Q::Frequency, K::Frequency, S::Frequency, "FREQ?", L::BigCount},
    {Q::Power, K::Power, S::Power, "POW?", L::Real},
    {Q::PulsePeriod, K::PulsePeriod, S::PulsePeriod, "PULM:INT:PER?", L::Count,
     microsecondsFromReply},
    {Q::PulseWidth, K::PulseWidth, S::PulseWidth, "PULM:INT:PWID?", L::Count,
     microsecondsFromReply},
    {Q::AmDepth, K::AmDepth, S::AmDepth, "AM?", L::Real},
    {Q::AmRate, K::ModulationRate, S::AmRate, "AM:INT:FUNC:FREQ?", L::Real},
    {Q::AmDuty, K::Duty, S::AmDuty, "AM:INT:FUNC:SHAP:SQU:DUTY?", L::Count},
    {Q::FmDeviation, K::FmDeviation, S::FmDeviation, "FM?", L::Real},
    {Q::FmRate, K::ModulationRate, S::FmRate, "FM:INT:FUNC:FREQ?", L::Real},
    {Q::FmDuty, K::Duty, S::FmDuty, "FM:INT:FUNC:SHAP:SQU:DUTY?", L::Count},
    {Q::PmDeviation, K::PmDeviation, S::PmDeviation, "PM?", L::Real},
    {Q::PmRate, K::ModulationRate, S::PmRate, "PM:INT:FUNC:FREQ?", L::Real},
    {Q::PmDuty, K::Duty, S::PmDuty, "PM:INT:FUNC:SHAP:SQU:DUTY?", L::Count},
    {Q::LfDuty, K::LfDuty, S::LfDuty, "LFO:FUNC:SHAP:SQU:DUTY?", L::Count},
    {Q::LfAmplitude, K::LfAmplitude, S::LfAmplitude, "LFO:AMPL?", L::Real},
    {Q::LfFrequency, K::LfFrequency, S::LfFrequency, "LFO:FUNC:FREQ?", L::Real},
    {Q::ExternalReference,
     K::ExternalReference,
     {},
     "ROSC:EXT:FREQ?",
     L::Count,
     megahertzFromReply},
    {Q::ListDwell, K::Dwell, {}, "LIST:DWEL:POIN?", L::Count},
    {Q::SweepDwell, K::Dwell, S::Time, "SWEEP:DWEL?", L::Count},
    {Q::SweepPoints, K::PointCount, S::PointCount},
    {Q::ListFrequency, K::Frequency, {}},
    {Q::ListPower, K::Power, {}},
    {Q::HighestPower, K::Power, {}},
    {Q::Dac, K::DacValue, {}},
};
static_assert(std::size(quantityRows) == quantityCount);

const QuantityRow& rowOf(Quantity quantity)
{
    const QuantityRow& row = quantityRows[static_cast<int>(quantity)];
    Q_ASSERT(row.quantity == quantity);
    return row;
}

/// Truncated toward zero; what the type cannot hold becomes the nearest it can.
template <typename T>
double stored(double value)
{
    constexpr auto smallest = static_cast<double>(std::numeric_limits<T>::min());
    constexpr auto largest = static_cast<double>(std::numeric_limits<T>::max());
    return std::trunc(std::clamp(value, smallest, largest));
}
} // namespace

FieldKind fieldKind(Quantity quantity)
{
    return rowOf(quantity).kind;
}

std::optional<StepKind> stepKind(Quantity quantity)
{
    return rowOf(quantity).step;
}

QLatin1String limitQuery(Quantity quantity)
{
    return QLatin1String(rowOf(quantity).limitQuery);
}

Quantity boundedAs(Quantity quantity)
{
    switch (quantity) {
    case Quantity::ListFrequency:
        return Quantity::Frequency;
    case Quantity::ListPower:
        return Quantity::Power;
    default:
        return quantity;
    }
}

double limitOfReply(Quantity quantity, const QString& reply)
{
    const QuantityRow& row = rowOf(quantity);
    const double value = row.limitOfReply(reply);
    switch (row.limit) {
    case Limit::Count:
        return stored<qint32>(value);
    case Limit::BigCount:
        return stored<qint64>(value);
    case Limit::None:
    case Limit::Real:
        break;
    }
    return value;
}
