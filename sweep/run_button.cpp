#include "sweep/run_button.h"

#include <algorithm>

RunButton::RunButton(const QString& objectName, QWidget* parent) : QPushButton(parent)
{
    setObjectName(objectName);
    setCheckable(true);
    connect(this, &QAbstractButton::toggled, this, &RunButton::showCaption);
}

void RunButton::setTexts(const QString& runName, const QString& stopName, const QString& toolTip)
{
    m_runName = runName;
    m_stopName = stopName;
    setToolTip(toolTip);
    showCaption();
    updateGeometry();
}

void RunButton::showCaption()
{
    setText(isChecked() ? tr("Stop") : tr("Run"));
    setAccessibleName(isChecked() ? m_stopName : m_runName);
}

QSize RunButton::sizeHint() const
{
    const QFontMetrics metrics = fontMetrics();
    const int run = metrics.horizontalAdvance(tr("Run"));
    const int stop = metrics.horizontalAdvance(tr("Stop"));
    const int more = std::max(run, stop) - (isChecked() ? stop : run);
    return QPushButton::sizeHint() + QSize(more, 0);
}
