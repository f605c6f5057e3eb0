#pragma once

#include <QLatin1String>
#include <QString>
#include <QtGlobal>

/// What a field's wheel, arrow keys and step entry step. The order is fixed: it is the index into
/// the step table.
enum class StepKind : qint32 {
    Frequency,
    Power,
    PointCount,
    Time,
    PulsePeriod,
    PulseWidth,
    AmRate,
    AmDepth,
    AmDuty,
    FmRate,
    FmDeviation,
    FmDuty,
    PmRate,
    PmDeviation,
    PmDuty,
    LfFrequency,
    LfAmplitude,
    LfDuty,
};
constexpr int stepKindCount = 18;

/// The key under which the settings hold the step of this kind.
QLatin1String stepKey(StepKind kind);

double defaultStep(StepKind kind);

/// Whether steps of this kind are whole numbers, added in integer arithmetic.
bool isWholeStep(StepKind kind);

/// Whether a step of this kind could have been accepted from some instrument: not below the kind's
/// smallest step, not beyond its type, whole where the kind is.
bool isPossibleStep(StepKind kind, double step);

/// The step that a typed text gives, rounded and bounded as its kind demands. `min` and `max` are
/// the limits of the quantity that is stepped, in its unit; while both are 0 they are not known,
/// and only the kind's smallest step bounds.
double acceptedStep(StepKind kind, const QString& typedText, double min, double max);

/// A step as its entry line shows it.
QString stepText(double step);
