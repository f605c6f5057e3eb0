#pragma once

#include <QObject>

#include <memory>

/// Reports when the system asks the program to end: a signal, or an end of the user's session that
/// Qt does not report. Ends nothing itself.
class EndRequests : public QObject
{
    Q_OBJECT

signals:
    /// Emitted from the event loop. The system may wait no longer than for the receivers to return,
    /// so they have to finish everything. May be emitted several times.
    void requested();
};

/// Until the returned object is destroyed, the system's request does not end the program. At most
/// one at a time.
std::unique_ptr<EndRequests> createEndRequests();
