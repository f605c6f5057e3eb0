#pragma once

#include <QObject>

#include <optional>

class NumberEdit;
class QLabel;
class QSettings;

/// The level at the device under test: what a cable, an attenuator or an amplifier makes of the
/// output power, and the reading of a level as a voltage at 50 ohms. Keeps both choices in the
/// settings and shows them in a label. Nothing of it is sent.
class DeviceLevel : public QObject
{
    Q_OBJECT

public:
    enum class Reading { None, Volt, Millivolt, DbMicrovolt };
    static constexpr double largestOffsetDb = 200.0;

    /// A setting that is out of range or unknown counts as none.
    explicit DeviceLevel(QSettings& settings);

    /// In dB, added to the power; none: the level at the device is not shown.
    std::optional<double> offsetDb() const { return m_offsetDb; }
    void setOffsetDb(std::optional<double> offsetDb);

    Reading reading() const { return m_reading; }
    void setReading(Reading reading);

    /// "-10 dBm, at the device -13.2 dBm (48.9 mV)"; empty while both are off.
    QString text(double powerDbm) const;

    /// Shows the text for a field's accepted power in a label, empty while the field is disabled.
    void show(NumberEdit& power, QLabel& label);
    void refresh();

signals:
    void changed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QSettings& m_settings;
    std::optional<double> m_offsetDb;
    Reading m_reading = Reading::None;
    NumberEdit* m_power = nullptr;
    QLabel* m_label = nullptr;
};
