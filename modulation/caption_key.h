#pragma once

#include <QPushButton>

/// The button beside a field that opens the keypad. Where its caption is the field's own value,
/// which is in sight beside it already, it shows a word instead.
class CaptionKey : public QPushButton
{
    Q_OBJECT

public:
    explicit CaptionKey(QWidget* parent) : QPushButton(parent) {}

    /// An empty word shows the caption.
    void setWord(const QString& word);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_word;
};
