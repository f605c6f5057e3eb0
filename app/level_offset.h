#pragma once

#include "app/number_dialog.h"

#include <optional>

/// Asks by how many decibels the level at the device differs from that at the output; an empty
/// field means that it does not.
class LevelOffset : public NumberDialog
{
    Q_OBJECT

public:
    LevelOffset(std::optional<double> offsetDb, QWidget* parent);

signals:
    void offsetChosen(std::optional<double> offsetDb);
};
