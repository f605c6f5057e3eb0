#pragma once

#include <QObject>

#include <functional>

class QWidget;

/// During its lifetime no click, wheel or key event of the user reaches any widget of the program
/// except the exempt ones. Clicks made by the program, closing by the window manager, painting and
/// timers still work.
class InputBlock : public QObject
{
    Q_OBJECT

public:
    /// Whether a widget, or none, is exempt; called for every event.
    using IsExempt = std::function<bool(const QWidget*)>;

    explicit InputBlock(const IsExempt& isExempt);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool isForExempt(QObject* watched, const QPoint& globalPos) const;

    IsExempt m_isExempt;
    bool m_isPressed = false; ///< an exempt widget, whose release belongs to it wherever it is
};
