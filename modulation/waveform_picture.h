#pragma once

#include "modulation/waveform.h"
#include "numbers/readable_quantity.h"

#include <QWidget>

/// Draws a waveform as it is set, with round scales of time and level in readable units, and says
/// the same in words. Colours are the palette's. It reads no field and keeps no setting.
class WaveformPicture : public QWidget
{
    Q_OBJECT

public:
    explicit WaveformPicture(QWidget* parent = nullptr);

    /// `levelUnit` None: the levels are only off (low) and on (high).
    void showWaveform(const Waveform& waveform, Unit levelUnit);
    /// Shows words in place of a waveform that is not known or not there.
    void showNote(const QString& note);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void describe();
    QString words() const;
    QString levelText(double level) const;
    QRect plotArea() const;
    void paintScales(QPainter& painter, const QRect& area) const;
    void paintWaveform(QPainter& painter, const QRect& area) const;

    Waveform m_waveform;
    Unit m_levelUnit = Unit::None;
    QString m_note;
    double m_bottom = 0.0;
    double m_top = 1.0;
};
