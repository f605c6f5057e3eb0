#pragma once

#include "app/main_window.h"
#include "tests/support/demo.h"

#include <QPushButton>
#include <QtTest>

/// A shown window over the simulated instrument, driven by the object names of its controls.
class PanelRig
{
public:
    explicit PanelRig(const StartOptions& options = defaultOptions());

    static StartOptions defaultOptions();

    MainWindow& window() { return *m_window; }

    template <typename Widget = QWidget>
    Widget& get(const char* objectName)
    {
        auto* widget = m_window->findChild<Widget*>(QLatin1String(objectName));
        if (!widget)
            qFatal("no %s", objectName);
        return *widget;
    }

    void click(const char* objectName);

    /// Replaces the field's text by keys and commits it with Return.
    void enter(const char* objectName, const QString& text);

    /// Opens the side panel that the control lies in, unless it is open.
    void openPanelOf(const QString& objectName);

    /// Presses the connect button and waits until the search and what follows are over.
    void connectDevice();

    bool isConnected();
    QString device();
    QString status();

    /// Destroys the window, as the end of the program does.
    void end() { m_window.reset(); }

private:
    std::unique_ptr<MainWindow> m_window;
};
