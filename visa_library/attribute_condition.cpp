#include "visa_library/attribute_condition.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <variant>

namespace
{

using Value = std::variant<ViUInt32, std::string>;

struct AttributeRow {
    const char* name;
    Value (*value)(const Resource& resource);
};

const AttributeRow attributes[] = {
    {"VI_ATTR_INTF_TYPE", [](const Resource&) -> Value { return ViUInt32{VI_INTF_USB}; }},
    {"VI_ATTR_INTF_NUM", [](const Resource& r) -> Value { return ViUInt32{r.name.board}; }},
    {"VI_ATTR_MANF_ID", [](const Resource& r) -> Value { return ViUInt32{r.name.vendor}; }},
    {"VI_ATTR_MODEL_CODE", [](const Resource& r) -> Value { return ViUInt32{r.name.product}; }},
    {"VI_ATTR_USB_INTFC_NUM",
     [](const Resource& r) -> Value { return ViUInt32{r.name.interfaceNumber}; }},
    {"VI_ATTR_USB_SERIAL_NUM", [](const Resource& r) -> Value { return r.name.serial; }},
    {"VI_ATTR_MANF_NAME", [](const Resource& r) -> Value { return r.maker; }},
    {"VI_ATTR_MODEL_NAME", [](const Resource& r) -> Value { return r.model; }},
    {"VI_ATTR_RSRC_NAME", [](const Resource& r) -> Value { return r.name.text(); }},
    {"VI_ATTR_RSRC_CLASS", [](const Resource&) -> Value { return std::string("INSTR"); }},
};

const std::pair<const char*, ViUInt32> constants[] = {
    {"VI_INTF_GPIB", 1}, {"VI_INTF_VXI", 2},   {"VI_INTF_GPIB_VXI", 3},      {"VI_INTF_ASRL", 4},
    {"VI_INTF_PXI", 5},  {"VI_INTF_TCPIP", 6}, {"VI_INTF_USB", VI_INTF_USB},
};

bool isOfName(char character)
{
    return std::isalnum(static_cast<unsigned char>(character)) != 0 || character == '_';
}

/// Reads a condition from left to right. What breaks the rules stops it.
class Reader
{
public:
    explicit Reader(std::string_view text) : m_rest(text) {}

    std::optional<AttributeCondition> read()
    {
        AttributeCondition condition = any();
        skipBlanks();
        if (!m_isGood || !m_rest.empty())
            return std::nullopt;
        return condition;
    }

private:
    void skipBlanks()
    {
        while (!m_rest.empty() && m_rest.front() == ' ')
            m_rest.remove_prefix(1);
    }
    bool take(std::string_view symbol)
    {
        skipBlanks();
        const bool isNext = m_rest.substr(0, symbol.size()) == symbol;
        if (isNext)
            m_rest.remove_prefix(symbol.size());
        return isNext;
    }
    std::string_view takeWord()
    {
        skipBlanks();
        const auto end = std::find_if_not(m_rest.begin(), m_rest.end(), isOfName);
        const auto word = m_rest.substr(0, static_cast<size_t>(end - m_rest.begin()));
        m_rest.remove_prefix(word.size());
        return word;
    }
    AttributeCondition any();
    AttributeCondition all();
    AttributeCondition one();
    AttributeCondition comparison();
    Value constant();

    std::string_view m_rest;
    bool m_isGood = true;
};

AttributeCondition Reader::any()
{
    AttributeCondition condition = all();
    while (m_isGood && take("||"))
        condition = [left = std::move(condition), right = all()](const Resource& each) {
            return left(each) || right(each);
        };
    return condition;
}

AttributeCondition Reader::all()
{
    AttributeCondition condition = one();
    while (m_isGood && take("&&"))
        condition = [left = std::move(condition), right = one()](const Resource& each) {
            return left(each) && right(each);
        };
    return condition;
}

AttributeCondition Reader::one()
{
    if (take("!"))
        return [negated = one()](const Resource& each) { return !negated(each); };
    if (!take("("))
        return comparison();
    AttributeCondition condition = any();
    m_isGood = m_isGood && take(")");
    return condition;
}

AttributeCondition Reader::comparison()
{
    const std::string_view name = takeWord();
    const auto row = std::find_if(std::begin(attributes), std::end(attributes),
                                  [name](const AttributeRow& each) { return each.name == name; });
    // The longer ones first: each begins with a shorter one.
    const std::pair<const char*, bool (*)(const Value&, const Value&)> operators[] = {
        {"==", [](const Value& a, const Value& b) { return a == b; }},
        {"!=", [](const Value& a, const Value& b) { return a != b; }},
        {"<=", [](const Value& a, const Value& b) { return a <= b; }},
        {">=", [](const Value& a, const Value& b) { return a >= b; }},
        {"<", [](const Value& a, const Value& b) { return a < b; }},
        {">", [](const Value& a, const Value& b) { return a > b; }},
    };
    const auto compared = std::find_if(std::begin(operators), std::end(operators),
                                       [this](const auto& each) { return take(each.first); });
    m_isGood = m_isGood && row != std::end(attributes) && compared != std::end(operators);
    Value wanted = constant();
    m_isGood = m_isGood && row->value(Resource()).index() == wanted.index();
    if (!m_isGood)
        return {};
    return [value = row->value, compare = compared->second, wanted = std::move(wanted)](
               const Resource& each) { return compare(value(each), wanted); };
}

Value Reader::constant()
{
    if (take("\"")) {
        const size_t end = m_rest.find('"');
        m_isGood = m_isGood && end != m_rest.npos;
        std::string text(m_rest.substr(0, end));
        m_rest.remove_prefix(m_isGood ? end + 1 : 0);
        return text;
    }
    std::string_view word = takeWord();
    for (const auto& [name, number] : constants)
        if (word == name)
            return number;
    const bool isHexadecimal = word.substr(0, 2) == "0x" || word.substr(0, 2) == "0X";
    word.remove_prefix(isHexadecimal ? 2 : 0);
    ViUInt32 number = 0;
    const char* end = word.data() + word.size();
    const auto read = std::from_chars(word.data(), end, number, isHexadecimal ? 16 : 10);
    m_isGood = m_isGood && read.ec == std::errc() && read.ptr == end;
    return number;
}

} // namespace

std::optional<AttributeCondition> attributeCondition(std::string_view text)
{
    return Reader(text).read();
}
