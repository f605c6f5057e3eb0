#pragma once

#include <QString>

class QLineEdit;
class QPushButton;
class QWidget;

// How controls say what they are: the accessible name, and a tool-tip for those who point at them.
// The name is the full one, as for somebody who does not see where the control stands.

void describe(QWidget* control, const QString& name, const QString& toolTip);

/// Of a field that setUpNumericField has set up: tells too how such a field is typed and stepped.
void describeField(QLineEdit* field, const QString& name, const QString& toolTip);

/// Of a button that opens the keypad for the field of that name.
void describeKeypadKey(QPushButton* key, const QString& fieldName);
