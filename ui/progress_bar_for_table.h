#pragma once

#include <QProgressBar>

/// Lies over a table that is being read or written, keeps the mouse off it and shows how far the
/// work has got, with a text above the bar. Its object name, "progressBarForTable", shows others
/// that the work is under way. Belongs to the table and follows its size; the worker creates and
/// destroys it. Has no timer and stops nothing.
class progressBarForTable : public QProgressBar
{
    Q_OBJECT

public:
    /// Over `table`, shown, at 0 of `maximum` steps; 0: the work has no steps.
    progressBarForTable(int maximum, QWidget* table);

    /// Whether a table within `place`, or `place` itself, is being read or written.
    static bool liesWithin(const QWidget& place);

    /// Advances by one step.
    void advance();

    /// What is going on, in a few words.
    void showText(const QString& text);

protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
};
