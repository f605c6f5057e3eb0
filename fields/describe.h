#pragma once

#include <QString>

class QLineEdit;
class QPushButton;

/// Describes a field that setUpNumericField has set up: tells too how such a field is typed and
/// stepped.
void describeField(QLineEdit* field, const QString& name, const QString& toolTip);

/// Describes a button that opens the keypad for the field of that name.
void describeKeypadKey(QPushButton* key, const QString& fieldName);
