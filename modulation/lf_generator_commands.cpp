#include "modulation/lf_generator_commands.h"

#include "link/activity.h"
#include "link/pause.h"
#include "link/scpi_session.h"
#include "modulation/generator.h"
#include "modulation/settling.h"
#include "ui/indicator.h"

#include <QPushButton>

#include <iterator>

namespace
{
const QString onCommand = QStringLiteral("LFO:STAT ON");
const QString offCommand = QStringLiteral("LFO:STAT OFF");
const FieldExchange::TwoStep frequencyTexts = {
    QStringLiteral("LFO:FUNC:FREQ "), QStringLiteral(" Hz"), QStringLiteral("LFO:FUNC:FREQ?")};
constexpr char frequencyFormat[] = "LFO:FUNC:FREQ %lf Hz;FREQ?";
constexpr char amplitudeFormat[] = "LFO:AMPLitude %lf;AMPLitude?";
constexpr char dutyFormat[] = "LFO:FUNC:SHAP:SQU:DUTY %lf;DUTY?";

const char rampCommand[] = "LFO:FUNC:SHAP RAMP";
using Self = LfGeneratorCommands;
const struct {
    bool pausesBefore; ///< when clicked
    void (Self::*slot)();
    const char* shapeCommand;
    const char* directionCommand; ///< of a ramp
} shapeCommands[] = {
    // In the order of WaveShape.
    {true, &Self::Gen_Sine, "LFO:FUNC:SHAP SIN", nullptr},
    {true, &Self::Gen_SawPos, rampCommand, "LFO:FUNC:SHAP:RAMP POS"},
    {true, &Self::Gen_SawNeg, rampCommand, "LFO:FUNC:SHAP:RAMP NEG"},
    {true, &Self::Gen_Train, "LFO:FUNC:SHAP TRI", nullptr},
    {true, &Self::Gen_Rand, "LFO:FUNC:SHAP RAND", nullptr},
    {false, &Self::Gen_Rect, "LFO:FUNC:SHAP SQU", nullptr},
    {false, &Self::Gen_Dc, "LFO:FUNC:SHAP DC", nullptr},
};
static_assert(std::size(shapeCommands) == shapeCount);
} // namespace

LfGeneratorCommands::LfGeneratorCommands(ScpiSession& session, generator& panel,
                                         Indicator& indicator, QObject* parent)
    : QObject(parent), m_session(session), m_panel(panel), m_indicator(indicator),
      m_exchange(session)
{
    wire();
    update_Generator();
}

void LfGeneratorCommands::wire()
{
    for (int i = 0; i < shapeCount; ++i)
        connect(m_panel.shapeButton(static_cast<WaveShape>(i)), &QAbstractButton::clicked, this,
                shapeCommands[i].slot);
    connect(&m_panel.frequency(), &QLineEdit::editingFinished, this, &Self::editFreqGenerator);
    connect(&m_panel.amplitude(), &QLineEdit::editingFinished, this, &Self::editVoltGenerator);
    connect(&m_panel.duty(), &QLineEdit::editingFinished, this, &Self::editPercentGenerator);
    const auto showWords = [this] { m_indicator.setWords(m_panel.lampWords()); };
    connect(&m_panel, &generator::lampChanged, this, showWords);
    showWords();
}

void LfGeneratorCommands::update_Generator()
{
    if (const std::optional<WaveShape> shape = m_panel.checkedShape())
        showIcon(m_indicator, m_panel.shapeButton(*shape));
    else
        m_indicator.clear();
}

void LfGeneratorCommands::switchClicked(WaveShape shape)
{
    const int run = ++m_run;
    if (m_panel.shapeButton(shape)->isChecked()) {
        Gen_On(run, shape);
        return;
    }
    update_Generator();
    if (m_session.isConnected())
        m_session.switchOffChecked(offCommand);
}

/// Switched on first, then the waveform is set: the instrument needs its settling time in between.
void LfGeneratorCommands::Gen_On(int run, WaveShape shape)
{
    std::optional<Activity> activity;
    if (m_session.isConnected())
        activity.emplace([] { return tr("Setting the LF generator"); });
    emit wantsModulationOff();
    if (!isCurrent(run, shape))
        return;
    if (m_session.isConnected())
        m_session.writeChecked(onCommand);
    update_Generator();
    if (m_session.isConnected() && sendShape(run, shape, false))
        initial_FREQ_AMPL_GENER();
    if (isCurrent(run, shape))
        emit wantsSweepOff();
}

bool LfGeneratorCommands::isCurrent(int run, WaveShape shape) const
{
    return run == m_run && m_panel.checkedShape() == shape;
}

bool LfGeneratorCommands::pauseWhile(int run, WaveShape shape) const
{
    return pause(settleMs) && isCurrent(run, shape) && m_session.isConnected();
}

/// False when it was aborted.
bool LfGeneratorCommands::sendShape(int run, WaveShape shape, bool isRestore)
{
    const auto& row = shapeCommands[static_cast<std::size_t>(shape)];
    if (row.pausesBefore && !isRestore && !pauseWhile(run, shape))
        return false;
    m_session.writeChecked(QLatin1String(row.shapeCommand));
    if (!row.directionCommand || !m_session.isConnected())
        return m_session.isConnected();
    if (!pauseWhile(run, shape))
        return false;
    m_session.writeChecked(QLatin1String(row.directionCommand));
    return m_session.isConnected() && pauseWhile(run, shape);
}

void LfGeneratorCommands::initial_FREQ_AMPL_GENER()
{
    const std::optional<WaveShape> shape = m_panel.checkedShape();
    if (shape == WaveShape::Random)
        return;
    if (shape != WaveShape::Dc)
        m_exchange.writeAndShow(frequencyTexts, m_panel.frequency());
    editVoltGenerator();
    if (shape == WaveShape::Square)
        editPercentGenerator();
}

void LfGeneratorCommands::editFreqGenerator()
{
    m_exchange.setAndShow(frequencyFormat, m_panel.frequency());
}

void LfGeneratorCommands::editVoltGenerator()
{
    m_exchange.setAndShow(amplitudeFormat, m_panel.amplitude());
}

void LfGeneratorCommands::editPercentGenerator()
{
    m_exchange.setAndShow(dutyFormat, m_panel.duty());
}

void LfGeneratorCommands::restore()
{
    const std::optional<WaveShape> shape = m_panel.checkedShape();
    if (!shape || !m_session.isConnected())
        return;
    const int run = ++m_run;
    m_session.writeChecked(onCommand);
    if (!m_session.isConnected() || !sendShape(run, *shape, true))
        return;
    if (shape == WaveShape::Square)
        editPercentGenerator();
    if (shape == WaveShape::Random)
        return;
    if (shape != WaveShape::Dc)
        editFreqGenerator();
    editVoltGenerator();
}
