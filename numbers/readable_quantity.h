#pragma once

#include <QString>

/// The unit of a number in a picture or beside a field.
enum class Unit { None, Second, Hertz, Percent, Radian, Volt, Dbm, Decibel };

/// The unit in the user's language, with a decimal prefix of a power of ten that is a multiple of
/// 3 from -12 to 9: unitSymbol(Unit::Second, -6) is "µs".
QString unitSymbol(Unit unit, int powerOfTen = 0);

/// A value in at most that many significant digits with the unit and the prefix that suits it best:
/// 0.0015625 Hz reads "1.5625 mHz". Percents and dBm have no prefix, seconds none above one.
QString readableQuantity(double value, Unit unit, int digits = 5);
