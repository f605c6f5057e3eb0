#pragma once

#include "numbers/field_kind.h"

class QValidator;

/// The validator of a set of characters; one for the whole process, shared by all fields.
const QValidator* entryValidator(EntryPattern pattern);
