#include "numbers/entry_units.h"

#include <algorithm>

namespace
{
/// As powers of ten of the kind's own unit.
std::vector<int> entryPowers(FieldKind kind, int plainPower)
{
    constexpr int nanoseconds = -3;
    switch (unitFamily(kind)) {
    case UnitFamily::Frequency:
        return {9, 6, 3, 0};
    case UnitFamily::Time:
        return plainPower == nanoseconds ? std::vector<int>{6, 3, 0, nanoseconds}
                                         : std::vector<int>{6, 3, 0};
    case UnitFamily::Voltage:
        return {0, -3};
    case UnitFamily::None:
        break;
    }
    return ownUnit(kind).unit == Unit::None ? std::vector<int>{} : std::vector<int>{0};
}
} // namespace

std::vector<EntryUnit> entryUnits(FieldKind kind, int plainPower)
{
    const OwnUnit own = ownUnit(kind);
    std::vector<EntryUnit> units;
    for (const int power : entryPowers(kind, plainPower))
        units.push_back({{own.unit, own.powerOfTen + power}, power});
    return units;
}

std::vector<EntryUnit> stepUnits(FieldKind kind)
{
    return kind == FieldKind::Power ? std::vector<EntryUnit>{{{Unit::Decibel, 0}, 0}}
                                    : entryUnits(kind, 0);
}

QString unitText(const std::vector<EntryUnit>& units, int powerOfTen)
{
    const auto unit = std::find_if(units.begin(), units.end(), [powerOfTen](const EntryUnit& u) {
        return u.powerOfTen == powerOfTen;
    });
    return unit == units.end() ? QString() : unit->text();
}
