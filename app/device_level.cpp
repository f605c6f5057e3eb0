#include "app/device_level.h"

#include "fields/number_edit.h"
#include "numbers/number_text.h"

#include <QEvent>
#include <QLabel>
#include <QSettings>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace
{
const QString offsetKey = QStringLiteral("Level/offset");
const QString readingKey = QStringLiteral("Level/reading");
/// In the order of the readings.
const char* const readingNames[] = {"", "V", "mV", "dBuV"};

constexpr double loadOhms = 50.0;
constexpr int levelDecimals = 2;
constexpr int readingDigits = 3;
/// 1 mW in dB over 1 µV at the load.
const double dbMicrovoltsOfDbm = 10.0 * std::log10(loadOhms * 1e-3 * 1e12);

QString decimal(double value, int decimals)
{
    return trimZeros(fixedText(value, decimals));
}

double voltsOf(double dbm)
{
    return std::sqrt(loadOhms * 1e-3 * std::pow(10.0, dbm / 10.0));
}

/// In fixed notation, with so many significant digits.
QString significant(double value)
{
    const int magnitude = static_cast<int>(std::floor(std::log10(value)));
    return decimal(value, std::max(readingDigits - 1 - magnitude, 0));
}

QString readingText(double dbm, DeviceLevel::Reading reading)
{
    switch (reading) {
    case DeviceLevel::Reading::Volt:
        return DeviceLevel::tr("%1 V").arg(significant(voltsOf(dbm)));
    case DeviceLevel::Reading::Millivolt:
        return DeviceLevel::tr("%1 mV").arg(significant(voltsOf(dbm) * 1e3));
    case DeviceLevel::Reading::DbMicrovolt:
        return DeviceLevel::tr("%1 dBµV").arg(decimal(dbm + dbMicrovoltsOfDbm, 1));
    case DeviceLevel::Reading::None:
        break;
    }
    return QString();
}

bool isPossibleOffset(double offsetDb)
{
    return std::abs(offsetDb) <= DeviceLevel::largestOffsetDb;
}
} // namespace

DeviceLevel::DeviceLevel(QSettings& settings) : m_settings(settings)
{
    bool isNumber = false;
    const double offsetDb = settings.value(offsetKey).toString().toDouble(&isNumber);
    if (isNumber && isPossibleOffset(offsetDb))
        m_offsetDb = offsetDb;
    const QString name = settings.value(readingKey).toString();
    const auto* known = std::find_if(std::begin(readingNames), std::end(readingNames),
                                     [&](const char* each) { return name == QLatin1String(each); });
    if (known != std::end(readingNames))
        m_reading = static_cast<Reading>(known - std::begin(readingNames));
}

void DeviceLevel::setOffsetDb(std::optional<double> offsetDb)
{
    m_offsetDb = offsetDb;
    m_settings.setValue(offsetKey, offsetDb ? shortestText(*offsetDb) : QString());
    refresh();
    emit changed();
}

void DeviceLevel::setReading(Reading reading)
{
    m_reading = reading;
    m_settings.setValue(readingKey, QLatin1String(readingNames[static_cast<int>(reading)]));
    refresh();
}

QString DeviceLevel::text(double powerDbm) const
{
    if (!m_offsetDb && m_reading == Reading::None)
        return QString();
    const double deviceDbm = powerDbm + m_offsetDb.value_or(0.0);
    const QString power = decimal(powerDbm, levelDecimals);
    const QString levels =
        m_offsetDb
            ? tr("%1 dBm, at the device %2 dBm").arg(power, decimal(deviceDbm, levelDecimals))
            : tr("%1 dBm").arg(power);
    const QString reading = readingText(deviceDbm, m_reading);
    return reading.isEmpty() ? levels : QStringLiteral("%1 (%2)").arg(levels, reading);
}

void DeviceLevel::show(NumberEdit& power, QLabel& label)
{
    m_power = &power;
    m_label = &label;
    connect(&power, &NumberEdit::accepted, this, &DeviceLevel::refresh);
    power.installEventFilter(this);
    refresh();
}

/// While a run goes on, the level at the output is another.
void DeviceLevel::refresh()
{
    if (!m_label)
        return;
    m_label->setAccessibleName(tr("Level at the device"));
    m_label->setText(m_power->isEnabled() ? text(m_power->acceptedValue()) : QString());
}

bool DeviceLevel::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::EnabledChange || event->type() == QEvent::LanguageChange)
        refresh();
    return QObject::eventFilter(watched, event);
}
