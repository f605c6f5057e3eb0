#include "demo/instrument/scpi_parser.h"

#include "demo/instrument/scpi_text.h"

#include <algorithm>

bool isPlainText(std::string_view message)
{
    return std::all_of(message.begin(), message.end(),
                       [](char c) { return (c >= 32 && c < 127) || c == '\t' || c == '\r'; });
}

std::string_view takeMessageUnit(std::string_view& message)
{
    char quote = 0;
    size_t end = 0;
    for (; end < message.size(); ++end) {
        const char character = message[end];
        if (quote == 0 && character == ';')
            break;
        if (quote == 0 && (character == '"' || character == '\''))
            quote = character;
        else if (character == quote)
            quote = 0;
    }
    const std::string_view unit = message.substr(0, end);
    message = message.substr(std::min(end + 1, message.size()));
    return unit;
}

MessageUnit splitUnit(std::string_view unit)
{
    const size_t end = std::min(unit.find_first_of("? \t"), unit.size());
    MessageUnit parts;
    parts.header = unit.substr(0, end);
    parts.isQuery = end < unit.size() && unit[end] == '?';
    parts.parameters = trimmed(unit.substr(std::min(end + (parts.isQuery ? 1 : 0), unit.size())));
    return parts;
}

std::string resolveHeader(std::string_view header, std::string& path)
{
    if (!header.empty() && header.front() == '*')
        return upperCase(header);
    if (!header.empty() && header.front() == ':') {
        header.remove_prefix(1);
        path.clear();
    }
    std::string whole = path + upperCase(header);
    path.assign(whole, 0, whole.rfind(':') + 1);
    return whole;
}
