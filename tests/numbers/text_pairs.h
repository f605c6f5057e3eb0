#pragma once

#include "tests/support/rows.h"

/// A row for each text and what becomes of it, written "text=result", behind the cells that these
/// have in common.
template <typename... Cells>
void pairRows(const QString& name, const QStringList& pairs, const Cells&... cells)
{
    for (const QString& pair : pairs)
        testRow(name + ": " + pair, cells..., pair.section('=', 0, 0), pair.section('=', 1));
}
