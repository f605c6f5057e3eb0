#include "log/log_filter.h"

#include "log/log_text.h"

bool LogFilter::find(const QString& text)
{
    const QChar slash = QLatin1Char('/');
    const bool isExpression = text.size() > 2 && text.startsWith(slash) && text.endsWith(slash);
    if (isExpression) {
        const QRegularExpression expression(text.mid(1, text.size() - 2),
                                            QRegularExpression::CaseInsensitiveOption);
        if (!expression.isValid())
            return false;
        m_expression = expression;
    }
    m_isExpression = isExpression;
    m_text = text;
    return true;
}

bool LogFilter::accepts(const Exchange& exchange) const
{
    if (!exchange.hasFailed() &&
        (m_isFailuresOnly || (exchange.kind == Exchange::Kind::Polling && !m_showsPolling)))
        return false;
    return m_text.isEmpty() || finds(sentText(exchange)) || finds(exchange.answered) ||
           finds(statusText(exchange));
}

bool LogFilter::finds(const QString& text) const
{
    return m_isExpression ? m_expression.match(text).hasMatch()
                          : text.contains(m_text, Qt::CaseInsensitive);
}
