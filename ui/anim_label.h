#pragma once

#include "ui/indicator.h"

/// An indicator that fades in once when told to; showing and hiding it stay with its owner.
class animLabel : public Indicator
{
    Q_OBJECT

public:
    using Indicator::Indicator;

    /// Fades from nothing to full within `milliseconds`; a second call starts afresh.
    void start(int milliseconds);
};
