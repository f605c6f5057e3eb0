#pragma once

#include <QDialog>

class QHBoxLayout;
class QLabel;
class QPushButton;
class QVBoxLayout;

/// A small dialog that looks like the panel: the logo and a title by which it is moved, some text,
/// room below it, and a row of buttons. It blocks its parent's window once it is opened, and
/// deletes itself when it is closed.
class PanelDialog : public QDialog
{
    Q_OBJECT

public:
    PanelDialog(const QString& title, const QString& text, QWidget* parent);

protected:
    /// Between the text and the buttons.
    QVBoxLayout& content() const { return *m_content; }
    /// The first button is the leftmost. Return presses the default one, whichever has the focus.
    QPushButton* addButton(const char* name, const QString& caption, const QString& toolTip);

private:
    QVBoxLayout* m_content;
    QHBoxLayout* m_buttons;
};
