#pragma once

#include <QLabel>

/// A line of text that ends in an ellipsis where there is no room, and then shows the full text in
/// its tool-tip. The text itself stays complete.
class ElidingLabel : public QLabel
{
    Q_OBJECT

public:
    using QLabel::QLabel;

    /// Any width will do.
    QSize minimumSizeHint() const override;
    /// That of the text, unless the layout ignores it.
    QSize sizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QString shownText() const;
};
