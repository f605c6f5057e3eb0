#include "numbers/quantity.h"

#include "numbers/number_text.h"

#include <QCoreApplication>

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
    const char* limitQuery;
    Limit limit;
    double (*limitOfReply)(const QString& reply);
    Quantity boundedAs;
    const char* name;
    const char* toolTip;
};

using Q = Quantity;
using K = FieldKind;
using S = StepKind;
using L = Limit;
constexpr auto plain = toNumber;
constexpr auto inUs = microsecondsFromReply;
constexpr auto inMHz = megahertzFromReply;
constexpr std::nullopt_t still = std::nullopt; ///< does not step
const QuantityRow quantityRows[] = {
    {Q::Frequency, K::Frequency, S::Frequency, "FREQ?", L::BigCount, plain, Q::Frequency,
     QT_TRANSLATE_NOOP("Quantity", "Frequency"),
     QT_TRANSLATE_NOOP("Quantity", "RF frequency in hertz (Ctrl+F)")},
    {Q::Power, K::Power, S::Power, "POW?", L::Real, plain, Q::Power,
     QT_TRANSLATE_NOOP("Quantity", "Power"),
     QT_TRANSLATE_NOOP("Quantity", "RF power in whole dBm (Ctrl+P)")},
    {Q::PulsePeriod, K::PulsePeriod, S::PulsePeriod, "PULM:INT:PER?", L::Count, inUs,
     Q::PulsePeriod, QT_TRANSLATE_NOOP("Quantity", "Pulse period"),
     QT_TRANSLATE_NOOP("Quantity", "Period of the pulses in the unit beside it")},
    {Q::PulseWidth, K::PulseWidth, S::PulseWidth, "PULM:INT:PWID?", L::Count, inUs, Q::PulseWidth,
     QT_TRANSLATE_NOOP("Quantity", "Pulse width"),
     QT_TRANSLATE_NOOP("Quantity", "Width of the pulses in the unit beside it")},
    {Q::AmDepth, K::AmDepth, S::AmDepth, "AM?", L::Real, plain, Q::AmDepth,
     QT_TRANSLATE_NOOP("Quantity", "AM Depth"),
     QT_TRANSLATE_NOOP("Quantity", "AM depth in percent")},
    {Q::AmRate, K::ModulationRate, S::AmRate, "AM:INT:FUNC:FREQ?", L::Real, plain, Q::AmRate,
     QT_TRANSLATE_NOOP("Quantity", "AM Frequency"),
     QT_TRANSLATE_NOOP("Quantity", "Frequency of the internal source in hertz")},
    {Q::AmDuty, K::Duty, S::AmDuty, "AM:INT:FUNC:SHAP:SQU:DUTY?", L::Count, plain, Q::AmDuty,
     QT_TRANSLATE_NOOP("Quantity", "AM DUTY"),
     QT_TRANSLATE_NOOP("Quantity", "Duty of the rectangle in whole percent")},
    {Q::FmDeviation, K::FmDeviation, S::FmDeviation, "FM?", L::Real, plain, Q::FmDeviation,
     QT_TRANSLATE_NOOP("Quantity", "FM Deviation"),
     QT_TRANSLATE_NOOP("Quantity", "FM deviation in hertz")},
    {Q::FmRate, K::ModulationRate, S::FmRate, "FM:INT:FUNC:FREQ?", L::Real, plain, Q::FmRate,
     QT_TRANSLATE_NOOP("Quantity", "FM Frequency"),
     QT_TRANSLATE_NOOP("Quantity", "Frequency of the internal source in hertz")},
    {Q::FmDuty, K::Duty, S::FmDuty, "FM:INT:FUNC:SHAP:SQU:DUTY?", L::Count, plain, Q::FmDuty,
     QT_TRANSLATE_NOOP("Quantity", "FM DUTY"),
     QT_TRANSLATE_NOOP("Quantity", "Duty of the rectangle in whole percent")},
    {Q::PmDeviation, K::PmDeviation, S::PmDeviation, "PM?", L::Real, plain, Q::PmDeviation,
     QT_TRANSLATE_NOOP("Quantity", "PM Deviation"),
     QT_TRANSLATE_NOOP("Quantity", "PM deviation in radians")},
    {Q::PmRate, K::ModulationRate, S::PmRate, "PM:INT:FUNC:FREQ?", L::Real, plain, Q::PmRate,
     QT_TRANSLATE_NOOP("Quantity", "PM Frequency"),
     QT_TRANSLATE_NOOP("Quantity", "Frequency of the internal source in hertz")},
    {Q::PmDuty, K::Duty, S::PmDuty, "PM:INT:FUNC:SHAP:SQU:DUTY?", L::Count, plain, Q::PmDuty,
     QT_TRANSLATE_NOOP("Quantity", "PM DUTY"),
     QT_TRANSLATE_NOOP("Quantity", "Duty of the rectangle in whole percent")},
    {Q::LfDuty, K::LfDuty, S::LfDuty, "LFO:FUNC:SHAP:SQU:DUTY?", L::Count, plain, Q::LfDuty,
     QT_TRANSLATE_NOOP("Quantity", "LF generator: DUTY"),
     QT_TRANSLATE_NOOP("Quantity", "Duty of the rectangle in whole percent")},
    {Q::LfAmplitude, K::LfAmplitude, S::LfAmplitude, "LFO:AMPL?", L::Real, plain, Q::LfAmplitude,
     QT_TRANSLATE_NOOP("Quantity", "LF generator: Magnitude"),
     QT_TRANSLATE_NOOP("Quantity", "Amplitude in volts")},
    {Q::LfFrequency, K::LfFrequency, S::LfFrequency, "LFO:FUNC:FREQ?", L::Real, plain,
     Q::LfFrequency, QT_TRANSLATE_NOOP("Quantity", "LF generator: Frequency"),
     QT_TRANSLATE_NOOP("Quantity", "Frequency in hertz")},
    {Q::ExternalReference, K::ExternalReference, still, "ROSC:EXT:FREQ?", L::Count, inMHz,
     Q::ExternalReference, QT_TRANSLATE_NOOP("Quantity", "External reference frequency"),
     QT_TRANSLATE_NOOP("Quantity", "Frequency of the external reference in whole MHz")},
    {Q::ListDwell, K::Dwell, still, "LIST:DWEL:POIN?", L::Count, plain, Q::ListDwell,
     QT_TRANSLATE_NOOP("Quantity", "List: Dwell"),
     QT_TRANSLATE_NOOP("Quantity", "Time at the point in microseconds")},
    {Q::SweepDwell, K::Dwell, S::Time, "SWEEP:DWEL?", L::Count, plain, Q::SweepDwell,
     QT_TRANSLATE_NOOP("Quantity", "Sweep: Dwell"),
     QT_TRANSLATE_NOOP("Quantity", "Time at each point in microseconds")},
    {Q::SweepPoints, K::PointCount, S::PointCount, "", L::None, plain, Q::SweepPoints,
     QT_TRANSLATE_NOOP("Quantity", "Sweep: Points"),
     QT_TRANSLATE_NOOP("Quantity", "Number of points of the sweep")},
    {Q::ListFrequency, K::Frequency, still, "", L::None, plain, Q::Frequency,
     QT_TRANSLATE_NOOP("Quantity", "List: Frequency"),
     QT_TRANSLATE_NOOP("Quantity", "Frequency at the point in hertz")},
    {Q::ListPower, K::Power, still, "", L::None, plain, Q::Power,
     QT_TRANSLATE_NOOP("Quantity", "List: Power"),
     QT_TRANSLATE_NOOP("Quantity", "Power at the point in whole dBm")},
    {Q::HighestPower, K::Power, still, "", L::None, plain, Q::HighestPower,
     QT_TRANSLATE_NOOP("Quantity", "Highest power"),
     QT_TRANSLATE_NOOP("Quantity", "Whole dBm, or nothing")},
    {Q::Dac, K::DacValue, still, "", L::None, plain, Q::Dac,
     QT_TRANSLATE_NOOP("Quantity", "Reference oscillator DAC"),
     QT_TRANSLATE_NOOP("Quantity", "Tuning of the reference oscillator; Return sends it")},
    {Q::SweepFixedPower, K::Power, S::Power, "", L::None, plain, Q::Power,
     QT_TRANSLATE_NOOP("Quantity", "Sweep: Power"),
     QT_TRANSLATE_NOOP("Quantity", "The fixed value")},
    {Q::SweepStartFrequency, K::Frequency, S::Frequency, "", L::None, plain, Q::Frequency,
     QT_TRANSLATE_NOOP("Quantity", "Sweep: Start"),
     QT_TRANSLATE_NOOP("Quantity", "First value of the sweep")},
    {Q::SweepStopFrequency, K::Frequency, S::Frequency, "", L::None, plain, Q::Frequency,
     QT_TRANSLATE_NOOP("Quantity", "Sweep: Stop"),
     QT_TRANSLATE_NOOP("Quantity", "Last value of the sweep")},
    {Q::SweepFixedFrequency, K::Frequency, S::Frequency, "", L::None, plain, Q::Frequency,
     QT_TRANSLATE_NOOP("Quantity", "Sweep: Frequency"),
     QT_TRANSLATE_NOOP("Quantity", "The fixed value")},
    {Q::SweepStartPower, K::Power, S::Power, "", L::None, plain, Q::Power,
     QT_TRANSLATE_NOOP("Quantity", "Sweep: Start"),
     QT_TRANSLATE_NOOP("Quantity", "First value of the sweep")},
    {Q::SweepStopPower, K::Power, S::Power, "", L::None, plain, Q::Power,
     QT_TRANSLATE_NOOP("Quantity", "Sweep: Stop"),
     QT_TRANSLATE_NOOP("Quantity", "Last value of the sweep")},
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
    return rowOf(quantity).boundedAs;
}

QString quantityName(Quantity quantity)
{
    return QCoreApplication::translate("Quantity", rowOf(quantity).name);
}

QString quantityToolTip(Quantity quantity)
{
    return QCoreApplication::translate("Quantity", rowOf(quantity).toolTip);
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
