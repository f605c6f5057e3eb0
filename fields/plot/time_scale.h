#pragma once

#include <QString>

#include <qwt_scale_engine.h>

// Times on a scale. People read more than two minutes in minutes and hours, not in hundreds of
// seconds.

/// Whether a scale up to this time is one of minutes and hours.
bool isInMinutes(double longestSeconds);

/// "1:02:03" from hours to whole seconds.
QString clockText(double seconds);

/// A time on a scale of minutes and hours whose ticks are that far apart: "5 min", "1 h 30 min", or
/// as a clock shows it where the ticks are not on whole minutes.
QString minutesText(double seconds, double stepSeconds);

/// Ticks of a scale of times in seconds: on whole minutes and hours where it is one of these.
class TimeScaleEngine : public QwtLinearScaleEngine
{
public:
    QwtScaleDiv divideScale(double from, double to, int mostMajor, int mostMinor,
                            double step) const override;
};
