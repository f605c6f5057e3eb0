#pragma once

#include <QObject>

#include <memory>

/// Tells when the system wants the program to end: a signal, or the end of the user's session that
/// Qt does not tell of. Ends nothing itself.
class EndRequests : public QObject
{
    Q_OBJECT

signals:
    /// In the event loop; where the system waits no longer than for this, everything is to be done
    /// by those who hear it. May come several times.
    void requested();
};

/// From now on, and until what is returned goes, the system's request does not end the program.
/// At most one at a time.
std::unique_ptr<EndRequests> createEndRequests();
