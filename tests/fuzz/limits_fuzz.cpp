#include "tests/fuzz/fuzz.h"

#include "link/instrument_limits.h"
#include "link/scpi_session.h"
#include "numbers/field_kind.h"
#include "numbers/number_text.h"
#include "tests/fuzz/told_replies.h"

#include <cmath>

/// The 38 answers from which the limits of the fields come: every limit is finite and bounds a
/// field.
void run(Bytes bytes)
{
    ToldLibrary visa;
    tellReply = [&bytes](std::string& text) {
        text = bytes.text();
        return VI_SUCCESS;
    };
    ScpiSession session(visa);
    session.setConnected();
    InstrumentLimits limits;
    limits.readLimits(session);
    for (int i = 0; i < quantityCount; ++i) {
        const auto quantity = static_cast<Quantity>(i);
        const Range& range = limits[quantity];
        PROMISE(std::isfinite(range.min) && std::isfinite(range.max));
        clampText(QStringLiteral("1.5"), range.min, range.max, fieldKind(quantity));
    }
}
