#include "link/instrument_limits.h"

#include "link/scpi_session.h"
#include "numbers/number_text.h"

namespace
{
void readLimit(ScpiSession& session, Quantity quantity, const char* which, double& limit)
{
    if (session.lastStatus() != VI_SUCCESS)
        return;
    const QString reply = session.read(limitQuery(quantity) + QLatin1String(which));
    if (!session.lastFailed())
        limit = limitOfReply(quantity, reply);
}
} // namespace

void InstrumentLimits::readLimits(ScpiSession& session)
{
    for (int i = 0; i < quantityCount; ++i) {
        const auto quantity = static_cast<Quantity>(i);
        if (limitQuery(quantity).isEmpty())
            continue;
        Range& range = (*this)[quantity];
        readLimit(session, quantity, " MAX", range.max);
        readLimit(session, quantity, " MIN", range.min);
    }
}

bool InstrumentLimits::bound(QString& text, Quantity quantity) const
{
    const Range& range = (*this)[quantity];
    bool isNumber = false;
    const double value = withoutBlanks(text).toDouble(&isNumber);
    if (!isNumber || !range.isKnown() || (value >= range.min && value <= range.max))
        return false;
    text = clampText(text, range.min, range.max, fieldKind(quantity));
    return true;
}
