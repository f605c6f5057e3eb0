#pragma once

#include "ui/indicator.h"

/// An indicator that fades in once on request; showing and hiding it stay with its owner.
class animLabel : public Indicator
{
    Q_OBJECT

public:
    using Indicator::Indicator;

    /// Fades from nothing to full within `milliseconds`; a second call starts again.
    void start(int milliseconds);
};
