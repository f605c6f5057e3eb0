#pragma once

#include <QObject>

class ScpiSession;
class service;

/// Service work on the wire: reference-oscillator DAC and temperature. Owns neither the session
/// nor the panel it shows the answers in. Does nothing while disconnected.
class ServiceCommands : public QObject
{
    Q_OBJECT

public:
    ServiceCommands(ScpiSession& session, service& panel, QObject* parent = nullptr);

    void readDac();
    void readTemperature();

public slots:
    /// Fills the panel from the instrument.
    void initial_service();
    void sendCommandRefOsc();
    void on_REF_OSC_returnPressed();

signals:
    void statusMessage(const QString& message);

private:
    ScpiSession& m_session;
    service& m_panel;
};
