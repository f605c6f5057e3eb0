#pragma once

#include <QObject>

#include <functional>

class QWidget;

/// While it lives, no click, wheel or key of the user's reaches any widget of the program but the
/// exempt ones. What the program itself clicks goes on working, and so do closing by the window
/// manager, painting and timers.
class InputBlock : public QObject
{
    Q_OBJECT

public:
    /// Tells of a widget, or of none, whether it is to be reached; asked for each event anew.
    using IsExempt = std::function<bool(const QWidget*)>;

    explicit InputBlock(const IsExempt& isExempt);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool isForExempt(QObject* watched, const QPoint& globalPos) const;

    IsExempt m_isExempt;
    bool m_isPressed = false; ///< an exempt widget, whose release belongs to it wherever it is
};
