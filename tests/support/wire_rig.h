#pragma once

#include "link/scpi_session.h"
#include "tests/support/demo.h"
#include "tests/support/fields.h"

#include <QPushButton>

#include <functional>

/// Does `action` once `condition` holds, in whatever pause that is; not after `context` has gone.
void when(QObject& context, const std::function<bool()>& condition,
          const std::function<void()>& action);

/// The same once what has been sent contains a text.
void whenSent(QObject& context, Demo& demo, const QString& text,
              const std::function<void()>& action);

/// Panels in a window and their commands over the simulated instrument, which is open.
class WireRig
{
public:
    WireRig();
    ~WireRig() { session.close(); }

    /// Connects, and forgets what that has sent.
    void open();

    template <typename Widget = QPushButton>
    Widget* get(const QString& name)
    {
        auto* widget = host.findChild<Widget*>(name);
        if (!widget)
            qFatal("no %s", qUtf8Printable(name));
        return widget;
    }

    /// Clicks one after the other, separated by blanks. Returns when all that this starts is over.
    void click(const QString& names);

    void whenSent(const QString& text, const std::function<void()>& action)
    {
        ::whenSent(host, demo, text, action);
    }

    /// The commands since the last call, in the form of Demo::takeCommands.
    QStringList sent() { return demo.takeCommands(); }

    Demo demo;
    VisaLibrary visa;
    ScpiSession session{visa};
    Fields fields;
    QWidget host;
};
