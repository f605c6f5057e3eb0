#pragma once

#include <QString>

#include <optional>

/// What the unit letters typed into a field mean; in any case.
enum class UnitFamily {
    None,
    Frequency, ///< k, m, g: kilo, mega, giga; the plain number is hertz
    Time,      ///< m: milliseconds, s: seconds; the plain number is microseconds
    Voltage,   ///< m: millivolt; the plain number is volts
};

/// The unit letter for a letter of the Russian layout: the first of the unit's Russian name or the
/// one on the same key, "м" and "ь" for "m". Any other character as it is.
QChar latinUnitKey(QChar typed);

/// The power of ten of the family's own unit that a letter stands for; none where it is no unit.
std::optional<int> unitKeyPower(QChar letter, UnitFamily family);

/// The number as typed, with its unit letter applied: "2.5G" gives "2500000000". Blanks are
/// removed and a comma counts as a point. A unit ends the number: what follows is dropped.
/// A letter without a number before it is dropped. Nothing else is checked or changed, so that an
/// unfinished "-" or "1." stays as it is. Where the plain number does not stand for the family's
/// own unit but for a power of ten of it, `plainPower` is that power: 3 where it is milliseconds.
QString convertUnitKeys(const QString& text, UnitFamily family, int plainPower = 0);
