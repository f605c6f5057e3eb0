#include "connection/connection.h"

#include "connection/gui_list_klv.h"
#include "connection/hot_plug_watch.h"
#include "connection/running_copies.h"
#include "link/common_commands.h"
#include "link/instrument_limits.h"
#include "link/notices.h"
#include "link/pause.h"
#include "link/scpi_session.h"
#include "link/search_klv.h"
#include "ui/instrument_text.h"

#include <QCoreApplication>

#include <utility>

namespace
{
constexpr int pollIntervalMs = 15000;
constexpr int settleMs = 5;
constexpr char programTitle[] = "KLV";

QString openFailureText(ViStatus status)
{
    switch (status) {
    case VI_ERROR_RSRC_LOCKED:
    case VI_ERROR_RSRC_BUSY:
        return Connection::tr("Another program holds the instrument");
    case VI_ERROR_RSRC_NFOUND:
        return Connection::tr("The instrument was disconnected before it could be opened");
    case VI_ERROR_NPERMISSION:
        return Connection::tr("This user may not open the instrument");
    case VI_ERROR_TMO:
        return Connection::tr("The instrument could not be opened: it does not answer");
    default:
        return Connection::tr("The instrument could not be opened: VISA status %1")
            .arg(statusText(status));
    }
}

/// Whatever was to be switched off: the state of an instrument that accepts no commands any more is
/// unknown.
QString switchOffLossText()
{
    return Connection::tr("connection error: RF may still be on");
}
} // namespace

Connection::Connection(const Parts& parts, QObject* parent)
    : QObject(parent), m_session(parts.session), m_limits(parts.limits), m_search(parts.search),
      m_chooser(parts.chooser), m_copies(parts.copies), m_watch(parts.watch),
      m_notices(parts.notices)
{
    m_pollTimer.setTimerType(Qt::CoarseTimer);
    m_pollTimer.setInterval(pollIntervalMs);
    connect(&m_pollTimer, &QTimer::timeout, this, &Connection::pollDue);
    connect(&m_chooser, &GuiListKLV::dismissed, this, &Connection::chooserDismissed);
    connect(&m_watch, &HotPlugWatch::devicesChanged, this, &Connection::devicesChanged);
    connect(&m_session, &ScpiSession::switchOffFailed, this, [this] { lose(&switchOffLossText); });
    connect(&m_session, &ScpiSession::connectionFailed, this, &Connection::lose);
}

void Connection::enter(State state, const StatusWords& words)
{
    m_state = state;
    if (state != State::Searching && state != State::SettingUp)
        m_cursor.reset();
    else if (!m_cursor)
        m_cursor.emplace();
    if (words) {
        say(words);
    } else {
        m_activity.reset();
        emit busyChanged(false);
    }
}

void Connection::say(const StatusWords& words)
{
    if (m_activity)
        m_activity->say(words);
    else
        m_activity.emplace(words);
    emit busyChanged(true);
}

/// The only way to disconnect, whatever is going on.
void Connection::end(State rest)
{
    const bool wasConnected = m_session.isConnected();
    const bool hadInstrument = m_state >= State::Opening && m_state <= State::Updating;
    m_search.slotStop();
    m_search.wait();
    m_chooser.hide();
    if (hadInstrument) {
        m_session.log().addEvent(Exchange::Kind::Disconnected);
        m_session.close();
        m_copies.release();
        m_connectedSerial.clear();
        m_pollTimer.stop();
    }
    enter(rest);
    emit buttonShouldBe(false);
    if (hadInstrument) {
        emit titleChanged(QLatin1String(programTitle));
        emit disconnected(wasConnected);
    }
}

/// The attempt fails.
void Connection::fail(const StatusWords& reason)
{
    end(State::Idle);
    emit failed(reason);
}

void Connection::lose(const StatusWords& reason)
{
    m_watch.noteLoss();
    disconnectInstrument();
    emit lost(reason);
}

void Connection::handBack(State rest)
{
    bool isReset = true;
    if (m_session.isConnected()) {
        const ExchangeLog::As handingBack(m_session.log(), Exchange::Kind::HandBack);
        // The reset switches the output off.
        isReset = m_session.write(resetCommand);
        m_session.write(massStorageOnCommand);
    }
    end(rest);
    if (!isReset)
        emit lost(&switchOffLossText);
}

void Connection::disconnectInstrument()
{
    end(m_state == State::Updating ? State::Away : State::Idle);
}

void Connection::setFirmwareUpdateRunning(bool isRunning)
{
    if (isRunning && m_session.isConnected())
        enter(State::Updating);
    else if (!isRunning && m_state == State::Updating)
        enter(State::Ready);
    else if (!isRunning && m_state == State::Away)
        enter(State::Idle);
}

void Connection::on_connect_clicked(bool isChecked)
{
    if (m_state == State::Pressed || m_state == State::Searching || m_state == State::Over) {
        emit buttonShouldBe(m_session.isConnected());
        return;
    }
    if (!isChecked) {
        handBack(State::Left);
        return;
    }
    m_state = State::Pressed;
    m_attempt = Attempt();
    emit buttonShouldBe(false);
    if (pause(settleMs) && m_state == State::Pressed)
        startSearch();
}

void Connection::startSearch()
{
    emit attemptStarted();
    enter(State::Searching, [] { return tr("Searching for instruments..."); });
    m_chooser.reset();
    m_search.begin();
}

// Late signals of a cancelled search do not belong to the next one.
void Connection::showKLVDevice(const QString& address, const QString& model, const QString& series)
{
    if (m_state != State::Searching)
        return;
    const QString title = InstrumentIdentity{model, series, QString()}.title();
    if (m_copies.isTitleTaken(title))
        m_attempt.heldName = title;
    else
        m_chooser.createButton(address, model + QLatin1Char('\n') + series);
}

void Connection::finishVisaSearch()
{
    if (m_state != State::Searching)
        return;
    switch (m_chooser.buttonCount()) {
    case 0:
        reportNothingFound();
        break;
    case 1:
        m_chooser.chooseOnly();
        break;
    default:
        m_attempt.isByItself = false;
        enter(State::Choosing, [] { return tr("Choose an instrument"); });
        m_chooser.show();
    }
}

void Connection::failVisaSearch()
{
    if (m_state == State::Searching)
        reportNothingFound();
}

void Connection::reportNothingFound()
{
    end(State::Idle);
    // Plugged in while the search was running.
    if (m_attempt.hasNews && connectByItself())
        return;
    StatusWords words = obstacle();
    if (!m_attempt.heldName.isEmpty())
        words = [name = m_attempt.heldName] {
            return tr("Another running copy of the program holds the instrument %1")
                .arg(instrumentText(name));
        };
    if (!words)
        words = withLibrary(
            [] { return tr("No instrument found: is it switched on and its cable plugged in?"); });
    emit failed(words);
    if (m_attempt.heldName.isEmpty())
        emit nothingFound();
}

StatusWords Connection::withLibrary(const StatusWords& reason) const
{
    const StatusWords library = m_libraryWords ? m_libraryWords() : StatusWords();
    if (!library)
        return reason;
    return [reason, library] { return QStringLiteral("%1 (%2)").arg(reason(), library()); };
}

StatusWords Connection::openFailure(ViStatus status) const
{
    const StatusWords known = status == VI_ERROR_NPERMISSION ? obstacle() : StatusWords();
    return known ? known : withLibrary([status] { return openFailureText(status); });
}

void Connection::chooserDismissed()
{
    if (m_state == State::Choosing)
        end(State::Idle);
}

void Connection::slot_connect(const QString& address)
{
    m_chooser.hide();
    enter(State::Opening, [] { return tr("Connecting: opening the instrument"); });
    const QString title =
        m_chooser.chosenName().replace(QLatin1Char('\n'), QLatin1String(" (")) + QLatin1Char(')');
    if (!m_copies.claim(title)) {
        fail([] { return tr("Another running copy of the program holds this instrument"); });
        return;
    }
    emit titleChanged(title);
    if (!m_session.open(address)) {
        fail(openFailure(m_session.lastStatus()));
        return;
    }
    say([] { return tr("Connecting: reading the mode"); });
    if (leavesMassStorageMode())
        return;

    say([] { return tr("Connecting: reset and identification"); });
    {
        const ExchangeLog::As identification(m_session.log(), Exchange::Kind::Identification);
        m_attempt.isReset = m_session.write(resetCommand);
    }
    m_session.log().addEvent(Exchange::Kind::Reset);
    m_session.setConnected();
    emit buttonShouldBe(true);
    // The user may have disconnected, or even connected again, in the meantime.
    if (!pause(settleMs) || m_state != State::Opening)
        return;

    const Identification found = identifyInstrument(m_session, m_allowedSerials);
    if (found.isTooOld)
        emit refused(tr("Software version is not compatible with this version of KLV firmware. \n "
                        "Please use KLV 2.3 software or lower."));
    if (found.fault) {
        fail(found.fault);
        return;
    }
    emit calibrationDue(found.calibrationDue);
    m_connectedSerial = found.identity.serial;
    m_session.log().addConnected({found.identity.title(), found.identity.firmware, address});
    emit identified(found.identity);
    pushPanel();
    if (m_state == State::SettingUp)
        QCoreApplication::processEvents();
    if (m_state == State::SettingUp)
        tellReady(found.identity);
    emit pushed();
}

/// An instrument in mass-storage mode leaves the bus and comes back as an instrument; the hot-plug
/// watch connects it then.
bool Connection::leavesMassStorageMode()
{
    const ExchangeLog::As identification(m_session.log(), Exchange::Kind::Identification);
    if (m_session.read(massStorageQuery).remove(QLatin1Char('\n')) != massStorageOn)
        return false;
    m_session.write(massStorageOffCommand);
    fail([] { return tr("Waiting for the instrument to leave its mass-storage mode"); });
    return true;
}

void Connection::pushPanel()
{
    enter(State::SettingUp, [] { return tr("Setting up the instrument: its limits"); });
    m_pollTimer.start();
    {
        const ExchangeLog::As identification(m_session.log(), Exchange::Kind::Identification);
        m_limits.readLimits(m_session);
    }
    pushSteps();
}

void Connection::pushSteps()
{
    for (const PushStep& step : m_pushSteps) {
        if (m_state != State::SettingUp)
            return;
        say([name = step.name] { return tr("Setting up the instrument: %1").arg(name()); });
        step.send();
    }
}

void Connection::pushAgain()
{
    if (m_state != State::Ready)
        return;
    enter(State::SettingUp, [] { return tr("Sending the panel's settings"); });
    pushSteps();
    if (m_state == State::SettingUp)
        enter(State::Ready);
}

void Connection::tellReady(const InstrumentIdentity& identity)
{
    enter(State::Ready);
    const QString name = identity.title();
    const QString before = std::exchange(m_lastName, name);
    if (m_attempt.isByItself && !before.isEmpty() && before != name)
        m_notices.sayOfInstrument([name, before] {
            return tr("Connected to %1 in place of %2")
                .arg(instrumentText(name), instrumentText(before));
        });
    if (!m_attempt.isReset) {
        const auto words = [] {
            return tr("The reset could not be sent: more may be on than the panel shows");
        };
        m_notices.say(words, Notice::About::InstrumentToo);
    }
    emit ready();
}

/// Presses the connect button for the user. False when no instrument is present.
bool Connection::connectByItself()
{
    if (m_watch.presentSerials().isEmpty())
        return false;
    emit buttonShouldBeClicked();
    m_attempt.isByItself = m_state == State::Searching;
    return true;
}

void Connection::devicesChanged()
{
    switch (m_state) {
    case State::Idle:
        connectByItself();
        break;
    case State::Searching:
    case State::Choosing:
        m_attempt.hasNews = true;
        break;
    case State::SettingUp:
    case State::Ready:
        if (m_watch.presentSerials().contains(m_connectedSerial))
            break;
        disconnectInstrument();
        emit lost([] { return tr("The instrument has been unplugged"); });
        // Another one may have been plugged in within the same burst of events.
        connectByItself();
        break;
    default:
        break;
    }
}
