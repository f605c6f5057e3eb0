#pragma once

#include <QObject>
#include <QString>

#include <optional>

class List;
class Notices;
class NumberEdit;
class QAbstractButton;
class QLabel;
class QProgressBar;
class QWidget;
class RunPicture;
class SweepCommands;

/// Shows a run on the display of the main window, whatever panel is open: its lamp, the current
/// point over the frequency and the power that the run will return to, its number, and the progress
/// of the pass. Owns what lies over the two fields; their texts stay as they are.
class RunDisplay : public QObject
{
    Q_OBJECT

public:
    struct Widgets {
        NumberEdit& frequency;
        QWidget& frequencyUnit;
        NumberEdit& power;
        QWidget& powerUnit;
        QLabel& lamp; ///< enabled while the run moves, shown as long as it is not stopped
        QLabel& point;
        QProgressBar& progress;
        QAbstractButton& stop;
    };

    RunDisplay(const Widgets& widgets, List& panel, const RunPicture& picture,
               const SweepCommands& runs, Notices& notices, QObject* parent = nullptr);

    /// In the current language.
    void retranslate();

private:
    /// A number shown over a field, in the same size.
    struct Figure {
        QLabel* label;
        QWidget* unit;
    };

    static Figure figureOver(NumberEdit& field, QWidget& unit, const char* name);
    void wire(const SweepCommands& runs);
    void showStop();
    void setRunning(bool isRunning);
    void showOver(bool isOver);
    void showTime(double elapsedMs, double totalMs);
    void showPoint();
    void showFigures();
    QString pointText() const;

    Widgets m_ui;
    List& m_panel;
    const RunPicture& m_picture;
    Notices& m_notices;
    Figure m_frequency;
    Figure m_power;
    bool m_isRunning = false;
    std::optional<int> m_notice; ///< of the pass that is over
};
