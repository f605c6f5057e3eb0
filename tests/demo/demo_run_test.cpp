#include "tests/demo/demo_session.h"
#include "tests/support/rows.h"

class DemoRunTest : public QObject
{
    Q_OBJECT

private slots:
    void run_data();
    void run();
    void refusedStarts_data();
    void refusedStarts();
    void powerSweepAtFixedFrequency();
    void pointsOfManyBlocks();
};

// The actions in order, and the position of the run after each: "STATE point frequency".
using Steps = QList<QPair<QByteArray, QByteArray>>;

namespace
{

const char* const sweep = "SWE:POIN 5;DWEL 0.001;:FREQ:STAR 1MHZ;STOP 5MHZ;MODE SWE";
const char* const list = "LIST:FREQ 10MHZ,20MHZ,30MHZ;DWEL 0.001,0.002,0.003;POW 0;"
                         ":FREQ:MODE LIST;:POW:MODE LIST";

QByteArray presentState(DemoSession& instrument)
{
    return instrument.query("TRIG:STAT?;:LIST:POIN:CURR?;:FREQ:CURR?").replace(';', ' ');
}

} // namespace

void DemoRunTest::run_data()
{
    testColumns<QByteArray, Steps>("setting", "steps");
    testRow("sweep, free", QByteArray(sweep),
            Steps{{"INIT:IMM", "RUN 1 1000000"},
                  {"clock 999", "RUN 1 1000000"},
                  {"*TRG", "RUN 1 1000000"},
                  {"clock 1001", "RUN 3 3000000"},
                  {"clock 2000", "RUN 5 5000000"},
                  {"clock 1000", "IDLE 5 5000000"},
                  {"FREQ:MODE LIST", "IDLE 0 1000000000"},
                  {"FREQ:MODE SWE", "IDLE 0 1000000000"},
                  {"INIT", "RUN 1 1000000"},
                  {"POW:MODE LIST", "IDLE 0 1000000000"},
                  {"POW:MODE FIX;:INIT", "RUN 1 1000000"},
                  {"ABOR", "IDLE 0 1000000000"}});
    testRow("sweep, repeated", QByteArray(sweep),
            Steps{{"INIT:CONT ON", "IDLE 0 1000000000"},
                  {"INIT:IMM", "RUN 1 1000000"},
                  {"clock 6000", "RUN 2 2000000"},
                  {"clock 50000001000", "RUN 3 3000000"},
                  {"INIT:CONT OFF", "RUN 3 3000000"},
                  {"clock 3000", "IDLE 5 5000000"},
                  {"INIT:CONT ON", "RUN 1 1000000"}});
    testRow("list, free", QByteArray(list),
            Steps{{"INIT:IMM", "RUN 1 10000000"},
                  {"clock 1000", "RUN 2 20000000"},
                  {"clock 1999", "RUN 2 20000000"},
                  {"clock 1", "RUN 3 30000000"},
                  {"clock 3000", "IDLE 3 30000000"}});
    testRow("sweep, by hand", QByteArray(sweep),
            Steps{{"TRIG:SOUR BUS", "IDLE 0 1000000000"},
                  {"LIST:MODE MAN", "IDLE 0 1000000000"},
                  {"INIT:IMM", "WAIT 0 1000000000"},
                  {"*TRG", "WAIT 1 1000000"},
                  {"LIST:MAN UP", "WAIT 2 2000000"},
                  {"LIST:MAN UP", "WAIT 3 3000000"},
                  {"clock 99000", "WAIT 3 3000000"},
                  {"LIST:MAN DOWN", "WAIT 2 2000000"},
                  {"LIST:MAN 5", "WAIT 5 5000000"},
                  {"LIST:MAN UP", "WAIT 5 5000000"},
                  {"*TRG", "IDLE 5 5000000"}});
    testRow("list, point by edge", QByteArray(list),
            Steps{{"TRIG:SLOP NEG;SOUR EXT", "IDLE 0 1000000000"},
                  {"LIST:MODE MAN", "IDLE 0 1000000000"},
                  {"INIT:CONT ON;IMM", "WAIT 0 1000000000"},
                  {"trigger rising", "WAIT 0 1000000000"},
                  {"*TRG", "WAIT 0 1000000000"},
                  {"trigger falling", "WAIT 1 10000000"},
                  {"trigger falling", "WAIT 2 20000000"},
                  {"trigger falling", "WAIT 3 30000000"},
                  {"trigger falling", "WAIT 1 10000000"}});
    testRow("list, all at one edge", QByteArray(list),
            Steps{{"TRIG:SOUR EXT", "IDLE 0 1000000000"},
                  {"INIT:CONT ON;IMM", "WAIT 0 1000000000"},
                  {"trigger rising", "RUN 1 10000000"},
                  {"clock 1500", "RUN 2 20000000"},
                  {"clock 9000", "WAIT 3 30000000"},
                  {"trigger rising", "RUN 1 10000000"}});
    testRow("changes in a run", QByteArray(sweep),
            Steps{{"TRIG:SOUR BUS", "IDLE 0 1000000000"},
                  {"INIT:IMM", "WAIT 0 1000000000"},
                  {"*TRG", "RUN 1 1000000"},
                  {"clock 1500", "RUN 2 2000000"},
                  {"LIST:MODE MAN", "WAIT 2 2000000"},
                  {"clock 5000", "WAIT 2 2000000"},
                  {"TRIG:SOUR IMM", "RUN 2 2000000"},
                  {"clock 1000", "RUN 3 3000000"},
                  {"SWE:POIN 4", "RUN 3 3666666.667"},
                  {"FREQ:MODE FIX", "IDLE 0 1000000000"}});
}

void DemoRunTest::run()
{
    QFETCH(QByteArray, setting);
    QFETCH(Steps, steps);
    DemoSession instrument;
    demo("clock stop");
    instrument.write(setting);
    for (const auto& [action, state] : steps) {
        if (action.startsWith("clock") || action.startsWith("trigger"))
            QCOMPARE(demo(action), QByteArray());
        else
            instrument.write(action);
        const QByteArray present = presentState(instrument);
        QVERIFY2(present == state, (action + ": " + present + ", not " + state).constData());
    }
    QCOMPARE(instrument.errors(), QByteArray());
}

void DemoRunTest::refusedStarts_data()
{
    testColumns<QByteArray, QByteArray>("message", "errors");
    const QByteArray rows[][2] = {
        {"INIT", "-221"},
        {"FREQ:MODE LIST;:INIT", "-221"},
        {"FREQ:MODE LIST;:POW:MODE SWE;:LIST:FREQ 1MHZ;DWEL 1;:INIT", "-221"},
        {"FREQ:MODE LIST;:POW:MODE LIST;:LIST:FREQ 1MHZ,2MHZ,3MHZ;POW 0,1;DWEL 1;:INIT", "-226"},
        {"FREQ:MODE SWE;:INIT;INIT", "-213"},
        {"LIST:MODE MAN;MAN UP", "-221"},
        {"FREQ:MODE SWE;:INIT;:LIST:MAN 2", "-221"},
        {"FREQ:MODE SWE;:LIST:MODE MAN;:INIT;:LIST:MAN 0", "-222"},
        {"FREQ:MODE SWE;:LIST:MODE MAN;:INIT;:LIST:MAN 102", "-222"},
        {"FREQ:MODE SWE;:TRIG:SOUR BUS;*TRG", "-211"},
    };
    for (const auto& row : rows)
        testRow(row[0].constData(), row[0], row[1]);
}

void DemoRunTest::refusedStarts()
{
    QFETCH(QByteArray, message);
    QFETCH(QByteArray, errors);
    DemoSession instrument;
    instrument.write(message);
    QCOMPARE(instrument.errors(), errors);
}

void DemoRunTest::powerSweepAtFixedFrequency()
{
    DemoSession instrument;
    demo("clock stop");
    instrument.write("SWE:POIN 21;DWEL 0.01;:FREQ 2 GHZ;:POW:STAR -10;STOP 10;MODE SWE;:INIT");
    demo("clock 55000");
    QCOMPARE(instrument.query("POW:CURR?;:FREQ:CURR?;:POW?"), QByteArray("-5;2000000000;0"));
}

// As the panel sends a table: a first block and blocks that are added, then one run through it.
void DemoRunTest::pointsOfManyBlocks()
{
    DemoSession instrument;
    demo("clock stop");
    for (const QByteArray name : {"FREQ", "POW", "DWEL"}) {
        const QByteArray value = name == "FREQ" ? "1 000 000Hz" : name == "POW" ? "-5" : "5e-05";
        QByteArray command = "LIST:" + name + " ";
        for (int block = 0; block < 100; ++block) {
            instrument.write(command + (value + ',').repeated(31) + value);
            QCOMPARE(instrument.query("*OPC?"), QByteArray("1"));
            command = "LIST:" + name + ":ADD ";
        }
        QCOMPARE(instrument.query("LIST:" + name + ":POIN?"), QByteArray("3200"));
    }
    instrument.write("FREQ:MODE LIST;:POW:MODE LIST;:INIT");
    demo("clock 50000");
    QCOMPARE(instrument.query("LIST:POIN:CURR?"), QByteArray("1001"));
    QCOMPARE(instrument.errors(), QByteArray());
}

QTEST_GUILESS_MAIN(DemoRunTest)
#include "demo_run_test.moc"
