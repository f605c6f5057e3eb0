#pragma once

#include "ui/side_panel.h"

#include <functional>
#include <vector>

class CalibrationTable;
class Notices;
class NumberEdit;
class QLabel;
class QPushButton;
struct CalibrationPoint;
struct FieldContext;

/// The service view: the instrument's identity, its temperature, its reference-oscillator DAC and
/// its calibration table. Sends nothing itself.
class service : public SidePanel
{
    Q_OBJECT

public:
    /// While loading, nothing can be used; while writing, only the button, which then cancels.
    enum class State { Ready, Loading, Writing };

    explicit service(const FieldContext& context, QWidget* parent = nullptr);

    NumberEdit& referenceDac() const { return *m_referenceDac; }
    CalibrationTable& table() const { return *m_table; }
    QPushButton& applyCalibrate() const { return *m_applyCalibrate; }
    QPushButton& reloadTable() const { return *m_reloadTable; }
    QPushButton& openBackup() const { return *m_openBackup; }
    /// Of the instrument; empty without one.
    QString serial() const;

    void setState(State state);

    /// Calibration points as read, frequency and value in turn; see CalibrationTable::showPoints.
    void showPoints(int pointCount, const QStringList& numbers);
    /// Points of a backup, to be checked and written.
    void showOtherPoints(const std::vector<CalibrationPoint>& points);
    /// DAC value as read from the instrument: a whole number.
    void showDac(const QString& value);
    void showTemperature(double degreesCelsius);
    void showInstrument(const QString& serial, const QString& firmware);
    /// Clears everything that belonged to an instrument.
    void forgetInstrument();

public slots:
    void call_manual_input_for_RefOsc();
    /// A cell was edited.
    void editTable(int row, int column);

signals:
    /// The user wants to enter the number of this field on a keypad.
    void keypadRequested(NumberEdit* field);

protected:
    void retranslate() override;

private:
    QWidget* buildInstrument();
    QWidget* buildDac(const FieldContext& context);
    QWidget* buildTable();
    void showState();
    void showPointCount();
    void fillTable(const std::function<void()>& fill);

    Notices& m_notices;
    QLabel* m_serialCaption;
    QLabel* m_serial;
    QLabel* m_firmwareCaption;
    QLabel* m_firmware;
    QLabel* m_temperatureIcon;
    QLabel* m_temperature;
    QLabel* m_dacCaption;
    NumberEdit* m_referenceDac;
    QPushButton* m_dacKey;
    QLabel* m_tableCaption;
    QLabel* m_pointCount;
    CalibrationTable* m_table;
    QLabel* m_loading;
    QLabel* m_hint;
    QPushButton* m_reloadTable;
    QPushButton* m_openBackup;
    QPushButton* m_applyCalibrate;
    QWidget* m_controls;
    State m_state = State::Ready;
};
