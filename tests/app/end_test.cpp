#include "app/end_requests.h"
#include "link/instrument_limits.h"
#include "link/pause.h"
#include "tests/support/panel_test.h"
#include "tests/support/rows.h"
#include "ui/error_box.h"
#include "ui/files/user_folder.h"

#include <QLineEdit>
#include <QMenu>
#include <QProcess>
#include <QSessionManager>

#include <csignal>
#include <functional>
#include <unistd.h>

/// The ends that the user has not clicked: signals, and the end of the desktop's session.
class EndTest : public PanelTest
{
    Q_OBJECT

private slots:
    void signalHandsBack_data();
    void signalHandsBack();
    void sessionsEndHandsBack();
    void programEndsBySignal_data();
    void programEndsBySignal();

private:
    /// Runs the event loop until it is ended.
    bool isEnded(const std::function<void()>& act, int afterMs);
};

bool EndTest::isEnded(const std::function<void()>& act, int afterMs)
{
    constexpr int endless = 99;
    QTimer::singleShot(afterMs, this, act);
    // Its own: one left over would end a loop of a later row.
    QTimer tooLong;
    connect(&tooLong, &QTimer::timeout, [] { QCoreApplication::exit(endless); });
    tooLong.start(10000);
    return QCoreApplication::exec() != endless;
}

void EndTest::signalHandsBack_data()
{
    testColumns<QString, int>("amid", "number");
    for (const char* amid : {"idle", "off the bus", "connecting", "a pause", "a transfer",
                             "an error box", "a dialog", "a menu", "a profile"})
        testRow(amid, QString(amid), SIGTERM);
    testRow("SIGHUP", "idle", SIGHUP);
    testRow("SIGINT, twice", "twice", SIGINT);
}

void EndTest::signalHandsBack()
{
    QFETCH(QString, amid);
    QFETCH(int, number);
    pauses().share = 1.0; // the signal comes amid them
    PanelRig rig;
    rig.window().start();
    const auto requests = createEndRequests();
    connect(requests.get(), &EndRequests::requested, &rig.window(), &MainWindow::endProgram);
    const bool isConnecting = amid == "connecting";
    const bool isAway = amid == "off the bus";
    if (isAway)
        (*m_demo)("unplug");
    if (!isConnecting)
        rig.connectDevice();
    QCOMPARE(rig.isConnected(), !isConnecting && !isAway);
    rig.enter("FREQ", "5M");
    m_demo->takeTranscript();
    const auto act = [&] {
        QDialog dialog(&rig.window());
        const auto strike = [=] {
            ::raise(number);
            if (amid == "twice")
                ::raise(number);
        };
        QTimer::singleShot(isConnecting ? 7 : 50, &rig.window(), strike);
        if (isConnecting)
            rig.get<QPushButton>("connect").click();
        else if (amid == "a pause")
            rig.get<QPushButton>("AM").click();
        else if (amid == "a transfer")
            rig.get<QPushButton>("button_List").click();
        else if (amid == "an error box")
            ErrorBox::report("message", &rig.window());
        else if (amid == "a dialog")
            dialog.exec();
        else if (amid == "a menu")
            rig.get<QPushButton>("menuButton").menu()->exec();
        else if (amid == "a profile")
            rig.get<QPushButton>("quick_1").click();
    };
    if (amid == "a profile") {
        rig.get<QPushButton>("AM").click();
        rig.get<QLineEdit>("profile_name").setText("one");
        rig.get<QPushButton>("save_quick").click();
        rig.get<QPushButton>("AM").click();
        QTRY_VERIFY(Activities::global().texts().isEmpty());
    }
    QVERIFY(isEnded(act, 0));
    QVERIFY(!rig.isConnected());
    QVERIFY(!rig.window().isVisible());
    const QStringList sent = m_demo->takeSent();
    if (!isAway && !(isConnecting && sent.isEmpty()))
        QCOMPARE(sent.mid(sent.size() - 2), QStringList({"*RST\\n", "MEM:MSC ON\\n"}));
    QVERIFY(QFileInfo::exists(userFolder() + "/QUICK_Profile_last.xml"));
    rig.end();
    QVERIFY(m_demo->takeSent().isEmpty());
}

/// Everything is done by the time the signal has been heard: nobody waits any longer.
void EndTest::sessionsEndHandsBack()
{
    PanelRig rig;
    rig.window().start();
    rig.connectDevice();
    m_demo->takeTranscript();
    QStringList sent;
    bool isKept = false;
    const auto look = [&] {
        sent = m_demo->takeSent();
        isKept = QFileInfo::exists(userFolder() + "/QUICK_Profile_last.xml");
    };
    const auto act = [&] {
        // The session manager itself is the desktop's; nobody looks at what it is.
        alignas(8) char nobody[64] = {};
        emit qGuiApp->commitDataRequest(reinterpret_cast<QSessionManager&>(nobody));
        look();
    };
    QVERIFY(isEnded(act, 0));
    QCOMPARE(sent, QStringList({"*RST\\n", "MEM:MSC ON\\n"}));
    QVERIFY(isKept);
}

void EndTest::programEndsBySignal_data()
{
    testColumns<int>("number");
    testRow("SIGTERM", SIGTERM);
    testRow("SIGHUP", SIGHUP);
    testRow("SIGINT", SIGINT);
}

void EndTest::programEndsBySignal()
{
    QFETCH(int, number);
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("KLV_DEMO_TRACE", "1");
    program.setProcessEnvironment(environment);
    program.setProcessChannelMode(QProcess::MergedChannels);
    program.start(KLV_PROGRAM, {"--demo"});
    QByteArray output;
    const auto read = [&](const QByteArray& text) {
        return QTest::qWaitFor(
            [&] {
                output += program.readAll();
                return output.contains(text);
            },
            20000);
    };
    QVERIFY2(read("<- MEM:DAC?"), output.constData());
    QCOMPARE(::kill(static_cast<pid_t>(program.processId()), number), 0);
    QVERIFY(program.waitForFinished(10000));
    output += program.readAll();
    QCOMPARE(program.exitStatus(), QProcess::NormalExit);
    QCOMPARE(program.exitCode(), 0);
    const int reset = output.lastIndexOf("<- *RST");
    QVERIFY2(output.indexOf("<- MEM:MSC ON", reset) > reset, output.constData());
    QVERIFY(output.indexOf("<- MEM:DAC?") < reset);
    QVERIFY(QFileInfo::exists(userFolder() + "/QUICK_Profile_last.xml"));
}

QTEST_MAIN(EndTest)
#include "end_test.moc"
