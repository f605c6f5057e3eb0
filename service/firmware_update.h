#pragma once

#include "link/activity.h"

#include <QObject>
#include <QTimer>

#include <optional>

class Connection;
class HotPlugWatch;
class Notices;
class ScpiSession;

/// The instrument's way through its bootloader: sends it there, gives the connection up once it has
/// left the bus, and says when it is back. Meanwhile the connection does not heed the hot-plug
/// watch. Loading a firmware image is other programs' work.
class FirmwareUpdate : public QObject
{
    Q_OBJECT

public:
    /// What it works with; all outlive it.
    struct Parts {
        ScpiSession& session;
        Connection& connection;
        HotPlugWatch& watch;
        Notices& notices;
    };
    static constexpr int longestUpdateMs = 120000;

    /// After `longestMs` it no longer waits.
    explicit FirmwareUpdate(const Parts& parts, int longestMs = longestUpdateMs,
                            QObject* parent = nullptr);

    bool isRunning() const { return m_stage != Stage::None; }

public slots:
    /// Switches the connected instrument into its bootloader.
    void slotUpdateFirmware();
    /// Waits no longer: whoever connects by hand knows better.
    void stop();

signals:
    void started();
    /// The instrument is back on the bus and can be connected.
    void cameBack();

private:
    enum class Stage { None, Leaving, Away };

    void restartDevice();
    void waitForReturn();
    void giveUp();

    ScpiSession& m_session;
    Connection& m_connection;
    HotPlugWatch& m_watch;
    Notices& m_notices;
    QTimer m_longest;
    QString m_serial;
    std::optional<Activity> m_activity;
    Stage m_stage = Stage::None;
};
