#pragma once

#include <QObject>

class QKeyEvent;
class QLineEdit;

/// Selects the whole text of a line edit when it takes the focus, so that typing replaces it. The
/// click that sets the focus selects too, unless it drags a selection of its own; the next click
/// places the cursor. After Return, too, the next number typed replaces the text. Installs itself
/// on the line edit, which owns it.
class selectLine : public QObject
{
    Q_OBJECT

public:
    explicit selectLine(QLineEdit* edit);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void typed(const QKeyEvent& key);

    QLineEdit* m_edit;
    bool m_hasHadFocus = false;
    bool m_isReplacing = false; ///< the next character typed replaces the whole text
    bool m_isFocusingClick = false;
};
