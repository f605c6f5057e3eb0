#include "connection/hot_plug_watch.h"
#include "connection/running_copies.h"
#include "tests/support/panel_rig.h"
#include "tests/support/rows.h"
#include "tests/support/titled_copy.h"

#include <QProcess>

#include <windows.h>

#include <dbt.h>

namespace
{
const QString title = QStringLiteral("KLV-20G (20215678)");

/// What the second copy of this test does: shows the title until it may end, or is killed.
int hold()
{
    const TitledCopy copy(title);
    QTextStream(stdout) << "held" << Qt::endl;
    QTextStream(stdin).readLine();
    return 0;
}
} // namespace

/// Windows' own windows: titles that other copies see, and messages about devices.
class WindowsWindowTest : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_demo = std::make_unique<Demo>(); }

    void seesAnotherCopysInstrument_data()
    {
        testColumns<bool>("isKilled");
        testRow("ends by itself", false);
        testRow("is killed", true);
    }

    void seesAnotherCopysInstrument()
    {
        QFETCH(bool, isKilled);
        QProcess copy;
        copy.start(QCoreApplication::applicationFilePath(), {"--hold"});
        QVERIFY(copy.waitForReadyRead());
        QCOMPARE(copy.readLine().trimmed(), QByteArray("held"));
        PanelRig rig;
        rig.connectDevice();
        QVERIFY(!rig.isConnected());
        QCOMPARE(m_demo->takeSent(), QStringList());

        isKilled ? copy.kill() : copy.closeWriteChannel();
        QVERIFY(copy.waitForFinished());
        rig.connectDevice();
        QVERIFY(rig.isConnected());
    }

    void showsItsOwnInstrument()
    {
        const RunningCopies others;
        PanelRig rig;
        QVERIFY(!others.isTitleTaken(title));
        rig.connectDevice();
        QVERIFY(others.isTitleTaken(title));
        QVERIFY(!others.isTitleTaken("KLV-20G (2021567)"));
        rig.click("connect");
        QVERIFY(!others.isTitleTaken(title));
    }

    void looksAtTheDevicesOnTheirMessageOnly_data()
    {
        testColumns<uint, int>("event", "changes");
        testRow("nodes changed", uint(DBT_DEVNODES_CHANGED), 1);
        testRow("configuration changed", uint(DBT_CONFIGCHANGED), 0);
        testRow("nothing", 0u, 0);
    }

    void looksAtTheDevicesOnTheirMessageOnly()
    {
        QFETCH(uint, event);
        QFETCH(int, changes);
        const auto watch = createBusWatch();
        QSignalSpy changed(watch.get(), &HotPlugWatch::devicesChanged);
        QWidget window;
        window.show();
        const auto handle = reinterpret_cast<HWND>(window.winId());
        // One plug sends several.
        for (int i = 0; i < 3; ++i)
            SendMessageW(handle, WM_DEVICECHANGE, event, 0);
        if (changes > 0)
            QVERIFY(changed.wait());
        QVERIFY(!changed.wait(200));
        QCOMPARE(changed.count(), changes);
        // No such instrument here: the search itself has to succeed.
        QCOMPARE(watch->presentSerials(), QStringList());
    }

private:
    std::unique_ptr<Demo> m_demo;
};

int main(int argc, char* argv[])
{
    if (argc > 1 && qstrcmp(argv[1], "--hold") == 0)
        return hold();
    QApplication application(argc, argv);
    WindowsWindowTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "windows_window_test.moc"
