#pragma once

#include "numbers/field_kind.h"

#include <vector>

/// A unit that a number may be given in.
struct EntryUnit {
    OwnUnit unit;
    int powerOfTen; ///< of the kind's own unit

    /// The symbol in the chosen language.
    QString text() const { return unitSymbol(unit.unit, unit.powerOfTen); }
};

/// The units that can finish a number of that kind, the largest first; none for counts.
/// `plainPower` is the unit of a number without a unit suffix; it is always among them.
std::vector<EntryUnit> entryUnits(FieldKind kind, int plainPower);

/// The units that can finish the step of such a quantity.
std::vector<EntryUnit> stepUnits(FieldKind kind);

/// The symbol, in the chosen language, of the unit of that power of ten among these; empty if there
/// is none.
QString unitText(const std::vector<EntryUnit>& units, int powerOfTen);
