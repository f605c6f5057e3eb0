#pragma once

#include <QString>

class NumberEdit;
class ScpiSession;

/// Sends the numbers of fields and shows what the instrument answers. Every number is bounded
/// first, and the bounded one is shown; without a connection that is all. A field without a number
/// sends nothing and shows the last accepted value again. Owns neither the fields nor the session.
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
    void setAndShow(const char* format, NumberEdit& field);

    /// Writes the command with the field's text, which is not reformatted while it is within the
    /// range, then the query, and shows its reply; a failed read leaves the field. Does not read
    /// the error queue.
    void writeAndShow(const TwoStep& texts, NumberEdit& field);

private:
    ScpiSession& m_session;
};
