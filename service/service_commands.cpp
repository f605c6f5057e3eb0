#include "service/service_commands.h"

#include "connection/connection.h"
#include "fields/number_edit.h"
#include "link/activity.h"
#include "link/notices.h"
#include "link/pause.h"
#include "link/scpi_session.h"
#include "numbers/field_kind.h"
#include "numbers/number_text.h"
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
#include <QPushButton>
#include <QScopeGuard>

#include <algorithm>
#include <iterator>

namespace
{
constexpr int pauseMs = 100;
/// Many more than a reply can hold: a larger count is invalid.
constexpr double mostPoints = 100000;

const QString pointCountQuery = QStringLiteral("MEM:TABLE:POIN?");
const QString allPointsQuery = QStringLiteral("MEM:TABLE:POINt:ALL?");
const QString addPointCommand = QStringLiteral("MEM:TABLE:ADD %1 %2");
const QString saveTableCommand = QStringLiteral("MEM:TABLE:SAVE");
const QString dacCommand = QStringLiteral("MEM:DAC ");
const QString dacQuery = QStringLiteral("MEM:DAC?");
const QString temperatureQuery = QStringLiteral("TEMP?");
} // namespace

ServiceCommands::ServiceCommands(ScpiSession& session, service& panel, Notices& notices,
                                 QObject* parent)
    : QObject(parent), m_session(session), m_panel(panel), m_notices(notices)
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
    // In this order.
    const QVector<StatusWords> failures{readTable(), queryDac(), queryTemperature()};
    report(failures);
}

void ServiceCommands::reloadTable()
{
    if (m_isBusy)
        return;
    if (m_session.isConnected())
        report({readTable()});
    else
        m_notices.sayOfInstrument([] { return tr("No instrument is connected"); });
}

/// Shows everything that could not be read in one notice: the status line shows one at a time.
void ServiceCommands::report(const QVector<StatusWords>& failures)
{
    QVector<StatusWords> said;
    std::copy_if(failures.begin(), failures.end(), std::back_inserter(said),
                 [](const StatusWords& words) { return words != nullptr; });
    if (said.isEmpty())
        return;
    m_notices.sayOfInstrument([said] {
        QStringList texts;
        for (const StatusWords& words : said)
            texts << words();
        return texts.join(QStringLiteral("; "));
    });
}

// Each returns what failed; nothing on success or while disconnected.

StatusWords ServiceCommands::readTable()
{
    if (!m_session.isConnected())
        return nullptr;
    m_isBusy = true;
    const Activity activity([] { return tr("Reading the calibration table"); });
    m_panel.setState(service::State::Loading);
    // The label is painted before the wire blocks.
    QCoreApplication::processEvents();
    const bool isRead = !m_session.isConnected() || queryTable();
    m_panel.setState(service::State::Ready);
    m_isBusy = false;
    if (isRead)
        return nullptr;
    return [] { return tr("error get calibrate"); };
}

/// False when the table could not be read; the one shown then stays.
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
        m_notices.sayOfInstrument(
            [] { return tr("The instrument sent more numbers than it has calibration points"); });
    else if (numbers.size() < expected)
        m_notices.sayOfInstrument(
            [] { return tr("The instrument sent fewer numbers than it has calibration points"); });
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
    if (const StatusWords complaint = m_panel.table().firstComplaint()) {
        m_notices.sayOfInstrument(complaint);
        return;
    }
    m_notices.sayOfInstrument([] { return QString(); });
    m_isBusy = true;
    m_isStopped = false;
    const bool isKept = keepAsRead();
    m_isRefused = false;
    const bool isWritten = isKept && m_session.isConnected() && writeTable();
    m_isBusy = false;
    // The instrument's errors have been reported already.
    if (!isKept || !m_session.isConnected() || m_isRefused)
        return;
    if (!isWritten)
        m_notices.sayOfInstrument(
            [] { return tr("Writing was stopped: the stored table is unchanged"); });
    else if (m_keptAs.isEmpty())
        m_notices.sayDone([] { return tr("The calibration table is stored in the instrument"); },
                          Notice::About::Instrument);
    else
        m_notices.sayDone(
            [name = m_keptAs] {
                return tr("The calibration table is stored in the instrument; the table read "
                          "before is saved as %1")
                    .arg(name);
            },
            Notice::About::Instrument);
}

/// Saves the table that was read before it is overwritten: once, and only if there was one. False
/// when it could not be saved.
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
        m_notices.sayOfInstrument(
            [] { return tr("Nothing was written: the table read before was not saved"); });
    else
        emit errorMessage(tr("Nothing was written: the table read before could not be saved as "
                             "%1: %2")
                              .arg(QDir::toNativeSeparators(path), written.detail()));
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
        m_notices.sayOfInstrument([name] { return tr("Not opened: %1").arg(name); });
    } else if (read.fault != FileFault::None) {
        emit errorMessage(tr("%1 cannot be opened: %2").arg(name, read.detail()));
    } else if (read.strangeLine > 0) {
        emit errorMessage(tr("%1 is not a backup of a calibration table: line %2 is not a "
                             "frequency and a whole number")
                              .arg(name)
                              .arg(read.strangeLine));
    } else {
        m_panel.showOtherPoints(read.points);
        const int changed = m_panel.table().changedRows();
        const bool isOwn = name.startsWith(backupPrefix(m_panel.serial()) + QLatin1Char(' '));
        m_notices.sayOfInstrument([name, changed, isOwn] {
            return (isOwn ? tr("%1: rows that differ from what was read: %2")
                          : tr("%1 may be another instrument's; rows that differ from what "
                               "was read: %2"))
                .arg(name)
                .arg(changed);
        });
    }
}

void ServiceCommands::stopWriting()
{
    m_isStopped = true;
}

/// False when it was stopped, or the connection was lost.
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

StatusWords ServiceCommands::queryDac()
{
    if (!m_session.isConnected())
        return nullptr;
    const QString reply = m_session.query(dacQuery);
    bool isNumber = false;
    withoutBlanks(reply).toDouble(&isNumber);
    if (m_session.lastFailed() || !isNumber)
        return [] { return tr("error getting dac"); };
    // As a whole number: the field accepts no sign, which a reply may have.
    m_panel.showDac(displayText(reply, FieldKind::DacValue));
    return nullptr;
}

void ServiceCommands::readTemperature()
{
    report({queryTemperature()});
}

StatusWords ServiceCommands::queryTemperature()
{
    if (!m_session.isConnected())
        return nullptr;
    const ExchangeLog::As polling(m_session.log(), Exchange::Kind::Polling);
    const QString reply = m_session.read(temperatureQuery);
    if (m_session.lastFailed())
        return [] { return tr("error getting temperature"); };
    m_panel.showTemperature(toNumber(reply));
    return nullptr;
}

void ServiceCommands::sendCommandRefOsc()
{
    NumberEdit& field = m_panel.referenceDac();
    if (!field.takeNumber() || !m_session.isConnected())
        return;
    const QString value = field.text();
    if (m_session.writeChecked(dacCommand + value))
        field.showAccepted(value);
}

void ServiceCommands::on_REF_OSC_returnPressed()
{
    sendCommandRefOsc();
}
