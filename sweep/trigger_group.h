#pragma once

#include <QGroupBox>

#include <array>

class QPushButton;
class TwoPartButton;

/// What advances a run from one point to the next.
enum class TriggerChoice { FreeRun, ExternalRising, ExternalFalling, Manual };

/// The trigger of sweeps and lists, and which of the two is shown. Its buttons exclude one another
/// as triggers do; it sends nothing.
class TriggerGroup : public QGroupBox
{
    Q_OBJECT

public:
    explicit TriggerGroup(QWidget* parent = nullptr);

    /// The first checked of the three sources; manual while none is.
    TriggerChoice choice() const;
    /// Chooses as a click would, and does nothing where it is chosen already.
    void choose(TriggerChoice choice);

    QPushButton& listShown() const { return *m_buttons[0]; }
    QPushButton& source(TriggerChoice choice) const;
    QPushButton& previousPoint() const { return *m_buttons[4]; }
    QPushButton& nextPoint() const { return *m_buttons[5]; }
    QPushButton& continuousMode() const { return *m_buttons[6]; }
    QPushButton& allPointsMode() const { return *m_buttons[7]; }

    void retranslate();

signals:
    /// The user has chosen another source; a step to a point does not count.
    void triggerChosen();
    /// Something that the group shows has changed, for whatever reason.
    void changed();

private:
    void build();
    void wire();
    void showArrows();
    void excludeOthers(const QPushButton* chosen);

    TwoPartButton* m_shown;
    std::array<QPushButton*, 8> m_buttons{};
};
