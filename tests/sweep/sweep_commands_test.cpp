#include "link/pause.h"
#include "tests/support/rows.h"
#include "tests/sweep/sweep_rig.h"

#include <memory>

namespace
{
constexpr int shortPauseMs = 200;
const QStringList freeRun = {"TRIG:SOUR IMM!", "INIT:CONT OFF!"};
const QStringList frequencySweep = {"FREQ:MODE SWE", "POW:MODE FIX", "INIT:IMM", "*TRG"};
const QStringList powerSweep = {"POW:MODE SWE", "FREQ:MODE FIX", "INIT:IMM", "*TRG"};
const QStringList listStart = {"FREQ:MODE LIST", "POW:MODE LIST", "INIT:IMM"};
const QStringList cwRestored = {"FREQ 1500000000.000000 Hz;FREQ?!", "POW -7.000000;POW?!"};

QStringList stopped(const QString& abortCommand)
{
    return QStringList{"INIT:CONT OFF!", abortCommand, "FREQ:MODE FIX!", "POW:MODE FIX!"} +
           cwRestored;
}
const QStringList sweepStopped = stopped("ABORt!");
const QStringList listStopped = stopped("*ABORt!");

const QStringList sweepBlock = {"SWEep:POINts 5!", "POW -4!", "FREQ:START 10000000!",
                                "FREQ:STOP 50000000!", "SWEep:DWELl 0.001!"};
const QStringList shortList = {"LIST:FREQ 1 000 000Hz,2 000 000Hz~!", "LIST:POW -1,-2~!",
                               "LIST:DWEL 5e-05,0.0001~!"};
} // namespace

/// How sweeps and lists start and stop, and what is left when something comes in between.
class SweepCommandsTest : public QObject
{
    Q_OBJECT

private slots:
    void init() { make(); }
    void cleanup() { m_rig.reset(); }

    void sweeps_data();
    void sweeps();
    void lists();
    void nothingToRun_data();
    void nothingToRun();
    void emptyListDoesNotStart();
    void instrumentRunsThePoints();
    void restoresCw_data();
    void restoresCw();
    void cwRestsInARun();
    void springsBackWithoutInstrument();
    void onlyOneRuns();
    void newestClickWins_data();
    void newestClickWins();
    void clicksWhileModulationGoesOff_data();
    void clicksWhileModulationGoesOff();
    void lostConnection_data();
    void lostConnection();
    void anotherConnectionIsLeftAlone();
    void endOfTheProgram_data();
    void endOfTheProgram();

private:
    void make()
    {
        m_rig.reset();
        m_rig = std::make_unique<SweepRig>(shortPauseMs);
        m_rig->panel.trigger().continuousMode().setChecked(false);
        setSweep({"-4", "10 000 000", "50 000 000", "5", "1 000"});
        m_rig->fill({"1 000 000;-1;50", "2 000 000;-2;100"});
    }
    void setSweep(const QStringList& texts)
    {
        m_rig->panel.sweep().fixedValue().setText(texts.at(0));
        m_rig->panel.sweep().start().setText(texts.at(1));
        m_rig->panel.sweep().stop().setText(texts.at(2));
        m_rig->panel.sweep().points().setText(texts.at(3));
        m_rig->panel.sweep().dwell().setText(texts.at(4));
    }
    /// Nothing runs, and nothing of a run is left.
    void verifyAtRest()
    {
        QVERIFY(!m_rig->panel.isRunning());
        QCOMPARE(m_rig->usableCw(), QString("++++"));
        QVERIFY(m_rig->isTidy());
    }

    std::unique_ptr<SweepRig> m_rig;
};

void SweepCommandsTest::sweeps_data()
{
    testColumns<bool, QStringList, QStringList>("isPower", "texts", "block");
    testRow("frequency", false, QStringList{"-4", "10 000 000", "50 000 000", "5", "1 000"},
            sweepBlock);
    testRow("power", true, QStringList{"1 200 000 000", "-20", "- 5", "1 601", "50"},
            QStringList{"SWEep:POINts 1601!", "FREQ 1200000000 Hz!", "POW:START -20!",
                        "POW:STOP - 5!", "SWEep:DWELl 5e-05!"});
    testRow("six digits", true, QStringList{"9 000", "-1.5", "0.25", "2", "12 345 678.9"},
            QStringList{"SWEep:POINts 2!", "FREQ 9000 Hz!", "POW:START -1.5!", "POW:STOP 0.25!",
                        "SWEep:DWELl 12.3457!"});
}

void SweepCommandsTest::sweeps()
{
    QFETCH(bool, isPower);
    QFETCH(QStringList, texts);
    QFETCH(QStringList, block);
    if (isPower)
        m_rig->click("power_toFrom_freq");
    setSweep(texts);
    // Whether or not the instrument accepts the texts.
    m_rig->demo("reply SYSTem:ERRor? -> 0,\"No error\"");
    for (int i = 0; i < 2; ++i) {
        m_rig->click("button_Sweep");
        QCOMPARE(m_rig->sent(), block + freeRun + (isPower ? powerSweep : frequencySweep));
        m_rig->click("button_Sweep");
        QCOMPARE(m_rig->sent(), sweepStopped);
    }
    QCOMPARE(m_rig->events,
             QStringList({"starting", "started", "stopped", "starting", "started", "stopped"}));
    verifyAtRest();
}

void SweepCommandsTest::lists()
{
    m_rig->click("button_List");
    QCOMPARE(m_rig->sent(), shortList + freeRun + listStart);
    m_rig->click("button_List");
    QCOMPARE(m_rig->sent(), listStopped);
    QCOMPARE(m_rig->events, QStringList({"starting", "started", "stopped"}));
}

void SweepCommandsTest::nothingToRun_data()
{
    testColumns<QString, QString, QString>("field", "typed", "accepted");
    const auto row = [](const char* field, const char* typed, const char* accepted) {
        testRow(field, field, typed, accepted);
    };
    row("Freq_Pow", "5-3", "0");
    row("Start", "", "25 000 000");
    row("Stop", ".", "1 000 000 000");
    row("Step", " ", "100");
    row("Time", "", "1 000");
}

/// A run that is clicked from within the field, or later, does not even announce itself.
void SweepCommandsTest::nothingToRun()
{
    QFETCH(QString, field);
    QFETCH(QString, typed);
    m_rig->fields.takeSaid();
    auto& edit = *m_rig->panel.findChild<QLineEdit*>(field);
    m_rig->panel.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_rig->panel.window()));
    edit.setFocus();
    edit.selectAll();
    QTest::keyClick(&edit, Qt::Key_Delete);
    QTest::keyClicks(&edit, typed);
    QTest::mouseClick(&m_rig->panel.runSweep(), Qt::LeftButton);
    QTEST(edit.text(), "accepted");
    verifyAtRest();
    edit.setText(typed);
    m_rig->click("button_Sweep");
    QTEST(edit.text(), "accepted");
    verifyAtRest();
    QCOMPARE(m_rig->sent(), QStringList());
    QCOMPARE(m_rig->events, QStringList());
    QCOMPARE(m_rig->fields.said.size(), 2);
    QVERIFY(m_rig->fields.said.first().startsWith(edit.accessibleName() + ':'));
    m_rig->click("button_Sweep");
    QVERIFY(m_rig->panel.runSweep().isChecked());
}

void SweepCommandsTest::emptyListDoesNotStart()
{
    m_rig->fill({});
    m_rig->click("button_List");
    QCOMPARE(m_rig->fields.said.last(), QString("The list has no points to run"));
    // Cells without a power send that of the main window.
    m_rig->fill({"1 000 000;;50"});
    m_rig->power.setText("-");
    m_rig->click("button_List");
    QCOMPARE(m_rig->power.text(), QString("-7"));
    QCOMPARE(m_rig->sent(), QStringList());
    QCOMPARE(m_rig->events, QStringList());
    verifyAtRest();
}

void SweepCommandsTest::instrumentRunsThePoints()
{
    m_rig->demo("clock stop");
    m_rig->click("button_Sweep");
    QCOMPARE(m_rig->whereItIs(), QString("1 RUN 10000000 -4"));
    m_rig->demo("clock 2500");
    QCOMPARE(m_rig->whereItIs(), QString("3 RUN 30000000 -4"));
    m_rig->demo("clock 2500");
    QCOMPARE(m_rig->whereItIs(), QString("5 IDLE 50000000 -4"));
    m_rig->click("trigMode button_List");
    QCOMPARE(m_rig->whereItIs(), QString("1 RUN 1000000 -1"));
    m_rig->demo("clock 75");
    QCOMPARE(m_rig->whereItIs(), QString("2 RUN 2000000 -2"));
    m_rig->demo("clock 100");
    QCOMPARE(m_rig->whereItIs(), QString("1 RUN 1000000 -1"));
    m_rig->click("button_List");
    QCOMPARE(m_rig->whereItIs(), QString("0 IDLE 1500000000 -7"));
}

void SweepCommandsTest::restoresCw_data()
{
    testColumns<QString, QString, QStringList, QString>("frequency", "power", "sent", "shown");
    testRow("fraction of a dB", "2 500 000.4", "-5.5",
            QStringList{"FREQ 2500000.400000 Hz;FREQ?!", "POW 0.000000;POW?!"}, "2 500 000|0");
    testRow("grouped", "1 000 000", "- 12",
            QStringList{"FREQ 1000000.000000 Hz;FREQ?!", "POW -12.000000;POW?!"}, "1 000 000|-12");
    testRow("no number", "", "5-3", cwRestored, "1 500 000 000|-7");
}

void SweepCommandsTest::restoresCw()
{
    QFETCH(QString, frequency);
    QFETCH(QString, power);
    m_rig->click("button_Sweep");
    m_rig->frequency.setText(frequency);
    m_rig->power.setText(power);
    m_rig->sent();
    m_rig->click("button_Sweep");
    QTEST(QStringList(m_rig->sent().mid(4)), "sent");
    QTEST(m_rig->frequency.text() + '|' + m_rig->power.text(), "shown");
}

void SweepCommandsTest::cwRestsInARun()
{
    for (const char* button : {"button_Sweep", "button_List"}) {
        m_rig->click(button);
        QCOMPARE(m_rig->usableCw(), QString("----"));
        m_rig->click(button);
        verifyAtRest();
    }
    m_rig->click("button_Sweep button_List");
    QCOMPARE(m_rig->usableCw(), QString("----"));
    m_rig->disconnect();
    verifyAtRest();
    QCOMPARE(m_rig->events.last(), QString("stopped"));
}

void SweepCommandsTest::springsBackWithoutInstrument()
{
    m_rig->session.close();
    m_rig->sent();
    for (const char* button : {"button_Sweep", "button_List"}) {
        QSignalSpy clicked(&m_rig->button(button), &QAbstractButton::clicked);
        QTest::mouseClick(&m_rig->button(button), Qt::LeftButton);
        QVERIFY(!clicked.isEmpty());
        verifyAtRest();
    }
    QCOMPARE(m_rig->sent(), QStringList());
    QCOMPARE(m_rig->events, QStringList());
}

void SweepCommandsTest::onlyOneRuns()
{
    m_rig->click("button_Sweep");
    m_rig->sent();
    m_rig->click("button_List");
    QCOMPARE(m_rig->sent(), sweepStopped + shortList + freeRun + listStart);
    m_rig->click("button_Sweep");
    QCOMPARE(m_rig->sent(), listStopped + sweepBlock + freeRun + frequencySweep);
    QVERIFY(m_rig->panel.runSweep().isChecked() && !m_rig->panel.runList().isChecked());
}

void SweepCommandsTest::newestClickWins_data()
{
    testColumns<QString, QStringList, QString>("clicked", "sentAfter", "runs");
    const QStringList secondRun = shortList + freeRun + listStart;
    // The transfer looks for errors once more, and the start of the run stops it once more.
    QTest::newRow("off") << "button_List"
                         << listStopped.mid(0, 5) + QStringList(cwRestored.last() + '!') +
                                listStopped
                         << "";
    testRow("off and on", "button_List button_List", listStopped + secondRun, "List");
    testRow("off, on and off", "button_List button_List button_List",
            listStopped + secondRun + listStopped, "");
    testRow("the other", "button_Sweep", listStopped + sweepBlock + freeRun + frequencySweep,
            "Sweep");
    testRow("the other and back", "button_Sweep button_List",
            listStopped + sweepBlock + freeRun + frequencySweep + sweepStopped + secondRun, "List");
}

/// In a pause of the transfer; the table is shorter then, so that the second run takes no pauses.
void SweepCommandsTest::newestClickWins()
{
    QFETCH(QString, clicked);
    QFETCH(QStringList, sentAfter);
    QFETCH(QString, runs);
    m_rig->fillRows(70);
    QStringList sentBefore;
    m_rig->whenSent("LIST:POW:ADD", [&] {
        sentBefore = m_rig->sent();
        m_rig->fill({"1 000 000;-1;50", "2 000 000;-2;100"});
        m_rig->click(clicked);
    });
    m_rig->click("button_List");
    QCOMPARE(m_rig->sent(), sentAfter);
    QCOMPARE(sentBefore.size(), 5);
    QCOMPARE(m_rig->panel.runList().isChecked(), runs == "List");
    QCOMPARE(m_rig->panel.runSweep().isChecked(), runs == "Sweep");
    QVERIFY(m_rig->isTidy());
    QCOMPARE(m_rig->usableCw(), QString(runs.isEmpty() ? "++++" : "----"));
    QVERIFY(
        (runs.isEmpty() ? "Fix" : runs).startsWith(m_rig->ask("FREQ:MODE?"), Qt::CaseInsensitive));
}

void SweepCommandsTest::clicksWhileModulationGoesOff_data()
{
    testColumns<QString, QStringList>("clicked", "sent");
    const QStringList start = sweepBlock + freeRun + frequencySweep;
    testRow("none", "", start);
    testRow("off", "button_Sweep", sweepStopped);
    testRow("off and on", "button_Sweep button_Sweep", sweepStopped + start);
    testRow("the other", "button_List", sweepStopped + shortList + freeRun + listStart);
}

void SweepCommandsTest::clicksWhileModulationGoesOff()
{
    QFETCH(QString, clicked);
    int starts = 0;
    m_rig->whenStarting = [&] {
        if (starts++ > 0)
            return;
        QCOMPARE(m_rig->sent(), QStringList());
        QTimer::singleShot(0, &m_rig->host, [&] { m_rig->click(clicked); });
        pause(shortPauseMs);
    };
    m_rig->click("button_Sweep");
    QTEST(m_rig->sent(), "sent");
    QVERIFY(m_rig->isTidy());
}

void SweepCommandsTest::lostConnection_data()
{
    testColumns<QString, QString>("button", "fault");
    for (const QString button : {"button_Sweep", "button_List"}) {
        testRow(button + " unplugged", button, "vanish");
        testRow(button + " no answer", button, "status 0xBFFF0015");
    }
}

/// At each call in turn, from the start of a run to the end of its stop.
void SweepCommandsTest::lostConnection()
{
    QFETCH(QString, button);
    QFETCH(QString, fault);
    QStringList undisturbed;
    for (int call = 0; call <= undisturbed.size(); ++call) {
        // What is only written has no answer to lose.
        if (call > 0 && fault != "vanish" && !undisturbed.at(call - 1).contains('?'))
            continue;
        make();
        m_rig->fillRows(33);
        if (call > 0)
            m_rig->demo(QString("fault %1 %2").arg(call).arg(fault));
        m_rig->click(button);
        if (m_rig->button(button).isChecked())
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
}

void SweepCommandsTest::anotherConnectionIsLeftAlone()
{
    m_rig->fillRows(70);
    m_rig->whenSent("LIST:FREQ:ADD", [this] {
        m_rig->disconnect();
        m_rig->open();
    });
    m_rig->click("button_List");
    QCOMPARE(m_rig->sent(), QStringList());
    verifyAtRest();
}

void SweepCommandsTest::endOfTheProgram_data()
{
    testColumns<bool>("isHandedBack");
    testRow("handed back", true);
    testRow("still connected", false);
}

void SweepCommandsTest::endOfTheProgram()
{
    QFETCH(bool, isHandedBack);
    m_rig->fillRows(70);
    QTimer::singleShot(0, &m_rig->host, [this] { m_rig->click("button_List"); });
    m_rig->whenSent("LIST:FREQ:ADD", [this, isHandedBack] {
        m_rig->sent();
        if (isHandedBack)
            m_rig->disconnect();
        QCoreApplication::quit();
    });
    QCoreApplication::exec();
    QCOMPARE(m_rig->sent(), QStringList());
    QVERIFY(m_rig->isTidy());
    QCOMPARE(m_rig->events, QStringList("starting"));
}

QTEST_MAIN(SweepCommandsTest)
#include "sweep_commands_test.moc"
