#include "numbers/entry_units.h"

#include <QCoreApplication>

#include <algorithm>

namespace
{
constexpr EntryUnit decibel{QT_TRANSLATE_NOOP("EntryUnit", "dB"), 0};
constexpr EntryUnit nanosecond{QT_TRANSLATE_NOOP("EntryUnit", "ns"), -3};

std::vector<EntryUnit> ownUnits(FieldKind kind)
{
    switch (kind) {
    case FieldKind::Power:
        return {{QT_TRANSLATE_NOOP("EntryUnit", "dBm"), 0}};
    case FieldKind::ExternalReference:
        return {{QT_TRANSLATE_NOOP("EntryUnit", "MHz"), 0}};
    case FieldKind::AmDepth:
    case FieldKind::Duty:
    case FieldKind::LfDuty:
        return {{QT_TRANSLATE_NOOP("EntryUnit", "%"), 0}};
    case FieldKind::PmDeviation:
        return {{QT_TRANSLATE_NOOP("EntryUnit", "rad"), 0}};
    default:
        return {};
    }
}
} // namespace

QString EntryUnit::text() const
{
    return QCoreApplication::translate("EntryUnit", symbol);
}

std::vector<EntryUnit> entryUnits(FieldKind kind, int plainPower)
{
    switch (unitFamily(kind)) {
    case UnitFamily::Frequency:
        return {{QT_TRANSLATE_NOOP("EntryUnit", "GHz"), 9},
                {QT_TRANSLATE_NOOP("EntryUnit", "MHz"), 6},
                {QT_TRANSLATE_NOOP("EntryUnit", "kHz"), 3},
                {QT_TRANSLATE_NOOP("EntryUnit", "Hz"), 0}};
    case UnitFamily::Time: {
        std::vector<EntryUnit> units = {{QT_TRANSLATE_NOOP("EntryUnit", "s"), 6},
                                        {QT_TRANSLATE_NOOP("EntryUnit", "ms"), 3},
                                        {QT_TRANSLATE_NOOP("EntryUnit", "µs"), 0}};
        if (plainPower == nanosecond.powerOfTen)
            units.push_back(nanosecond);
        return units;
    }
    case UnitFamily::Voltage:
        return {{QT_TRANSLATE_NOOP("EntryUnit", "V"), 0},
                {QT_TRANSLATE_NOOP("EntryUnit", "mV"), -3}};
    case UnitFamily::None:
        return ownUnits(kind);
    }
    Q_UNREACHABLE();
}

std::vector<EntryUnit> stepUnits(FieldKind kind)
{
    return kind == FieldKind::Power ? std::vector<EntryUnit>{decibel} : entryUnits(kind, 0);
}

QString unitText(const std::vector<EntryUnit>& units, int powerOfTen)
{
    const auto unit = std::find_if(units.begin(), units.end(), [powerOfTen](const EntryUnit& u) {
        return u.powerOfTen == powerOfTen;
    });
    return unit == units.end() ? QString() : unit->text();
}
