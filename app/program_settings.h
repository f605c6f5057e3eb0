#pragma once

#include <QCoreApplication>
#include <QSettings>
#include <QStringList>

/// The settings that outlive the program, and what the window asks of them. Language, theme and
/// what guards the power are kept by those whose they are.
class ProgramSettings : public QSettings
{
    Q_DECLARE_TR_FUNCTIONS(ProgramSettings)

public:
    ProgramSettings();

    /// Serial numbers of the instruments that may be connected; none: all may.
    QStringList allowedSerials() const;

    /// Why they cannot be read or kept, for the user; empty if they can.
    QString complaint() const;
};
