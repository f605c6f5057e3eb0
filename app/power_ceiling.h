#pragma once

#include "ui/panel_dialog.h"

#include <optional>

class NumberEdit;
struct FieldContext;

/// Asks for the highest power that the program may set, in whole dBm; an empty field means no
/// limit. Anything but a whole number cannot be accepted.
class PowerCeiling : public PanelDialog
{
    Q_OBJECT

public:
    PowerCeiling(std::optional<int> ceilingDbm, const FieldContext& context, QWidget* parent);

signals:
    void chosen(std::optional<int> ceilingDbm);

private:
    void choose();

    NumberEdit* m_field;
};
