#pragma once

#include "fields/number_edit.h"
#include "link/instrument_limits.h"
#include "link/notices.h"
#include "numbers/step_table.h"

#include <QStringList>

/// What fields share, and all that is said.
struct Fields {
    Fields()
    {
        QObject::connect(&notices, &Notices::said,
                         [this](const Notice& notice) { said << notice.words(); });
    }

    QStringList takeSaid() { return std::exchange(said, {}); }

    InstrumentLimits limits;
    StepTable steps;
    Notices notices;
    const FieldContext context{limits, steps, notices};
    QStringList said;
};
