#include "service/firmware_update.h"

#include "connection/connection.h"
#include "connection/hot_plug_watch.h"
#include "link/notices.h"
#include "link/scpi_session.h"
#include "service/about_box.h"
#include "service/firmware_dialog.h"

#include <QAbstractButton>

namespace
{
const QString bootloaderCommand = QStringLiteral("MEM:REPROGRAM");
}

FirmwareUpdate::FirmwareUpdate(const Parts& parts, int longestMs, QObject* parent)
    : QObject(parent), m_session(parts.session), m_connection(parts.connection),
      m_watch(parts.watch), m_notices(parts.notices)
{
    m_longest.setSingleShot(true);
    m_longest.setInterval(longestMs);
    connect(&m_longest, &QTimer::timeout, this, &FirmwareUpdate::giveUp);
    connect(&m_watch, &HotPlugWatch::devicesChanged, this, &FirmwareUpdate::restartDevice);
    connect(&m_connection, &Connection::disconnected, this, &FirmwareUpdate::waitForReturn);
}

void FirmwareUpdate::follow(Form& about, QAbstractButton& connectButton, QWidget* window)
{
    auto* question = new Firmware(window);
    connect(&about, &Form::updateFirmware, question, &QWidget::show);
    connect(question, &Firmware::update, this, &FirmwareUpdate::slotUpdateFirmware);
    connect(this, &FirmwareUpdate::cameBack, &connectButton, &QAbstractButton::click);
    // Before the click announces its own search.
    connect(&connectButton, &QAbstractButton::pressed, this, &FirmwareUpdate::stop);
}

void FirmwareUpdate::slotUpdateFirmware()
{
    if (!m_session.isConnected())
        return;
    m_serial = m_connection.connectedSerial();
    m_stage = Stage::Leaving;
    m_connection.setFirmwareUpdateRunning(true);
    m_longest.start();
    // Neither a reply nor an error check: the instrument leaves its command mode at once.
    m_session.write(bootloaderCommand);
    m_activity.emplace(
        [] { return tr("The instrument is in its bootloader: waiting for it to come back"); });
    emit started();
}

/// Devices have come or gone.
void FirmwareUpdate::restartDevice()
{
    if (!isRunning())
        return;
    const bool isPresent = m_watch.presentSerials().contains(m_serial);
    if (m_stage == Stage::Leaving && !isPresent) {
        m_connection.disconnectInstrument();
    } else if (m_stage == Stage::Away && isPresent) {
        stop();
        emit cameBack();
    }
}

/// The connection has been closed, here or where it was found broken.
void FirmwareUpdate::waitForReturn()
{
    if (m_stage != Stage::Leaving)
        return;
    m_stage = Stage::Away;
}

void FirmwareUpdate::giveUp()
{
    const bool isAway = m_stage == Stage::Away;
    stop();
    if (isAway)
        m_notices.say([] { return tr("The instrument has not come back from its bootloader"); });
}

void FirmwareUpdate::stop()
{
    if (!isRunning())
        return;
    m_stage = Stage::None;
    m_longest.stop();
    m_connection.setFirmwareUpdateRunning(false);
    m_activity.reset();
}
