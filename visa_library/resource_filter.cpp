#include "visa_library/resource_filter.h"

#include "visa/visa.h"

namespace
{

unsigned char code(char character)
{
    return static_cast<unsigned char>(character);
}

int length(size_t count)
{
    return static_cast<int>(count);
}

} // namespace

/// Turns an expression into steps, part by part; an expression that stops it early breaks the
/// rules.
class ResourceFilter::Reader
{
public:
    explicit Reader(std::string_view expression) : m_rest(expression) {}

    std::optional<Steps> read()
    {
        Steps steps = alternatives();
        if (!m_isGood || !m_rest.empty())
            return std::nullopt;
        return steps;
    }

private:
    bool isNext(char character) const { return !m_rest.empty() && m_rest.front() == character; }
    char take();
    char takePlain();
    Steps alternatives();
    Steps sequence();
    Steps repeatable();
    Steps list();
    static void append(Steps& steps, const Steps& others)
    {
        steps.insert(steps.end(), others.begin(), others.end());
    }
    static Step jump(size_t forward, int other) { return {false, {}, {length(forward), other}}; }
    static Steps reading(Characters characters);

    std::string_view m_rest;
    bool m_isGood = true;
};

char ResourceFilter::Reader::take()
{
    m_isGood = m_isGood && !m_rest.empty();
    if (!m_isGood)
        return '\0';
    const char character = m_rest.front();
    m_rest.remove_prefix(1);
    return character;
}

char ResourceFilter::Reader::takePlain()
{
    const char character = take();
    return character == '\\' ? take() : character;
}

ResourceFilter::Steps ResourceFilter::Reader::alternatives()
{
    Steps steps = sequence();
    while (m_isGood && isNext('|')) {
        take();
        const Steps other = sequence();
        steps.insert(steps.begin(), jump(steps.size() + 2, 1));
        steps.push_back(jump(other.size() + 1, length(other.size() + 1)));
        append(steps, other);
    }
    return steps;
}

ResourceFilter::Steps ResourceFilter::Reader::sequence()
{
    Steps steps;
    while (m_isGood && !m_rest.empty() && !isNext('|') && !isNext(')')) {
        Steps part = repeatable();
        while (m_isGood && (isNext('*') || isNext('+'))) {
            const int start = -length(part.size());
            part.push_back(jump(1, start));
            if (take() == '*')
                part.insert(part.begin(), jump(part.size() + 1, 1));
        }
        append(steps, part);
    }
    return steps;
}

ResourceFilter::Steps ResourceFilter::Reader::repeatable()
{
    if (isNext('*') || isNext('+'))
        m_isGood = false;
    if (isNext('\\'))
        return reading(Characters().set(code(takePlain())));
    switch (const char character = take()) {
    case '?':
        return reading(Characters().set());
    case '[':
        return list();
    case '(': {
        Steps steps = alternatives();
        m_isGood = take() == ')' && m_isGood;
        return steps;
    }
    default:
        return reading(Characters().set(code(character)));
    }
}

ResourceFilter::Steps ResourceFilter::Reader::list()
{
    Characters characters;
    const bool isInverted = isNext('^');
    if (isInverted)
        take();
    while (m_isGood && !isNext(']')) {
        const unsigned char from = code(takePlain());
        unsigned char to = from;
        if (isNext('-') && m_rest.substr(1, 1) != "]") {
            take();
            to = code(takePlain());
        }
        m_isGood = m_isGood && from <= to;
        for (unsigned each = from; each <= to; ++each)
            characters.set(each);
    }
    take();
    Steps steps = reading(characters);
    if (isInverted)
        steps.front().characters.flip();
    return steps;
}

// In any case: both cases of each letter.
ResourceFilter::Steps ResourceFilter::Reader::reading(Characters characters)
{
    for (unsigned char upper = 'A'; upper <= 'Z'; ++upper) {
        const auto lower = static_cast<unsigned char>(upper - 'A' + 'a');
        const bool isEither = characters[upper] || characters[lower];
        characters.set(upper, isEither).set(lower, isEither);
    }
    return {{true, characters, {}}};
}

std::optional<ResourceFilter> ResourceFilter::from(std::string_view expression)
{
    if (expression.empty() || expression.size() >= VI_FIND_BUFLEN)
        return std::nullopt;
    ResourceFilter filter;
    const size_t brace = expression.find('{');
    if (brace != expression.npos) {
        if (brace == 0 || expression.back() != '}')
            return std::nullopt;
        const size_t length = expression.size() - brace - 2;
        auto condition = attributeCondition(expression.substr(brace + 1, length));
        if (!condition)
            return std::nullopt;
        filter.m_condition = std::move(*condition);
    }
    auto steps = Reader(expression.substr(0, brace)).read();
    if (!steps)
        return std::nullopt;
    filter.m_steps = std::move(*steps);
    return filter;
}

bool ResourceFilter::matches(const Resource& resource) const
{
    return matchesName(resource.name.text()) && (!m_condition || m_condition(resource));
}

bool ResourceFilter::matchesName(std::string_view name) const
{
    std::vector<bool> present(m_steps.size() + 1);
    enter(0, present);
    for (const char character : name) {
        std::vector<bool> next(present.size());
        for (size_t step = 0; step < m_steps.size(); ++step)
            if (present[step] && m_steps[step].characters[code(character)])
                enter(step + 1, next);
        present.swap(next);
    }
    return present.back();
}

void ResourceFilter::enter(size_t step, std::vector<bool>& present) const
{
    if (present[step])
        return;
    present[step] = true;
    if (step == m_steps.size() || m_steps[step].isReading)
        return;
    for (const int jump : m_steps[step].jumps)
        enter(static_cast<size_t>(static_cast<int>(step) + jump), present);
}
