#pragma once

#include <QLabel>

/// A lamp of the display: a word or an icon, the icon drawn in the label's own text colour whatever
/// its own colour. It holds no state; being shown, enabled or filled is its state.
class Indicator : public QLabel
{
    Q_OBJECT

public:
    explicit Indicator(QWidget* parent = nullptr) : QLabel(parent) {}

    /// What is said beside the icon, and only while there is one. Ends in an ellipsis where there
    /// is no room.
    void setWords(const QString& words);
    /// Empty while there is no icon.
    QString words() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    bool isDark() const;

    QString m_words;
};
