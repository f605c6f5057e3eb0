#pragma once

#include "modulation/panel_parts.h"
#include "modulation/waveform.h"
#include "ui/side_panel.h"

#include <array>
#include <optional>

class QAbstractButton;
class QGridLayout;
class QPushButton;
class WaveformPicture;

/// The LF generator panel: its waveform and the settings of that, kept consistent with each other.
/// The generator is on exactly while a waveform button is checked. It sends nothing.
class generator : public SidePanel
{
    Q_OBJECT

public:
    explicit generator(const FieldContext& context, QWidget* parent = nullptr);

    bool isOn() const { return checkedShape().has_value(); }
    QPushButton* shapeButton(WaveShape shape) const
    {
        return m_shapes[static_cast<std::size_t>(shape)];
    }
    const std::array<QPushButton*, shapeCount>& shapeButtons() const { return m_shapes; }
    /// None while the generator is off.
    std::optional<WaveShape> checkedShape() const;
    NumberEdit& frequency() const { return *m_frequency.field; }
    NumberEdit& amplitude() const { return *m_amplitude.field; }
    NumberEdit& duty() const { return *m_duty.field; }
    /// What the lamp says of the waveform that is on.
    QString lampWords() const;
    /// For whoever shows it.
    WaveformPicture& picture() const { return *m_picture; }

public slots:
    /// Switches the generator off by a click on its waveform, and asks to be closed.
    void autoOff();
    void A_click();
    void F_click();
    void vvod_Percent_click();

signals:
    /// The user wants to enter the number of this field on a keypad.
    void keypadRequested(NumberEdit* field);
    /// The words of the lamp may be others now.
    void lampChanged();

protected:
    void retranslate() override;
    /// While the generator is off, the picture shows the waveform under the mouse or in focus.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void build(const FieldContext& context);
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
