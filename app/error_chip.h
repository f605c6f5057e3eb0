#pragma once

#include <QObject>

class Notices;
class QAbstractButton;
class ScpiSession;

/// Says each error that the instrument reports, and counts them on a button that is there only
/// while there are any and that forgets them when it is clicked. Owns the count, not the button.
class ErrorChip : public QObject
{
    Q_OBJECT

public:
    ErrorChip(QAbstractButton& button, const ScpiSession& session, Notices& notices);

    /// In the present language.
    void retranslate();

private:
    void count();
    void clear();

    QAbstractButton& m_button;
    int m_count = 0;
};
