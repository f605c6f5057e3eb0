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

    /// A widget of the window or an action.
    template <typename Widget = QWidget>
    Widget& get(const char* objectName)
    {
        auto* widget = m_window->findChild<Widget*>(QLatin1String(objectName));
        if (!widget)
            qFatal("no %s", objectName);
        return *widget;
    }

    void click(const char* objectName);

    /// Clicks one after the other, separated by blanks, wherever they are, also in closed panels.
    void clickAll(const QString& objectNames);

    /// Text of a label, a field or a button.
    QString text(const char* objectName) { return get(objectName).property("text").toString(); }

    bool isChecked(const char* objectName) { return get<QAbstractButton>(objectName).isChecked(); }

    /// Replaces the field's text by keys and commits it with Return.
    void enter(const char* objectName, const QString& text);

    /// Opens the side panel of a button in the window and waits until it stands still.
    void openPanel(const char* button);

    /// A language or a theme in the menu; `code` is that of the setting.
    void choose(const QString& code);

    /// Saves a quick profile. Returns the path of its file.
    QString saveProfile(const QString& name);

    /// Presses the connect button and waits until the search and what follows are over.
    void connectDevice();

    bool isConnected() { return isChecked("connect"); }
    /// What the indicators say is on: "AM PULM LF" at most.
    QString indicators();
    QString device() { return text("device"); }
    QString status() { return text("status"); }

    /// Destroys the window, as the end of the program does.
    void end() { m_window.reset(); }

private:
    std::unique_ptr<MainWindow> m_window;
};
