#pragma once

#include "demo/instrument/scpi_error.h"

#include <string>
#include <string_view>

/// What a number measures; a number without a suffix is in the unit named here.
enum class Unit { None, Hertz, Dbm, Second, Percent, Radian, Volt };

struct ParsedNumber {
    double value = 0;
    ScpiError error = ScpiError::None;
};

std::string_view trimmed(std::string_view text);
char upperCase(char character);
std::string upperCase(std::string_view text);
bool equalIgnoringCase(std::string_view left, std::string_view right);

/// Reads a decimal number with an optional suffix of the unit: "2.5 GHZ", "100 U", "1 000 000Hz"
/// (blanks may group digits). Errors: MissingParameter, DataType, NumericData, InvalidSuffix.
ParsedNumber parseNumber(std::string_view text, Unit unit);

/// Whether the text is the keyword in its short form (its capitals) or its long form, in any case.
bool matchesKeyword(std::string_view text, std::string_view keyword);

/// The capitals, digits and signs that a mixed-case keyword begins with: "INTernal" gives "INT".
std::string_view shortForm(std::string_view keyword);

/// The part before the separator; the text keeps what follows it (empty at the end).
std::string_view takePart(std::string_view& text, char separator);

/// Fixed notation with at most that many decimals, without trailing zeros, whatever the locale.
std::string numberText(double value, int decimals);

/// Control characters and bytes above 126 as \n, \r, \t, \\ or \xHH.
std::string escaped(std::string_view bytes);
std::string unescaped(std::string_view text);
