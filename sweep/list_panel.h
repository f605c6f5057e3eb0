#pragma once

#include "sweep/trigger_group.h"
#include "ui/side_panel.h"

class ListFileDialogs;
class ListGroup;
class ListPlot;
class Notices;
class NumberEdit;
class PointTable;
class PowerGuard;
class QPushButton;
class QSettings;
class QVBoxLayout;
class SweepGroup;
struct FieldContext;

/// The sweep and list panel: the settings of a sweep, the points of a list and the trigger of both,
/// kept consistent with each other. One of the two is shown and may run. It sends nothing.
class List : public SidePanel
{
    Q_OBJECT

public:
    explicit List(const FieldContext& context, QWidget* parent = nullptr);

    QPushButton& runSweep() const;
    QPushButton& runList() const;
    /// Sweep or list.
    bool isRunning() const;
    /// Whether there is something to run. If not, a notice says what is missing.
    bool canRunSweep();
    bool canRunList();

    /// The list, not the sweep, is chosen and shown.
    bool isListShown() const;

    PointTable& table() const;
    SweepGroup& sweep() const { return *m_sweep; }
    TriggerGroup& trigger() const { return *m_trigger; }
    /// From now on sweep and list are bounded by the guard's highest level.
    void setPowerGuard(PowerGuard& guard);
    /// The highest power in dBm that the sweep, or the list, would set by itself; minus infinity
    /// where there is none.
    double sweepTopDbm() const;
    double listTopDbm() const;
    /// For whoever shows it.
    ListPlot& plot() const { return *m_plot; }

    /// Brings back the list of the last time, and lets keepPoints() keep it for the next.
    void restorePoints(QSettings& settings);
    void keepPoints();

    /// The instrument did not go to the point that was chosen last: it can be chosen again.
    void forgetChosenPoint();

    /// Sweep as well as list without scrolling.
    QSize sizeHint() const override;

    /// Bounds the sweep's fields and the table's cells by the limits read from an instrument.
    /// Returns how many numbers had to change.
    int boundByLimits();

public slots:
    /// Stops a run by a click on its button.
    void stopRuns();
    /// The same, and asks to be closed.
    void autoOff();
    /// Marks the point, counted from 1, that a list run has reached; 0 for none.
    void highlightPoint(int number);
    /// Takes the current text of a cell of the table as entered by the user.
    void editTable(int row, int column);

signals:
    /// The user wants to enter the number of this field on a keypad.
    void keypadRequested(NumberEdit* field);
    /// The user moves the list run to a point, counted from 1.
    void pointChosen(int number);
    /// The user has chosen another trigger source.
    void triggerChosen();
    /// What the sweep would run through has changed.
    void sweepChanged();
    /// Sweep or list: the other one is shown now.
    void shownChanged();
    /// An error that the user must not miss.
    void errorMessage(const QString& message);

protected:
    void retranslate() override;

private:
    void build();
    void wire();
    void wireList();
    void showChosenGroup();
    void stopRun(QPushButton& run);
    bool makesRoomForFile();
    void openList();
    void showFile();
    void fillRecent();
    void generateList();
    void chooseRow(int row);
    void step(int direction);
    void stepRow(int direction);
    bool isManualListRun() const;

    Notices& m_notices;
    SweepGroup* m_sweep;
    TriggerGroup* m_trigger;
    ListGroup* m_list;
    ListPlot* m_plot;
    ListFileDialogs* m_files;
    /// The row that a list stepped by hand was moved to; -1 for none yet.
    int m_chosenRow = -1;
};
