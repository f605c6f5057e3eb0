#pragma once

#include "modulation/fold_box.h"
#include "modulation/panel_parts.h"
#include "modulation/waveform.h"

#include <array>

class QGridLayout;
class QLabel;
class QPushButton;
class WaveformPicture;

enum class Modulation { Am, Fm, Pm };
constexpr std::array<Modulation, 3> modulations = {Modulation::Am, Modulation::Fm, Modulation::Pm};

/// The settings of one of AM, FM and PM: source, shape, rate, depth or deviation, duty and their
/// picture, kept consistent with each other. Makes its state button among others, and a picture for
/// whoever shows it; sends nothing.
class ModulationGroup : public FoldBox
{
    Q_OBJECT

public:
    struct Row;

    /// `selection` is where the state button lives, laid out by its owner.
    ModulationGroup(Modulation modulation, const FieldContext& context, QWidget* selection,
                    QWidget* parent);

    Modulation modulation() const;
    /// "AM", "FM" or "PM": the state button's object name and the instrument's subsystem.
    QString name() const;
    /// The same in the user's language.
    QString caption() const;

    QPushButton* state() const { return m_state; }
    QPushButton* source() const { return m_source; }
    bool isExternal() const;
    WaveformPicture& picture() const { return *m_picture; }
    const ValueRow& rate() const { return m_rate; }
    /// Depth or deviation.
    const ValueRow& level() const { return m_level; }
    /// Its caption button is the one captioned with the duty.
    const ValueRow& duty() const { return m_duty; }

    const std::array<QPushButton*, modulationShapeCount>& shapeButtons() const { return m_shapes; }
    /// Of a shape other than DC.
    QPushButton* shapeButton(WaveShape shape) const
    {
        return m_shapes[static_cast<std::size_t>(shape)];
    }
    /// Sine when no shape is checked.
    WaveShape checkedShape() const;
    /// Makes a shape the one that is checked. False when the button is none of this group's.
    bool chooseShape(const QPushButton* button);

    /// The modulation as the instrument has it, in few words.
    QString lampWords() const;

    void retranslate();

signals:
    /// The words of the lamp may be others now.
    void lampChanged();

private:
    void build(const FieldContext& context);
    QGridLayout* buildShapes();
    QGridLayout* buildValues(const FieldContext& context);
    void refresh();

    const Row& m_row;
    QPushButton* m_state;
    QLabel* m_summary;
    QPushButton* m_source;
    std::array<QPushButton*, modulationShapeCount> m_shapes{};
    ValueRow m_rate;
    ValueRow m_level;
    ValueRow m_duty;
    QLabel* m_dutyCaption;
    WaveformPicture* m_picture;
};
