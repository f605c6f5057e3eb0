#include "modulation/modulation_commands.h"

#include "link/activity.h"
#include "link/pause.h"
#include "link/scpi_session.h"
#include "modulation/settling.h"
#include "ui/indicator.h"

#include <QLineEdit>
#include <QPushButton>

#include <iterator>

namespace
{
/// What differs between the commands of the three.
struct ModulationRow {
    const char* levelFormat;
    bool isLevelBeforeRate;
};
constexpr ModulationRow modulationRows[] = {
    {"AM %lf;AM?", false},
    {"FM %lf Hz;FM?", true},
    {"PM %lf;PM?", false},
};
static_assert(std::size(modulationRows) == modulations.size());
/// The order in which the three are checked for the one that is on.
constexpr std::array<Modulation, modulations.size()> askingOrder = {Modulation::Am, Modulation::Pm,
                                                                    Modulation::Fm};

// Of each modulation, behind its name.
const QString restoredOnSuffix = QStringLiteral(":STAT ON");
const QString stateSuffix = QStringLiteral(":STATe");
const QString onWord = QStringLiteral(" ON");
const QString offWord = QStringLiteral(" OFF");
const QString internalSuffix = QStringLiteral(":SOUR INT");
const QString externalSuffix = QStringLiteral(":SOUR EXT");
const QString rateSuffix = QStringLiteral(":INT:FUNC:FREQ");
const QString dutySuffix = QStringLiteral(":INT:FUNC:SHAP:SQU:DUTY");
const QString hertzUnit = QStringLiteral(" Hz");

const struct {
    const char* shapeSuffix;
    const char* directionSuffix; ///< of a ramp
} shapeSuffixes[] = {
    // In the order of WaveShape.
    {":INT:FUNC:SHAP SIN", nullptr},
    {":INT:FUNC:SHAP RAMP", ":INT:FUNC:SHAP:RAMP POS"},
    {":INT:FUNC:SHAP RAMP", ":INT:FUNC:SHAP:RAMP NEG"},
    {":INT:FUNC:SHAP TRI", nullptr},
    {":INT:FUNC:SHAP RAND", nullptr},
    {":INT:FUNC:SHAP SQU", nullptr},
};
static_assert(std::size(shapeSuffixes) == modulationShapeCount);

const ModulationRow& rowOf(Modulation modulation)
{
    return modulationRows[static_cast<std::size_t>(modulation)];
}
} // namespace

ModulationCommands::ModulationCommands(ScpiSession& session, Modulat& panel,
                                       const Indicators& indicators, QObject* parent)
    : QObject(parent), m_session(session), m_panel(panel), m_indicators(indicators),
      m_exchange(session), m_pulse(session, panel, indicators.pulse)
{
    connect(&m_pulse, &PulseCommands::switchedOn, this, &ModulationCommands::switchedOn);
    wireButtons();
    wireFields();
    connect(&panel, &Modulat::lampsChanged, this, &ModulationCommands::showLampWords);
    showIndicators();
    showLampWords();
}

void ModulationCommands::wireButtons()
{
    using Self = ModulationCommands;
    const struct {
        QPushButton* button;
        void (Self::*slot)();
    } clicks[] = {
        {m_panel.stateButton(Modulation::Am), &Self::on_AM_clicked},
        {m_panel.stateButton(Modulation::Fm), &Self::on_FM_clicked},
        {m_panel.stateButton(Modulation::Pm), &Self::on_PM_clicked},
        {m_panel.group(Modulation::Am).source(), &Self::switchExtInt_AM_FM_PM},
        {m_panel.group(Modulation::Fm).source(), &Self::switchExtInt_AM_FM_PM},
        {m_panel.group(Modulation::Pm).source(), &Self::switchExtInt_AM_FM_PM},
    };
    for (const auto& row : clicks)
        connect(row.button, &QAbstractButton::clicked, this, row.slot);
    for (const Modulation modulation : modulations) {
        for (int i = 0; i < modulationShapeCount; ++i) {
            const auto shape = static_cast<WaveShape>(i);
            connect(m_panel.group(modulation).shapeButton(shape), &QAbstractButton::clicked, this,
                    [this, modulation, shape] { sendClickedShape(modulation, shape); });
        }
    }
}

void ModulationCommands::wireFields()
{
    using Self = ModulationCommands;
    const ModulationGroup& am = m_panel.group(Modulation::Am);
    const ModulationGroup& fm = m_panel.group(Modulation::Fm);
    const ModulationGroup& pm = m_panel.group(Modulation::Pm);
    const struct {
        QLineEdit* field;
        void (Self::*slot)();
    } fields[] = {
        {am.rate().field, &Self::line_Ampl_1_Finished},
        {am.level().field, &Self::line_Ampl_2_Finished},
        {am.duty().field, &Self::on_percentLine_Ampl_editingFinished},
        {fm.rate().field, &Self::line_FREQ_1_Finished},
        {fm.level().field, &Self::line_FREQ_2_Finished},
        {fm.duty().field, &Self::on_percentLine_FREQ_editingFinished},
        {pm.rate().field, &Self::line_Phase_1_Finished},
        {pm.level().field, &Self::on_line_Phase_2_editingFinished},
        {pm.duty().field, &Self::on_percentLine_Phase_editingFinished},
    };
    for (const auto& row : fields)
        connect(row.field, &QLineEdit::editingFinished, this, row.slot);
}

std::optional<Modulation> ModulationCommands::checkedModulation() const
{
    for (const Modulation modulation : askingOrder) {
        if (m_panel.stateButton(modulation)->isChecked())
            return modulation;
    }
    return std::nullopt;
}

bool ModulationCommands::isInternalOn(Modulation modulation) const
{
    const ModulationGroup& group = m_panel.group(modulation);
    return group.state()->isChecked() && !group.isExternal();
}

void ModulationCommands::showIndicators()
{
    m_indicators.amPmFm.clear();
    if (const std::optional<Modulation> modulation = checkedModulation())
        showIcon(m_indicators.amPmFm, m_panel.stateButton(*modulation));
    m_pulse.showIndicator();
}

/// The words are the buttons' and the fields', whether the lamp is lit or not.
void ModulationCommands::showLampWords()
{
    m_indicators.amPmFm.setWords(m_panel.lampWords());
    m_indicators.pulse.setWords(m_panel.pulseLampWords());
}

void ModulationCommands::update_Modulation()
{
    showIndicators();
    m_panel.update_AM_PM_FM();
}

void ModulationCommands::switchClicked(Modulation modulation)
{
    const std::unique_ptr<Activity> going = settingModulation(m_session);
    const int run = ++m_switchRun;
    const int setup = ++m_setupRun;
    if (m_panel.stateButton(modulation)->isChecked()) {
        for (const Modulation other : modulations) {
            QPushButton* button = m_panel.stateButton(other);
            if (other == modulation || !button->isChecked())
                continue;
            button->setChecked(false);
            if (!switch_ImageText_commandExtInt(other, run))
                return;
        }
    }
    if (switch_ImageText_commandExtInt(modulation, run) && isInternalOn(modulation))
        pauseAndSetUp(modulation, setup);
}

/// Switches one of the three to what its button says. False when the sequence is over: there is a
/// newer one, or the program ends.
bool ModulationCommands::switch_ImageText_commandExtInt(Modulation modulation, int run)
{
    const ModulationGroup& group = m_panel.group(modulation);
    const bool isOn = group.state()->isChecked();
    showIcon(m_indicators.amPmFm, group.state());
    if (isOn)
        emit switchedOn();
    if (!m_session.isConnected())
        return true;
    if (!isOn)
        m_isOffPending[static_cast<std::size_t>(modulation)] = true;
    if (!pause(settleMs))
        return false;
    sendPendingOff();
    if (run != m_switchRun)
        return false;
    if (isOn && group.state()->isChecked() && m_session.isConnected()) {
        m_session.write(group.name() + stateSuffix + onWord);
        if (group.isExternal())
            m_session.write(group.name() + externalSuffix);
    }
    return true;
}

/// The first sequence to wake up sends all of them: a newer one ends before the one it interrupted,
/// and what is unchecked has to be off before something else is switched on.
void ModulationCommands::sendPendingOff()
{
    for (const Modulation modulation : modulations) {
        bool& isPending = m_isOffPending[static_cast<std::size_t>(modulation)];
        const ModulationGroup& group = m_panel.group(modulation);
        if (isPending && m_session.isConnected() && !group.state()->isChecked())
            m_session.switchOff(group.name() + stateSuffix + offWord);
        isPending = false;
    }
}

void ModulationCommands::switchExtInt_AM_FM_PM()
{
    const std::optional<Modulation> modulation = checkedModulation();
    if (!modulation)
        return;
    const std::unique_ptr<Activity> going = settingModulation(m_session);
    const int setup = ++m_setupRun;
    const ModulationGroup& group = m_panel.group(*modulation);
    if (!group.isExternal())
        pauseAndSetUp(*modulation, setup);
    else if (m_session.isConnected())
        m_session.write(group.name() + externalSuffix);
}

void ModulationCommands::pauseAndSetUp(Modulation modulation, int setup)
{
    if (setup != m_setupRun || !m_session.isConnected())
        return;
    const bool isGoingOn = pause(settleMs) && setup == m_setupRun && m_session.isConnected();
    if (isGoingOn && isInternalOn(modulation))
        setUpInternalSource(modulation);
}

void ModulationCommands::setUpInternalSource(Modulation modulation)
{
    m_session.write(m_panel.group(modulation).name() + internalSuffix);
    sendShape(modulation, m_panel.checkedShape(modulation));
    sendValues(modulation);
}

void ModulationCommands::sendValues(Modulation modulation)
{
    if (rowOf(modulation).isLevelBeforeRate) {
        sendLevel(modulation);
        sendRate(modulation);
    } else {
        sendRate(modulation);
        sendLevel(modulation);
    }
    sendDuty(modulation);
}

void ModulationCommands::sendClickedShape(Modulation modulation, WaveShape shape)
{
    sendShape(modulation, shape);
    sendRate(modulation);
}

void ModulationCommands::sendShape(Modulation modulation, WaveShape shape)
{
    const auto& row = shapeSuffixes[static_cast<std::size_t>(shape)];
    for (const char* suffix : {row.shapeSuffix, row.directionSuffix}) {
        if (suffix && m_session.isConnected())
            m_session.writeChecked(m_panel.group(modulation).name() + QLatin1String(suffix));
    }
}

void ModulationCommands::sendRate(Modulation modulation)
{
    const ModulationGroup& group = m_panel.group(modulation);
    const QString header = group.name() + rateSuffix;
    m_exchange.writeAndShow({header + QLatin1Char(' '), hertzUnit, header + QLatin1Char('?')},
                            *group.rate().field);
}

void ModulationCommands::sendLevel(Modulation modulation)
{
    m_exchange.setAndShow(rowOf(modulation).levelFormat, *m_panel.group(modulation).level().field);
}

void ModulationCommands::sendDuty(Modulation modulation)
{
    const ModulationGroup& group = m_panel.group(modulation);
    const QString header = group.name() + dutySuffix;
    m_exchange.writeAndShow({header + QLatin1Char(' '), QString(), header + QLatin1Char('?')},
                            *group.duty().field);
}

void ModulationCommands::restore()
{
    const std::optional<Modulation> modulation = checkedModulation();
    const bool isPulseOn = m_panel.pulse()->isChecked();
    if (!m_session.isConnected())
        return;
    if (!modulation) {
        if (isPulseOn)
            m_pulse.send();
        return;
    }
    if (isPulseOn)
        m_pulse.restoreOn();
    m_session.write(m_panel.group(*modulation).name() + restoredOnSuffix);
    if (isPulseOn)
        m_pulse.restoreValues();
    if (!isInternalOn(*modulation))
        return;
    if (*modulation == Modulation::Pm) {
        const ValueRow& duty = m_panel.group(*modulation).duty();
        duty.field->setText(duty.caption->text());
    }
    sendValues(*modulation);
}

void ModulationCommands::switchEverythingOff(bool isAnimated)
{
    const int pulseRun = m_pulse.run();
    sendPendingOff();
    if (!checkedModulation() && !m_panel.pulse()->isChecked())
        return;
    for (const Modulation modulation : modulations) {
        QPushButton* button = m_panel.stateButton(modulation);
        if (!button->isChecked())
            continue;
        // A disabled button takes no click.
        const int run = m_switchRun + (button->isEnabled() ? 1 : 0);
        button->click();
        if (m_session.isConnected() && !pause(settleMs))
            return;
        if (run != m_switchRun)
            return;
    }
    if (m_panel.pulse()->isChecked() && pulseRun == m_pulse.run())
        m_pulse.switchOff();
    for (const Modulation modulation : modulations)
        m_panel.collapse(modulation, isAnimated);
    for (const Modulation modulation : modulations) {
        const ModulationGroup& group = m_panel.group(modulation);
        if (!group.state()->isChecked())
            continue;
        if (m_session.isConnected())
            m_session.switchOff(group.name() + stateSuffix + offWord);
        group.state()->setChecked(false);
        m_indicators.amPmFm.clear();
    }
}
