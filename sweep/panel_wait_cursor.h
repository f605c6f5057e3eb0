#pragma once

#include <QWidget>

/// Shows the wait cursor on a panel during its lifetime, then the arrow.
class PanelWaitCursor
{
public:
    explicit PanelWaitCursor(QWidget& panel) : m_panel(panel) { m_panel.setCursor(Qt::WaitCursor); }
    ~PanelWaitCursor() { m_panel.setCursor(Qt::ArrowCursor); }
    PanelWaitCursor(const PanelWaitCursor&) = delete;
    PanelWaitCursor& operator=(const PanelWaitCursor&) = delete;

private:
    QWidget& m_panel;
};
