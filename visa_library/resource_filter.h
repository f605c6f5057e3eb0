#pragma once

#include "visa_library/attribute_condition.h"

#include <bitset>

/// A search expression by the VISA rules: ? any character, * and + repeat what stands before,
/// [list], [^list], | and ( ); a backslash makes the next character literal; in any case,
/// over the whole name. A condition on attributes may follow in braces.
class ResourceFilter
{
public:
    /// Nothing where the expression is empty, breaks the rules or has VI_FIND_BUFLEN characters.
    static std::optional<ResourceFilter> from(std::string_view expression);
    /// In time that grows with the length of the name, whatever the expression.
    bool matches(const Resource& resource) const;

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

    bool matchesName(std::string_view name) const;
    void enter(size_t step, std::vector<bool>& present) const;

    Steps m_steps;
    AttributeCondition m_condition; ///< may be empty
};
