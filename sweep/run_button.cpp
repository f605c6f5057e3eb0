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
    ensurePolished();
    int width = 0;
    for (const QString& caption : {tr("Run"), tr("Stop")}) {
        setText(caption);
        width = std::max(width, sizeHint().width());
    }
    setMinimumWidth(width);
    showCaption();
}

void RunButton::showCaption()
{
    setText(isChecked() ? tr("Stop") : tr("Run"));
    setAccessibleName(isChecked() ? m_stopName : m_runName);
}
