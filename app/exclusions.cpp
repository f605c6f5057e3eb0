#include "app/exclusions.h"

#include "modulation/generator.h"
#include "modulation/lf_generator_commands.h"
#include "modulation/modulat.h"
#include "modulation/modulation_commands.h"
#include "sweep/list_panel.h"
#include "sweep/sweep_commands.h"
#include "sweep/trigger_commands.h"

#include <QPushButton>
#include <QTimer>

#include <utility>

Exclusions::Exclusions(const Parts& parts, QObject* parent) : QObject(parent), m_parts(parts)
{
    connect(&m_parts.modulationCommands, &ModulationCommands::switchedOn, this,
            &Exclusions::modulationStarted);
    connect(&m_parts.lfCommands, &LfGeneratorCommands::wantsModulationOff, this,
            &Exclusions::lfGeneratorStarting);
    connect(&m_parts.lfCommands, &LfGeneratorCommands::wantsSweepOff, this,
            &Exclusions::lfGeneratorStarted);
    connect(&m_parts.runs, &SweepCommands::runStarting, this, &Exclusions::runStarting);
    connect(&m_parts.runs, &SweepCommands::runStarted, this, [this] { m_running = checkedRun(); });
    connect(&m_parts.runs, &SweepCommands::runStopped, this, &Exclusions::runStopped);
    connect(&m_parts.triggers, &TriggerCommands::pulseExcluded, this, [this] {
        m_parts.notices.sayOfInstrument(
            [] { return tr("Pulse modulation off: the trigger uses its input"); });
    });
}

void Exclusions::modulationStarted()
{
    endLfGenerator();
    if (m_parts.list.isRunning()) {
        m_ended << stopWords(checkedRun());
        m_parts.list.autoOff();
    }
    tell([] { return tr("a modulation is on"); });
}

void Exclusions::lfGeneratorStarting()
{
    endModulation();
    tell([] { return tr("the LF generator is on"); });
}

void Exclusions::lfGeneratorStarted()
{
    if (m_parts.list.isRunning())
        m_ended << stopWords(checkedRun());
    // The sweep and list panel closes even when nothing runs.
    m_parts.list.autoOff();
    tell([] { return tr("the LF generator is on"); });
}

void Exclusions::runStarting()
{
    const RunKind kind = checkedRun();
    if (m_justStopped && *m_justStopped != kind)
        m_ended << stopWords(*m_justStopped);
    m_justStopped.reset();
    endModulation();
    endLfGenerator();
    tell([kind] {
        return kind == RunKind::List ? tr("a list has started") : tr("a sweep has started");
    });
}

/// A click may replace the sweep by the list or the list by the sweep.
void Exclusions::runStopped()
{
    m_justStopped = m_running;
    QTimer::singleShot(0, this, [this] { m_justStopped.reset(); });
}

void Exclusions::endModulation()
{
    const Modulat& panel = m_parts.modulation;
    if (panel.checkedModulation() || panel.pulse()->isChecked())
        m_ended << [] { return tr("Modulation off"); };
    m_parts.modulationCommands.switchEverythingOff(true);
}

void Exclusions::endLfGenerator()
{
    if (!m_parts.lfGenerator.isOn())
        return;
    m_ended << [] { return tr("LF generator off"); };
    m_parts.lfGenerator.autoOff();
}

RunKind Exclusions::checkedRun() const
{
    return m_parts.list.runList().isChecked() ? RunKind::List : RunKind::Sweep;
}

StatusWords Exclusions::stopWords(RunKind kind)
{
    return [kind] { return kind == RunKind::List ? tr("List stopped") : tr("Sweep stopped"); };
}

void Exclusions::tell(const StatusWords& cause)
{
    const QVector<StatusWords> ended = std::exchange(m_ended, {});
    if (ended.isEmpty())
        return;
    m_parts.notices.sayOfInstrument([ended, cause] {
        QStringList texts;
        for (const StatusWords& words : ended)
            texts << words();
        return tr("%1: %2").arg(texts.join(QLatin1String(", ")), cause());
    });
}
