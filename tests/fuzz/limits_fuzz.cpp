#include "tests/fuzz/fuzz.h"

#include "link/instrument_limits.h"
#include "link/scpi_session.h"
#include "numbers/field_kind.h"
#include "numbers/number_text.h"
#include "tests/fuzz/told_replies.h"

#include <cmath>

namespace
{

template <typename T>
void tryOut(const Range<T>& range, FieldKind kind)
{
    PROMISE(std::isfinite(static_cast<double>(range.min)));
    PROMISE(std::isfinite(static_cast<double>(range.max)));
    clampText(QStringLiteral("1.5"), static_cast<double>(range.min), static_cast<double>(range.max),
              kind);
}

} // namespace

/// The 38 answers from which the limits of the fields come: every limit is finite and bounds a
/// field.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Bytes bytes(data, size);
    ToldLibrary visa;
    tellReply = [&bytes](std::string& text) {
        text = bytes.text();
        return VI_SUCCESS;
    };
    ScpiSession session(visa);
    session.setConnected();
    InstrumentLimits limits;
    limits.readLimits(session);
    tryOut(limits.frequencyHz, FieldKind::Frequency);
    tryOut(limits.powerDbm, FieldKind::Power);
    tryOut(limits.pulsePeriodUs, FieldKind::PulsePeriod);
    tryOut(limits.amDepth, FieldKind::AmDepth);
    tryOut(limits.fmDeviationHz, FieldKind::FmDeviation);
    tryOut(limits.pmDeviationRad, FieldKind::PmDeviation);
    tryOut(limits.lfAmplitudeV, FieldKind::LfAmplitude);
    tryOut(limits.referenceMHz, FieldKind::ExternalReference);
    tryOut(limits.listDwellUs, FieldKind::Dwell);
    return 0;
}
