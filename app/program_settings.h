#pragma once

#include "link/activity.h"

#include <QCoreApplication>
#include <QSettings>
#include <QStringList>

/// The settings that outlive the program, and what the window reads from them. Language, theme and
/// the power guard's settings are kept by their own classes.
class ProgramSettings : public QSettings
{
    Q_DECLARE_TR_FUNCTIONS(ProgramSettings)

public:
    ProgramSettings();

    /// Serial numbers of the instruments that may be connected; none: all may.
    QStringList allowedSerials() const;

    /// Why they cannot be read or saved, for the user; none if they can.
    StatusWords complaint() const;
};
