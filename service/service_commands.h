#pragma once

#include "link/activity.h"

#include <QObject>
#include <QStringList>
#include <QVector>

class Connection;
class FirmwareUpdate;
class Notices;
class QAbstractButton;
class ScpiSession;
class service;

/// Sends and reads what the service panel shows: calibration table, reference-oscillator DAC and
/// temperature. Owns neither the session nor the panel it shows the answers in. Does nothing while
/// disconnected.
class ServiceCommands : public QObject
{
    Q_OBJECT

public:
    ServiceCommands(ScpiSession& session, service& panel, Notices& notices,
                    QObject* parent = nullptr);

    /// Fills the panel when it is opened, or when an instrument is connected while it is open,
    /// reads the temperature whenever it is due, and ends a transfer with the panel or the
    /// connection. `toggle` is checked while the panel is open.
    void follow(const Connection& connection, const QAbstractButton& toggle,
                const FirmwareUpdate& update);

    void readDac();
    void readTemperature();

public slots:
    /// Fills the panel from the instrument.
    void initial_service();
    /// Writes the table to the instrument and has it stored there; while writing, stops after the
    /// current row without storing. A table with a cell that is not a number is not written, nor is
    /// any before the table that was read has been saved to a file.
    void commandCalibrate();
    /// Reads the table again, and nothing else.
    void reloadTable();
    /// Asks for a saved table and shows it.
    void openBackup();
    void stopWriting();
    void sendCommandRefOsc();
    void on_REF_OSC_returnPressed();

signals:
    /// An error that the user must not miss.
    void errorMessage(const QString& message);

private:
    StatusWords readTable();
    StatusWords queryDac();
    StatusWords queryTemperature();
    void report(const QVector<StatusWords>& failures);
    bool queryTable();
    bool keepAsRead();
    bool writeTable();
    void showBackup(const QString& path);
    bool pauseWhileWriting() const;

    ScpiSession& m_session;
    service& m_panel;
    Notices& m_notices;
    /// Loading or writing: events are processed in between, and may ask for either again.
    bool m_isBusy = false;
    bool m_isStopped = false;
    bool m_isRefused = false; ///< the table written last, by the instrument
    /// The file with the table as it was read; empty before the table is first written.
    QString m_keptAs;
};
