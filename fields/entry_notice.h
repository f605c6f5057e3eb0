#pragma once

#include "numbers/field_kind.h"

#include <QObject>
#include <QString>

class QLineEdit;

/// Where all fields tell why they refused what was entered; the window shows it. One for the
/// process, for a field does not know who shows texts.
class EntryNotice : public QObject
{
    Q_OBJECT

public:
    static EntryNotice& global();

    /// Says `reason` behind the field's name.
    void refuse(const QLineEdit& field, const QString& reason);

    static QString unreadable(const QString& text);
    /// That such a field takes whole numbers only, in its unit.
    static QString wholeOnly(FieldKind kind);
    static QString onePoint();
    static QString foreign(QChar typed);

signals:
    void refused(const QString& message);
};

/// False for a field whose text is no number: what was last accepted is back in it then, and the
/// refusal is said. Of a field that setUpNumericField has set up.
bool takeNumber(QLineEdit* field);
