#include "modulation/field_exchange.h"

#include "link/scpi_session.h"
#include "numbers/number_text.h"
#include "numbers/unit_keys.h"
#include "fields/clamp_field.h"
#include "fields/numeric_field.h"
#include "fields/unit_key_filter.h"

#include <QLineEdit>

void FieldExchange::accept(QLineEdit* field) const
{
    clampField(m_limits, field);
    showAccepted(field, field->text());
}

void FieldExchange::acceptAsItStands(QLineEdit* field) const
{
    const Range& range = m_limits[numericField(field)->quantity];
    const QString number = withoutBlanks(field->text());
    const double value = toNumber(number);
    const bool isWithin = !range.isKnown() || (range.min <= value && value <= range.max);
    if (isWithin && isPlainDecimal(number))
        showAccepted(field, field->text());
    else
        accept(field);
}

void FieldExchange::setAndShow(const char* format, QLineEdit* field)
{
    if (!takeNumber(field))
        return;
    accept(field);
    if (!m_session.isConnected())
        return;
    showAnswer(field, m_session.setAndReadBack(format, toNumber(field->text()),
                                               numericField(field)->kind));
    m_session.checkErrors();
}

void FieldExchange::writeAndShow(const TwoStep& texts, QLineEdit* field)
{
    if (!takeNumber(field))
        return;
    acceptAsItStands(field);
    if (!m_session.isConnected())
        return;
    const QString number = withoutBlanks(field->text());
    m_session.write(texts.command + number + texts.unit);
    const QString shown = displayText(m_session.read(texts.query), numericField(field)->kind);
    if (!shown.isEmpty())
        showAccepted(field, shown);
}
