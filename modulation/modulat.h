#pragma once

#include "modulation/modulation_group.h"
#include "modulation/pulse_group.h"
#include "ui/side_panel.h"

#include <array>
#include <optional>

/// The modulation panel: choice, source, shape and settings of AM, FM, PM and pulse modulation, and
/// their mutual consistency. It sends nothing, and leaves it to its owner to switch the other two
/// of AM, FM and PM off.
class Modulat : public SidePanel
{
    Q_OBJECT

public:
    explicit Modulat(const FieldContext& context, QWidget* parent = nullptr);

    ModulationGroup& group(Modulation modulation) const;
    QPushButton* stateButton(Modulation modulation) const { return group(modulation).state(); }
    WaveShape checkedShape(Modulation modulation) const { return group(modulation).checkedShape(); }
    /// The first of AM, FM and PM that is checked.
    std::optional<Modulation> checkedModulation() const;

    /// What the lamps say of the modulation that is checked, and of the pulses.
    QString lampWords() const;
    QString pulseLampWords() const { return m_pulseGroup->lampWords(); }

    QPushButton* pulse() const { return m_pulseGroup->state(); }
    QPushButton* pulseSource() const { return m_pulseGroup->source(); }
    NumberEdit& pulsePeriod() const { return m_pulseGroup->period(); }
    NumberEdit& pulseWidth() const { return m_pulseGroup->width(); }
    /// Shows period and width in microseconds, as files hold them.
    void usePulseMicroseconds() { m_pulseGroup->useMicroseconds(); }

    /// AM, FM, PM and the pulse modulation.
    struct Part {
        FoldBox* box;
        QPushButton* state;
        WaveformPicture* picture;
    };
    using Parts = std::array<Part, modulations.size() + 1>;
    const Parts& parts() const { return m_parts; }
    /// Of the modulation that is being set, for whoever shows it.
    WaveformPicture& picture() const { return *m_parts[m_set].picture; }
    /// The same of one that is switched on; null when none is.
    WaveformPicture* activePicture() const;

    /// Expands one group and collapses the other two.
    void expand(Modulation modulation, bool isAnimated = true);
    void collapse(Modulation modulation, bool isAnimated = true);

public slots:
    void on_Pulse_clicked();
    void on_AM_clicked();
    void on_FM_clicked();
    void on_PM_clicked();
    void on_us_per_clicked();
    void on_us_wid_clicked();
    void on_Ampl_F_clicked();
    void on_FREQ_T_clicked();
    void on_FREQ_Dev_clicked();
    void on_Phase_T_clicked();
    void Ampl_depth_click();
    void Phase_Dev_click();
    /// While groups fold, the panel keeps the mouse from dragging the window; this ends it.
    void allow_move();
    /// Expands the group of the checked one of AM, FM and PM, and collapses the others.
    void update_AM_PM_FM();
    /// Makes the clicked shape button the one checked in its group. For a button's signal only.
    void correct_this();
    void percentButton_AM_click();
    void percentButton_PM_click();
    void percentButton_FM_click();
    /// The pulse generator's period and width, which an external source makes meaningless.
    void setEnabledModulationSetting(bool isDisabled);

signals:
    /// The user wants to enter the number of this field on a keypad.
    void keypadRequested(NumberEdit* field);
    /// The words of the lamps may be others now.
    void lampsChanged();
    /// Another modulation is being set.
    void pictureChanged();

protected:
    void retranslate() override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void build();
    void wireButtons();
    void wireGroups();
    void expandOnly(std::optional<Modulation> modulation, bool isAnimated);
    void fold(FoldBox& box, bool isExpanded, bool isAnimated);
    void showSwitched(Modulation modulation);
    void setUpPictures();
    /// Has the Down key lead from a state button to its settings.
    void wireDownKey();
    /// The modulation with this control, or with this box, is the one that is being set.
    void follow(const QWidget* control);

    class GroupColumn;

    QGroupBox* m_selection;
    GroupColumn* m_column;
    std::array<ModulationGroup*, modulations.size()> m_groups{};
    PulseGroup* m_pulseGroup;
    Parts m_parts{};
    std::size_t m_set = modulations.size();
    bool m_isMoving = false;
    QObject m_following; ///< the focus, no longer than the groups exist
};
