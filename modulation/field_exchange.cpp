#include "modulation/field_exchange.h"

#include "fields/number_edit.h"
#include "link/scpi_session.h"
#include "numbers/number_text.h"

namespace
{
void acceptAsItStands(NumberEdit& field)
{
    const Range& range = field.range();
    const QString number = withoutBlanks(field.text());
    const double value = toNumber(number);
    const bool isWithin = !range.isKnown() || (range.min <= value && value <= range.max);
    if (isWithin && isPlainDecimal(number))
        field.showAccepted(field.text());
    else
        field.acceptClamped();
}
} // namespace

void FieldExchange::setAndShow(const char* format, NumberEdit& field)
{
    if (!field.takeNumber())
        return;
    field.acceptClamped();
    if (!m_session.isConnected())
        return;
    field.showAnswer(m_session.setAndReadBack(format, field.acceptedValue()));
    m_session.checkErrors();
}

void FieldExchange::writeAndShow(const TwoStep& texts, NumberEdit& field)
{
    if (!field.takeNumber())
        return;
    acceptAsItStands(field);
    if (!m_session.isConnected())
        return;
    m_session.write(texts.command + withoutBlanks(field.text()) + texts.unit);
    const QString reply = m_session.read(texts.query);
    if (!reply.trimmed().isEmpty())
        field.showAnswer(reply);
}
