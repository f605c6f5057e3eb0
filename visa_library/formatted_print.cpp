#include "visa_library/formatted_print.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string_view>

namespace
{

/// No real message is wider; a wider field would only fill the memory.
constexpr int widestField = 1 << 20;

/// One conversion of a format: what stands between "%" and its letter.
struct Conversion {
    std::string flags;
    int width = -1;
    int precision = -1;
    std::string size; // h, hh, l, ll, L
    char letter = 0;
};

class Printer
{
public:
    Printer(const char* format, Arguments& arguments, PrintedText& printed)
        : m_format(format), m_arguments(arguments), m_printed(printed)
    {
    }

    ViStatus run();

private:
    void putEscape();
    ViStatus convert();
    bool parse(Conversion& conversion);
    int parseCount();
    ViStatus put(const Conversion& conversion);
    void putInteger(const Conversion& conversion);
    void putUnsigned(const Conversion& conversion);
    void putFloating(const Conversion& conversion);
    void putString(const Conversion& conversion);
    ViStatus putBlock(const Conversion& conversion);
    template <typename Value>
    void putWith(const Conversion& conversion, const char* size, Value value);
    void endMessage() { m_printed.ends.push_back(m_printed.text.size()); }

    const char* m_format;
    Arguments& m_arguments;
    PrintedText& m_printed;
};

ViStatus Printer::run()
{
    while (*m_format != '\0') {
        const size_t plain = std::strcspn(m_format, "%\\\n");
        m_printed.text.append(m_format, plain);
        m_format += plain;
        if (*m_format == '\n') {
            m_printed.text += *m_format++;
            endMessage();
        } else if (*m_format == '\\') {
            putEscape();
        } else if (*m_format == '%') {
            ++m_format;
            const ViStatus status = convert();
            if (status != VI_SUCCESS)
                return status;
        }
    }
    return VI_SUCCESS;
}

// Languages without escape sequences write them out, so the format supports them too.
void Printer::putEscape()
{
    static const char letters[] = "nrt\\\"";
    static const char values[] = "\n\r\t\\\"";
    const char* letter = m_format[1] != '\0' ? std::strchr(letters, m_format[1]) : nullptr;
    if (letter != nullptr) {
        m_printed.text += values[letter - letters];
        m_format += 2;
        if (*letter == 'n')
            endMessage();
        return;
    }
    int value = 0;
    size_t digits = 0;
    for (const char* next = m_format + 1; digits < 3 && *next >= '0' && *next <= '7'; ++next) {
        value = value * 8 + (*next - '0');
        ++digits;
    }
    m_printed.text += digits == 3 ? static_cast<char>(value) : '\\';
    m_format += digits == 3 ? 4 : 1;
}

ViStatus Printer::convert()
{
    if (*m_format == '%') {
        m_printed.text += *m_format++;
        return VI_SUCCESS;
    }
    Conversion conversion;
    return parse(conversion) ? put(conversion) : VI_ERROR_NSUP_FMT;
}

int Printer::parseCount()
{
    if (*m_format == '*') {
        ++m_format;
        return m_arguments.next<int>();
    }
    int count = 0;
    for (; *m_format >= '0' && *m_format <= '9'; ++m_format)
        count = count < 100000 ? count * 10 + (*m_format - '0') : count;
    return count;
}

bool Printer::parse(Conversion& conversion)
{
    for (; *m_format != '\0' && std::strchr("-+ #0", *m_format) != nullptr; ++m_format)
        conversion.flags += *m_format;
    if (*m_format == '*' || (*m_format >= '1' && *m_format <= '9'))
        conversion.width = parseCount();
    if (conversion.width < -1) {
        conversion.flags += '-';
        conversion.width = -std::max(conversion.width, -widestField - 1);
    }
    if (*m_format == '.') {
        ++m_format;
        conversion.precision = parseCount();
    }
    if (*m_format == ',' || *m_format == '@')
        return false;
    for (; *m_format != '\0' && std::strchr("hlL", *m_format) != nullptr; ++m_format)
        conversion.size += *m_format;
    conversion.letter = *m_format;
    m_format += *m_format != '\0' ? 1 : 0;
    return true;
}

ViStatus Printer::put(const Conversion& conversion)
{
    const bool isBlock = conversion.letter == 'b' || conversion.letter == 'B';
    const int precision = conversion.letter == 's' ? 0 : conversion.precision;
    if (!isBlock && std::max(conversion.width, precision) > widestField)
        return VI_ERROR_INV_FMT;
    switch (conversion.letter) {
    case 'd':
    case 'i':
        putInteger(conversion);
        return VI_SUCCESS;
    case 'u':
    case 'o':
    case 'x':
    case 'X':
        putUnsigned(conversion);
        return VI_SUCCESS;
    case 'e':
    case 'E':
    case 'f':
    case 'g':
    case 'G':
        putFloating(conversion);
        return VI_SUCCESS;
    case 'c':
        putWith(conversion, "", m_arguments.next<int>());
        return VI_SUCCESS;
    case 's':
        putString(conversion);
        return VI_SUCCESS;
    case 'b':
    case 'B':
        return putBlock(conversion);
    case 'y':
        return VI_ERROR_NSUP_FMT;
    default:
        return VI_ERROR_INV_FMT;
    }
}

template <typename Value>
void Printer::putWith(const Conversion& conversion, const char* size, Value value)
{
    std::string format = "%" + conversion.flags;
    if (conversion.width >= 0)
        format += std::to_string(conversion.width);
    if (conversion.precision >= 0)
        format += "." + std::to_string(conversion.precision);
    format += size;
    format += conversion.letter;
    char text[128];
    const int length = std::snprintf(text, sizeof text, format.c_str(), value);
    if (length < 0)
        return;
    const auto count = static_cast<size_t>(length);
    if (count < sizeof text) {
        m_printed.text.append(text, count);
        return;
    }
    std::string longText(count + 1, '\0');
    std::snprintf(longText.data(), longText.size(), format.c_str(), value);
    m_printed.text.append(longText, 0, count);
}

void Printer::putInteger(const Conversion& conversion)
{
    if (conversion.size == "ll")
        putWith(conversion, "ll", m_arguments.next<long long>());
    else if (conversion.size == "l")
        putWith(conversion, "l", m_arguments.next<long>());
    else if (conversion.size == "h")
        putWith(conversion, "", static_cast<int>(static_cast<short>(m_arguments.next<int>())));
    else
        putWith(conversion, "", m_arguments.next<int>());
}

void Printer::putUnsigned(const Conversion& conversion)
{
    if (conversion.size == "ll")
        putWith(conversion, "ll", m_arguments.next<unsigned long long>());
    else if (conversion.size == "l")
        putWith(conversion, "l", m_arguments.next<unsigned long>());
    else if (conversion.size == "h")
        putWith(conversion, "",
                static_cast<unsigned>(static_cast<unsigned short>(m_arguments.next<unsigned>())));
    else
        putWith(conversion, "", m_arguments.next<unsigned>());
}

// float and double are the same in an argument list, so that %f and %lf are too.
void Printer::putFloating(const Conversion& conversion)
{
    if (conversion.size == "L")
        putWith(conversion, "L", m_arguments.next<long double>());
    else
        putWith(conversion, "", m_arguments.next<double>());
}

void Printer::putString(const Conversion& conversion)
{
    const char* text = m_arguments.next<const char*>();
    putWith(conversion, "", text == nullptr ? "" : text);
}

ViStatus Printer::putBlock(const Conversion& conversion)
{
    if (conversion.width < 0 || !conversion.size.empty())
        return conversion.width < 0 ? VI_ERROR_INV_FMT : VI_ERROR_NSUP_FMT;
    const char* bytes = m_arguments.next<const char*>();
    const auto count = static_cast<size_t>(conversion.width);
    const std::string digits = std::to_string(count);
    m_printed.text += "#" + std::to_string(digits.size()) + digits;
    m_printed.text.append(bytes, count);
    return VI_SUCCESS;
}

} // namespace

ViStatus printFormatted(const char* format, Arguments& arguments, PrintedText& printed)
{
    return Printer(format, arguments, printed).run();
}
