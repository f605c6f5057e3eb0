#include "demo/instrument/settings.h"

#include <algorithm>

Settings resetSettings(const Limits& limits)
{
    Settings settings;
    for (size_t i = 0; i < quantityCount; ++i) {
        const double reset = infoOf(static_cast<Quantity>(i)).reset;
        settings.numbers[i] = std::min(std::max(reset, limits[i].minimum), limits[i].maximum);
    }
    return settings;
}
