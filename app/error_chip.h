#pragma once

#include <QObject>

class QAbstractButton;

/// Counts the errors that the instrument has reported, on a button that is there only while there
/// are any and that forgets them when it is clicked. Owns the count, not the button.
class ErrorChip : public QObject
{
    Q_OBJECT

public:
    explicit ErrorChip(QAbstractButton& button, QObject* parent = nullptr);

    /// In the present language.
    void retranslate();

public slots:
    /// One more.
    void count();

private:
    void clear();

    QAbstractButton& m_button;
    int m_count = 0;
};
