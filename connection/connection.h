#pragma once

#include "connection/identification.h"
#include "link/activity.h"
#include "ui/busy_cursor.h"
#include "visa/visa.h"

#include <QObject>
#include <QStringList>
#include <QTimer>

#include <functional>
#include <optional>
#include <vector>

class GuiListKLV;
class HotPlugWatch;
class Notices;
class InstrumentLimits;
class RunningCopies;
class ScpiSession;
class SearchKLV;

/// Connects and disconnects: search, choice, opening, identification, pushing the panel's state,
/// hand-back. Knows no panel: what is pushed is handed to it as steps, its results are signals.
class Connection : public QObject
{
    Q_OBJECT

public:
    /// Its collaborators; all outlive it.
    struct Parts {
        ScpiSession& session;
        InstrumentLimits& limits;
        SearchKLV& search;
        GuiListKLV& chooser;
        RunningCopies& copies;
        HotPlugWatch& watch;
        Notices& notices;
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

    /// Called when a search has found nothing, or nothing that may be opened, for the reason; empty
    /// words: the plain message.
    void setObstacle(const std::function<StatusWords()>& obstacle) { m_obstacle = obstacle; }

    /// Called for the library in use, which plain messages then name; empty words: they do not.
    void setLibraryWords(const std::function<StatusWords()>& words) { m_libraryWords = words; }

    /// Keeps the hot-plug watch quiet while the connected instrument is in its bootloader.
    void setFirmwareUpdateRunning(bool isRunning);

    /// Empty while nothing is connected and identified.
    const QString& connectedSerial() const { return m_connectedSerial; }

    /// The end of the program: stops the search and, while connected, hands the instrument back.
    /// A sequence that is in a pause ends there; nothing connects any more.
    void shutDown() { handBack(State::Over); }

    /// Cancels whatever is going on and hands a connected instrument back, so that another library
    /// can replace the current one.
    void leave() { handBack(State::Idle); }

    /// Sends the panel's state again to the connected instrument, without a reset. Does nothing
    /// unless it is ready.
    void pushAgain();

public slots:
    /// The connect button was clicked and is now `isChecked`.
    void on_connect_clicked(bool isChecked);
    void showKLVDevice(const QString& address, const QString& model, const QString& series);
    void finishVisaSearch();
    /// The search found no resources.
    void failVisaSearch();
    void slot_connect(const QString& address);
    void disconnectInstrument();

signals:
    /// The connect button has to show this state; it does not count as a click.
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
    /// The push is over, whether or not the connection still exists.
    void pushed();
    /// `wasConnected`: the instrument had been reset for this program, and has been reset again or
    /// is gone; false for an attempt that never got that far.
    void disconnected(bool wasConnected);
    void attemptStarted();
    /// The attempt to connect failed.
    void failed(const StatusWords& reason);
    /// Emitted after failed() when no instrument was found at all.
    void nothingFound();
    /// The connection was lost.
    void lost(const StatusWords& reason);
    /// Whether anything goes on, from the search to the end of the push.
    void busyChanged(bool isBusy);
    /// Every 15 seconds while connected.
    void pollDue();

private slots:
    void devicesChanged();
    void chooserDismissed();

private:
    /// A sequence that has paused continues only in the state it was in: anything that came in
    /// between has ended by then and has left another state. From Opening to Updating there is an
    /// instrument.
    enum class State {
        Idle,      ///< the watch connects any instrument that is plugged in
        Left,      ///< the user has disconnected: what is plugged in is not connected
        Away,      ///< the instrument that was connected is in its bootloader
        Pressed,   ///< the button has been clicked
        Searching, ///< the search walks the bus
        Choosing,  ///< the chooser is open
        Opening,   ///< until the instrument is identified
        SettingUp, ///< limits and panel
        Ready,
        Updating, ///< connected, on the way into its bootloader
        Over      ///< the program ends
    };

    /// What is known of the search since the button was clicked.
    struct Attempt {
        bool isByItself = false; ///< not started by the user
        bool hasNews = false;    ///< devices have come or gone in the meantime
        bool isReset = true;     ///< the library took the reset
        QString heldName;        ///< of an instrument that was left out: another copy holds it
    };

    void enter(State state, const StatusWords& words = {});
    void say(const StatusWords& words);
    void end(State rest);
    void fail(const StatusWords& reason);
    void lose(const StatusWords& reason);
    void handBack(State rest);
    void startSearch();
    void reportNothingFound();
    bool connectByItself();
    bool leavesMassStorageMode();
    void pushPanel();
    void pushSteps();
    StatusWords obstacle() const { return m_obstacle ? m_obstacle() : StatusWords(); }
    StatusWords withLibrary(const StatusWords& reason) const;
    StatusWords openFailure(ViStatus status) const;
    void tellReady(const InstrumentIdentity& identity);

    ScpiSession& m_session;
    InstrumentLimits& m_limits;
    SearchKLV& m_search;
    GuiListKLV& m_chooser;
    RunningCopies& m_copies;
    HotPlugWatch& m_watch;
    Notices& m_notices;

    std::vector<PushStep> m_pushSteps;
    QStringList m_allowedSerials;
    std::function<StatusWords()> m_obstacle;
    std::function<StatusWords()> m_libraryWords;
    QTimer m_pollTimer;

    State m_state = State::Idle;
    std::optional<Activity> m_activity; ///< from the search to the end of the push
    std::optional<BusyCursor> m_cursor; ///< while searching and setting up
    Attempt m_attempt;
    QString m_connectedSerial;
    QString m_lastName; ///< of the last instrument that was connected: model (serial)
};
