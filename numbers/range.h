#pragma once

/// Smallest and largest value of a quantity, in its unit; both 0 until they have been read from an
/// instrument.
struct Range {
    double min = 0.0;
    double max = 0.0;

    bool isKnown() const { return min != 0.0 || max != 0.0; }
};
