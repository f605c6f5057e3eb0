#pragma once

#include <QWidget>

/// A window's body with the background, border and round corners that the style sheet gives it. It
/// lies below everything that changes, so between its corners it only fills with its colour.
class Surface : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent* event) override;
};
