#include "demo/instrument/scpi_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>

namespace
{

constexpr double pi = 3.14159265358979323846;

struct Suffix {
    Unit unit;
    const char* text;
    double factor;
};

const Suffix suffixes[] = {
    {Unit::Hertz, "HZ", 1},       {Unit::Hertz, "KHZ", 1e3},       {Unit::Hertz, "MHZ", 1e6},
    {Unit::Hertz, "MAHZ", 1e6},   {Unit::Hertz, "GHZ", 1e9},       {Unit::Dbm, "DBM", 1},
    {Unit::Dbm, "DB", 1},         {Unit::Second, "S", 1},          {Unit::Second, "MS", 1e-3},
    {Unit::Second, "US", 1e-6},   {Unit::Second, "U", 1e-6},       {Unit::Second, "NS", 1e-9},
    {Unit::Percent, "PCT", 1},    {Unit::Percent, "%", 1},         {Unit::Radian, "RAD", 1},
    {Unit::Radian, "MRAD", 1e-3}, {Unit::Radian, "DEG", pi / 180}, {Unit::Volt, "V", 1},
    {Unit::Volt, "MV", 1e-3},     {Unit::Volt, "UV", 1e-6},
};

bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}

bool isBlank(char character)
{
    return character == ' ' || character == '\t';
}

// Copies the number at the front of the text without its grouping blanks; returns what follows.
std::string_view takeNumber(std::string_view text, std::string& number)
{
    size_t i = 0;
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) {
        if (text[i] == '-')
            number += '-';
        ++i;
    }
    for (; i < text.size(); ++i) {
        if (isDigit(text[i]) || text[i] == '.') {
            number += text[i];
            continue;
        }
        const size_t next = isBlank(text[i]) ? text.find_first_not_of(" \t", i) : text.npos;
        if (next == text.npos || !isDigit(text[next]) || number.empty() || !isDigit(number.back()))
            break;
        i = next - 1;
    }
    if (i < text.size() && (text[i] == 'e' || text[i] == 'E')) {
        size_t digits = i + 1;
        const bool isSigned = digits < text.size() && (text[digits] == '+' || text[digits] == '-');
        digits += isSigned ? 1 : 0;
        if (digits < text.size() && isDigit(text[digits])) {
            number += isSigned && text[i + 1] == '-' ? "e-" : "e";
            for (i = digits; i < text.size() && isDigit(text[i]); ++i)
                number += text[i];
        }
    }
    return text.substr(i);
}

int hexDigit(char character)
{
    const char upper = upperCase(character);
    if (isDigit(upper))
        return upper - '0';
    return upper >= 'A' && upper <= 'F' ? upper - 'A' + 10 : -1;
}

} // namespace

std::string_view trimmed(std::string_view text)
{
    const size_t first = text.find_first_not_of(" \t\r\n");
    if (first == text.npos)
        return {};
    return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

char upperCase(char character)
{
    return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A')
                                                : character;
}

std::string upperCase(std::string_view text)
{
    std::string result(text);
    for (char& character : result)
        character = upperCase(character);
    return result;
}

bool equalIgnoringCase(std::string_view left, std::string_view right)
{
    return left.size() == right.size() &&
           std::equal(left.begin(), left.end(), right.begin(),
                      [](char a, char b) { return upperCase(a) == upperCase(b); });
}

ParsedNumber parseNumber(std::string_view text, Unit unit)
{
    text = trimmed(text);
    if (text.empty())
        return {0, ScpiError::MissingParameter};
    std::string number;
    const std::string_view suffix = trimmed(takeNumber(text, number));
    if (number.empty())
        return {0, ScpiError::DataType};
    double value = 0;
    const char* end = number.data() + number.size();
    const auto parsed = std::from_chars(number.data(), end, value);
    if (parsed.ec != std::errc() || parsed.ptr != end)
        return {0, ScpiError::NumericData};
    if (suffix.empty())
        return {value, ScpiError::None};
    for (const Suffix& row : suffixes)
        if (row.unit == unit && equalIgnoringCase(suffix, row.text))
            return {value * row.factor, ScpiError::None};
    return {0, ScpiError::InvalidSuffix};
}

bool matchesKeyword(std::string_view text, std::string_view keyword)
{
    return equalIgnoringCase(text, keyword) || equalIgnoringCase(text, shortForm(keyword));
}

std::string_view shortForm(std::string_view keyword)
{
    const auto lower =
        std::find_if(keyword.begin(), keyword.end(), [](char c) { return c >= 'a' && c <= 'z'; });
    return keyword.substr(0, static_cast<size_t>(lower - keyword.begin()));
}

std::string_view takePart(std::string_view& text, char separator)
{
    const size_t end = text.find(separator);
    const std::string_view part = text.substr(0, end);
    text = end == text.npos ? std::string_view() : text.substr(end + 1);
    return part;
}

std::string numberText(double value, int decimals)
{
    char digits[400];
    const auto result = std::to_chars(std::begin(digits), std::end(digits), value,
                                      std::chars_format::fixed, decimals);
    std::string text(digits, result.ptr);
    if (text.find('.') != text.npos) {
        text.erase(text.find_last_not_of('0') + 1);
        if (text.back() == '.')
            text.pop_back();
    }
    return text == "-0" ? "0" : text;
}

std::string escaped(std::string_view bytes)
{
    static const char hex[] = "0123456789ABCDEF";
    std::string text;
    text.reserve(bytes.size() + 2);
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        if (byte == '\n')
            text += "\\n";
        else if (byte == '\r')
            text += "\\r";
        else if (byte == '\t')
            text += "\\t";
        else if (byte == '\\')
            text += "\\\\";
        else if (code < 32 || code > 126)
            text += {'\\', 'x', hex[code >> 4], hex[code & 15]};
        else
            text += byte;
    }
    return text;
}

std::string unescaped(std::string_view text)
{
    std::string bytes;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\' || i + 1 == text.size()) {
            bytes += text[i];
            continue;
        }
        const char letter = text[++i];
        const int high = letter == 'x' && i + 2 < text.size() ? hexDigit(text[i + 1]) : -1;
        const int low = high >= 0 ? hexDigit(text[i + 2]) : -1;
        if (low >= 0) {
            bytes += static_cast<char>(high * 16 + low);
            i += 2;
        } else {
            bytes += letter == 'n' ? '\n' : letter == 'r' ? '\r' : letter == 't' ? '\t' : letter;
        }
    }
    return bytes;
}
