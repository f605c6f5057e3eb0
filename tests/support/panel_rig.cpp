#include "tests/support/panel_rig.h"

#include "app/side_panels.h"

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

void PanelRig::openPanelOf(const QString& objectName)
{
    const QWidget& control = get(qPrintable(objectName));
    const struct {
        const char* panel;
        const char* button;
    } panels[] = {{"Modulat", "open_mod"}, {"List", "open_list"}, {"generator", "open_gener"}};
    for (const auto& row : panels) {
        if (get(row.panel).isAncestorOf(&control) && !get(row.panel).isVisible())
            click(row.button);
    }
    QTRY_VERIFY(!SidePanels::moving());
    QVERIFY(control.isVisible());
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

bool PanelRig::isConnected()
{
    return get<QPushButton>("connect").isChecked();
}

QString PanelRig::device()
{
    return get<QLabel>("device").text();
}

QString PanelRig::status()
{
    return get<QLabel>("status").text();
}
