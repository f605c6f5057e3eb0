#include "visa_library/resource_name.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <vector>

namespace
{

/// Whether the text is the word, which is in capitals, in any case.
bool isWord(std::string_view text, std::string_view word)
{
    return std::equal(text.begin(), text.end(), word.begin(), word.end(), [](char a, char b) {
        return a == b || (b >= 'A' && b <= 'Z' && a == b - 'A' + 'a');
    });
}

bool readDecimal(std::string_view text, ViUInt16& number, int base = 10)
{
    const char* end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number, base);
    return read.ec == std::errc() && read.ptr == end;
}

bool readNumber(std::string_view text, ViUInt16& number)
{
    return isWord(text.substr(0, 2), "0X") ? readDecimal(text.substr(2), number, 16)
                                           : readDecimal(text, number);
}

std::vector<std::string_view> partsOf(std::string_view text)
{
    std::vector<std::string_view> parts;
    for (size_t end = text.find("::"); end != text.npos; end = text.find("::")) {
        parts.push_back(text.substr(0, end));
        text.remove_prefix(end + 2);
    }
    parts.push_back(text);
    return parts;
}

} // namespace

std::string ResourceName::text() const
{
    char head[48];
    std::snprintf(head, sizeof head, "USB%u::0x%04X::0x%04X::", unsigned{board}, unsigned{vendor},
                  unsigned{product});
    return head + serial + (isInterfaceNamed ? "::" + std::to_string(interfaceNumber) : "") +
           "::INSTR";
}

bool parseResourceName(const std::string& text, ResourceName& name)
{
    std::vector<std::string_view> parts = partsOf(text);
    if (parts.size() > 4 && isWord(parts.back(), "INSTR"))
        parts.pop_back();
    if (text.size() >= VI_FIND_BUFLEN || parts.size() < 4 || parts.size() > 5 ||
        !isWord(parts[0].substr(0, 3), "USB"))
        return false;
    ResourceName read;
    const std::string_view board = parts[0].substr(3);
    const bool isRead = (board.empty() || readDecimal(board, read.board)) &&
                        readNumber(parts[1], read.vendor) && readNumber(parts[2], read.product) &&
                        parts[3].find(':') == parts[3].npos &&
                        (parts.size() == 4 || readDecimal(parts[4], read.interfaceNumber));
    if (!isRead)
        return false;
    read.serial = parts[3];
    name = read;
    return true;
}
