#include "tests/support/panel_test.h"

#include "ui/files/user_folder.h"

PanelTest::PanelTest()
{
    if (!userFolder().startsWith(QDir::toNativeSeparators(m_home.path())))
        qFatal("the user's own folder");
}

void PanelTest::init()
{
    m_demo = std::make_unique<Demo>();
    QDir(userFolder()).removeRecursively();
    m_settings.clear();
}

void PanelTest::begin(const StartOptions& options)
{
    m_rig.reset();
    m_rig = std::make_unique<PanelRig>(options);
}

void PanelTest::beginConnected()
{
    begin();
    m_rig->connectDevice();
    QVERIFY(m_rig->isConnected());
    m_demo->takeTranscript();
}
