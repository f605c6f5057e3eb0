#pragma once

#include "ui/panel_dialog.h"

#include <functional>

class QLineEdit;

/// Asks for one number, or for none by an empty field. Accepts only what `isValid` does.
class NumberDialog : public PanelDialog
{
    Q_OBJECT

public:
    struct Words {
        QString title;
        QString text;
        QString unit;
        QString takeTip;
        QString takeName; ///< object name of the button
    };

    NumberDialog(const Words& words, QWidget* parent);

    /// Takes the field in, which becomes a child. Called once.
    void ask(QLineEdit& field, const std::function<bool(const QString& text)>& isValid);

signals:
    /// The text without blanks; empty for no number.
    void chosen(const QString& text);

private:
    Words m_words;
};
