#include "numbers/unit_keys.h"

#include "numbers/number_text.h"

#include <algorithm>

namespace
{
struct UnitKey {
    UnitFamily family;
    char letter;
    int powerOfTen;
};
constexpr UnitKey unitKeys[] = {
    {UnitFamily::Frequency, 'k', 3}, {UnitFamily::Frequency, 'm', 6},
    {UnitFamily::Frequency, 'g', 9}, {UnitFamily::Time, 'm', 3},
    {UnitFamily::Time, 's', 6},      {UnitFamily::Voltage, 'm', -3},
};

struct RussianKey {
    char16_t ofWord; ///< as in the unit's Russian name
    char16_t ofKey;  ///< on the same key
    char letter;
};
constexpr RussianKey russianKeys[] = {
    {u'к', u'л', 'k'}, {u'м', u'ь', 'm'}, {u'г', u'п', 'g'}, {u'с', u'ы', 's'}};

const UnitKey* findUnitKey(QChar typed, UnitFamily family)
{
    const QChar letter = latinUnitKey(typed.toLower());
    const auto* key = std::find_if(std::begin(unitKeys), std::end(unitKeys), [=](const UnitKey& k) {
        return k.family == family && letter == QLatin1Char(k.letter);
    });
    return key == std::end(unitKeys) ? nullptr : key;
}
} // namespace

QChar latinUnitKey(QChar typed)
{
    const char16_t lower = typed.toLower().unicode();
    const auto* key =
        std::find_if(std::begin(russianKeys), std::end(russianKeys), [lower](const RussianKey& k) {
            return k.ofWord == lower || k.ofKey == lower;
        });
    return key == std::end(russianKeys) ? typed : QLatin1Char(key->letter);
}

std::optional<int> unitKeyPower(QChar letter, UnitFamily family)
{
    const UnitKey* key = findUnitKey(letter, family);
    return key == nullptr ? std::nullopt : std::optional<int>(key->powerOfTen);
}

QString convertUnitKeys(const QString& text, UnitFamily family, int plainPower)
{
    QString typed = withoutBlanks(text).replace(QLatin1Char(','), QLatin1Char('.'));
    for (int i = 0; i < typed.size();) {
        const UnitKey* key = findUnitKey(typed.at(i), family);
        if (key == nullptr) {
            ++i;
            continue;
        }
        const QString number = typed.left(i);
        if (isPlainDecimal(number))
            return shiftedDecimal(number, key->powerOfTen - plainPower);
        typed.remove(i, 1);
    }
    return typed;
}
