#pragma once

#include <QString>

// The text of numbers as fields show and take it: a point before the fraction, a blank (U+0020)
// between groups of three digits, whatever the locale. A reply is the instrument's answer.

/// The text without any white space.
QString withoutBlanks(const QString& text);

/// Whether a text stands for a finite decimal number, blanks removed first. No other character
/// outside ASCII is allowed.
bool readsAsNumber(const QString& text);

/// The number a text stands for, blanks removed first. Text that is not a number gives 0, one that
/// is too large for the type the largest number of its sign. The result is always finite.
double toNumber(const QString& text);

/// The whole number a text stands for in base 10, blanks removed first. Text that is not a whole
/// number ("2.5", "1e5") gives 0, one that is too large the largest number of its sign.
qint64 toWholeNumber(const QString& text);

/// Truncates toward zero; what 64 bits cannot hold becomes the nearest they can, NaN 0.
qint64 truncated(double value);

/// Fixed notation, halves rounded away from zero. Zero never carries a minus sign.
QString fixedText(double value, int decimals);

/// The shortest decimal text that reads back as the same number; never with an exponent.
QString shortestText(double value);

/// General format with 6 significant digits: 0.001, 5e-05, 1.23457e+09.
QString generalText(double value);

/// A time typed in microseconds, as it is sent: seconds in general format.
QString secondsText(const QString& microseconds);

/// Groups the digits of a whole number by threes. A leading minus sign counts as a digit:
/// "-1234" gives "-1 234" and "-123" gives "- 123".
QString groupDigits(const QString& text);

/// Groups the digits before the point. What follows a second point is dropped.
QString formatGrouped(const QString& text);

/// Whether a text is an optional minus sign, digits and at most one point, with a digit among them.
bool isPlainDecimal(const QString& text);

/// A plain decimal number times a power of ten, exactly: the point is moved in the text.
/// Superfluous zeros are dropped.
QString shiftedDecimal(const QString& number, int powerOfTen);

/// The same with the number's digits grouped. Any other text stays as it is, and so does every text
/// with the power 0.
QString shiftedText(const QString& text, int powerOfTen);

/// Removes the trailing zeros of a fraction, and its point or comma when nothing is left of it.
QString trimZeros(const QString& text);

/// Pads a fraction to two decimals. Three digits in a row count as a fraction of two decimals, so
/// that "123.5" stays.
QString padTwoDecimals(const QString& text);

/// Pads a fraction to that many decimals; to two as padTwoDecimals() does.
QString withLeastDecimals(const QString& text, int leastDecimals);

/// Turns a reply of a number, a blank and a word holding MHz, kHz or GHz in any case into hertz.
/// Exact for whole numbers, 6 significant digits otherwise. Any other reply is returned without
/// its line feeds.
QString parseUnitReply(const QString& reply);
