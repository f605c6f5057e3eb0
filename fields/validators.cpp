#include "fields/validators.h"

#include <QRegularExpressionValidator>

#include <array>

namespace
{
class EntryValidators
{
public:
    EntryValidators()
    {
        for (int i = 0; i < entryPatternCount; ++i) {
            m_validators[static_cast<std::size_t>(i)].setRegularExpression(
                QRegularExpression(patternText(static_cast<EntryPattern>(i))));
        }
    }

    const QValidator* of(EntryPattern pattern) const
    {
        return &m_validators[static_cast<std::size_t>(pattern)];
    }

private:
    std::array<QRegularExpressionValidator, entryPatternCount> m_validators;
};
} // namespace

const QValidator* entryValidator(EntryPattern pattern)
{
    static const EntryValidators validators;
    return validators.of(pattern);
}
