#include "demo/instrument/settings.h"

Settings resetSettings(const Limits& limits)
{
    Settings settings;
    for (size_t i = 0; i < quantityCount; ++i) {
        const auto quantity = static_cast<Quantity>(i);
        settings.numbers[i] = limits[quantity].bounded(infoOf(quantity).reset);
    }
    return settings;
}
