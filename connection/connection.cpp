#include "connection/connection.h"

#include "connection/gui_list_klv.h"
#include "connection/hot_plug_watch.h"
#include "connection/running_copies.h"
#include "link/instrument_limits.h"
#include "link/instrument_text.h"
#include "link/pause.h"
#include "link/scpi_session.h"
#include "link/search_klv.h"

#include <QCoreApplication>
#include <QRegularExpression>

#include <utility>

namespace
{
constexpr int pollIntervalMs = 15000;
constexpr int settleMs = 5;
constexpr int oldestCompatibleMinor = 4;
constexpr char programTitle[] = "KLV";

const QString resetCommand = QStringLiteral("*RST");
const QString identityQuery = QStringLiteral("*IDN?");
const QString massStorageQuery = QStringLiteral("MEM:MSC?");
const QString massStorageOnCommand = QStringLiteral("MEM:MSC ON");
const QString massStorageOffCommand = QStringLiteral("MEM:MSC OFF");
const QString calibrationDueQuery = QStringLiteral("SERV:SOUR:CDUE?");

QString withoutLineFeeds(QString text)
{
    return text.remove(QLatin1Char('\n'));
}

QString titleOf(const QString& model, const QString& serial)
{
    return model + QLatin1String(" (") + serial + QLatin1Char(')');
}

QString openFailureText(ViStatus status)
{
    switch (status) {
    case VI_ERROR_RSRC_LOCKED:
    case VI_ERROR_RSRC_BUSY:
        return Connection::tr("Another program holds the instrument");
    case VI_ERROR_RSRC_NFOUND:
        return Connection::tr("The instrument has gone before it could be opened");
    case VI_ERROR_NPERMISSION:
        return Connection::tr("This user may not open the instrument");
    case VI_ERROR_TMO:
        return Connection::tr("The instrument could not be opened: it does not answer");
    default:
        return Connection::tr("The instrument could not be opened: VISA status %1")
            .arg(statusText(status));
    }
}

/// Whatever was to be switched off: an instrument that takes no commands any more may do anything.
QString switchOffLossText()
{
    return Connection::tr("connection error: RF may still be on");
}

QString silenceText(ViStatus status)
{
    if (status == VI_ERROR_TMO)
        return Connection::tr("no access to the device: it does not answer");
    return Connection::tr("no access to the device: VISA status %1").arg(statusText(status));
}
} // namespace

Connection::Connection(const Parts& parts, QObject* parent)
    : QObject(parent), m_session(parts.session), m_limits(parts.limits), m_search(parts.search),
      m_chooser(parts.chooser), m_copies(parts.copies), m_watch(parts.watch)
{
    m_pollTimer.setTimerType(Qt::CoarseTimer);
    m_pollTimer.setInterval(pollIntervalMs);
    connect(&m_pollTimer, &QTimer::timeout, this, &Connection::pollDue);
    connect(&m_chooser, &GuiListKLV::dismissed, this, &Connection::chooserDismissed);
    connect(&m_watch, &HotPlugWatch::devicesChanged, this, &Connection::devicesChanged);
    connect(&m_session, &ScpiSession::switchOffFailed, this, &Connection::loseSwitchOff);
    connect(&m_session, &ScpiSession::connectionFailed, this, [this](const StatusWords& reason) {
        m_watch.noteLoss();
        disconnectInstrument();
        emit lost(reason);
    });
}

void Connection::say(const StatusWords& words)
{
    if (m_activity)
        m_activity->say(words);
    else
        m_activity.emplace(words);
    emit busyChanged(true);
}

void Connection::endActivity()
{
    m_activity.reset();
    emit busyChanged(false);
}

void Connection::on_connect_clicked(bool isChecked)
{
    if (m_isButtonGuarded || m_isShutDown) {
        emit buttonShouldBe(m_session.isConnected());
        return;
    }
    if (!isChecked) {
        m_isUserDisconnected = true;
        handBack();
        return;
    }
    m_isButtonGuarded = true;
    m_isUserDisconnected = false;
    m_isByItself = false;
    emit buttonShouldBe(false);
    const int attempt = m_attempt;
    if (pause(settleMs) && !m_isShutDown && attempt == m_attempt)
        startSearch();
}

void Connection::startSearch()
{
    m_searchCursor.emplace();
    m_isSearching = true;
    m_hasNews = false;
    m_heldName.clear();
    emit attemptStarted();
    say([] { return tr("Searching for instruments..."); });
    m_chooser.reset(m_neighbour);
    m_search.begin();
}

// What a search that was given up has still sent is no news of the next one.
void Connection::showKLVDevice(const QString& address, const QString& model, const QString& series)
{
    if (!m_isSearching)
        return;
    const QString title = titleOf(model, series);
    if (m_copies.isTitleTaken(title))
        m_heldName = title;
    else
        m_chooser.createButton(address, model + QLatin1Char('\n') + series);
}

void Connection::finishVisaSearch()
{
    if (!m_isSearching)
        return;
    m_isButtonGuarded = false;
    m_searchCursor.reset();
    switch (m_chooser.buttonCount()) {
    case 0:
        endSearch();
        reportNothingFound();
        break;
    case 1:
        m_chooser.chooseOnly();
        break;
    default:
        m_isByItself = false;
        say([] { return tr("Choose an instrument"); });
        m_chooser.show();
    }
}

void Connection::failVisaSearch()
{
    if (!m_isSearching)
        return;
    endSearch();
    reportNothingFound();
}

void Connection::endSearch()
{
    m_isButtonGuarded = false;
    m_searchCursor.reset();
    m_isSearching = false;
    m_chooser.hide();
}

void Connection::reportNothingFound()
{
    endActivity();
    // Plugged in behind the search's back.
    if (m_hasNews && !m_isFirmwareUpdateRunning && !m_watch.presentSerials(true).isEmpty()) {
        connectByItself();
        return;
    }
    StatusWords words = m_obstacle ? m_obstacle() : StatusWords();
    if (!m_heldName.isEmpty())
        words = [name = m_heldName] {
            return tr("Another running copy of the program holds the instrument %1")
                .arg(instrumentText(name));
        };
    if (!words)
        words = [] {
            return tr("No instrument found: is it switched on and its cable plugged in?");
        };
    emit failed(words);
    if (m_heldName.isEmpty())
        emit nothingFound();
}

void Connection::chooserDismissed()
{
    if (m_isSearching && !m_search.isRunning()) {
        m_isSearching = false;
        endActivity();
    }
}

void Connection::slot_connect(const QString& address)
{
    m_chooser.hide();
    m_isSearching = false;
    const int attempt = ++m_attempt;
    const QString title =
        m_chooser.chosenName().replace(QLatin1Char('\n'), QLatin1String(" (")) + QLatin1Char(')');
    if (!m_copies.claim(title)) {
        if (m_session.isConnected())
            disconnectInstrument();
        endActivity();
        emit failed([] { return tr("Another running copy of the program holds this instrument"); });
        return;
    }
    emit titleChanged(title);
    say([] { return tr("Connecting: opening the instrument"); });
    if (!m_session.open(address)) {
        forgetTitle();
        endActivity();
        emit failed([status = m_session.lastStatus()] { return openFailureText(status); });
        return;
    }
    say([] { return tr("Connecting: asking for its mode"); });
    if (leavesMassStorageMode())
        return;

    say([] { return tr("Connecting: reset and identification"); });
    m_session.write(resetCommand);
    m_session.setConnected();
    emit buttonShouldBe(true);
    // The user may have disconnected, or even connected anew, meanwhile.
    if (!pause(settleMs) || attempt != m_attempt)
        return;

    if (!identify() || !readCalibrationDue())
        return;
    const InstrumentIdentity identity = currentIdentity();
    m_connectedSerial = identity.serial;
    const QString name = titleOf(identity.model, identity.serial);
    const QString before = std::exchange(m_lastName, name);
    emit identified(identity);
    pushPanel();
    if (attempt == m_attempt) {
        QCoreApplication::processEvents();
        if (attempt == m_attempt && m_isByItself && !before.isEmpty() && before != name)
            emit statusMessage(tr("Connected to %1 in place of %2")
                                   .arg(instrumentText(name), instrumentText(before)));
        if (attempt == m_attempt)
            emit ready();
    }
    emit pushed();
}

/// An instrument in mass-storage mode leaves the bus to come back as an instrument; the hot-plug
/// watch connects it then.
bool Connection::leavesMassStorageMode()
{
    if (withoutLineFeeds(m_session.read(massStorageQuery)) != QLatin1String("ON"))
        return false;
    m_session.write(massStorageOffCommand);
    disconnectInstrument();
    emit failed([] { return tr("Waiting for the instrument to leave its mass-storage mode"); });
    return true;
}

bool Connection::identify()
{
    static const QRegularExpression pattern(QStringLiteral("[ \\w ]*,[ \\w ]*,[ \\w ]*"));
    const QString reply = m_session.read(identityQuery);
    if (m_session.lastFailed())
        return refuse([status = m_session.lastStatus()] { return silenceText(status); });
    if (!pattern.match(reply).hasMatch())
        return refuse([] { return tr("no access to the device: it does not say what it is"); });

    m_identity = reply.split(QLatin1Char(','));
    m_identity[2].remove(QLatin1Char('\n'));
    const InstrumentIdentity identity = currentIdentity();
    if (!m_allowedSerials.isEmpty() && !m_allowedSerials.contains(identity.serial))
        return refuse([serial = identity.serial] {
            return tr("no access to the device: serial number %1 is not among those allowed")
                .arg(instrumentText(serial));
        });

    const QStringList version = identity.firmware.split(QLatin1Char('.'));
    if (version.size() >= 3 && version.at(1).toInt() < oldestCompatibleMinor) {
        emit refused(tr("Software version is not compatible with this version of KLV firmware. \n "
                        "Please use KLV 2.3 software or lower."));
        return refuse([firmware = identity.firmware] {
            return tr("The firmware %1 of the instrument is too old for this program")
                .arg(instrumentText(firmware));
        });
    }
    return true;
}

InstrumentIdentity Connection::currentIdentity() const
{
    return {m_identity.value(1).trimmed(), m_identity.value(2).trimmed(),
            m_identity.last().trimmed()};
}

bool Connection::readCalibrationDue()
{
    const QString reply = m_session.query(calibrationDueQuery);
    if (m_session.lastFailed())
        return refuse([] { return tr("connection error: the instrument has stopped answering"); });
    emit calibrationDue(withoutLineFeeds(reply));
    return true;
}

bool Connection::refuse(const StatusWords& reason)
{
    disconnectInstrument();
    emit failed(reason);
    return false;
}

void Connection::pushPanel()
{
    const BusyCursor busy;
    say([] { return tr("Setting up the instrument: its limits"); });
    m_pollTimer.start();
    m_limits.readLimits(m_session);
    for (const PushStep& step : m_pushSteps) {
        if (!m_session.isConnected())
            return;
        say([name = step.name] { return tr("Setting up the instrument: %1").arg(name()); });
        step.send();
    }
    endActivity();
}

void Connection::handBack()
{
    bool isReset = true;
    if (m_session.isConnected()) {
        // The reset switches the output off.
        isReset = m_session.write(resetCommand);
        m_session.write(massStorageOnCommand);
    }
    disconnectInstrument();
    if (!isReset)
        emit lost(&switchOffLossText);
}

void Connection::loseSwitchOff()
{
    m_watch.noteLoss();
    disconnectInstrument();
    emit lost(&switchOffLossText);
}

void Connection::disconnectInstrument()
{
    const bool wasConnected = m_session.isConnected();
    ++m_attempt;
    m_session.close();
    emit buttonShouldBe(false);
    forgetTitle();
    m_connectedSerial.clear();
    m_pollTimer.stop();
    endActivity();
    emit disconnected(wasConnected);
}

void Connection::forgetTitle()
{
    m_copies.release();
    emit titleChanged(QLatin1String(programTitle));
}

void Connection::shutDown()
{
    m_isShutDown = true;
    stopSearch();
    if (m_session.isConnected())
        handBack();
}

void Connection::leave()
{
    stopSearch();
    handBack();
}

void Connection::stopSearch()
{
    m_search.slotStop();
    m_search.wait();
    endSearch();
}

void Connection::connectByItself()
{
    emit buttonShouldBeClicked();
    m_isByItself = m_isSearching;
}

void Connection::devicesChanged()
{
    m_hasNews = m_hasNews || m_isSearching;
    if (m_isFirmwareUpdateRunning || m_isUserDisconnected || m_isSearching || m_isShutDown)
        return;
    if (!m_session.isConnected()) {
        if (!m_watch.presentSerials(true).isEmpty())
            connectByItself();
        return;
    }
    // Between the reset and the identification the serial is not known yet.
    if (!m_connectedSerial.isEmpty() &&
        !m_watch.presentSerials(false).contains(m_connectedSerial)) {
        disconnectInstrument();
        emit lost([] { return tr("The instrument has been unplugged"); });
        // Another one may have come in the same burst.
        if (!m_watch.presentSerials(true).isEmpty())
            connectByItself();
    }
}
