#pragma once

#include "tests/support/documents_folder.h"
#include "tests/support/panel_rig.h"

/// A test of the window: each of its functions begins with an instrument at power-on, without
/// settings and with an empty user's folder, and ends without a window.
class PanelTest : public QObject
{
    Q_OBJECT

protected slots:
    void init();
    void cleanup() { m_rig.reset(); }

protected:
    PanelTest();

    /// A new window, after the end of the one before.
    void begin(const StartOptions& options = PanelRig::defaultOptions());

    /// The same with the instrument connected, and forgets what that has sent.
    void beginConnected();

    QTemporaryDir m_home;
    DocumentsFolder m_documents{m_home.path()};
    QSettings m_settings{QStringLiteral("Veltro"), QStringLiteral("KLV")};
    std::unique_ptr<Demo> m_demo;
    std::unique_ptr<PanelRig> m_rig;
};
