#pragma once

#include "link/turn.h"

class Connection;
class HandCommands;
class List;
class Notices;
class OutputDisplay;
class StatusOffer;

namespace Ui
{
class MainWindow;
}

/// After a setting was changed behind the panel's back: says so, and offers to send the panel's
/// settings again. Sends nothing itself.
class PanelPush : public QObject
{
    Q_OBJECT

public:
    PanelPush(Connection& connection, const HandCommands& hand, OutputDisplay& output, List& runs,
              const Ui::MainWindow& form, Notices& notices);

private:
    void offer(bool isOutputTouched);
    void push();

    Connection& m_connection;
    OutputDisplay& m_output;
    List& m_runs;
    Notices& m_notices;
    StatusOffer* m_offer;
    Turn m_turn;
    int m_notice = 0;
};
