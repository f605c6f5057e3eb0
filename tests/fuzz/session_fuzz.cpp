#include "tests/fuzz/fuzz.h"

#include "link/scpi_session.h"
#include "numbers/field_kind.h"
#include "tests/fuzz/told_replies.h"

/// What an instrument answers to queries, read-backs and when its error queue is read, in time,
/// late or overlong: the session accepts it and continues.
void run(Bytes bytes)
{
    ToldLibrary visa;
    int answered = 0;
    tellReply = [&bytes, &answered](std::string& text) {
        text = bytes.isEmpty() || ++answered > 200 ? "0,\"No error\"\n" : bytes.text();
        if (text.substr(0, 1) == "\2")
            text.append(3 * replyRoom, 'A');
        return text.substr(0, 1) == "\1" ? VI_ERROR_TMO : VI_SUCCESS;
    };
    ScpiSession session(visa);
    int shown = 0;
    QObject::connect(&session, &ScpiSession::error329Seen,
                     [&](const QString& m) { shown += m.size(); });
    QObject::connect(&session, &ScpiSession::connectionFailed,
                     [&](const StatusWords& words) { shown += words().size(); });
    session.setConnected();
    for (int kind = 0; kind < fieldKindCount && !bytes.isEmpty(); ++kind) {
        displayText(session.setAndReadBack("X %lf;X?", 1.0), static_cast<FieldKind>(kind));
        session.checkErrors();
        session.query(QStringLiteral("%n%s?"));
        session.read(QStringLiteral("%s"));
        session.waitComplete(QStringLiteral("%"));
    }
}
