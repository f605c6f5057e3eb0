#pragma once

#include "modulation/panel_parts.h"
#include "modulation/waveform.h"
#include "ui/side_panel.h"

#include <array>
#include <optional>

class QAbstractButton;
class QGridLayout;
class QLineEdit;
class QPushButton;
class WaveformPicture;

/// The LF generator panel: its waveform and the settings of that, kept consistent with each other.
/// The generator is on exactly while a waveform button is checked. It sends nothing.
class generator : public SidePanel
{
    Q_OBJECT

public:
    explicit generator(QWidget* parent = nullptr);

    bool isOn() const { return checkedShape().has_value(); }
    QPushButton* shapeButton(WaveShape shape) const;
    /// None while the generator is off.
    std::optional<WaveShape> checkedShape() const;
    QLineEdit* frequency() const { return m_frequency.field; }
    QLineEdit* amplitude() const { return m_amplitude.field; }
    QLineEdit* duty() const { return m_duty.field; }

public slots:
    /// Switches the generator off by a click on its waveform, and asks to be closed.
    void autoOff();
    void FREQ_Edit(const QString& typed);
    void Volt_Edit();
    void A_click();
    void F_click();
    void vvod_Percent_click();

signals:
    /// The user wants to enter the number of this field on a keypad.
    void keypadRequested(QLineEdit* field);

protected:
    void retranslate() override;
    /// While the generator is off, the picture shows the waveform under the mouse or in focus.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void build();
    QGridLayout* buildShapes();
    void wire();
    void chooseShape(const QAbstractButton* clicked);
    std::optional<WaveShape> pointedShape() const;
    void refresh();

    std::array<QPushButton*, shapeCount> m_shapes{};
    ValueRow m_frequency;
    ValueRow m_amplitude;
    ValueRow m_duty;
    WaveformPicture* m_picture;
};
