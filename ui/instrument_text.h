#pragma once

#include <QString>

/// What shows as it is written wherever it is shown: no label, tool-tip or button takes it for rich
/// text.
QString neverRich(QString text);

/// A text that came from an instrument, fit to be shown: one line of at most 200 characters, never
/// rich.
QString instrumentText(const QString& text);
