#include "tests/demo/demo_session.h"
#include "tests/support/rows.h"

#include <QElapsedTimer>

#include <thread>

class DemoBusTest : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void unplugAndPlug();
    void instrumentFile();
    void refusedDescriptions_data();
    void refusedDescriptions();
    void massStorageWithFile();
    void massStorageWithoutFile();
    void bootloader();
    void faultAtCall_data();
    void faultAtCall();
    void latencyAndWait();
    void replacedReplies();
    void transcript();
};

namespace
{

void writeFile(const QString& name, const QByteArray& text)
{
    QFile file(name);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(text);
}

QByteArray readFile(const QString& name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

} // namespace

void DemoBusTest::cleanup()
{
    qunsetenv("KLV_DEMO_FILE");
}

void DemoBusTest::unplugAndPlug()
{
    DemoSession instrument;
    instrument.write("FREQ 3 GHZ");
    demo("unplug");
    QCOMPARE(instrument.query("FREQ?"), "VISA " + describe(VI_ERROR_CONN_LOST));
    ViFindList list = VI_NULL;
    char address[VI_FIND_BUFLEN] = {};
    QCOMPARE(viFindRsrc(instrument.resourceManager, "USB?*", &list, nullptr, address),
             VI_ERROR_RSRC_NFOUND);
    demo("plug 20215678");
    QCOMPARE(instrument.query("FREQ?"), "VISA " + describe(VI_ERROR_CONN_LOST));
    ViSession again = VI_NULL;
    QCOMPARE(viOpen(instrument.resourceManager, DemoSession::address, VI_EXCLUSIVE_LOCK, 0, &again),
             VI_SUCCESS);
    QCOMPARE(viClose(instrument.session), VI_SUCCESS);
    QCOMPARE(demo("plug 5"), QByteArray("error: no such instrument"));
}

void DemoBusTest::instrumentFile()
{
    QTemporaryDir folder;
    const QString name = folder.filePath("instruments.ini");
    const QByteArray first = "# two of them\n[111]\nmodel = KLV-6G\nfirmware=1.4.0\n"
                             "powerMaxDbm=13\n";
    const QByteArray second = "[20215678]\nmaker=Veltro\ncalibrationDue=01.02.2030\n";
    writeFile(name, first + second);
    qputenv("KLV_DEMO_FILE", name.toLocal8Bit());
    DemoSession instrument;
    QCOMPARE(instrument.opened, VI_SUCCESS);
    QCOMPARE(instrument.query("SERV:SOUR:CDUE?"), QByteArray("01.02.2030"));
    ViSession other = VI_NULL;
    QCOMPARE(viOpen(instrument.resourceManager, "USB::0x5645::0x40::111", 0, 0, &other),
             VI_SUCCESS);
    char reply[64] = {};
    viQueryf(other, "*IDN?;POW? MAX;FREQ? MAX\n", "%T", reply);
    QCOMPARE(QByteArray(reply), QByteArray("Veltro,KLV-6G,111,1.4.0;13;6000000000\n"));

    instrument.write("FREQ 3 GHZ");
    writeFile(name, second);
    QTRY_COMPARE(viPrintf(other, "*CLS\n"), VI_ERROR_CONN_LOST);
    QCOMPARE(instrument.query("FREQ?"), QByteArray("3000000000"));
    writeFile(name, first + second + "frequencyMaxHz=4e9\n");
    QTRY_COMPARE(instrument.query("FREQ? MAX"), QByteArray("4000000000"));
    QCOMPARE(viPrintf(other, "*CLS\n"), VI_ERROR_CONN_LOST);
    QFile::remove(name);
    QTRY_COMPARE(instrument.query("FREQ?"), "VISA " + describe(VI_ERROR_CONN_LOST));
}

void DemoBusTest::refusedDescriptions_data()
{
    testColumns<QByteArray, QByteArray>("line", "fault");
    const QByteArray rows[][2] = {
        {"frequencyMaxHz=1e18", "frequencyMaxHz is 0 to 1000000000000"},
        {"listDwellMinUs=0", "listDwellMinUs is 0.001 to 1000000000000"},
        {"sweepPointsMax=1e300", "sweepPointsMax is 0 to 65535"},
        {"powerMinDbm=25", "powerMinDbm puts the lowest value above the highest"},
        {"latencyUs=16e9", "latencyUs is 0 to 60000000"},
        {"LatencyUs=-1", "latencyUs is 0 to 60000000"},
    };
    for (const auto& row : rows)
        testRow(row[0].constData(), row[0], row[1]);
}

void DemoBusTest::refusedDescriptions()
{
    QFETCH(QByteArray, line);
    QFETCH(QByteArray, fault);
    const QByteArray text = "# one\n[20215678]\nmodel=KLV-20G\n" + line;
    DemoSession instrument;
    QCOMPARE(demo("instruments " + text), "error: line 4: " + fault);
    QCOMPARE(instrument.query("FREQ? MAX"), QByteArray("20000000000"));
    QTemporaryDir folder;
    const QString name = folder.filePath("instruments.ini");
    writeFile(name, text);
    qputenv("KLV_DEMO_FILE", name.toLocal8Bit());
    demo("reset");
    QCOMPARE(demo("ask *IDN?"), QByteArray("error: no such instrument"));
}

void DemoBusTest::massStorageWithFile()
{
    QTemporaryDir folder;
    const QString name = folder.filePath("instruments.ini");
    const QByteArray before =
        "; [20215678] is kept\n[111]\nmassStorage=on\n[20215678]\nmodel=KLV-20G\n";
    writeFile(name, before);
    qputenv("KLV_DEMO_FILE", name.toLocal8Bit());
    DemoSession instrument;
    QCOMPARE(instrument.query("MEM:MSC?"), QByteArray("OFF"));
    instrument.write("MEM:MSC OFF");
    QCOMPARE(readFile(name), before);
    QCOMPARE(instrument.errors(), QByteArray());
    instrument.write("MEM:MSC ON");
    const QByteArray after = QByteArray(before).replace("678]\n", "678]\nmassStorage=on\n");
    QCOMPARE(readFile(name), after);
    QCOMPARE(instrument.query("*IDN?"), "VISA " + describe(VI_ERROR_CONN_LOST));

    ViSession again = VI_NULL;
    QCOMPARE(viOpen(instrument.resourceManager, DemoSession::address, 1, 0, &again), VI_SUCCESS);
    char reply[64] = {};
    viQueryf(again, "MEM:MSC?\n", "%T", reply);
    QCOMPARE(QByteArray(reply), QByteArray("ON\n"));
    QCOMPARE(viPrintf(again, "MEM:MSC OFF\n"), VI_SUCCESS);
    QCOMPARE(readFile(name),
             QByteArray(after).replace("678]\nmassStorage=on", "678]\nmassStorage=off"));
    QCOMPARE(viPrintf(again, "*CLS\n"), VI_ERROR_CONN_LOST);
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files).size(), 1);
}

void DemoBusTest::massStorageWithoutFile()
{
    DemoSession instrument(VI_EXCLUSIVE_LOCK, "instruments [20215678]\nmassStorage=on\n");
    demo("instruments [20215678]\nmassStorage=off\n");
    QCOMPARE(instrument.query("MEM:MSC?"), "VISA " + describe(VI_ERROR_CONN_LOST));
    viClose(instrument.session);
    viOpen(instrument.resourceManager, DemoSession::address, 1, 0, &instrument.session);
    QCOMPARE(instrument.query("MEM:MSC?"), QByteArray("OFF"));
    instrument.write("*RST");
    instrument.write("MEM:MSC ON");
    QCOMPARE(instrument.query("MEM:MSC?"), "VISA " + describe(VI_ERROR_CONN_LOST));
    viClose(instrument.session);
    viOpen(instrument.resourceManager, DemoSession::address, 1, 0, &instrument.session);
    QCOMPARE(instrument.query("MEM:MSC?"), QByteArray("ON"));
}

void DemoBusTest::bootloader()
{
    DemoSession instrument;
    QCOMPARE(instrument.write("MEM:REPROGRAM"), VI_SUCCESS);
    QCOMPARE(instrument.write("*CLS"), VI_ERROR_CONN_LOST);
    ViSession session = VI_NULL;
    QCOMPARE(viOpen(instrument.resourceManager, DemoSession::address, 0, 0, &session),
             VI_ERROR_RSRC_NFOUND);
}

// A fault at the third call of: set and read back, write, read, write. What each then returns.
void DemoBusTest::faultAtCall_data()
{
    testColumns<QByteArray, QByteArray>("fault", "outcome");
    const QByteArray fine = "0 ";
    const QByteArray timeout = describe(VI_ERROR_TMO) + " ";
    const QByteArray lost = describe(VI_ERROR_CONN_LOST) + " ";
    testRow("none", QByteArray("fault 9 status 0xBFFF0015"), fine.repeated(4));
    testRow("query", QByteArray("fault 1 status 0xBFFF0015"), timeout + fine.repeated(3));
    testRow("write", QByteArray("fault 2 status 0xBFFF0015"), fine + timeout + timeout + fine);
    testRow("read", QByteArray("fault 3 status 0xBFFF0015"), fine.repeated(2) + timeout + fine);
    testRow("warning", QByteArray("fault 4 status 0x3FFF0085"),
            fine.repeated(3) + describe(VI_WARN_UNKNOWN_STATUS) + " ");
    testRow("cable", QByteArray("fault 3 vanish"), fine.repeated(2) + lost.repeated(2));
    testRow("silence", QByteArray("reply *IDN? ->"), fine.repeated(2) + timeout + fine);
}

void DemoBusTest::faultAtCall()
{
    QFETCH(QByteArray, fault);
    QFETCH(QByteArray, outcome);
    DemoSession instrument;
    QCOMPARE(demo(fault), QByteArray());
    char reply[64] = {};
    QByteArray statuses;
    const auto note = [&statuses](ViStatus status) { statuses += describe(status) + " "; };
    note(viQueryf(instrument.session, "FREQ %lf Hz;FREQ?\n", "%T", 5e9, reply));
    note(viPrintf(instrument.session, "*IDN?\n"));
    note(viScanf(instrument.session, "%T", reply));
    note(viPrintf(instrument.session, "AM 1\n"));
    QCOMPARE(statuses, outcome);
    if (fault.startsWith("fault 1"))
        QCOMPARE(instrument.query("FREQ?"), QByteArray("5000000000"));
}

void DemoBusTest::latencyAndWait()
{
    DemoSession instrument;
    QElapsedTimer timer;
    demo("latency 20000");
    timer.start();
    instrument.query("*OPC?");
    QVERIFY(timer.elapsed() >= 40);
    demo("latency 0");
    demo("timeouts real");
    // A reply that comes during a wait for it is not missed.
    viSetAttribute(instrument.session, VI_ATTR_TMO_VALUE, 30000);
    std::thread writer([&instrument] { viPrintf(instrument.session, "*IDN?\n"); });
    QVERIFY(instrument.read().startsWith("Veltro"));
    writer.join();
}

void DemoBusTest::replacedReplies()
{
    DemoSession instrument;
    demo("reply *idn? -> Veltro,\\x01");
    QCOMPARE(instrument.query("*IDN?;FREQ?"), QByteArray("Veltro,\x01;1000000000"));
    demo("reply FREQ? MAX -> 5e9");
    QCOMPARE(instrument.query("FREQ? MAX"), QByteArray("5e9"));
    QCOMPARE(instrument.query("FREQ? MIN"), QByteArray("100000"));
    demo("reply *IDN?");
    QVERIFY(instrument.query("*IDN?").startsWith("Veltro,KLV"));
}

void DemoBusTest::transcript()
{
    DemoSession instrument;
    ViFindList list = VI_NULL;
    char address[VI_FIND_BUFLEN] = {};
    const int callsBefore = demo("calls").toInt();
    viFindRsrc(instrument.resourceManager, "USB?*", &list, nullptr, address);
    viClose(list);
    instrument.write("FREQ 1 Hz\t");
    instrument.read();
    viClose(instrument.session);
    viOpen(instrument.resourceManager, DemoSession::address, 0, 0, &instrument.session);
    QCOMPARE(demo("transcript"), QByteArray("find USB?*\n> FREQ 1 Hz\\t\\n\ntimeout\nclose\n"
                                            "open USB0::0x5645::0x0040::20215678::0::INSTR\n"));
    QCOMPARE(demo("calls").toInt(), callsBefore + 6);
    QCOMPARE(demo("nonsense"), QByteArray("error: no such command"));
}

QTEST_GUILESS_MAIN(DemoBusTest)
#include "demo_bus_test.moc"
