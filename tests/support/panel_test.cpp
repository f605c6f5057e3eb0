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
