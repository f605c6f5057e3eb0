#include "fields/entry_notice.h"

#include "fields/keypad/keypad_units.h"
#include "fields/numeric_field.h"
#include "fields/unit_key_filter.h"

#include <QLineEdit>

namespace
{
/// More of a pasted text would not be read.
constexpr int longestQuote = 40;
} // namespace

EntryNotice& EntryNotice::global()
{
    static EntryNotice notice;
    return notice;
}

void EntryNotice::refuse(const QLineEdit& field, const QString& reason)
{
    emit refused(tr("%1: %2").arg(field.accessibleName(), reason));
}

QString EntryNotice::unreadable(const QString& text)
{
    return tr("\"%1\" cannot be read").arg(text.simplified().left(longestQuote));
}

QString EntryNotice::wholeOnly(FieldKind kind)
{
    const QString unit = unitText(entryUnits(kind, 0), 0);
    return unit.isEmpty() ? tr("whole numbers only") : tr("whole %1").arg(unit);
}

QString EntryNotice::onePoint()
{
    return tr("only one decimal point");
}

QString EntryNotice::foreign(QChar typed)
{
    return tr("\"%1\" is no part of its number").arg(typed);
}

bool takeNumber(QLineEdit* field)
{
    const std::optional<NumericField> number = numericField(field);
    if (number && readsAsNumber(field->text(), number->kind))
        return true;
    EntryNotice::global().refuse(*field, EntryNotice::tr("no number, nothing is sent"));
    showAccepted(field, acceptedText(field));
    return false;
}
