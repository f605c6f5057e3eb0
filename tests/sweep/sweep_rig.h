#pragma once

#include "fields/power_guard.h"
#include "sweep/list/point_table.h"
#include "sweep/list_panel.h"
#include "sweep/list_transfer.h"
#include "sweep/sweep_commands.h"
#include "sweep/sweep_group.h"
#include "sweep/trigger_commands.h"
#include "tests/support/wire_rig.h"

#include <QLineEdit>
#include <QtTest>

/// The sweep and list panel and its commands over the simulated instrument, joined as the window
/// joins them.
class SweepRig : public WireRig
{
public:
    explicit SweepRig(int pauseMs) : transfer(session, panel, power, pauseMs)
    {
        frequency.showAccepted("1 500 000 000");
        power.showAccepted("-7");
        pulse.setCheckable(true);
        QObject::connect(&session, &ScpiSession::connectionFailed, [this] { disconnect(); });
        QObject::connect(&sweep, &SweepCommands::runStarting, [this] { whenStarting(); });
        QObject::connect(&sweep, &SweepCommands::runStarted, [this] { events << "started"; });
        QObject::connect(&sweep, &SweepCommands::runStopped, [this] { events << "stopped"; });
        QObject::connect(&triggers, &TriggerCommands::stepped,
                         [this](int direction) { events << QString::number(direction); });
        QObject::connect(&triggers, &TriggerCommands::movedTo,
                         [this](int number) { events << QString("to %1").arg(number); });
        QObject::connect(&triggers, &TriggerCommands::refreshWanted,
                         [this] { events << "refresh"; });
        host.show();
    }

    void disconnect()
    {
        session.close();
        sweep.connectionLost();
    }

    /// The texts of the sweep's fields, from that of the fixed value to that of the dwell time.
    void setSweep(const QStringList& texts)
    {
        const char* const names[] = {"Freq_Pow", "Start", "Stop", "Step", "Time"};
        for (int i = 0; i < texts.size(); ++i)
            get<QLineEdit>(names[i])->setText(texts.at(i));
    }

    /// Rows of "frequency;power;dwell", into the cells as they stand.
    void fill(const QStringList& rows)
    {
        const QSignalBlocker asTheyStand(panel.table());
        panel.table().setRowCount(static_cast<int>(rows.size()));
        for (int row = 0; row < rows.size(); ++row) {
            const QStringList cells = rows.at(row).split(';');
            for (int column = 0; column < cells.size(); ++column)
                panel.table().setItem(row, column, new QTableWidgetItem(cells.at(column)));
        }
    }

    /// Rows that differ from each other, so that none can be taken for another.
    static QString rowText(int row)
    {
        return QString("1 %1 000;%2;%3").arg(100 + row).arg(-(row % 21)).arg(1000 + row);
    }
    void fillRows(int count)
    {
        QStringList rows;
        for (int row = 0; row < count; ++row)
            rows << rowText(row);
        fill(rows);
    }

    /// The instrument's own answer; leaves no trace in the transcript.
    QString ask(const QString& query)
    {
        const QString answer = session.query(query).trimmed();
        demo.takeTranscript();
        return answer;
    }

    /// Point, state and values that the instrument has reached.
    QString whereItIs()
    {
        return QStringList{ask("LIST:POIN:CURR?"), ask("TRIG:STAT?"), ask("FREQ:CURR?"),
                           ask("POW:CURR?")}
            .join(' ');
    }

    /// Whether a transfer has left something behind.
    bool isTidy()
    {
        return !host.findChild<QWidget*>("progressBarForTable") &&
               panel.cursor().shape() == Qt::ArrowCursor && !QGuiApplication::overrideCursor();
    }

    /// "+" for each that can be used of frequency, power and the two other controls, else "-".
    QString usableCw()
    {
        QString usable;
        for (const QWidget* widget : QList<const QWidget*>{&frequency, &power, &key, &otherKey})
            usable += widget->isEnabled() ? '+' : '-';
        return usable;
    }

    List panel{fields.context, &host};
    NumberEdit frequency{Quantity::Frequency, fields.context, &host};
    NumberEdit power{Quantity::Power, fields.context, &host};
    QPushButton key{&host};
    QPushButton otherKey{&host};
    QPushButton pulse{&host};
    TriggerCommands triggers{session, panel, pulse};
    ListTransfer transfer;
    QPushButton output{&host};
    PowerGuard guard{session, output, host, nullptr};
    SweepCommands sweep{session,
                        panel,
                        triggers,
                        transfer,
                        guard,
                        fields.notices,
                        {frequency, power, {&key, &otherKey}}};
    std::function<void()> whenStarting = [this] { events << "starting"; };
    /// What has been announced, in order.
    QStringList events;
};
