#include "service/service_commands.h"

#include "link/activity.h"
#include "connection/connection.h"
#include "link/pause.h"
#include "link/scpi_session.h"
#include "numbers/field_kind.h"
#include "numbers/number_text.h"
#include "fields/entry_notice.h"
#include "fields/unit_key_filter.h"
#include "service/calibration_table.h"
#include "service/calibration_text.h"
#include "service/firmware_update.h"
#include "service/service_panel.h"
#include "ui/busy_cursor.h"
#include "ui/files/file_questions.h"
#include "ui/files/file_work.h"
#include "ui/files/user_folder.h"
#include "ui/progress_bar_for_table.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QLineEdit>
#include <QPushButton>
#include <QScopeGuard>

namespace
{
constexpr int pauseMs = 100;
/// Many more than a reply can hold: a larger count is no count.
constexpr double mostPoints = 100000;

const QString pointCountQuery = QStringLiteral("MEM:TABLE:POIN?");
const QString allPointsQuery = QStringLiteral("MEM:TABLE:POINt:ALL?");
const QString addPointCommand = QStringLiteral("MEM:TABLE:ADD %1 %2");
const QString saveTableCommand = QStringLiteral("MEM:TABLE:SAVE");
const QString dacCommand = QStringLiteral("MEM:DAC ");
const QString dacQuery = QStringLiteral("MEM:DAC?");
const QString temperatureQuery = QStringLiteral("TEMP?");
} // namespace

ServiceCommands::ServiceCommands(ScpiSession& session, service& panel, QObject* parent)
    : QObject(parent), m_session(session), m_panel(panel)
{
    connect(&panel.applyCalibrate(), &QPushButton::clicked, this,
            &ServiceCommands::commandCalibrate);
    connect(&panel.reloadTable(), &QPushButton::clicked, this, &ServiceCommands::reloadTable);
    connect(&panel.openBackup(), &QPushButton::clicked, this, &ServiceCommands::openBackup);
    connect(&panel.referenceDac(), &QLineEdit::returnPressed, this,
            &ServiceCommands::on_REF_OSC_returnPressed);
}

void ServiceCommands::follow(const Connection& connection, const QAbstractButton& toggle,
                             const FirmwareUpdate& update)
{
    connect(&connection, &Connection::ready, this, [this, &toggle] {
        if (toggle.isChecked())
            initial_service();
    });
    connect(&connection, &Connection::pollDue, this, [this, &toggle, &update] {
        if (toggle.isChecked() && !update.isRunning())
            readTemperature();
    });
    connect(&connection, &Connection::disconnected, this, &ServiceCommands::stopWriting);
    connect(&toggle, &QAbstractButton::toggled, this, [this](bool isOpen) {
        if (!isOpen)
            stopWriting();
    });
}

void ServiceCommands::initial_service()
{
    if (m_isBusy)
        return;
    const QStringList failures = {readTable(), queryDac(), queryTemperature()};
    report(failures);
}

void ServiceCommands::reloadTable()
{
    if (m_isBusy)
        return;
    if (m_session.isConnected())
        report({readTable()});
    else
        emit statusMessage(tr("No instrument is connected"));
}

/// Shows what could not be read, all of it at once: the status line has one place.
void ServiceCommands::report(QStringList failures)
{
    failures.removeAll(QString());
    if (!failures.isEmpty())
        emit statusMessage(failures.join(QStringLiteral("; ")));
}

// These say what failed; nothing when it did not, or while disconnected.

QString ServiceCommands::readTable()
{
    if (!m_session.isConnected())
        return QString();
    m_isBusy = true;
    const Activity activity([] { return tr("Reading the calibration table"); });
    m_panel.setState(service::State::Loading);
    // The label is painted before the wire blocks.
    QCoreApplication::processEvents();
    const bool isRead = !m_session.isConnected() || queryTable();
    m_panel.setState(service::State::Ready);
    m_isBusy = false;
    return isRead ? QString() : tr("error get calibrate");
}

/// False when the instrument does not tell its table; what was shown then stays.
bool ServiceCommands::queryTable()
{
    const QString countReply = m_session.query(pointCountQuery);
    if (m_session.lastFailed())
        return false;
    bool isNumber = false;
    const double count = withoutBlanks(countReply).toDouble(&isNumber);
    if (!isNumber || count < 0 || count > mostPoints)
        return false;
    const QString points = m_session.query(allPointsQuery);
    if (m_session.lastFailed())
        return false;

    const int pointCount = static_cast<int>(count);
    const QStringList numbers = wholeNumbersOfReply(points);
    m_panel.showPoints(pointCount, numbers);
    m_keptAs.clear();
    const int expected = pointCount * CalibrationTable::ColumnCount;
    if (numbers.size() > expected)
        emit statusMessage(tr("The instrument sent more numbers than it has calibration points"));
    else if (numbers.size() < expected)
        emit statusMessage(tr("The instrument sent fewer numbers than it has calibration points"));
    return true;
}

void ServiceCommands::commandCalibrate()
{
    if (m_isBusy) {
        stopWriting();
        return;
    }
    if (!m_session.isConnected())
        return;
    const QString complaint = m_panel.table().firstComplaint();
    if (!complaint.isEmpty()) {
        emit statusMessage(complaint);
        return;
    }
    emit statusMessage(QString());
    m_isBusy = true;
    m_isStopped = false;
    const bool isKept = keepAsRead();
    m_isRefused = false;
    const bool isWritten = isKept && m_session.isConnected() && writeTable();
    m_isBusy = false;
    // What the instrument had against it is told already.
    if (!isKept || !m_session.isConnected() || m_isRefused)
        return;
    if (!isWritten)
        emit statusMessage(tr("Writing was stopped: the stored table is as it was"));
    else if (m_keptAs.isEmpty())
        emit statusMessage(tr("The calibration table is stored in the instrument"));
    else
        emit statusMessage(
            tr("The calibration table is stored in the instrument; as it was read it is kept as %1")
                .arg(m_keptAs));
}

/// Before what was read is written over: once, and only what there was to read. False when it could
/// not be kept.
bool ServiceCommands::keepAsRead()
{
    const CalibrationPoints& points = m_panel.table().pointsAsRead();
    if (!m_keptAs.isEmpty() || points.empty())
        return true;
    const QString path =
        newBackupPath(madeUserFolder(), m_panel.serial(), QDateTime::currentDateTime());
    const QString name = QFileInfo(path).fileName();
    const FileOutcome written = writeBeside(m_panel.window(), path, backupText(points));
    if (written.fault == FileFault::None)
        m_keptAs = name;
    else if (written.fault == FileFault::Cancelled)
        emit statusMessage(tr("Nothing was written: the table was not kept as it was read"));
    else
        emit errorMessage(tr("Nothing was written: the table as it was read could not be kept as "
                             "%1: %2")
                              .arg(QDir::toNativeSeparators(path), written.detail));
    return written.fault == FileFault::None;
}

void ServiceCommands::openBackup()
{
    if (m_isBusy)
        return;
    const QString filter = tr("Backups of this instrument") +
                           QStringLiteral(" (%1 *.csv);;").arg(backupPrefix(m_panel.serial())) +
                           tr("All backups") + QStringLiteral(" (*.csv)");
    askFileToOpen(m_panel.window(), {tr("Open backup"), madeUserFolder(), filter},
                  [this](const QString& path) { showBackup(path); });
}

void ServiceCommands::showBackup(const QString& path)
{
    const QString name = QFileInfo(path).fileName();
    const ReadBackup read = readBeside(m_panel.window(), path, &readBackup)
                                .value_or(ReadBackup{{FileFault::Cancelled, {}}, {}, 0});
    if (read.fault == FileFault::Cancelled || m_isBusy) {
        emit statusMessage(tr("Not opened: %1").arg(name));
    } else if (read.fault != FileFault::None) {
        emit errorMessage(tr("%1 cannot be opened: %2").arg(name, read.detail));
    } else if (read.strangeLine > 0) {
        emit errorMessage(tr("%1 is no backup of a calibration table: line %2 is no frequency and "
                             "whole number")
                              .arg(name)
                              .arg(read.strangeLine));
    } else {
        m_panel.showOtherPoints(read.points);
        const int changed = m_panel.table().changedRows();
        emit statusMessage(
            name.startsWith(backupPrefix(m_panel.serial()) + QLatin1Char(' '))
                ? tr("%1: rows that differ from what was read: %2").arg(name).arg(changed)
                : tr("%1 may be another instrument's; rows that differ from what "
                     "was read: %2")
                      .arg(name)
                      .arg(changed));
    }
}

void ServiceCommands::stopWriting()
{
    m_isStopped = true;
}

/// False when it was stopped, or the connection went.
bool ServiceCommands::writeTable()
{
    const BusyCursor busy;
    m_panel.setState(service::State::Writing);
    const auto ready = qScopeGuard([this] { m_panel.setState(service::State::Ready); });
    const CalibrationPoints points = m_panel.table().points();
    progressBarForTable bar(static_cast<int>(points.size()), &m_panel.table());
    std::size_t row = 0;
    const StatusWords words = [&row, count = points.size()] {
        return tr("Writing the calibration table: row %1 of %2").arg(row).arg(count);
    };
    Activity activity(words);
    for (const CalibrationPoint& point : points) {
        ++row;
        activity.say(words);
        bar.showText(tr("Writing the calibration table..."));
        m_session.write(addPointCommand.arg(point.frequencyHz, point.value));
        if (!pauseWhileWriting())
            return false;
        bar.advance();
    }
    if (!pauseWhileWriting())
        return false;
    m_isRefused = !m_session.writeChecked(saveTableCommand);
    return m_session.isConnected() && pause(pauseMs);
}

bool ServiceCommands::pauseWhileWriting() const
{
    return pause(pauseMs) && m_session.isConnected() && !m_isStopped;
}

void ServiceCommands::readDac()
{
    report({queryDac()});
}

QString ServiceCommands::queryDac()
{
    if (!m_session.isConnected())
        return QString();
    const QString reply = m_session.query(dacQuery);
    bool isNumber = false;
    withoutBlanks(reply).toDouble(&isNumber);
    if (m_session.lastFailed() || !isNumber)
        return tr("error getting dac");
    // As a whole number: the field takes no sign that a reply may bear.
    m_panel.showDac(displayText(reply, FieldKind::DacValue));
    return QString();
}

void ServiceCommands::readTemperature()
{
    report({queryTemperature()});
}

QString ServiceCommands::queryTemperature()
{
    if (!m_session.isConnected())
        return QString();
    const QString reply = m_session.read(temperatureQuery);
    if (m_session.lastFailed())
        return tr("error getting temperature");
    m_panel.showTemperature(toNumber(reply));
    return QString();
}

void ServiceCommands::sendCommandRefOsc()
{
    if (!takeNumber(&m_panel.referenceDac()) || !m_session.isConnected())
        return;
    const QString value = m_panel.referenceDac().text();
    if (m_session.writeChecked(dacCommand + value))
        showAccepted(&m_panel.referenceDac(), value);
}

void ServiceCommands::on_REF_OSC_returnPressed()
{
    sendCommandRefOsc();
}
