#pragma once

#include <QObject>

class Notices;
class QAbstractButton;
class ScpiSession;

/// Shows each error that the instrument reports, and counts them on a button that is visible only
/// while there are any and is cleared by a click, which also asks for the log. Owns the count, not
/// the button.
class ErrorChip : public QObject
{
    Q_OBJECT

public:
    ErrorChip(QAbstractButton& button, const ScpiSession& session, Notices& notices);

    /// In the current language.
    void retranslate();

signals:
    /// The errors are to be seen.
    void clicked();

private:
    void count();
    void clear();

    QAbstractButton& m_button;
    int m_count = 0;
};
