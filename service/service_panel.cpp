#include "service/service_panel.h"

#include "fields/number_edit.h"
#include "link/notices.h"
#include "service/calibration_table.h"
#include "ui/describe.h"
#include "ui/instrument_text.h"
#include "ui/named.h"

#include <QGridLayout>
#include <QIcon>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

namespace
{
constexpr int spacing = 8;
constexpr int margin = 12;
constexpr int buttonWidth = 128;

QIcon sendIcon()
{
    return QIcon(QStringLiteral(":/images/List_send.png"));
}
} // namespace

service::service(const FieldContext& context, QWidget* parent)
    : SidePanel(QStringLiteral("service_panel"), parent), m_notices(context.notices),
      m_controls(named("widget_Service", new QWidget(this)))
{
    title()->setObjectName(QStringLiteral("title"));
    auto* rows = new QVBoxLayout(m_controls);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(spacing);
    rows->addWidget(buildInstrument());
    rows->addWidget(buildDac(context));
    rows->addWidget(buildTable(), 1);
    content()->addWidget(m_controls, 1);
    growContent();

    m_hint = named("label", new QLabel(this));
    m_hint->setProperty("sectionSummary", true);
    m_hint->setWordWrap(true);
    m_reloadTable = named("reload_table", new QPushButton(this));
    m_openBackup = named("open_backup", new QPushButton(this));
    m_applyCalibrate = named("applyCalibrate", new QPushButton(this));
    m_applyCalibrate->setMinimumWidth(buttonWidth);
    auto* foot = new QHBoxLayout;
    foot->setSpacing(spacing);
    foot->addWidget(m_reloadTable);
    foot->addWidget(m_openBackup);
    foot->addStretch(1);
    foot->addWidget(m_applyCalibrate);
    content()->addWidget(m_hint);
    content()->addLayout(foot);

    connect(m_dacKey, &QPushButton::clicked, this, &service::call_manual_input_for_RefOsc);
    connect(m_table, &QTableWidget::cellChanged, this, &service::editTable);
    service::retranslate();
}

QWidget* service::buildInstrument()
{
    auto* info = named("info", new QFrame(this));
    m_serialCaption = named("label_4", new QLabel(this));
    m_serial = named("serias", new QLabel(this));
    m_firmwareCaption = named("label_6", new QLabel(this));
    m_firmware = named("label_firmware", new QLabel(this));
    m_temperatureIcon = named("icon_temp", new QLabel(this));
    m_temperature = named("text_temp", new QLabel(this));
    m_temperatureIcon->setPixmap(QPixmap(QStringLiteral(":/images/grad.png")));
    for (QLabel* value : {m_serial, m_firmware})
        value->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto* temperature = named("widget_temperature", new QWidget(info));
    auto* temperatureRow = new QHBoxLayout(temperature);
    temperatureRow->setContentsMargins(0, 0, 0, 0);
    temperatureRow->addWidget(m_temperatureIcon);
    temperatureRow->addWidget(m_temperature);

    auto* grid = new QGridLayout(info);
    grid->setContentsMargins(margin, spacing, margin, spacing);
    grid->setHorizontalSpacing(spacing);
    grid->addWidget(m_serialCaption, 0, 0);
    grid->addWidget(m_serial, 0, 1);
    grid->addWidget(m_firmwareCaption, 1, 0);
    grid->addWidget(m_firmware, 1, 1);
    grid->addWidget(temperature, 0, 2, 2, 1);
    grid->setColumnStretch(1, 1);
    return info;
}

QWidget* service::buildDac(const FieldContext& context)
{
    auto* dac = new QWidget(this);
    m_dacCaption = named("label_3", new QLabel(this));
    m_referenceDac = named("REF_OSC", new NumberEdit(Quantity::Dac, context, this));
    m_referenceDac->setAlignment(Qt::AlignRight);
    m_dacCaption->setBuddy(m_referenceDac);
    m_dacKey = named("key_REF_OSC", new QPushButton(this));
    m_dacKey->setIcon(QIcon(QStringLiteral(":/images/edit.png")));
    // A click that took the focus would leave the field before the keypad is open.
    m_dacKey->setFocusPolicy(Qt::NoFocus);

    auto* row = new QHBoxLayout(dac);
    row->setContentsMargins(margin, 0, 0, 0);
    row->setSpacing(spacing);
    row->addWidget(m_dacCaption, 1);
    row->addWidget(m_referenceDac);
    row->addWidget(m_dacKey);
    return dac;
}

QWidget* service::buildTable()
{
    auto* section = new QWidget(this);
    m_tableCaption = named("labelAttenuation", new QLabel(this));
    m_tableCaption->setProperty("sectionTitle", true);
    m_pointCount = named("label_2", new QLabel(this));
    m_pointCount->setProperty("sectionSummary", true);
    m_table = new CalibrationTable(this);
    m_loading = named("label_loading", new QLabel(m_table));
    m_loading->setAlignment(Qt::AlignCenter);
    m_loading->hide();

    auto* head = new QHBoxLayout;
    head->setContentsMargins(margin, 0, 0, 0);
    head->addWidget(m_tableCaption, 1);
    head->addWidget(m_pointCount);
    auto* rows = new QVBoxLayout(section);
    rows->setContentsMargins(0, spacing, 0, 0);
    rows->setSpacing(spacing);
    rows->addLayout(head);
    rows->addWidget(m_table, 1);
    return section;
}

void service::setState(State state)
{
    m_state = state;
    m_controls->setEnabled(state == State::Ready);
    m_applyCalibrate->setEnabled(state != State::Loading);
    for (QPushButton* button : {m_reloadTable, m_openBackup})
        button->setEnabled(state == State::Ready);
    m_loading->setGeometry(m_table->rect());
    m_loading->setVisible(state == State::Loading);
    m_loading->raise();
    showState();
}

/// What the button does now, and the number of points.
void service::showState()
{
    const bool isWriting = m_state == State::Writing;
    m_applyCalibrate->setIcon(isWriting ? QIcon() : sendIcon());
    m_applyCalibrate->setText(isWriting ? tr("Cancel") : tr("Write"));
    describe(m_applyCalibrate, m_applyCalibrate->text(),
             isWriting ? tr("Stop after the current row; nothing is stored")
                       : tr("Write the table into the instrument and store it there"));
}

void service::showPointCount()
{
    const int count = m_table->rowCount();
    const int changed = m_table->changedRows();
    QString text = count > 0 ? tr("Points: %1").arg(count) : QString();
    if (changed > 0)
        text += tr(", changed: %1").arg(changed);
    m_pointCount->setText(text);
}

void service::showPoints(int pointCount, const QStringList& numbers)
{
    fillTable([&] { m_table->showPoints(pointCount, numbers); });
}

void service::showOtherPoints(const CalibrationPoints& points)
{
    fillTable([&] { m_table->showOtherPoints(points); });
}

/// Filling in the table is not an edit.
void service::fillTable(const std::function<void()>& fill)
{
    disconnect(m_table, &QTableWidget::cellChanged, this, &service::editTable);
    fill();
    connect(m_table, &QTableWidget::cellChanged, this, &service::editTable);
    showPointCount();
}

void service::editTable(int row, int column)
{
    const StatusWords complaint = m_table->acceptCell(row, column);
    showPointCount();
    if (complaint)
        m_notices.say(complaint);
}

void service::call_manual_input_for_RefOsc()
{
    emit keypadRequested(m_referenceDac);
}

void service::showDac(const QString& value)
{
    m_referenceDac->showAccepted(value);
}

void service::showTemperature(double degreesCelsius)
{
    m_temperature->setText(QString::number(degreesCelsius, 'f', 1) + QStringLiteral(" °C"));
}

void service::showInstrument(const QString& serial, const QString& firmware)
{
    m_serial->setText(instrumentText(serial));
    m_firmware->setText(instrumentText(firmware));
}

QString service::serial() const
{
    return m_serial->text();
}

void service::forgetInstrument()
{
    showInstrument(QString(), QString());
    m_temperature->clear();
    showDac(QString());
    // Another instrument must not be given this one's table.
    showPoints(0, {});
}

void service::retranslate()
{
    SidePanel::retranslate();
    setTitle(tr("Service"));
    m_serialCaption->setText(tr("Serial:"));
    m_firmwareCaption->setText(tr("Firmware:"));
    m_temperatureIcon->setToolTip(tr("Temperature inside the instrument"));
    m_temperature->setToolTip(m_temperatureIcon->toolTip());
    m_temperature->setAccessibleName(m_temperatureIcon->toolTip());
    m_dacCaption->setText(quantityName(Quantity::Dac));
    m_referenceDac->describe();
    m_referenceDac->describeKeypadKey(*m_dacKey);
    m_tableCaption->setText(tr("Attenuation at  0 dBm"));
    m_hint->setText(tr("Frequencies in whole hertz, or with k, M or G"));
    m_loading->setText(tr("Loading..."));
    m_reloadTable->setText(tr("Reload"));
    describe(m_reloadTable, tr("Reload"),
             tr("Read the table from the instrument again; changes made here are discarded"));
    m_openBackup->setText(tr("Open backup..."));
    describe(m_openBackup, tr("Open backup"),
             tr("Show a table that was saved before a write, to write it back"));
    m_table->retranslate();
    showPointCount();
    showState();
}
