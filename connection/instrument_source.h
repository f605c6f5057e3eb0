#pragma once

#include "connection/device_access.h"
#include "connection/switched_plug_watch.h"
#include "link/activity.h"

#include <memory>
#include <optional>

class DemoMode;
class ScpiSession;
class VisaLibrary;

/// Where instruments are looked for: on this computer's bus through the maker's VISA library or, on
/// Linux, the program's own where that is not found, or among the simulated ones. Owns the
/// simulated mode and the hot-plug watch; loads and opens the library and the session, which others
/// own.
class InstrumentSource
{
public:
    /// As the program was started: `library`, by name or path, is the VISA library to be used for
    /// that, empty the ordinary one. Loads nothing yet.
    InstrumentSource(bool isSimulated, const QString& library, VisaLibrary& visa,
                     ScpiSession& session);
    ~InstrumentSource();

    bool isSimulated() const { return m_demo != nullptr; }

    /// Through which nodes the library reaches the instruments of this computer's bus; nothing
    /// where it does not.
    std::optional<DeviceNode> node() const;

    /// Which library is in use.
    StatusWords libraryWords() const;

    /// The same where it is the program's own; else empty.
    StatusWords ownLibraryWords() const;

    /// Loads the library of the current choice and opens its resource manager.
    void open();

    /// Switches to the simulated instrument or back. Nothing may be connected, and no search
    /// running.
    void simulate(bool isSimulated);

    /// Stays the same object whatever is chosen.
    HotPlugWatch& watch() { return m_watch; }

    /// Ends an update of the simulated instrument; a real one ends it by itself.
    void endBootloaderSoon();

private:
    void choose(bool isSimulated);
    QString libraryName() const;
    /// Neither the simulated instrument nor a library has been named.
    bool isFreeToChoose() const { return !m_demo && m_namedLibrary.isEmpty(); }
    void loadLibrary();

    const bool m_isStartedSimulated;
    const QString m_namedLibrary;
    VisaLibrary& m_visa;
    ScpiSession& m_session;
    std::unique_ptr<DemoMode> m_demo;
    bool m_isOwnLibrary = false;
    SwitchedPlugWatch m_watch;
};
