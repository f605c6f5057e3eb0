#pragma once

#include <QString>

/// What the command line asks for.
struct StartOptions {
    bool isDemo = false;    ///< use the simulated instrument
    QString visaLibrary;    ///< VISA library by name or path; empty: the ordinary one
    QString language;       ///< "en" or "ru"; empty: the setting, else the system's
    QString profilePath;    ///< profile to apply at start-up
    bool isClean = false;   ///< do not restore the last settings
    QString screenshotPath; ///< picture of the settled window
    QString logPath;        ///< file for the lines of the SCPI log

    /// Reads the application's arguments. Help, version and mistakes end the process here.
    static StartOptions fromCommandLine();
};
