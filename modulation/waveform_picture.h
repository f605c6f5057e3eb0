#pragma once

#include "fields/plot/quantity_plot.h"
#include "modulation/waveform.h"

class QwtPlotCurve;
class QwtPlotTextLabel;

/// Draws a waveform as it is set, with round scales of time and level in readable units, and
/// describes it in words. Colours are the palette's. It reads no field and keeps no setting.
class WaveformPicture : public QuantityPlot
{
    Q_OBJECT

public:
    explicit WaveformPicture(QWidget* parent = nullptr);

    /// What the waveform is of, and its settings in few words; stands above it.
    void setHeading(const QString& heading);
    /// `levelUnit` None: the levels are only off (low) and on (high).
    void showWaveform(const Waveform& waveform, Unit levelUnit);
    /// Shows words in place of a waveform that is not known or not there.
    void showNote(const QString& note);

    QSize sizeHint() const override { return {560, 280}; }
    QSize minimumSizeHint() const override { return {200, 120}; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void showParts();
    void recolour();
    void describe();
    QString words() const;

    Waveform m_waveform;
    Unit m_levelUnit = Unit::None;
    QString m_note;
    QuantityScale* m_levels;
    QwtPlotCurve* m_curve;
    QwtPlotTextLabel* m_label;
};
