#pragma once

#include <QObject>

#include <functional>

class QContextMenuEvent;
class QLineEdit;

/// Intercepts everything that would paste a text into a line edit: keys, the middle button, the
/// context menu, drag and drop, input methods. Installs itself on the line edit.
class PasteFilter : public QObject
{
    Q_OBJECT

public:
    using Taker = std::function<void(const QString& text)>;

    PasteFilter(QLineEdit* field, Taker taker);

    /// What the clipboard holds, as if its key had been pressed.
    void paste();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool take(const QString& text);
    void showMenu(const QContextMenuEvent& event);

    QLineEdit* m_field;
    Taker m_taker;
};
