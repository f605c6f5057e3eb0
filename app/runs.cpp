#include "app/runs.h"

#include "connection/connection.h"
#include "link/notices.h"
#include "modulation/modulat.h"
#include "sweep/list_panel.h"
#include "sweep/sweep_group.h"
#include "ui_mainwindow.h"

Runs::Runs(ScpiSession& session, const Connection& connection, PowerGuard& guard,
           const Ui::MainWindow& form, List& panel, const Others& others, Notices& notices)
    : m_panel(panel), m_notices(notices), m_triggers(session, panel, *others.modulation.pulse()),
      m_transfer(session, panel, *form.POW),
      m_commands(
          session, panel, m_triggers, m_transfer, guard, notices,
          {*form.FREQ, *form.POW, {form.key_FREQ, form.unit_FREQ, form.key_POW, form.unit_POW}}),
      m_exclusions({others.modulation, others.modulationCommands, others.lfGenerator,
                    others.lfCommands, panel, m_commands, m_triggers, notices}),
      m_picture(panel, *form.POW)
{
    connect(form.POW, &NumberEdit::accepted, &panel.sweep(), &SweepGroup::followPower);
    connect(form.FREQ, &NumberEdit::accepted, &panel.sweep(), &SweepGroup::followFrequency);
    m_picture.follow(m_commands, m_triggers);
    m_display.emplace(RunDisplay::Widgets{*form.FREQ, *form.unit_FREQ, *form.POW, *form.unit_POW,
                                          *form.label_Run, *form.run_point, *form.run_progress,
                                          *form.stop_run},
                      panel, m_picture, m_commands, notices);
    connect(&m_triggers, &TriggerCommands::refreshWanted, panel.window(),
            qOverload<>(&QWidget::update));
    connect(&connection, &Connection::ready, this, &Runs::showBounded);
    connect(&connection, &Connection::disconnected, &m_commands, &SweepCommands::connectionLost);
}

/// Sweep and list may have been set for an instrument with other limits.
void Runs::showBounded()
{
    const int count = m_panel.boundByLimits();
    if (count > 0)
        m_notices.say(
            [count] {
                return count == 1 ? tr("One value of sweep and list was bounded by the limits of "
                                       "the instrument")
                                  : tr("%n values of sweep and list were bounded by the limits "
                                       "of the instrument",
                                       nullptr, count);
            },
            Notice::About::InstrumentToo);
}
