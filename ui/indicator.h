#pragma once

#include <QLabel>

/// A lamp of the display: a word or an icon, the icon drawn in the label's own text colour whatever
/// its own colour. It holds no state; being shown, enabled or filled is its state.
class Indicator : public QLabel
{
    Q_OBJECT

public:
    explicit Indicator(QWidget* parent = nullptr) : QLabel(parent) {}

protected:
    void paintEvent(QPaintEvent* event) override;
};
