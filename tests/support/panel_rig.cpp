#include "tests/support/panel_rig.h"

#include "app/side_panels.h"
#include "ui/files/user_folder.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>

namespace
{
constexpr int longestAttemptMs = 5000;
}

PanelRig::PanelRig(const StartOptions& options) : m_window(std::make_unique<MainWindow>(options))
{
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    m_window->activateWindow();
}

StartOptions PanelRig::defaultOptions()
{
    StartOptions options;
    options.visaLibrary = Demo::libraryPath();
    options.language = QStringLiteral("en");
    return options;
}

void PanelRig::click(const char* objectName)
{
    QTest::mouseClick(&get(objectName), Qt::LeftButton);
}

void PanelRig::enter(const char* objectName, const QString& text)
{
    auto& field = get<QLineEdit>(objectName);
    field.setFocus();
    field.selectAll();
    if (text.isEmpty())
        QTest::keyClick(&field, Qt::Key_Delete);
    else
        QTest::keyClicks(&field, text);
    QTest::keyClick(&field, Qt::Key_Return);
}

void PanelRig::clickAll(const QString& objectNames)
{
    for (const QString& name : objectNames.split(' ', Qt::SkipEmptyParts))
        get<QAbstractButton>(qPrintable(name)).click();
}

void PanelRig::openPanel(const char* button)
{
    click(button);
    QTRY_VERIFY(!SidePanels::moving());
}

void PanelRig::choose(const QString& code)
{
    const auto actions = m_window->findChildren<QAction*>();
    for (QAction* action : actions) {
        if (action->data().toString() == code)
            action->trigger();
    }
    QCoreApplication::processEvents();
}

QString PanelRig::saveProfile(const QString& name)
{
    get<QLineEdit>("profile_name").setText(name);
    clickAll("save_quick");
    return userFolder() + "/QUICK_Profile_" + name + ".xml";
}

void PanelRig::connectDevice()
{
    click("connect");
    // The attempt is over when the wait cursor of the search and of the push is gone.
    // Waiting for events is quicker than looking again and again.
    QTimer tooLong;
    tooLong.setSingleShot(true);
    tooLong.start(longestAttemptMs);
    while (QGuiApplication::overrideCursor() && tooLong.isActive())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    QVERIFY(tooLong.isActive());
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QString PanelRig::indicators()
{
    const auto picture = [this](const char* name) {
        return get<QLabel>(name).pixmap(Qt::ReturnByValue).toImage();
    };
    QString on;
    for (const char* name : {"AM", "FM", "PM"}) {
        const auto& button = get<QPushButton>(name);
        if (picture("label_AmPmFm") == button.icon().pixmap(button.iconSize()).toImage())
            on += name;
    }
    return on + (picture("label_PULM").isNull() ? "" : " PULM") +
           (picture("label_Gener").isNull() ? "" : " LF");
}
