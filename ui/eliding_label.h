#pragma once

#include <QLabel>

/// A line of text that ends in an ellipsis where it has no room, and tells all of it in its
/// tool-tip then. The text itself stays whole.
class ElidingLabel : public QLabel
{
    Q_OBJECT

public:
    using QLabel::QLabel;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QString shownText() const;
};
