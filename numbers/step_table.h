#pragma once

#include "numbers/step_kind.h"

#include <QPointer>
#include <QSettings>

#include <array>

/// The current step of every kind. Owns the values and keeps them in a settings store that it does
/// not own; rounds and bounds nothing.
class StepTable
{
public:
    StepTable();

    /// Takes over what the store holds and writes every later change into it. A missing, damaged or
    /// impossible step becomes the default.
    void attach(QSettings* settings);

    double step(StepKind kind) const;

    /// Refuses, with false, a step that no instrument could have accepted.
    bool setStep(StepKind kind, double step);

private:
    std::array<double, stepKindCount> m_steps;
    QPointer<QSettings> m_settings;
};
