#pragma once

#include "numbers/quantity.h"
#include "numbers/range.h"

#include <array>

class ScpiSession;

/// The ranges of every quantity of the instrument. Keeps the last instrument's values after a
/// disconnect; converts nothing but the replies it reads.
class InstrumentLimits
{
public:
    /// The range of a quantity. A column of a list shares that of the front panel's quantity.
    const Range& operator[](Quantity quantity) const { return m_ranges[indexOf(quantity)]; }
    Range& operator[](Quantity quantity) { return m_ranges[indexOf(quantity)]; }

    /// Asks the instrument for all limits, MAX before MIN. The first query that fails ends it: the
    /// remaining limits keep their values. Nothing is reported.
    void readLimits(ScpiSession& session);

    /// Bounds the number in a text and writes it as the quantity is shown. True if it was out of
    /// range; any other text stays, also a number without known limits and what is not a number.
    bool bound(QString& text, Quantity quantity) const;

private:
    static std::size_t indexOf(Quantity quantity)
    {
        return static_cast<std::size_t>(boundedAs(quantity));
    }

    std::array<Range, quantityCount> m_ranges;
};
