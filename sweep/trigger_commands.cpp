#include "sweep/trigger_commands.h"

#include "link/scpi_session.h"
#include "sweep/list/point_table.h"
#include "sweep/list_panel.h"
#include "sweep/trigger_group.h"
#include "ui/progress_bar_for_table.h"

#include <QPushButton>

namespace
{
const QString immediateCommand = QStringLiteral("TRIG:SOUR IMM");
const QString externalCommand = QStringLiteral("TRIG:SOUR EXT");
const QString busCommand = QStringLiteral("TRIG:SOUR BUS");
const QString risingCommand = QStringLiteral("TRIG:SLOP POS");
const QString fallingCommand = QStringLiteral("TRIG:SLOP NEG");
const QString allPointsCommand = QStringLiteral("LIST:MODE AUTO");
const QString onePointCommand = QStringLiteral("LIST:MODE MAN");
const QString continuousCommand = QStringLiteral("INIT:CONT ON");
const QString singleCommand = QStringLiteral("INIT:CONT OFF");
const QString upCommand = QStringLiteral("LIST:MAN UP");
const QString downCommand = QStringLiteral("LIST:MAN DOWN");
const QString pointCommand = QStringLiteral("LIST:MAN %1");
} // namespace

TriggerCommands::TriggerCommands(ScpiSession& session, List& panel, QAbstractButton& pulse,
                                 QObject* parent)
    : QObject(parent), m_session(session), m_panel(panel), m_pulse(pulse)
{
    for (const QPushButton* button :
         {&m_panel.trigger().previousPoint(), &m_panel.trigger().nextPoint()})
        connect(button, &QAbstractButton::clicked, this,
                &TriggerCommands::sharedCommand_List_Sweep);
    connect(&m_panel.trigger().continuousMode(), &QAbstractButton::toggled, this,
            &TriggerCommands::setUpContinuousMode);
    connect(&m_panel.trigger().allPointsMode(), &QAbstractButton::toggled, this,
            [this](bool isAllPoints) { slotModeIntFront(!isAllPoints); });
    connect(&m_panel, &List::triggerChosen, this, &TriggerCommands::choiceChanged);
    connect(&m_panel, &List::pointChosen, this, &TriggerCommands::pointChosen);
}

void TriggerCommands::setUpTrigger()
{
    switch (m_panel.trigger().choice()) {
    case TriggerChoice::FreeRun:
        m_session.writeChecked(immediateCommand);
        break;
    case TriggerChoice::ExternalRising:
        setUpExternal(risingCommand);
        break;
    case TriggerChoice::ExternalFalling:
        setUpExternal(fallingCommand);
        break;
    case TriggerChoice::Manual:
        prepareManual();
        break;
    }
}

void TriggerCommands::setUpExternal(const QString& slopeCommand)
{
    if (m_pulse.isChecked()) {
        m_pulse.click();
        emit pulseExcluded();
    }
    if (!m_session.isConnected())
        return;
    m_session.write(slopeCommand);
    m_session.write(advanceCommand(!m_panel.trigger().allPointsMode().isChecked()));
    m_session.writeChecked(externalCommand);
}

void TriggerCommands::prepareManual()
{
    if (m_isManualPrepared)
        return;
    m_session.write(busCommand);
    m_session.writeChecked(onePointCommand);
    m_isManualPrepared = true;
}

void TriggerCommands::setUpContinuousMode()
{
    if (isRunConnected() && !progressBarForTable::liesWithin(*m_panel.window()))
        m_session.writeChecked(m_panel.trigger().continuousMode().isChecked() ? continuousCommand
                                                                              : singleCommand);
}

void TriggerCommands::sharedCommand_List_Sweep()
{
    if (!isRunConnected() || progressBarForTable::liesWithin(m_panel.table()))
        return;
    const QString name = sender() ? sender()->objectName() : QString();
    setUpTrigger();
    if (m_panel.runSweep().isChecked() && m_isManualPrepared && m_session.isConnected()) {
        const bool isUp = name == m_panel.trigger().nextPoint().objectName();
        if (isUp || name == m_panel.trigger().previousPoint().objectName()) {
            if (m_session.writeChecked(isUp ? upCommand : downCommand))
                emit stepped(isUp ? 1 : -1);
        }
    }
    emit refreshWanted();
}

void TriggerCommands::dowloadPointList(int number)
{
    if (!m_session.isConnected() || !m_panel.runList().isChecked())
        return;
    if (m_session.writeChecked(pointCommand.arg(number)))
        emit movedTo(number);
    else
        m_panel.forgetChosenPoint();
}

void TriggerCommands::slotModeIntFront(bool isManual)
{
    if (isRunConnected())
        m_session.writeChecked(advanceCommand(isManual));
}

/// How the points advance. Running through all of them ends manual stepping, which has to be
/// prepared again.
QString TriggerCommands::advanceCommand(bool isManual)
{
    if (!isManual)
        m_isManualPrepared = false;
    return isManual ? onePointCommand : allPointsCommand;
}

/// Another trigger was chosen: a run that is on follows at once, one that still loads its table
/// uses it when it starts.
void TriggerCommands::choiceChanged()
{
    if (!isRunConnected() || progressBarForTable::liesWithin(m_panel.table()))
        return;
    if (m_panel.trigger().choice() != TriggerChoice::Manual)
        m_isManualPrepared = false;
    setUpTrigger();
}

/// A row was chosen. Only a list that is stepped by hand goes there.
void TriggerCommands::pointChosen(int number)
{
    if (m_panel.trigger().choice() != TriggerChoice::Manual ||
        progressBarForTable::liesWithin(m_panel.table()))
        return;
    // The instrument refuses a point while it runs through all of them.
    if (m_session.isConnected() && m_panel.runList().isChecked())
        prepareManual();
    dowloadPointList(number);
}

bool TriggerCommands::isRunConnected() const
{
    return m_session.isConnected() && m_panel.isRunning();
}
