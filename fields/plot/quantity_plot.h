#pragma once

#include "numbers/readable_quantity.h"

#include <qwt_plot.h>
#include <qwt_scale_draw.h>

class QwtPlotGrid;

/// Writes the numbers at a scale with their units.
class QuantityScale : public QwtScaleDraw
{
public:
    explicit QuantityScale(Unit unit);

    void setUnit(Unit unit);
    QwtText label(double value) const override;
    /// Labels are kept, and they hold words.
    void retranslate() { invalidateCache(); }

protected:
    Unit unit() const { return m_unit; }

private:
    Unit m_unit;
};

/// What all plots of the program have in common: a quantity over the time, with scales in readable
/// units and a grid, in colours that it is given. Draws no curve.
class QuantityPlot : public QwtPlot
{
    Q_OBJECT

public:
    /// The plot owns both scales.
    QuantityPlot(QuantityScale* times, QuantityScale* values, QWidget* parent);

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void setColours(const QColor& base, const QColor& scale);
    QwtPlotGrid& grid() const { return *m_grid; }

private:
    // The plot deletes what is attached to it.
    QwtPlotGrid* m_grid;
};

/// Fills a place of a widget with the palette's base and draws the edge around it, which is the
/// widget's focus ring, too.
void paintPlotFrame(QWidget& widget, const QRect& place);
