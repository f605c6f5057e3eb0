#include "link/instrument_limits.h"

#include "link/scpi_session.h"

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

InstrumentLimits& InstrumentLimits::global()
{
    static InstrumentLimits limits;
    return limits;
}

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
