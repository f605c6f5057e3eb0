#pragma once

#include "link/activity.h"
#include "ui/eliding_label.h"

#include <QPointer>

#include <functional>

class NumberEdit;
class PowerGuard;

/// A line of text about the number field of its window that has the focus: range, step and unit
/// letters, or why the last key or paste was refused. Without such a field it says why the display
/// cannot be entered now.
class FieldLine : public ElidingLabel
{
    Q_OBJECT

public:
    /// The guard outlives the line. `isHeld` returns why `display`, while disabled, cannot be
    /// entered.
    FieldLine(const PowerGuard& guard, QWidget& display, const std::function<StatusWords()>& isHeld,
              QWidget* parent);

    /// Limits may have changed.
    void refresh();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void follow(QWidget* focus);
    void setField(NumberEdit* field);
    void showRefusal(const StatusWords& reason);
    QString fieldText() const;

    const PowerGuard& m_guard;
    QWidget& m_display;
    std::function<StatusWords()> m_isHeld;
    QPointer<NumberEdit> m_field;
    StatusWords m_refusal;
};
