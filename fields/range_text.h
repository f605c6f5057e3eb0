#pragma once

#include <QString>

class NumberEdit;
class PowerGuard;

/// The limits of a field's quantity, in the unit that its numbers count in; empty while they are
/// not known. The highest level that a guard allows bounds a power.
QString rangeText(const NumberEdit& field, const PowerGuard* guard);

/// The step of a field's quantity in its own unit; empty where it does not step.
QString stepSizeText(const NumberEdit& field);

/// A number and its unit, which may be empty.
QString withUnit(const QString& number, const QString& unit);
