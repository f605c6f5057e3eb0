#include "app/end_requests.h"
#include "link/pause.h"
#include "tests/support/panel_test.h"
#include "tests/support/rows.h"
#include "ui/error_box.h"
#include "ui/files/user_folder.h"

#include <QMenu>
#include <QSessionManager>

#include <csignal>
#include <functional>
#include <unistd.h>

/// The ends that the user has not clicked: signals, and the end of the desktop's session.
class EndTest : public PanelTest
{
    Q_OBJECT

private slots:
    void everyEndHandsBack_data()
    {
        testColumns<QString, int>("amid", "number");
        for (const char* amid : {"idle", "off the bus", "connecting", "a pause", "a transfer",
                                 "an error box", "a dialog", "a menu", "a profile", "log-off"})
            testRow(amid, QString(amid), SIGTERM);
        testRow("SIGHUP", "idle", SIGHUP);
        testRow("SIGINT, twice", "twice", SIGINT);
    }

    void everyEndHandsBack()
    {
        QFETCH(QString, amid);
        QFETCH(int, number);
        pauses().share = 1.0; // the signal comes amid them
        begin();
        m_rig->window().start();
        const auto requests = createEndRequests();
        connect(requests.get(), &EndRequests::requested, &m_rig->window(), &MainWindow::endProgram);
        const bool isConnecting = amid == "connecting";
        const bool isAway = amid == "off the bus";
        if (isAway)
            (*m_demo)("unplug");
        if (amid == "a profile") {
            m_rig->clickAll("AM");
            m_rig->saveProfile("one");
            m_rig->clickAll("AM");
        }
        if (!isConnecting)
            m_rig->connectDevice();
        QCOMPARE(m_rig->isConnected(), !isConnecting && !isAway);
        m_demo->takeTranscript();
        const std::pair<QString, QString> clicks[] = {{"connecting", "connect"},
                                                      {"a pause", "AM"},
                                                      {"a transfer", "button_List"},
                                                      {"a profile", "quick_1"}};
        QVERIFY(isEnded([&] {
            QTimer::singleShot(isConnecting ? 7 : 50, &m_rig->window(), [=] {
                if (amid == "log-off") {
                    // The session manager itself is the desktop's; nobody looks at what it is.
                    alignas(8) char nobody[64] = {};
                    emit qGuiApp->commitDataRequest(reinterpret_cast<QSessionManager&>(nobody));
                    // Nobody waits any longer.
                    QVERIFY(isStateKept() && (*m_demo)("transcript").contains("MEM:MSC ON"));
                    return;
                }
                ::raise(number);
                if (amid == "twice")
                    ::raise(number);
            });
            for (const auto& [when, button] : clicks) {
                if (amid == when)
                    m_rig->clickAll(button);
            }
            if (amid == "an error box")
                ErrorBox::report("message", &m_rig->window());
            else if (amid == "a dialog")
                QDialog(&m_rig->window()).exec();
            else if (amid == "a menu")
                m_rig->get<QMenu>("menu").exec();
        }));
        QVERIFY(!m_rig->isConnected());
        QVERIFY(!m_rig->window().isVisible());
        const QStringList sent = m_demo->takeCommands();
        if (!isAway && !(isConnecting && sent.isEmpty()))
            QCOMPARE(sent.mid(sent.size() - 2), QStringList({"*RST", "MEM:MSC ON"}));
        QVERIFY(isStateKept());
        // The resource manager is given back, and nothing is sent any more.
        const QString calls = (*m_demo)("calls");
        m_rig->end();
        QVERIFY((*m_demo)("calls") != calls);
        QVERIFY(m_demo->takeSent().isEmpty());
    }

    void programEndsBySignal()
    {
        QProcess program;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("KLV_DEMO_TRACE", "1");
        program.setProcessEnvironment(environment);
        program.setProcessChannelMode(QProcess::MergedChannels);
        program.start(KLV_PROGRAM, {"--demo"});
        QByteArray output;
        const auto isConnected = [&] {
            return (output += program.readAll()).contains("<- MEM:DAC?");
        };
        QVERIFY2(QTest::qWaitFor(isConnected, 20000), output.constData());
        QCOMPARE(::kill(static_cast<pid_t>(program.processId()), SIGTERM), 0);
        QVERIFY(program.waitForFinished(10000));
        output += program.readAll();
        QCOMPARE(program.exitStatus(), QProcess::NormalExit);
        QCOMPARE(program.exitCode(), 0);
        const int reset = output.lastIndexOf("<- *RST");
        QVERIFY2(output.indexOf("<- MEM:MSC ON", reset) > reset, output.constData());
        QVERIFY(output.indexOf("<- MEM:DAC?") < reset);
        QVERIFY(isStateKept());
    }

    void theProgramRefusesALanguage()
    {
        QProcess program;
        program.start(KLV_PROGRAM, {"--language", "de"});
        QVERIFY(program.waitForFinished(20000));
        QCOMPARE(program.exitCode(), 1);
        QVERIFY(program.readAllStandardError().contains("Unknown language \"de\": en or ru."));
    }

private:
    static bool isStateKept()
    {
        return QFileInfo::exists(userFolder() + "/QUICK_Profile_last.xml");
    }

    /// Runs the event loop until it is ended.
    bool isEnded(const std::function<void()>& act)
    {
        constexpr int endless = 99;
        QTimer::singleShot(0, this, act);
        // Its own: one left over would end a loop of a later row.
        QTimer tooLong;
        connect(&tooLong, &QTimer::timeout, [] { QCoreApplication::exit(endless); });
        tooLong.start(10000);
        return QCoreApplication::exec() != endless;
    }
};

QTEST_MAIN(EndTest)
#include "end_test.moc"
