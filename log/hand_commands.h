#pragma once

#include "link/activity.h"
#include "link/turn.h"

#include <QStringList>

class ScpiSession;
struct Exchange;

/// Sends commands typed by the user as they stand, each followed by a reading of the error queue.
/// Waits for its turn: nothing is sent between the commands of a sequence.
class HandCommands : public QObject
{
    Q_OBJECT

public:
    explicit HandCommands(ScpiSession& session, QObject* parent = nullptr);

    /// Each line is a command. False, and nothing is sent: it is not connected, or a text cannot be
    /// sent; refused() has said why.
    bool send(const QString& text);

signals:
    void refused(const StatusWords& reason);
    /// Something else has to end first.
    void waiting();
    /// `exchange`: what it was and what came of it.
    void sent(const Exchange& exchange);
    /// A setting was changed behind the panel's back. `isOutputTouched`: perhaps the RF output.
    void panelOutdated(bool isOutputTouched);

private:
    bool isSendable(const QString& command);
    void sendNext();

    ScpiSession& m_session;
    QStringList m_pending;
    Turn m_turn;
};
