#include "demo/control/faults.h"

#include <algorithm>

std::optional<Fault> Faults::next()
{
    for (Fault& fault : pending)
        fault.call -= fault.call > 0 ? 1 : 0;
    const auto due = std::find_if(pending.begin(), pending.end(),
                                  [](const Fault& fault) { return fault.call == 0; });
    if (due == pending.end())
        return std::nullopt;
    Fault fault = std::move(*due);
    pending.erase(due);
    return fault;
}
