#pragma once

#include "numbers/readable_quantity.h"
#include "numbers/unit_keys.h"

#include <QLatin1String>
#include <QString>

/// What a field holds. It decides which letters may be typed, how a reply is read and how many
/// decimals are shown. Fields hold what travels on the wire; the unit stands behind each kind.
enum class FieldKind {
    Frequency,         ///< whole Hz
    Power,             ///< dBm; replies are shown in whole dB
    ExternalReference, ///< whole MHz
    PulsePeriod,       ///< microseconds
    PulseWidth,        ///< microseconds
    ModulationRate,    ///< Hz
    AmDepth,           ///< percent
    FmDeviation,       ///< Hz
    PmDeviation,       ///< radians
    Duty,              ///< whole percent
    LfFrequency,       ///< Hz
    LfAmplitude,       ///< volts
    LfDuty,            ///< whole percent
    Dwell,             ///< microseconds
    PointCount,
    DacValue, ///< a whole number, its digits not grouped
};
constexpr int fieldKindCount = 16;

/// The sets of characters that fields accept.
enum class EntryPattern {
    Frequency,
    SignedWhole,
    SignedFrequency,
    Time,
    Voltage,
    Percent,
    Deviation,
    PointCount,
    Whole,
};
constexpr int entryPatternCount = 9;

/// The case-sensitive regular expression that all of a field's text must match.
QLatin1String patternText(EntryPattern pattern);

EntryPattern entryPattern(FieldKind kind);
UnitFamily unitFamily(FieldKind kind);

/// What a plain number in such a field counts: microseconds are seconds by 10 to the power of -6.
struct OwnUnit {
    Unit unit;
    int powerOfTen;
};
OwnUnit ownUnit(FieldKind kind);

/// A number as such a field groups its digits: where its pattern admits the blank. Elsewhere a
/// grouped text would not be valid.
QString grouped(const QString& number, FieldKind kind);

/// Whether such a field takes a fraction, or a negative number.
bool takesFraction(FieldKind kind);
bool takesSign(FieldKind kind);

/// Whether a text stands for a finite number once its unit letters are applied. Text with other
/// than ASCII characters and blanks is none.
bool readsAsNumber(const QString& text, FieldKind kind);

/// A value as a field of this kind shows it.
QString fieldText(double value, FieldKind kind);

/// A reply as a field of this kind shows it; empty for an empty reply. A reply that is not a number
/// reads as 0.
QString displayText(const QString& reply, FieldKind kind);

/// Whether a reply holds a number, which displayText shows, and does not only read as 0.
bool replyHasNumber(const QString& reply, FieldKind kind);

/// A field's text with its unit letters applied, bounded by the range and written as the kind is
/// shown. Nothing is bounded while both limits are 0: they have not been read from an instrument
/// yet. Text of blanks only is returned as it is.
QString clampText(const QString& text, double min, double max, FieldKind kind);

/// A reply in microseconds: a plain number as it stands, with S, MS, US, U or NS converted.
double microsecondsFromReply(const QString& reply);

/// A reply in megahertz: with GHZ, MHZ, KHZ or HZ converted; a plain number of 100 000 or more is
/// hertz, a smaller one megahertz.
double megahertzFromReply(const QString& reply);
