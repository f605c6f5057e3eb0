#include "link/pause.h"
#include "tests/support/rows.h"
#include "tests/sweep/sweep_rig.h"

#include <memory>

namespace
{
constexpr int shortPauseMs = 200;
const QString sweepButton = QStringLiteral("button_Sweep");
const QString listButton = QStringLiteral("button_List");
const QStringList freeRun = {"TRIG:SOUR IMM!", "INIT:CONT OFF!"};
const QStringList powerSweep = {"POW:MODE SWE", "FREQ:MODE FIX", "INIT:IMM", "*TRG"};
const QStringList cwRestored = {"FREQ 1500000000.000000 Hz;FREQ?!", "POW -7.000000;POW?!"};

QStringList stopped(const QString& abortCommand)
{
    return QStringList{"INIT:CONT OFF!", abortCommand, "FREQ:MODE FIX!", "POW:MODE FIX!"} +
           cwRestored;
}
const QStringList sweepStopped = stopped("ABORt!");
const QStringList listStopped = stopped("*ABORt!");

const QStringList usualSweep = {"-4", "10 000 000", "50 000 000", "5", "1 000"};
const QStringList sweepStarted = QStringList{"SWEep:POINts 5!", "POW -4!", "FREQ:START 10000000!",
                                             "FREQ:STOP 50000000!", "SWEep:DWELl 0.001!"} +
                                 freeRun +
                                 QStringList{"FREQ:MODE SWE", "POW:MODE FIX", "INIT:IMM", "*TRG"};
const QStringList usualList = {"1 000 000;-1;50", "2 000 000;-2;100"};
const QStringList listStarted = QStringList{"LIST:FREQ 1 000 000Hz,2 000 000Hz~!",
                                            "LIST:POW -1,-2~!", "LIST:DWEL 5e-05,0.0001~!"} +
                                freeRun +
                                QStringList{"FREQ:MODE LIST", "POW:MODE LIST", "INIT:IMM"};
} // namespace

/// How sweeps and lists start and stop, and what is left when something comes in between.
class SweepCommandsTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_rig.reset();
        m_rig = std::make_unique<SweepRig>(shortPauseMs);
        m_rig->panel.trigger().continuousMode().setChecked(false);
        m_rig->setSweep(usualSweep);
        m_rig->fill(usualList);
    }
    void cleanup() { m_rig.reset(); }

    void runs()
    {
        const auto row = freshRows(this, [this](const QString& clicks, const QStringList& texts,
                                                const QStringList& started) {
            // Whether or not the instrument accepts the texts.
            m_rig->demo("reply SYSTem:ERRor? -> 0,\"No error\"");
            const QString button = clicks.section(' ', -1);
            m_rig->click(clicks.section(' ', 0, -2));
            m_rig->setSweep(texts);
            for (int i = 0; i < 2; ++i) {
                m_rig->click(button);
                QCOMPARE(m_rig->sent(), started);
                QCOMPARE(m_rig->usableCw(), QString("----"));
                m_rig->click(button);
                QCOMPARE(m_rig->sent(), button == listButton ? listStopped : sweepStopped);
                verifyAtRest();
            }
            QCOMPARE(m_rig->events.join(' '),
                     QString("starting started stopped starting started stopped"));
        });
        const QString power = "power_toFrom_freq button_Sweep";
        row("frequency", sweepButton, usualSweep, sweepStarted);
        row("power", power, QStringList{"1 200 000 000", "-20", "- 5", "1 601", "50"},
            QStringList{"SWEep:POINts 1601!", "FREQ 1200000000 Hz!", "POW:START -20!",
                        "POW:STOP - 5!", "SWEep:DWELl 5e-05!"} +
                freeRun + powerSweep);
        row("six digits", power, QStringList{"9 000", "-1.5", "0.25", "2", "12 345 678.9"},
            QStringList{"SWEep:POINts 2!", "FREQ 9000 Hz!", "POW:START -1.5!", "POW:STOP 0.25!",
                        "SWEep:DWELl 12.3457!"} +
                freeRun + powerSweep);
        row("list", listButton, usualSweep, listStarted);
    }

    /// A run that is clicked from within the field does not even announce itself.
    void nothingToRun()
    {
        const auto check = [this](const char* name, const char* typed, const char* accepted) {
            init();
            auto& edit = *m_rig->get<QLineEdit>(name);
            m_rig->host.activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(&m_rig->host));
            edit.setFocus();
            edit.selectAll();
            QTest::keyClick(&edit, Qt::Key_Delete);
            QTest::keyClicks(&edit, typed);
            m_rig->fields.takeSaid();
            QTest::mouseClick(&m_rig->panel.runSweep(), Qt::LeftButton);
            QCOMPARE(edit.text(), QString(accepted));
            verifyNothing();
            QCOMPARE(m_rig->fields.said.size(), 1);
            QVERIFY(m_rig->fields.said.first().startsWith(edit.accessibleName() + ':'));
            m_rig->click(sweepButton);
            QVERIFY(m_rig->panel.runSweep().isChecked());
        };
        check("Freq_Pow", "5-3", "0");
        check("Start", "", "25 000 000");
        check("Stop", ".", "1 000 000 000");
        check("Step", " ", "100");
        check("Time", "", "1 000");
    }

    void neitherStarts()
    {
        m_rig->fill({});
        m_rig->click(listButton);
        QCOMPARE(m_rig->fields.said.last(), QString("The list has no points to run"));
        // Cells without a power send that of the main window.
        m_rig->fill({"1 000 000;;50"});
        m_rig->power.setText("-");
        m_rig->click(listButton);
        QCOMPARE(m_rig->power.text(), QString("-7"));
        verifyNothing();
        // Without an instrument both buttons spring back.
        m_rig->session.close();
        m_rig->sent();
        m_rig->click("button_Sweep button_List");
        verifyNothing();
    }

    void restoresCw()
    {
        const auto row = freshRows(this, [this](const QString& frequency, const QString& power,
                                                const QStringList& sent, const QString& shown) {
            m_rig->click(sweepButton);
            m_rig->frequency.setText(frequency);
            m_rig->power.setText(power);
            m_rig->sent();
            m_rig->click(sweepButton);
            QCOMPARE(QStringList(m_rig->sent().mid(4)), sent);
            QCOMPARE(m_rig->frequency.text() + '|' + m_rig->power.text(), shown);
        });
        row("fraction of a dB", "2 500 000.4", "-5.5",
            QStringList{"FREQ 2500000.400000 Hz;FREQ?!", "POW 0.000000;POW?!"}, "2 500 000|0");
        row("no number", "", "5-3", cwRestored, "1 500 000 000|-7");
    }

    /// In a pause of the transfer; the table is shorter then, so that the second run takes no
    /// pauses.
    void newestClickWins()
    {
        const auto row = freshRows(this, [this](const QString& clicked,
                                                const QStringList& sentAfter, const QString& runs) {
            m_rig->fillRows(70);
            QStringList sentBefore;
            m_rig->whenSent("LIST:POW:ADD", [&] {
                sentBefore = m_rig->sent();
                m_rig->fill(usualList);
                m_rig->click(clicked);
            });
            m_rig->click(listButton);
            QCOMPARE(m_rig->sent(), sentAfter);
            QCOMPARE(sentBefore.size(), 5);
            QCOMPARE(m_rig->panel.runList().isChecked(), runs == "List");
            QCOMPARE(m_rig->panel.runSweep().isChecked(), runs == "Sweep");
            QVERIFY(m_rig->isTidy());
            QCOMPARE(m_rig->usableCw(), QString(runs.isEmpty() ? "++++" : "----"));
            const QString mode = m_rig->ask("FREQ:MODE?");
            QVERIFY((runs.isEmpty() ? "Fix" : runs).startsWith(mode, Qt::CaseInsensitive));
        });
        // The transfer looks for errors once more, and the start of the run stops it once more.
        const QStringList lookedTwice =
            listStopped.mid(0, 5) + QStringList(cwRestored.last() + '!');
        row("off", listButton, lookedTwice + listStopped, "");
        row("off and on", "button_List button_List", listStopped + listStarted, "List");
        row("off, on and off", "button_List button_List button_List",
            listStopped + listStarted + listStopped, "");
        row("the other", sweepButton, listStopped + sweepStarted, "Sweep");
        row("the other and back", "button_Sweep button_List",
            listStopped + sweepStarted + sweepStopped + listStarted, "List");
    }

    void clicksWhileModulationGoesOff()
    {
        const auto row = freshRows(this, [this](const QString& clicked, const QStringList& sent) {
            int starts = 0;
            m_rig->whenStarting = [&] {
                if (starts++ > 0)
                    return;
                QCOMPARE(m_rig->sent(), QStringList());
                QTimer::singleShot(0, &m_rig->host, [&] { m_rig->click(clicked); });
                pause(shortPauseMs);
            };
            m_rig->click(sweepButton);
            QCOMPARE(m_rig->sent(), sent);
            QVERIFY(m_rig->isTidy());
        });
        row("none", "", sweepStarted);
        row("off", sweepButton, sweepStopped);
        row("off and on", "button_Sweep button_Sweep", sweepStopped + sweepStarted);
        row("the other", listButton, sweepStopped + listStarted);
    }

    /// At each call in turn, from the start of a run to the end of its stop.
    void lostConnection()
    {
        const auto row = freshRows(this, [this](const QString& button, const QString& fault) {
            QStringList undisturbed;
            for (int call = 0; call <= undisturbed.size(); ++call) {
                // What is only written has no answer to lose.
                if (call > 0 && fault != "vanish" && !undisturbed.at(call - 1).contains('?'))
                    continue;
                init();
                m_rig->fillRows(33);
                if (call > 0)
                    m_rig->demo(QString("fault %1 %2").arg(call).arg(fault));
                m_rig->click(button);
                if (m_rig->get(button)->isChecked())
                    m_rig->click(button);
                const QStringList sent = m_rig->demo.takeSent();
                if (call == 0)
                    undisturbed = sent;
                QVERIFY2(sent == undisturbed.mid(0, sent.size()), qPrintable(sent.join('\n')));
                // A lost answer is noticed where it is looked at, a lost cable at the next look.
                if (m_rig->session.isConnected())
                    QCOMPARE(sent.size(), undisturbed.size());
                else
                    QCOMPARE(sent.size(), fault == "vanish" ? call - 1 : call);
                QVERIFY(call == 0 || fault != "vanish" || !m_rig->session.isConnected());
                verifyAtRest();
            }
            QVERIFY(undisturbed.size() > 20);
        });
        for (const QString& button : {sweepButton, listButton}) {
            row(button + " unplugged", button, "vanish");
            row(button + " no answer", button, "status 0xBFFF0015");
        }
    }

    void endsInTheTransfer()
    {
        const auto row = freshRows(this, [this](bool isLost, bool isProgramOver) {
            m_rig->fillRows(70);
            QTimer::singleShot(0, &m_rig->host, [&] {
                m_rig->click(listButton);
                QCoreApplication::quit();
            });
            m_rig->whenSent("LIST:FREQ:ADD", [&] {
                m_rig->sent();
                if (isLost)
                    m_rig->disconnect();
                if (isProgramOver)
                    QCoreApplication::quit();
                else
                    m_rig->open();
            });
            QCoreApplication::exec();
            QCOMPARE(m_rig->sent(), QStringList());
            QVERIFY(m_rig->isTidy());
            QCOMPARE(m_rig->panel.isRunning(), !isLost);
            QCOMPARE(m_rig->events, QStringList("starting"));
        });
        row("another connection", true, false);
        row("program ends, handed back", true, true);
        row("program ends, still connected", false, true);
    }

private:
    /// Nothing runs, and nothing of a run is left.
    void verifyAtRest()
    {
        QVERIFY(!m_rig->panel.isRunning());
        QCOMPARE(m_rig->usableCw(), QString("++++"));
        QVERIFY(m_rig->isTidy());
    }
    /// And nothing has been there.
    void verifyNothing()
    {
        verifyAtRest();
        QCOMPARE(m_rig->sent(), QStringList());
        QCOMPARE(m_rig->events, QStringList());
    }

    std::unique_ptr<SweepRig> m_rig;
};

QTEST_MAIN(SweepCommandsTest)
#include "sweep_commands_test.moc"
