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
    /// What bounds a quantity. A column of a list shares the range of the front panel's.
    const Range& operator[](Quantity quantity) const { return m_ranges[indexOf(quantity)]; }
    Range& operator[](Quantity quantity) { return m_ranges[indexOf(quantity)]; }

    /// Asks the instrument for all limits, MAX before MIN. The first query that fails stops the
    /// rest: they keep what they had. Nothing is reported.
    void readLimits(ScpiSession& session);

    /// Bounds the number in a text and writes it as the quantity is shown. True where it lay
    /// outside; any other text, numbers without known limits and what is no number among them,
    /// stays.
    bool bound(QString& text, Quantity quantity) const;

private:
    static std::size_t indexOf(Quantity quantity)
    {
        return static_cast<std::size_t>(boundedAs(quantity));
    }

    std::array<Range, quantityCount> m_ranges;
};
