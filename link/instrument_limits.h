#pragma once

#include <QtGlobal>

class ScpiSession;

/// Smallest and largest value of one setting; both 0 until an instrument has told them.
template <typename T>
struct Range {
    T min{};
    T max{};

    bool isKnown() const { return min != T{} || max != T{}; }
    Range<double> wide() const { return {static_cast<double>(min), static_cast<double>(max)}; }
};

/// The ranges of every adjustable quantity of the instrument. Keeps the last instrument's values
/// after a disconnect; converts nothing but the replies it reads.
struct InstrumentLimits {
    Range<qint64> frequencyHz;
    Range<double> powerDbm;
    Range<qint32> pulsePeriodUs;
    Range<qint32> pulseWidthUs;
    Range<double> amDepth; ///< percent
    Range<double> amRateHz;
    Range<qint32> amDuty; ///< percent
    Range<double> fmDeviationHz;
    Range<double> fmRateHz;
    Range<qint32> fmDuty; ///< percent
    Range<double> pmDeviationRad;
    Range<double> pmRateHz;
    Range<qint32> pmDuty; ///< percent
    Range<qint32> lfDuty; ///< percent
    Range<double> lfAmplitudeV;
    Range<double> lfFrequencyHz;
    Range<qint32> referenceMHz;
    Range<qint32> listDwellUs;
    Range<qint32> sweepDwellUs;

    /// The one table of the process.
    static InstrumentLimits& global();

    /// Asks the instrument for all limits, MAX before MIN. The first query that fails stops the
    /// rest: they keep what they had. Nothing is reported.
    void readLimits(ScpiSession& session);
};
