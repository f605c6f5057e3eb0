#pragma once

#include "fields/plot/quantity_plot.h"
#include "sweep/picture/run_points.h"

#include <QColor>

class RunLine;
class RunMarks;

struct RunPlotColours {
    QColor base;
    QColor scale;
    QColor line;
    QColor pointed;
    QColor reached;
};

/// One quantity of a run over the time of a pass, with scales in readable units. Shows the part of
/// the pass that it is told; the values that occur there fill its height.
class RunPlot : public QuantityPlot
{
    Q_OBJECT

public:
    RunPlot(RunQuantity quantity, QWidget* parent = nullptr);

    void setColours(const RunPlotColours& colours);
    /// Values that are not above zero then lie at the lower edge.
    void setLogarithmic(bool isLogarithmic);
    /// Seen after the next replot().
    void showPoints(const RunPoints& points, double fromUs, double toUs);
    /// The point under the mouse and the one that a run has reached; 0 for none. Shown at once,
    /// without redrawing the rest.
    void markPoints(int pointed, int reached);
    /// Writes the times below; else they only have lines.
    void setTimesShown(bool isShown);

    /// What is kept free for the numbers at the scales.
    struct ScaleRoom {
        double left = 0.0;
        int right = 0;
    };
    ScaleRoom neededRoom();
    /// At least that much, so that pictures one above the other show a time at the same place.
    void keepRoom(const ScaleRoom& room);

    /// How far a place of the canvas is along the shown times, from 0 to 1.
    double partAt(double x) const;
    /// Where a point is on the canvas: at the middle of its time.
    QPointF place(int number) const;

private:
    void fitValues();

    RunQuantity m_quantity;
    bool m_isLogarithmic = false;
    RunPoints m_points;
    double m_fromUs = 0.0;
    double m_toUs = 1.0;
    double m_lowest = 0.0;
    // The plot deletes what is attached to it.
    RunLine* m_line;
    RunMarks* m_marks;
};
