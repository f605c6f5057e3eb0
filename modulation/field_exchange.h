#pragma once

#include "link/instrument_limits.h"
#include "panel/entry_notice.h"

#include <QString>

class QLineEdit;
class ScpiSession;

/// Sends the numbers of fields and shows what the instrument answers. Every number is bounded
/// first, and the bounded one is shown; without a connection that is all. A field without a number
/// sends nothing and shows again what was last accepted. Owns neither the fields nor the session.
class FieldExchange
{
public:
    /// A set command ahead of its number, what follows the number, and the query of its own.
    struct TwoStep {
        QString command;
        QString unit;
        QString query;
    };

    explicit FieldExchange(ScpiSession& session) : m_session(session) {}

    /// Sends `format` with the field's number, shows the reply and drains the error queue.
    template <typename T>
    void setAndShow(const char* format, QLineEdit* field, const Range<T>& range)
    {
        if (!takeNumber(field))
            return;
        accept(field, asReal(range));
        setAccepted(format, field);
    }

    /// Writes the command with the field's text, which stays as it stands while it is within the
    /// range, then the query, and shows its reply; a failed read leaves the field. Checks no
    /// errors.
    template <typename T>
    void writeAndShow(const TwoStep& texts, QLineEdit* field, const Range<T>& range)
    {
        if (!takeNumber(field))
            return;
        acceptAsItStands(field, asReal(range));
        writeAccepted(texts, field);
    }

private:
    template <typename T>
    static Range<double> asReal(const Range<T>& range)
    {
        return {static_cast<double>(range.min), static_cast<double>(range.max)};
    }
    static void accept(QLineEdit* field, const Range<double>& range);
    static void acceptAsItStands(QLineEdit* field, const Range<double>& range);
    void setAccepted(const char* format, QLineEdit* field);
    void writeAccepted(const TwoStep& texts, QLineEdit* field);

    ScpiSession& m_session;
};
