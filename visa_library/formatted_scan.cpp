#include "visa_library/formatted_scan.h"

#include <algorithm>
#include <bitset>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>

namespace
{

constexpr size_t unlimited = std::numeric_limits<size_t>::max();

bool isBlank(char character)
{
    return std::strchr(" \t\n\r\v\f", character) != nullptr && character != '\0';
}

/// One conversion of a format: what stands between "%" and its letter.
struct Conversion {
    bool isSkipped = false;
    size_t width = unlimited;
    ViUInt32* countResult = nullptr;
    std::string size;
    char letter = 0;
    std::bitset<256> characters; // of %[
};

class Scanner
{
public:
    Scanner(const char* format, Arguments& arguments, ScanSource& source)
        : m_format(format), m_arguments(arguments), m_source(source)
    {
    }

    ViStatus run();

private:
    bool parse(Conversion& conversion);
    bool parseSet(Conversion& conversion);
    ViStatus convert(const Conversion& conversion);
    ViStatus matchLiteral();
    void skipBlanks();
    void skipToToken();
    std::string takeNumber(size_t width, const char* characters);
    ViStatus storeNumber(const Conversion& conversion);
    void storeInteger(const Conversion& conversion, long long value);
    void storeFloating(const Conversion& conversion, double value);
    ViStatus storeText(const Conversion& conversion);
    ViStatus storeBlock(const Conversion& conversion);
    template <typename Stops>
    size_t copyUntil(char* target, size_t room, Stops stops);

    const char* m_format;
    Arguments& m_arguments;
    ScanSource& m_source;
};

ViStatus Scanner::run()
{
    while (*m_format != '\0') {
        ViStatus status = VI_SUCCESS;
        if (*m_format == '%' && m_format[1] != '%') {
            ++m_format;
            Conversion conversion;
            status = parse(conversion) ? convert(conversion) : VI_ERROR_INV_FMT;
        } else {
            status = matchLiteral();
        }
        if (status != VI_SUCCESS)
            return status;
    }
    return VI_SUCCESS;
}

ViStatus Scanner::matchLiteral()
{
    if (isBlank(*m_format)) {
        ++m_format;
        skipBlanks();
        return VI_SUCCESS;
    }
    m_format += *m_format == '%' ? 1 : 0;
    const std::string_view bytes = m_source.available();
    if (bytes.empty() || bytes.front() != *m_format)
        return bytes.empty() && m_source.status() != VI_SUCCESS ? m_source.status()
                                                                : VI_ERROR_INV_FMT;
    m_source.consume(1);
    ++m_format;
    return VI_SUCCESS;
}

bool Scanner::parse(Conversion& conversion)
{
    if (*m_format == '*') {
        conversion.isSkipped = true;
        ++m_format;
    }
    if (*m_format == '#') {
        conversion.countResult = m_arguments.next<ViUInt32*>();
        // The room holds the closing NUL as well, where there is one.
        conversion.width = *conversion.countResult;
        ++m_format;
    } else if (*m_format >= '0' && *m_format <= '9') {
        char* end = nullptr;
        conversion.width = std::strtoul(m_format, &end, 10);
        m_format = end;
    }
    for (; *m_format != '\0' && std::strchr("hlL", *m_format) != nullptr; ++m_format)
        conversion.size += *m_format;
    conversion.letter = *m_format;
    m_format += *m_format != '\0' ? 1 : 0;
    if (conversion.countResult != nullptr && std::strchr("st[T", conversion.letter) != nullptr)
        conversion.width -= conversion.width > 0 ? 1 : 0;
    return conversion.letter != '[' || parseSet(conversion);
}

bool Scanner::parseSet(Conversion& conversion)
{
    const bool isInverted = *m_format == '^';
    m_format += isInverted ? 1 : 0;
    const char* first = m_format;
    for (; *m_format != '\0' && (*m_format != ']' || m_format == first); ++m_format) {
        auto from = static_cast<unsigned char>(*m_format);
        auto to = from;
        if (m_format[1] == '-' && m_format[2] != ']' && m_format[2] != '\0') {
            to = static_cast<unsigned char>(m_format[2]);
            m_format += 2;
        }
        for (unsigned code = from; code <= to; ++code)
            conversion.characters.set(code);
    }
    if (isInverted)
        conversion.characters.flip();
    const bool isClosed = *m_format == ']';
    m_format += isClosed ? 1 : 0;
    return isClosed;
}

ViStatus Scanner::convert(const Conversion& conversion)
{
    m_source.beginConversion();
    if (m_source.available().empty())
        return m_source.status() != VI_SUCCESS ? m_source.status() : VI_ERROR_INV_FMT;
    switch (conversion.letter) {
    case 'd':
    case 'i':
    case 'u':
    case 'x':
    case 'X':
    case 'o':
    case 'e':
    case 'E':
    case 'f':
    case 'g':
    case 'G':
        return storeNumber(conversion);
    case 's':
        skipToToken();
        return storeText(conversion);
    case 'c':
    case '[':
    case 't':
    case 'T':
        return storeText(conversion);
    case 'b':
    case 'B':
        return storeBlock(conversion);
    case 'y':
        return VI_ERROR_NSUP_FMT;
    default:
        return VI_ERROR_INV_FMT;
    }
}

void Scanner::skipBlanks()
{
    for (;;) {
        const std::string_view bytes = m_source.available();
        const auto end = std::find_if_not(bytes.begin(), bytes.end(), isBlank);
        m_source.consume(static_cast<size_t>(end - bytes.begin()));
        if (bytes.empty() || end != bytes.end())
            return;
    }
}

// A line feed left over from the message before does not hide the token in the next one.
void Scanner::skipToToken()
{
    skipBlanks();
    m_source.beginConversion();
    skipBlanks();
}

std::string Scanner::takeNumber(size_t width, const char* characters)
{
    skipToToken();
    std::string number;
    while (number.size() < std::min<size_t>(width, 512)) {
        const std::string_view bytes = m_source.available();
        if (bytes.empty() || bytes.front() == '\0' ||
            std::strchr(characters, bytes.front()) == nullptr)
            break;
        number += bytes.front();
        m_source.consume(1);
    }
    return number;
}

ViStatus Scanner::storeNumber(const Conversion& conversion)
{
    const bool isInteger = std::strchr("diuxXo", conversion.letter) != nullptr;
    const bool isHexadecimal = conversion.letter == 'x' || conversion.letter == 'X';
    const char* characters = isHexadecimal              ? "+-0123456789ABCDEFabcdefxX"
                             : conversion.letter == 'o' ? "+-01234567"
                                                        : "+-.0123456789eE#hHqQbBacdfACDF";
    const std::string number = takeNumber(conversion.width, characters);
    if (number.empty())
        return m_source.status() != VI_SUCCESS ? m_source.status() : VI_ERROR_INV_FMT;

    char* end = nullptr;
    double value = 0;
    long long integer = 0;
    if (number.size() > 2 && number.front() == '#') {
        const char kind = number[1];
        const int base = kind == 'h' || kind == 'H' ? 16 : kind == 'q' || kind == 'Q' ? 8 : 2;
        integer = std::strtoll(number.c_str() + 2, &end, base);
        value = static_cast<double>(integer);
    } else if (isHexadecimal || conversion.letter == 'o') {
        integer = std::strtoll(number.c_str(), &end, isHexadecimal ? 16 : 8);
    } else {
        value = std::strtod(number.c_str(), &end);
        const double highest = 9.2e18;
        integer = std::llround(std::min(std::max(value, -highest), highest));
    }
    if (end == number.c_str())
        return VI_ERROR_INV_FMT;
    if (conversion.isSkipped)
        return VI_SUCCESS;
    if (isInteger)
        storeInteger(conversion, integer);
    else
        storeFloating(conversion, value);
    return VI_SUCCESS;
}

void Scanner::storeInteger(const Conversion& conversion, long long value)
{
    if (conversion.size == "h")
        *m_arguments.next<short*>() = static_cast<short>(value);
    else if (conversion.size == "l")
        *m_arguments.next<long*>() = static_cast<long>(value);
    else if (conversion.size == "ll")
        *m_arguments.next<long long*>() = value;
    else
        *m_arguments.next<int*>() = static_cast<int>(value);
}

void Scanner::storeFloating(const Conversion& conversion, double value)
{
    if (conversion.size == "l")
        *m_arguments.next<double*>() = value;
    else if (conversion.size == "L")
        *m_arguments.next<long double*>() = value;
    else
        *m_arguments.next<float*>() = static_cast<float>(value);
}

// Copies bytes up to the room, as many as `stops` allows, which ends it by isDone. Returns how many
// were copied.
template <typename Stops>
size_t Scanner::copyUntil(char* target, size_t room, Stops stops)
{
    size_t copied = 0;
    bool isDone = false;
    while (!isDone && copied < room) {
        std::string_view bytes = m_source.available();
        if (bytes.empty())
            break;
        const size_t count = stops(bytes.substr(0, room - copied), isDone);
        if (target != nullptr)
            std::memcpy(target + copied, bytes.data(), count);
        m_source.consume(count);
        copied += count;
    }
    return copied;
}

ViStatus Scanner::storeText(const Conversion& conversion)
{
    const char letter = conversion.letter;
    const bool isCharacters = letter == 'c';
    const size_t room = isCharacters && conversion.width == unlimited ? 1 : conversion.width;
    char* target = conversion.isSkipped ? nullptr : m_arguments.next<char*>();
    const auto stops = [&](std::string_view bytes, bool& isDone) {
        if (letter == 't' || isCharacters)
            return bytes.size();
        if (letter == 'T') {
            const size_t lineFeed = bytes.find('\n');
            isDone = lineFeed != bytes.npos;
            return isDone ? lineFeed + 1 : bytes.size();
        }
        const auto end = std::find_if(bytes.begin(), bytes.end(), [&](char character) {
            return letter == 's' ? isBlank(character)
                                 : !conversion.characters[static_cast<unsigned char>(character)];
        });
        isDone = end != bytes.end();
        return static_cast<size_t>(end - bytes.begin());
    };
    const size_t copied = copyUntil(target, room, stops);
    if (target != nullptr && !isCharacters)
        target[copied] = '\0';
    if (conversion.countResult != nullptr)
        *conversion.countResult = static_cast<ViUInt32>(copied);
    if (m_source.status() != VI_SUCCESS)
        return m_source.status();
    return copied == 0 && room > 0 ? VI_ERROR_INV_FMT : VI_SUCCESS;
}

// "#213" and 13 bytes, or "#0" and bytes to the end of the message.
ViStatus Scanner::storeBlock(const Conversion& conversion)
{
    char* target = conversion.isSkipped ? nullptr : m_arguments.next<char*>();
    if (target != nullptr && conversion.width == unlimited)
        return VI_ERROR_INV_FMT;
    const auto all = [](std::string_view bytes, bool&) { return bytes.size(); };
    char head[10] = {};
    if (copyUntil(head, 2, all) != 2 || head[0] != '#' || head[1] < '0' || head[1] > '9')
        return m_source.status() != VI_SUCCESS ? m_source.status() : VI_ERROR_INV_FMT;
    const auto digits = static_cast<size_t>(head[1] - '0');
    std::memset(head, 0, sizeof head);
    if (copyUntil(head, digits, all) != digits)
        return VI_ERROR_INV_FMT;
    const size_t size = digits == 0 ? unlimited : std::strtoul(head, nullptr, 10);
    const size_t copied = copyUntil(target, std::min(size, conversion.width), all);
    copyUntil(nullptr, digits == 0 ? 0 : size - copied, all);
    if (conversion.countResult != nullptr)
        *conversion.countResult = static_cast<ViUInt32>(copied);
    return m_source.status();
}

} // namespace

ViStatus scanFormatted(const char* format, Arguments& arguments, ScanSource& source)
{
    return Scanner(format, arguments, source).run();
}
