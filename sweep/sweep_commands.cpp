#include "sweep/sweep_commands.h"

#include "fields/number_edit.h"
#include "fields/power_guard.h"
#include "link/cw_formats.h"
#include "link/notices.h"
#include "link/scpi_session.h"
#include "numbers/number_text.h"
#include "sweep/list/point_table.h"
#include "sweep/list_panel.h"
#include "sweep/list_transfer.h"
#include "sweep/panel_wait_cursor.h"
#include "sweep/sweep_group.h"
#include "sweep/trigger_commands.h"

#include <QPushButton>
#include <QScopedValueRollback>

namespace
{
// Start and stop are sent without a unit, and powers as they stand.
const QString pointsCommand = QStringLiteral("SWEep:POINts ");
const QString frequencyCommand = QStringLiteral("FREQ ");
const QString hertzUnit = QStringLiteral(" Hz");
const QString startFrequencyCommand = QStringLiteral("FREQ:START ");
const QString stopFrequencyCommand = QStringLiteral("FREQ:STOP ");
const QString powerCommand = QStringLiteral("POW ");
const QString startPowerCommand = QStringLiteral("POW:START ");
const QString stopPowerCommand = QStringLiteral("POW:STOP ");
const QString dwellCommand = QStringLiteral("SWEep:DWELl ");

const QString fixedFrequencyCommand = QStringLiteral("FREQ:MODE FIX");
const QString fixedPowerCommand = QStringLiteral("POW:MODE FIX");
const QString initiateCommand = QStringLiteral("INIT:IMM");
const QStringList powerSweepStart = {QStringLiteral("POW:MODE SWE"), fixedFrequencyCommand,
                                     initiateCommand, QStringLiteral("*TRG")};
const QStringList frequencySweepStart = {QStringLiteral("FREQ:MODE SWE"), fixedPowerCommand,
                                         initiateCommand, QStringLiteral("*TRG")};
const QStringList listStart = {QStringLiteral("FREQ:MODE LIST"), QStringLiteral("POW:MODE LIST"),
                               initiateCommand};
const QString singleCommand = QStringLiteral("INIT:CONT OFF");
const QString abortSweepCommand = QStringLiteral("ABORt");
const QString abortListCommand = QStringLiteral("*ABORt");
} // namespace

SweepCommands::SweepCommands(ScpiSession& session, List& panel, TriggerCommands& triggers,
                             ListTransfer& transfer, PowerGuard& guard, Notices& notices,
                             const CwWidgets& cw, QObject* parent)
    : QObject(parent), m_session(session), m_panel(panel), m_triggers(triggers),
      m_transfer(transfer), m_guard(guard), m_notices(notices), m_cw(cw)
{
    connect(&m_guard, &PowerGuard::ceilingChanged, this, &SweepCommands::holdCeiling);
    connect(&m_panel.runSweep(), &QAbstractButton::toggled, this, &SweepCommands::CommandSweep);
    connect(&m_panel.runList(), &QAbstractButton::toggled, this, &SweepCommands::CommandList);
    connect(&m_session, &ScpiSession::errorReported, this, [this](const InstrumentError& error) {
        if (m_isSettingUp && m_panel.isRunning() && !m_refusal)
            m_refusal = error;
    });
}

QPushButton& SweepCommands::runButton(Mode mode) const
{
    return mode == Mode::List ? m_panel.runList() : m_panel.runSweep();
}

void SweepCommands::command(Mode mode)
{
    if (m_isRefusing)
        return;
    QPushButton& button = runButton(mode);
    if (m_session.isConnected() && button.isChecked() && !canRun(mode)) {
        const QScopedValueRollback<bool> refusing(m_isRefusing, true);
        button.setChecked(false);
        return;
    }
    QPushButton& other = runButton(mode == Mode::List ? Mode::Sweep : Mode::List);
    if (m_session.isConnected() && button.isChecked() && other.isChecked())
        other.click();
    enableCw(!m_session.isConnected() || !button.isChecked());
    if (!button.isChecked())
        endRun();
    if (!m_session.isConnected()) {
        if (button.isChecked())
            button.click();
    } else if (button.isChecked()) {
        request(mode);
    } else if (m_isPending) {
        m_isPending = false;
        m_guard.cancel();
    } else {
        stop(mode);
    }
}

double SweepCommands::topDbm(Mode mode) const
{
    return mode == Mode::List ? m_panel.listTopDbm() : m_panel.sweepTopDbm();
}

/// Starts a run with these powers, once the user has agreed.
void SweepCommands::request(Mode mode)
{
    const int run = ++m_run;
    m_isPending = true;
    const auto letGo = [this, mode] { runButton(mode).setChecked(false); };
    if (m_guard.isAboveCeiling(topDbm(mode))) {
        letGo();
        sayAboveCeiling(mode);
        return;
    }
    const auto agreed = [this, run, mode] {
        if (isWanted(run, mode))
            start(run, mode);
    };
    if (!m_guard.ask(m_cw.power.acceptedValue(), topDbm(mode), agreed, letGo))
        start(run, mode);
}

void SweepCommands::sayAboveCeiling(Mode mode)
{
    const QString ceiling = QString::number(*m_guard.ceilingDbm());
    if (mode == Mode::Sweep) {
        m_notices.sayOfInstrument([ceiling] {
            return tr("Sweep not run: above the highest power of %1 dBm").arg(ceiling);
        });
        return;
    }
    const int row = m_panel.table().markAboveCeiling();
    m_panel.table().setCurrentCell(row, PointTable::Power);
    m_notices.sayOfInstrument([row, ceiling] {
        return tr("List not run: row %1 is above the highest power of %2 dBm")
            .arg(QString::number(row + 1), ceiling);
    });
}

/// Stops a run above a highest level that has just been lowered.
void SweepCommands::holdCeiling()
{
    for (const Mode mode : {Mode::Sweep, Mode::List}) {
        if (!runButton(mode).isChecked() || !m_guard.isAboveCeiling(m_topDbm))
            continue;
        runButton(mode).click();
        m_notices.sayOfInstrument([ceiling = *m_guard.ceilingDbm()] {
            return tr("Run ended: above the highest power of %1 dBm").arg(ceiling);
        });
    }
}

/// For cells without a power that of the main window is sent.
bool SweepCommands::canRun(Mode mode)
{
    if (mode == Mode::Sweep)
        return m_panel.canRunSweep();
    return m_panel.canRunList() &&
           (!m_panel.table().hasEmptyCell(PointTable::Power) || m_cw.power.takeNumber());
}

void SweepCommands::enableCw(bool isEnabled)
{
    m_cw.frequency.setEnabled(isEnabled);
    m_cw.power.setEnabled(isEnabled);
    for (QWidget* widget : m_cw.others)
        widget->setEnabled(isEnabled);
}

bool SweepCommands::isWanted(int run, Mode mode) const
{
    return run == m_run && m_session.isConnected() && runButton(mode).isChecked();
}

/// Continues a start. If the instrument has refused a part of the set-up, the run is stopped
/// instead.
bool SweepCommands::goesOn(int run, Mode mode)
{
    if (!isWanted(run, mode))
        return false;
    if (!m_refusal)
        return true;
    const InstrumentError refusal = *m_refusal;
    ++m_run;
    m_isSettingUp = false;
    runButton(mode).click();
    m_notices.sayOfInstrument([mode, refusal] {
        const QString words = errorWords(refusal);
        return mode == Mode::List ? tr("The list does not run: %1").arg(words)
                                  : tr("The sweep does not run: %1").arg(words);
    });
    return false;
}

/// Whether the run is still what the start was agreed to: it could be changed in the pauses. If
/// not, it is let go, or requested anew.
bool SweepCommands::isAsAgreed(Mode mode)
{
    if (!canRun(mode)) {
        m_isPending = true;
        runButton(mode).setChecked(false);
        return false;
    }
    const bool isLouder = topDbm(mode) > m_topDbm;
    if (isLouder)
        request(mode);
    return !isLouder;
}

void SweepCommands::start(int run, Mode mode)
{
    m_isPending = false;
    m_topDbm = topDbm(mode);
    const Activity activity(
        [mode] { return mode == Mode::List ? tr("Starting the list") : tr("Starting the sweep"); });
    m_transfer.abandon();
    emit runStarting();
    if (!isWanted(run, mode) || !isAsAgreed(mode))
        return;
    m_triggers.forgetPreparation();
    m_refusal.reset();
    m_isSettingUp = true;
    if (mode == Mode::Sweep)
        sendSweep();
    else if (!m_transfer.transferTable())
        return;
    const bool hasStarted = startPrepared(run, mode);
    m_isSettingUp = m_isSettingUp && run != m_run;
    if (hasStarted) {
        m_isStarted = true;
        emit runStarted();
    }
    // Stopped while the table was loading: that stop was sent between the lists. Now they are
    // complete.
    if (mode == Mode::List && run == m_run && m_session.isConnected() &&
        !runButton(mode).isChecked())
        stop(mode);
}

/// Starts the run that has been sent. False when it is not wanted any more.
bool SweepCommands::startPrepared(int run, Mode mode)
{
    if (!goesOn(run, mode))
        return false;
    m_triggers.setUpTrigger();
    if (!goesOn(run, mode))
        return false;
    m_triggers.setUpContinuousMode();
    if (!goesOn(run, mode))
        return false;
    const QStringList& sweepStart =
        m_panel.sweep().isPowerSweep() ? powerSweepStart : frequencySweepStart;
    for (const QString& text : mode == Mode::List ? listStart : sweepStart)
        m_session.write(text);
    return true;
}

void SweepCommands::sendSweep()
{
    const PanelWaitCursor busy(m_panel);
    const QStringList commands = sweepCommands();
    for (const QString& text : commands) {
        m_session.writeChecked(text);
        if (!m_session.isConnected())
            return;
    }
}

QStringList SweepCommands::sweepCommands() const
{
    const SweepTexts texts = m_panel.sweep().texts();
    QStringList commands = {pointsCommand + withoutBlanks(texts.points)};
    if (texts.isPowerSweep)
        commands << frequencyCommand + withoutBlanks(texts.fixedValue) + hertzUnit
                 << startPowerCommand + texts.start << stopPowerCommand + texts.stop;
    else
        commands << powerCommand + texts.fixedValue
                 << startFrequencyCommand + withoutBlanks(texts.start)
                 << stopFrequencyCommand + withoutBlanks(texts.stop);
    commands << dwellCommand + secondsText(texts.dwellUs);
    return commands;
}

void SweepCommands::stop(Mode mode)
{
    for (const QString& text :
         {singleCommand, mode == Mode::List ? abortListCommand : abortSweepCommand,
          fixedFrequencyCommand, fixedPowerCommand}) {
        m_session.switchOffChecked(text);
        if (!m_session.isConnected())
            return;
    }
    restoreCw();
}

void SweepCommands::restoreCw()
{
    m_cw.frequency.takeNumber();
    m_cw.power.takeNumber();
    if (readsAsNumber(m_cw.frequency.text())) {
        m_cw.frequency.showAnswer(
            m_session.setAndReadBack(frequencyFormat, m_cw.frequency.value()));
        m_session.checkErrors();
    }
    if (!m_session.isConnected() || !readsAsNumber(m_cw.power.text()))
        return;
    // Whole dB only: any other text is 0 dBm.
    const auto powerDbm = static_cast<double>(toWholeNumber(m_cw.power.text()));
    m_cw.power.showAnswer(m_session.setAndReadBack(powerFormat, powerDbm));
    m_session.checkErrors();
}

void SweepCommands::endRun()
{
    if (!m_isStarted)
        return;
    m_isStarted = false;
    emit runStopped();
}

void SweepCommands::connectionLost()
{
    m_isPending = false;
    m_transfer.abandon();
    for (const Mode mode : {Mode::Sweep, Mode::List})
        runButton(mode).setChecked(false);
}
