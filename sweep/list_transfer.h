#pragma once

#include "link/activity.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QStringList>

#include <memory>
#include <optional>

class List;
class QLineEdit;
class ScpiSession;
class progressBarForTable;

/// Loads the table of the list panel into the instrument: three lists, in blocks that its input
/// buffer can hold. Owns the progress bar over the table, but not the table, the session or the run
/// button.
class ListTransfer
{
    Q_DECLARE_TR_FUNCTIONS(ListTransfer)

public:
    /// The pause between two blocks.
    static constexpr int usualPauseMs = 500;

    /// `power` holds what an empty power cell sends, in dBm.
    ListTransfer(ScpiSession& session, List& panel, const QLineEdit& power,
                 int pauseMs = usualPauseMs);
    ~ListTransfer();

    /// Sends frequencies, powers and dwell times as the table holds them now; an empty cell sends
    /// its default and stays empty. Events are processed between the blocks. Ends early when the
    /// list's run button is unchecked or the connection is lost: check both again afterwards. False
    /// when it was abandoned or the program ends: nothing more may be sent.
    bool transferTable();

    /// Ends a transfer that is in a pause: it sends nothing more, and its bar is removed at once.
    void abandon();

private:
    struct Part;

    bool isWanted(int transfer) const;
    QStringList valuesOf(const Part& part) const;
    void sendList(int transfer, const Part& part, const QStringList& values);
    void sendBlock(const QString& prefix, const QStringList& values, int first, int end);
    void showProgress(const Part& part);
    void end();

    ScpiSession& m_session;
    List& m_panel;
    const QLineEdit& m_power;
    int m_pauseMs;
    std::unique_ptr<progressBarForTable> m_bar;
    std::optional<Activity> m_activity; ///< as long as the bar is there
    /// Numbers the transfers, so that one that has paused knows of a newer one.
    int m_transfer = 0;
    int m_pausesInAll = 0;
    int m_pausesDone = 0;
    QElapsedTimer m_clock;
};
