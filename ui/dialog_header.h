#pragma once

#include <QWidget>

class QHBoxLayout;
class QLabel;

/// The top of a dialog: the logo and the title, by which it can be moved.
class DialogHeader : public QWidget
{
    Q_OBJECT

public:
    explicit DialogHeader(QWidget* parent);

    void setTitle(const QString& title);
    /// Puts a control at its right end.
    void add(QWidget* control);

private:
    QLabel* m_title;
    QHBoxLayout* m_row;
};
