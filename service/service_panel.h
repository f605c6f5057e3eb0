#pragma once

#include "panel/side_panel.h"

class QLabel;
class QLineEdit;

/// The maintenance view: reference-oscillator DAC and temperature. Sends nothing itself.
class service : public SidePanel
{
    Q_OBJECT

public:
    explicit service(QWidget* parent = nullptr);

    QLineEdit& referenceDac() const { return *m_referenceDac; }

    /// DAC value as the instrument tells it: a whole number.
    void showDac(const QString& value);
    void showTemperature(double degreesCelsius);
    /// Serial number of the connected instrument; empty when there is none.
    void showSerial(const QString& serial);

protected:
    void retranslate() override;

private:
    QLabel* m_serialCaption;
    QLabel* m_serial;
    QLabel* m_dacCaption;
    QLineEdit* m_referenceDac;
    QLabel* m_temperatureIcon;
    QLabel* m_temperature;
};
