#pragma once

#include <bitset>
#include <optional>
#include <string_view>
#include <vector>

/// A search expression by the VISA rules: ? any character, * and + repeat what stands before,
/// [list], [^list], | and ( ); a backslash makes the next character literal; in any case,
/// over the whole name. Conditions on attributes in braces are not known.
class ResourceFilter
{
public:
    /// Nothing where the expression is empty, breaks the rules or has VI_FIND_BUFLEN characters.
    static std::optional<ResourceFilter> from(std::string_view expression);
    /// In time that grows with the length of the name, whatever the expression.
    bool matches(std::string_view name) const;

private:
    using Characters = std::bitset<256>;
    /// Reads one of the characters and goes on at the next step, or reads nothing and goes on at
    /// both jumps, counted from here.
    struct Step {
        bool isReading;
        Characters characters;
        int jumps[2];
    };
    using Steps = std::vector<Step>;
    class Reader;

    void enter(size_t step, std::vector<bool>& present) const;

    Steps m_steps;
};
