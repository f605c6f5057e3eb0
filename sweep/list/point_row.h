#pragma once

#include "numbers/quantity.h"

#include <QString>

#include <array>
#include <vector>

constexpr int pointColumnCount = 3;

/// What the columns hold.
constexpr Quantity pointQuantities[pointColumnCount] = {Quantity::ListFrequency,
                                                        Quantity::ListPower, Quantity::ListDwell};
inline FieldKind pointKind(int column)
{
    return fieldKind(pointQuantities[column]);
}

/// One point of a list: the texts of its cells in column order, as shown and as sent.
using PointRow = std::array<QString, pointColumnCount>;
using PointRows = std::vector<PointRow>;

/// A change of a list: `count` rows from `first` on are replaced by others.
struct RowsEdit {
    int first = 0;
    int count = 0;
    PointRows rows;
};
