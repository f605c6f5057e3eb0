#pragma once

#include <QFrame>

#include <array>

class QLabel;
class QPushButton;
class TriggerGroup;

/// The trigger of a list run, in compact form beside the list: it shows the choices of the trigger
/// group and acts on that group's buttons. It keeps no choice of its own, and knows of no run.
class ModeList : public QFrame
{
    Q_OBJECT

public:
    ModeList(TriggerGroup& trigger, QWidget* parent);

    /// The point, counted from 1, that the run has reached, of so many; 0 while none is known.
    void showPoint(int number, int count);
    void retranslate();

public slots:
    void buttonManualClick();
    void buttonAutoClick();
    void leftButtonClick();
    void rightButtonClick();

signals:
    /// The user wants the previous (-1) or the next (1) point.
    void stepWanted(int direction);

private:
    void build();
    void refresh();
    QString statusText() const;

    TriggerGroup& m_trigger;
    QPushButton* m_manual;
    QPushButton* m_auto;
    QPushButton* m_left;
    QPushButton* m_right;
    QLabel* m_manualPoint;
    std::array<QLabel*, 4> m_autoTexts{};
    QLabel* m_autoPoint;
    QLabel* m_status;
    int m_point = 0;
    int m_pointCount = 0;
};
