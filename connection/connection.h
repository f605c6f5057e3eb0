#pragma once

#include "link/activity.h"
#include "ui/busy_cursor.h"

#include <QObject>
#include <QStringList>
#include <QTimer>

#include <functional>
#include <optional>
#include <vector>

class GuiListKLV;
class HotPlugWatch;
class InstrumentLimits;
class RunningCopies;
class ScpiSession;
class SearchKLV;

/// What an instrument says of itself.
struct InstrumentIdentity {
    QString model;
    QString serial;
    QString firmware;
};

/// The way from the connect button to a usable instrument and back: search, choice, opening,
/// identification, pushing the panel, disconnecting. Knows no panel: what is pushed is handed to
/// it as a list of steps, and what it finds it tells by signals.
class Connection : public QObject
{
    Q_OBJECT

public:
    /// What it works with; all outlive it.
    struct Parts {
        ScpiSession& session;
        InstrumentLimits& limits;
        SearchKLV& search;
        GuiListKLV& chooser;
        RunningCopies& copies;
        HotPlugWatch& watch;
    };

    /// Sends one part of the panel's state to a freshly reset instrument.
    struct PushStep {
        StatusWords name;
        std::function<void()> send;
    };

    explicit Connection(const Parts& parts, QObject* parent = nullptr);

    /// The steps that follow the limits, in order; each runs only while still connected.
    void setPushSteps(std::vector<PushStep> steps) { m_pushSteps = std::move(steps); }

    /// Serial numbers that may be connected; while it is empty, all may.
    void setAllowedSerials(const QStringList& serials) { m_allowedSerials = serials; }

    /// Asked when a search has found nothing, for what stands in the way; empty words: the plain
    /// answer that there is no instrument.
    void setObstacle(const std::function<StatusWords()>& obstacle) { m_obstacle = obstacle; }

    /// The window beside which the chooser opens.
    void setNeighbour(const QWidget* neighbour) { m_neighbour = neighbour; }

    /// Keeps the hot-plug watch quiet while the instrument is in its bootloader.
    void setFirmwareUpdateRunning(bool isRunning) { m_isFirmwareUpdateRunning = isRunning; }

    bool isSearching() const { return m_isSearching; }

    /// Empty while nothing is connected and identified.
    const QString& connectedSerial() const { return m_connectedSerial; }

    /// The identity reply's fields: maker, model, serial, firmware; kept until the next connect.
    const QStringList& identity() const { return m_identity; }

    /// The end of the program: stops the search and, while connected, hands the instrument back.
    /// Whatever sequence is in a pause ends there; nothing connects any more.
    void shutDown();

    /// Gives up whatever goes on and hands a connected instrument back, so that another library may
    /// take the place of the present one.
    void leave();

    /// Presses the connect button in the user's stead.
    void connectByItself();

public slots:
    /// The connect button was clicked and is now `isChecked`.
    void on_connect_clicked(bool isChecked);
    void showKLVDevice(const QString& address, const QString& model, const QString& series);
    void finishVisaSearch();
    /// The search found nothing it could walk.
    void failVisaSearch();
    void slot_connect(const QString& address);
    void disconnectInstrument();

signals:
    /// The connect button is to look so; it does not count as a click.
    void buttonShouldBe(bool isChecked);
    /// The hot-plug watch wants the connect button pressed.
    void buttonShouldBeClicked();
    /// The window title: the instrument's while connecting and connected, else the program's.
    void titleChanged(const QString& title);
    void identified(const InstrumentIdentity& identity);
    /// Date as the instrument writes it, "dd.MM.yyyy".
    void calibrationDue(const QString& date);
    /// The instrument cannot be used; the message is for the error box.
    void refused(const QString& message);
    /// The panel has been pushed and the instrument is ready.
    void ready();
    /// The push is over, with or without the connection still there.
    void pushed();
    /// `wasConnected`: the instrument had been reset for this program, and is reset again or gone;
    /// false for an attempt that never came as far.
    void disconnected(bool wasConnected);
    void attemptStarted();
    /// The attempt to connect came to nothing.
    void failed(const StatusWords& reason);
    /// Told behind failed() when there is no instrument to be found at all.
    void nothingFound();
    /// To be read once.
    void statusMessage(const QString& message);
    /// The connection has ended by itself.
    void lost(const StatusWords& reason);
    /// Whether anything goes on, from the search to the end of the push.
    void busyChanged(bool isBusy);
    /// Every 15 seconds while connected.
    void pollDue();

private slots:
    void devicesChanged();
    void chooserDismissed();

private:
    void startSearch();
    void stopSearch();
    void endSearch();
    void reportNothingFound();
    void loseSwitchOff();
    bool leavesMassStorageMode();
    bool identify();
    InstrumentIdentity currentIdentity() const;
    bool readCalibrationDue();
    bool refuse(const StatusWords& reason);
    void say(const StatusWords& words);
    void endActivity();
    void pushPanel();
    void handBack();
    void forgetTitle();

    ScpiSession& m_session;
    InstrumentLimits& m_limits;
    SearchKLV& m_search;
    GuiListKLV& m_chooser;
    RunningCopies& m_copies;
    HotPlugWatch& m_watch;

    std::vector<PushStep> m_pushSteps;
    QStringList m_allowedSerials;
    std::function<StatusWords()> m_obstacle;
    std::optional<Activity> m_activity;
    const QWidget* m_neighbour = nullptr;
    std::optional<BusyCursor> m_searchCursor;
    QTimer m_pollTimer;

    QStringList m_identity;
    QString m_connectedSerial;
    QString m_lastName; ///< of the last instrument that was connected: model (serial)
    /// Changes with every connect and disconnect, so that a sequence that has paused knows.
    int m_attempt = 0;
    bool m_isSearching = false;
    bool m_isByItself = false; ///< no hand has asked for the present attempt
    bool m_hasNews = false;    ///< devices have come or gone during the search
    QString m_heldName; ///< of an instrument that the search left out since another copy holds it
    bool m_isUserDisconnected = false;
    bool m_isButtonGuarded = false;
    bool m_isFirmwareUpdateRunning = false;
    bool m_isShutDown = false;
};
