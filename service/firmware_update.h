#pragma once

#include "link/activity.h"

#include <QObject>
#include <QTimer>

#include <optional>

class Connection;
class Form;
class HotPlugWatch;
class Notices;
class QAbstractButton;
class QWidget;
class ScpiSession;

/// Takes the instrument through its bootloader: starts it, closes the connection once the
/// instrument has left the bus, and reports when it is back. In between the connection ignores the
/// hot-plug watch. Loading a firmware image is the task of other programs.
class FirmwareUpdate : public QObject
{
    Q_OBJECT

public:
    /// Its collaborators; all outlive it.
    struct Parts {
        ScpiSession& session;
        Connection& connection;
        HotPlugWatch& watch;
        Notices& notices;
    };
    static constexpr int longestUpdateMs = 120000;

    /// It waits at most `longestMs` milliseconds.
    explicit FirmwareUpdate(const Parts& parts, int longestMs = longestUpdateMs,
                            QObject* parent = nullptr);

    /// Is asked for in the About box, after a warning; a press on the connect button ends the wait,
    /// and the instrument's return presses it.
    void follow(Form& about, QAbstractButton& connectButton, QWidget* window);

    bool isRunning() const { return m_stage != Stage::None; }

public slots:
    /// Switches the connected instrument into its bootloader.
    void slotUpdateFirmware();
    /// Stops waiting: the user has connected by hand.
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
