#pragma once

#include "numbers/field_kind.h"

class QLineEdit;
class QValidator;

/// The validator of a set of characters; one for the whole process, shared by all fields.
const QValidator* entryValidator(EntryPattern pattern);

/// Lets a field take the characters of its kind only.
void setEntryValidator(QLineEdit* field, FieldKind kind);
