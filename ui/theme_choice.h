#pragma once

#include "ui/theme.h"

/// The theme that the setting "light", "dark" or "system" (and anything else) means. The system's
/// is told by the palette that the program was started with.
ThemeName chosenTheme(const QString& setting);
