#pragma once

#include "sweep/picture/run_clock.h"
#include "sweep/picture/run_words.h"

#include <QColor>
#include <QPoint>
#include <QTimer>
#include <QWidget>

#include <array>
#include <optional>

class QLabel;
class QPushButton;
class RunPlot;

/// The picture of a sweep or a list: frequency and power over the time of a pass, one above the
/// other, with the point that a run has reached. Zooms and moves by mouse and keys and gives the
/// same in words. Colours are the palette's. It reads no field and knows no clock.
class ListPlot : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QColor markerColour READ markerColour WRITE setMarkerColour)

public:
    explicit ListPlot(QWidget* parent = nullptr);

    /// Another kind is shown as a whole; the same keeps its zoom. Drawn once control returns to
    /// the event loop.
    void showRun(RunKind kind, const RunPoints& points);
    /// Shows that the sweep or list runs, and how it is paced; none: it is stopped.
    void setRun(std::optional<RunClock::Pace> pace);
    /// The point that the run has reached, from 1; 0 for none.
    void setReached(int number);
    void setTime(double elapsedMs, double totalMs);

    /// Of the point that a run has reached; the text's colour while it is not set.
    QColor markerColour() const { return m_markerColour; }
    void setMarkerColour(const QColor& colour);

    /// The part of the pass that is shown.
    double fromUs() const { return m_fromUs; }
    double toUs() const { return m_toUs; }

    QSize sizeHint() const override { return {400, 232}; }
    QSize minimumSizeHint() const override { return {280, 192}; }

public slots:
    /// Shows the whole pass.
    void fit();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void build();
    void retranslate();
    void recolour();
    void applyColours();
    void later();
    void redraw();
    void alignScales();
    void showMarks();
    void showHeader();
    double lengthUs() const;
    bool isWhole() const;
    /// The time in µs at a place of a picture.
    double timeAt(const RunPlot& plot, double x) const;
    bool zoom(double factor, double anchorUs);
    void showPart(double fromUs, double lengthUs);
    bool handleMouse(const RunPlot& plot, QEvent* event);
    void pointAt(const RunPlot& plot, const QPoint& place);

    RunKind m_kind = RunKind::Sweep;
    RunPoints m_points;
    std::optional<RunClock::Pace> m_pace;
    int m_reached = 0;
    int m_pointed = 0;
    double m_elapsedMs = 0.0;
    double m_totalMs = 0.0;
    double m_fromUs = 0.0;
    double m_toUs = 0.0;
    std::optional<double> m_heldUs;
    QColor m_markerColour;
    bool m_hasOldColours = true;
    QTimer m_redraw;

    QLabel* m_header;
    QPushButton* m_logarithmic;
    QLabel* m_note;
    QWidget* m_area;
    std::array<RunPlot*, 2> m_plots;
};
