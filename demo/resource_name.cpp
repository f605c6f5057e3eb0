#include "demo/resource_name.h"

#include <cctype>
#include <cstdio>
#include <cstring>

namespace
{

ViUInt16 numberOf(const std::string& text)
{
    return static_cast<ViUInt16>(std::strtoul(text.c_str(), nullptr, 0));
}

} // namespace

std::string ResourceName::text() const
{
    char head[48];
    std::snprintf(head, sizeof head, "USB%u::0x%04X::0x%04X::", unsigned{board}, unsigned{vendor},
                  unsigned{product});
    return head + serial + "::" + std::to_string(interfaceNumber) + "::INSTR";
}

bool parseResourceName(const std::string& text, ResourceName& name)
{
    static const std::regex pattern("USB([0-9]*)::(0x[0-9A-F]+|[0-9]+)::(0x[0-9A-F]+|[0-9]+)"
                                    "::([^:]+)(?:::([0-9]+))?(?:::INSTR)?",
                                    std::regex::icase);
    std::smatch parts;
    if (text.size() >= VI_FIND_BUFLEN || !std::regex_match(text, parts, pattern))
        return false;
    name.board = numberOf(parts[1]);
    name.vendor = numberOf(parts[2]);
    name.product = numberOf(parts[3]);
    name.serial = parts[4];
    name.interfaceNumber = numberOf(parts[5]);
    return true;
}

std::optional<ResourceFilter> ResourceFilter::from(const std::string& expression)
{
    if (expression.empty() || expression.size() >= VI_FIND_BUFLEN)
        return std::nullopt;
    std::string pattern;
    bool isInList = false;
    for (size_t i = 0; i < expression.size(); ++i) {
        const bool isEscaped = expression[i] == '\\' && i + 1 < expression.size();
        const char character = expression[isEscaped ? ++i : i];
        const bool isLetter = std::isalnum(static_cast<unsigned char>(character)) != 0;
        if (character == '?' && !isEscaped && !isInList)
            pattern += '.';
        else if (!isLetter &&
                 (isEscaped || (!isInList && std::strchr(".^${}", character) != nullptr)))
            pattern += {'\\', character};
        else
            pattern += character;
        isInList = !isEscaped && (character == '[' || (isInList && character != ']'));
    }
    try {
        ResourceFilter filter;
        filter.m_pattern.assign(pattern, std::regex::icase);
        return filter;
    } catch (const std::regex_error&) {
        return std::nullopt;
    }
}

bool ResourceFilter::matches(const std::string& name) const
{
    return std::regex_match(name, m_pattern);
}
