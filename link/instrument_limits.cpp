#include "link/instrument_limits.h"

#include "link/scpi_session.h"
#include "numbers/field_kind.h"
#include "numbers/number_text.h"

#include <limits>
#include <variant>

namespace
{
using Conversion = double (*)(const QString& reply);

template <typename T>
using RangeMember = Range<T> InstrumentLimits::*;

struct LimitRow {
    const char* query;
    std::variant<RangeMember<double>, RangeMember<qint64>, RangeMember<qint32>> range;
    Conversion conversion = toNumber;
};

using L = InstrumentLimits;
const LimitRow limitRows[] = {
    {"FREQ?", &L::frequencyHz},
    {"POW?", &L::powerDbm},
    {"PULM:INT:PER?", &L::pulsePeriodUs, microsecondsFromReply},
    {"PULM:INT:PWID?", &L::pulseWidthUs, microsecondsFromReply},
    {"AM?", &L::amDepth},
    {"AM:INT:FUNC:FREQ?", &L::amRateHz},
    {"AM:INT:FUNC:SHAP:SQU:DUTY?", &L::amDuty},
    {"FM?", &L::fmDeviationHz},
    {"FM:INT:FUNC:FREQ?", &L::fmRateHz},
    {"FM:INT:FUNC:SHAP:SQU:DUTY?", &L::fmDuty},
    {"PM?", &L::pmDeviationRad},
    {"PM:INT:FUNC:FREQ?", &L::pmRateHz},
    {"PM:INT:FUNC:SHAP:SQU:DUTY?", &L::pmDuty},
    {"LFO:FUNC:SHAP:SQU:DUTY?", &L::lfDuty},
    {"LFO:AMPL?", &L::lfAmplitudeV},
    {"LFO:FUNC:FREQ?", &L::lfFrequencyHz},
    {"ROSC:EXT:FREQ?", &L::referenceMHz, megahertzFromReply},
    {"LIST:DWEL:POIN?", &L::listDwellUs},
    {"SWEEP:DWEL?", &L::sweepDwellUs},
};

/// Truncates toward zero; what the type cannot hold becomes the nearest it can.
template <typename T>
T stored(double value)
{
    if constexpr (std::is_floating_point_v<T>) {
        return value;
    } else {
        constexpr auto smallest = static_cast<double>(std::numeric_limits<T>::min());
        constexpr auto largest = static_cast<double>(std::numeric_limits<T>::max());
        if (value <= smallest)
            return std::numeric_limits<T>::min();
        if (value >= largest)
            return std::numeric_limits<T>::max();
        return static_cast<T>(value);
    }
}

template <typename T>
void readLimit(ScpiSession& session, const LimitRow& row, const char* which, T& limit)
{
    if (session.lastStatus() != VI_SUCCESS)
        return;
    const QString reply = session.read(QLatin1String(row.query) + QLatin1String(which));
    if (!session.lastFailed())
        limit = stored<T>(row.conversion(reply));
}
} // namespace

InstrumentLimits& InstrumentLimits::global()
{
    static InstrumentLimits limits;
    return limits;
}

void InstrumentLimits::readLimits(ScpiSession& session)
{
    for (const LimitRow& row : limitRows) {
        std::visit(
            [&](auto member) {
                auto& range = this->*member;
                readLimit(session, row, " MAX", range.max);
                readLimit(session, row, " MIN", range.min);
            },
            row.range);
    }
}
