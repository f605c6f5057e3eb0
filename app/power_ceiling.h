#pragma once

#include "app/number_dialog.h"

#include <optional>

struct FieldContext;

/// Asks for the highest power that the program may set, in whole dBm; an empty field means no
/// limit.
class PowerCeiling : public NumberDialog
{
    Q_OBJECT

public:
    PowerCeiling(std::optional<int> ceilingDbm, const FieldContext& context, QWidget* parent);
};
