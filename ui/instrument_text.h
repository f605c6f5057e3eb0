#pragma once

#include <QString>

/// A text that is shown as it is written: no label, tool-tip or button takes it for rich text.
QString neverRich(QString text);

/// A text from an instrument, made safe for display: one line of at most 200 characters, never rich
/// text.
QString instrumentText(const QString& text);
