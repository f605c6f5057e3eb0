#pragma once

#include "link/activity.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

class ScpiSession;

/// What identifies an instrument.
struct InstrumentIdentity {
    QString model;
    QString serial;
    QString firmware;

    /// "MODEL (SERIAL)", the title of the window that holds it.
    QString title() const;
};

/// What a reset instrument says of itself, or why it cannot be used.
struct Identification {
    Q_DECLARE_TR_FUNCTIONS(Connection)

public:
    InstrumentIdentity identity;
    QString calibrationDue; ///< as the instrument writes it, "dd.MM.yyyy"
    StatusWords fault;      ///< none where it can be used
    bool isTooOld = false;  ///< the firmware, for this program
};

/// Asks the instrument of the session. While `allowedSerials` is empty every one may be used.
Identification identifyInstrument(ScpiSession& session, const QStringList& allowedSerials);
