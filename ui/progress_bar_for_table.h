#pragma once

#include <QProgressBar>

/// Lies over a table that is being read or written, keeps the mouse off it and shows how far the
/// work has got, with a text above the bar. Its object name, "progressBarForTable", is how others
/// see that the work goes on. Belongs to the table and follows its size; whoever works makes and
/// destroys it. Holds no timer and stops nothing.
class progressBarForTable : public QProgressBar
{
    Q_OBJECT

public:
    /// Over `table`, shown, at 0 of `maximum` steps; 0: the work has no steps.
    progressBarForTable(int maximum, QWidget* table);

    /// Whether a table within `place`, or `place` itself, is being read or written.
    static bool liesWithin(const QWidget& place);

    /// One step further.
    void advance();

    /// What is going on, in a few words.
    void showText(const QString& text);

protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
};
