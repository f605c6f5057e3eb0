#pragma once

#include <QPointF>
#include <QString>
#include <QVector>

/// The waveforms of the modulating signal and of the LF generator.
enum class WaveShape { Sine, SawPositive, SawNegative, Triangle, Random, Square, Dc };
constexpr int shapeCount = 7;
/// Of AM, FM and PM: all but the last.
constexpr int modulationShapeCount = 6;

/// What a shape is called and pictured by.
struct ShapeNames {
    WaveShape shape;
    const char* caption; ///< in English
    const char* image;
    const char* modulationPrefix; ///< of the object name of its button in AM, FM and PM
    const char* lfButton;         ///< the object name of its button in the LF generator
};
/// In the order of WaveShape.
const ShapeNames& shapeNames(WaveShape shape);
/// The name of a shape in the user's language.
QString shapeCaption(WaveShape shape);

/// A periodic signal as set: everything that a picture of it shows.
struct Waveform {
    WaveShape shape = WaveShape::Sine;
    double periodSeconds = 0.0; ///< not above 0 or not finite: not known
    double dutyPercent = 50.0;  ///< of a square: share of the period at the high level
    double low = 0.0;           ///< levels, in the unit of the quantity
    double high = 0.0;

    bool hasPeriod() const;
};

/// The smallest of 1, 2, 5, 10, 20 ... and their decimal fractions that is not below a length. A
/// length that is not above 0 or not finite gives 1.
double axisSpan(double length);

/// How long a picture of the waveform lasts: two to five periods, ending at a round time. In
/// seconds; in periods while the period is not known.
double pictureSpan(const Waveform& waveform);

/// The corners of the line that shows the waveform from 0 to `span`, both included: time in the
/// unit of pictureSpan(), level in that of the quantity. A jump is two corners at one time.
QVector<QPointF> waveformPoints(const Waveform& waveform, double span);
