#pragma once

#include "link/exchange_log.h"

#include <QRegularExpression>

/// Which exchanges the log shows.
class LogFilter
{
public:
    /// A plain text in any case, or a regular expression between slashes; the empty one finds all.
    /// False, and nothing is changed, if the expression is none.
    bool find(const QString& text);
    void showFailuresOnly(bool isOnly) { m_isFailuresOnly = isOnly; }
    /// An exchange that failed is shown anyway.
    void showPolling(bool isShown) { m_showsPolling = isShown; }

    bool accepts(const Exchange& exchange) const;

private:
    bool finds(const QString& text) const;

    QString m_text;
    QRegularExpression m_expression;
    bool m_isExpression = false;
    bool m_isFailuresOnly = false;
    bool m_showsPolling = false;
};
