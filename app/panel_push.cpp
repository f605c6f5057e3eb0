#include "app/panel_push.h"

#include "app/output_display.h"
#include "connection/connection.h"
#include "link/notices.h"
#include "log/hand_commands.h"
#include "sweep/list_panel.h"
#include "ui/status_offer.h"
#include "ui_mainwindow.h"

PanelPush::PanelPush(Connection& connection, const HandCommands& hand, OutputDisplay& output,
                     List& runs, const Ui::MainWindow& form, Notices& notices)
    : m_connection(connection), m_output(output), m_runs(runs), m_notices(notices),
      m_offer(new StatusOffer(
          "log_push", [] { return tr("Send the panel's settings again"); },
          [] { return tr("Sets the instrument to what the panel shows, without a reset"); },
          form.centralwidget))
{
    connect(&m_turn, &Turn::due, this, &PanelPush::push);
    form.status_layout->addWidget(m_offer);
    QWidget::setTabOrder(form.closeWindow, m_offer);
    connect(&hand, &HandCommands::panelOutdated, this, &PanelPush::offer);
    connect(m_offer, &QAbstractButton::clicked, this, &PanelPush::push);
    connect(&connection, &Connection::disconnected, m_offer, &QWidget::hide);
    connect(&connection, &Connection::disconnected, &m_turn, &Turn::giveUp);
}

void PanelPush::offer(bool isOutputTouched)
{
    if (isOutputTouched)
        m_output.doubt();
    // Once, and beside the error that the same command may have caused.
    m_notices.takeBack(m_notice);
    m_notice =
        m_notices.say([] { return tr("The panel may no longer show what the instrument does"); },
                      Notice::About::InstrumentToo);
    m_offer->show();
}

void PanelPush::push()
{
    if (!Turn::isNow()) {
        m_notices.sayOfInstrument([] { return tr("Sent as soon as nothing else is going on"); });
        m_turn.await();
        return;
    }
    m_offer->hide();
    // A run owns the output; it ends as before any other setting of the whole panel.
    if (m_runs.isRunning())
        m_runs.autoOff();
    m_connection.pushAgain();
}
