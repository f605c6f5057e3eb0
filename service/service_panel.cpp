#include "service/service_panel.h"

#include "panel/unit_key_filter.h"
#include "panel/validators.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <QVBoxLayout>

service::service(QWidget* parent)
    : SidePanel(QStringLiteral("service_panel"), parent), m_serialCaption(new QLabel(this)),
      m_serial(new QLabel(this)), m_dacCaption(new QLabel(this)),
      m_referenceDac(new QLineEdit(this)), m_temperatureIcon(new QLabel(this)),
      m_temperature(new QLabel(this))
{
    m_serial->setObjectName(QStringLiteral("serias"));
    m_referenceDac->setObjectName(QStringLiteral("REF_OSC"));
    m_temperatureIcon->setObjectName(QStringLiteral("icon_temp"));
    m_temperature->setObjectName(QStringLiteral("text_temp"));
    m_temperatureIcon->setPixmap(QPixmap(QStringLiteral(":/images/grad.png")));
    m_dacCaption->setBuddy(m_referenceDac);
    m_referenceDac->setValidator(entryValidator(EntryPattern::Whole));

    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(16);
    grid->addWidget(m_serialCaption, 0, 0);
    grid->addWidget(m_serial, 0, 1);
    grid->addWidget(m_dacCaption, 1, 0);
    grid->addWidget(m_referenceDac, 1, 1);
    grid->addWidget(m_temperatureIcon, 2, 0);
    grid->addWidget(m_temperature, 2, 1);
    grid->setColumnStretch(1, 1);
    content()->addLayout(grid);
    service::retranslate();
}

void service::showDac(const QString& value)
{
    showAccepted(m_referenceDac, value);
}

void service::showTemperature(double degreesCelsius)
{
    m_temperature->setText(QString::number(degreesCelsius, 'f', 1) + QStringLiteral(" °C"));
}

void service::showSerial(const QString& serial)
{
    m_serial->setText(serial);
    if (serial.isEmpty()) {
        m_temperature->clear();
        showDac(QString());
    }
}

void service::retranslate()
{
    SidePanel::retranslate();
    setTitle(tr("Service"));
    m_serialCaption->setText(tr("Serial:"));
    m_dacCaption->setText(tr("Reference oscillator DAC"));
    m_referenceDac->setToolTip(tr("Tuning of the reference oscillator; Return sends it"));
    m_referenceDac->setAccessibleName(tr("Reference oscillator DAC"));
    m_temperatureIcon->setToolTip(tr("Temperature inside the instrument"));
    m_temperature->setAccessibleName(tr("Temperature inside the instrument"));
}
