#pragma once

#include "numbers/quantity.h"

/// The first quantity of a kind that steps so; where there is none, the first of the kind.
inline Quantity quantityOf(FieldKind kind, std::optional<StepKind> step = std::nullopt)
{
    std::optional<Quantity> ofKind;
    for (int i = 0; i < quantityCount; ++i) {
        const auto quantity = static_cast<Quantity>(i);
        if (fieldKind(quantity) == kind && stepKind(quantity) == step)
            return quantity;
        if (fieldKind(quantity) == kind && !ofKind)
            ofKind = quantity;
    }
    return ofKind.value();
}

/// The first quantity that steps so.
inline Quantity quantityOf(StepKind step)
{
    int i = 0;
    while (stepKind(static_cast<Quantity>(i)) != step)
        ++i;
    return static_cast<Quantity>(i);
}
