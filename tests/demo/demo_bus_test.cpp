#include "tests/demo/demo_session.h"

#include <QElapsedTimer>
#include <QProcess>

#include <atomic>
#include <cstdio>
#include <thread>

class DemoBusTest : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void find_data();
    void find();
    void openNames_data();
    void openNames();
    void attributesOfFindLists();
    void attributesOfSessions();
    void handlesAreChecked();
    void locksBetweenSessions();
    void sharedLocks();
    void lockOfAnotherProcess();
    void unplugAndPlug();
    void instrumentFile();
    void refusedDescriptions_data();
    void refusedDescriptions();
    void massStorageWithFile();
    void massStorageWithoutFile();
    void bootloader();
    void faultAtCall_data();
    void faultAtCall();
    void latencyAndTimeout();
    void replacedReplies();
    void transcript();
    void events();
    void searchBesideTraffic();
    void registersAreNotSupported();
};

namespace
{

const char* const twoInstruments = "instruments [20215678]\nmodel=KLV-6G\n"
                                   "[777]\nmaker = Other & Co\nmodel=X-1\nfrequencyMaxHz=5e9\n";

QByteArray describe(ViStatus status)
{
    return QByteArray::number(static_cast<ViUInt32>(status), 16);
}

template <typename Value>
Value attributeOf(ViObject object, ViAttr attribute)
{
    Value value = {};
    viGetAttribute(object, attribute, &value);
    return value;
}

QByteArray textOf(ViObject object, ViAttr attribute)
{
    char text[VI_FIND_BUFLEN] = {};
    const ViStatus status = viGetAttribute(object, attribute, text);
    return status == VI_SUCCESS ? QByteArray(text) : "VISA " + describe(status);
}

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

std::atomic<int> handledEvents{0};

ViStatus KLV_VISA_FIXED handleEvent(ViSession, ViEventType type, ViEvent context, ViAddr userHandle)
{
    if (userHandle == &handledEvents &&
        attributeOf<ViEventType>(context, VI_ATTR_EVENT_TYPE) == type)
        ++handledEvents;
    return VI_SUCCESS;
}

} // namespace

void DemoBusTest::cleanup()
{
    qunsetenv("KLV_DEMO_FILE");
}

void DemoBusTest::find_data()
{
    QTest::addColumn<QByteArray>("expression");
    QTest::addColumn<int>("count");
    const struct {
        const char* expression;
        int count;
    } rows[] = {
        {"USB?*", 2},
        {"?*", 2},
        {"?*INSTR", 2},
        {"?*::INSTR", 2},
        {"usb0::?*::777::?*", 1},
        {"USB[0-9]*::0x5645::?*", 2},
        {"(GPIB|USB)?*", 2},
        {"USB0::0x5645::0x0040::2021567[^1-7]::0::INSTR", 1},
        {"GPIB?*", -1},
        {"USB", -1},
        {"USB?**X", -1},
        {"(USB0|[x-z])+(::?+)+", 2},
        {"\\USB[^]?*7", -1},
        {"USB[", -2},
        {"USB(+", -2},
        {"USB?*)", -2},
        {"USB?*\\", -2},
        {"USB[9-0]?*", -2},
        {"", -2},
    };
    for (const auto& row : rows)
        QTest::newRow(row.expression) << QByteArray(row.expression) << row.count;
}

void DemoBusTest::find()
{
    QFETCH(QByteArray, expression);
    QFETCH(int, count);
    DemoSession instrument(VI_NO_LOCK, twoInstruments);
    ViFindList list = VI_NULL;
    ViUInt32 found = 0;
    char address[VI_FIND_BUFLEN] = {};
    const ViStatus status =
        viFindRsrc(instrument.resourceManager, expression.constData(), &list, &found, address);
    const ViStatus failures[] = {VI_ERROR_INV_EXPR, VI_ERROR_RSRC_NFOUND};
    QCOMPARE(status, count > 0 ? VI_SUCCESS : failures[count + 2]);
    if (count < 0)
        return;
    QCOMPARE(int(found), count);
    for (int i = 1; i < count; ++i)
        QCOMPARE(viFindNext(list, address), VI_SUCCESS);
    QCOMPARE(viFindNext(list, address), VI_ERROR_RSRC_NFOUND);
    QCOMPARE(viClose(list), VI_SUCCESS);
}

void DemoBusTest::openNames_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("status");
    const QByteArray address = DemoSession::address;
    QTest::newRow("as found") << address << 0 << int(VI_SUCCESS);
    QTest::newRow("short") << QByteArray("usb::0x5645::0x40::20215678") << 0 << int(VI_SUCCESS);
    QTest::newRow("decimal") << QByteArray("USB0::22085::64::20215678::INSTR") << 1
                             << int(VI_SUCCESS);
    QTest::newRow("other serial") << QByteArray("USB0::0x5645::0x0040::1::0::INSTR") << 0
                                  << int(VI_ERROR_RSRC_NFOUND);
    QTest::newRow("other maker") << QByteArray("USB0::0x1111::0x0040::20215678::0::INSTR") << 0
                                 << int(VI_ERROR_RSRC_NFOUND);
    QTest::newRow("no USB") << QByteArray("GPIB0::5::INSTR") << 0 << int(VI_ERROR_INV_RSRC_NAME);
    QTest::newRow("rubbish") << address.repeated(20) << 0 << int(VI_ERROR_INV_RSRC_NAME);
    QTest::newRow("mode") << address << 3 << int(VI_ERROR_INV_ACC_MODE);
}

void DemoBusTest::openNames()
{
    QFETCH(QByteArray, name);
    QFETCH(int, mode);
    QFETCH(int, status);
    DemoSession instrument(VI_NO_LOCK);
    ViSession session = 99;
    QCOMPARE(viOpen(instrument.resourceManager, name.constData(), ViAccessMode(mode), 0, &session),
             status);
    QCOMPARE(session != VI_NULL, status == VI_SUCCESS);
    char expanded[VI_FIND_BUFLEN] = {};
    ViUInt16 type = 0;
    if (status == VI_SUCCESS) {
        QCOMPARE(viParseRsrcEx(instrument.resourceManager, name.constData(), &type, nullptr,
                               nullptr, expanded, nullptr),
                 VI_SUCCESS);
        QCOMPARE(QByteArray(expanded), QByteArray(DemoSession::address));
        QCOMPARE(type, VI_INTF_USB);
    }
}

void DemoBusTest::attributesOfFindLists()
{
    DemoSession instrument(VI_NO_LOCK, twoInstruments);
    ViFindList list = VI_NULL;
    char address[VI_FIND_BUFLEN] = {};
    viFindRsrc(instrument.resourceManager, "USB?*", &list, nullptr, address);
    QCOMPARE(textOf(list, VI_ATTR_MANF_NAME), QByteArray("Veltro"));
    QCOMPARE(textOf(list, VI_ATTR_MODEL_NAME), QByteArray("KLV-6G"));
    viFindNext(list, address);
    QCOMPARE(QByteArray(address), QByteArray("USB0::0x5645::0x0040::777::0::INSTR"));
    QCOMPARE(textOf(list, VI_ATTR_MANF_NAME), QByteArray("Other & Co"));
    QCOMPARE(textOf(list, VI_ATTR_USB_SERIAL_NUM), QByteArray("777"));
    QCOMPARE(textOf(list, VI_ATTR_TMO_VALUE), "VISA " + describe(VI_ERROR_NSUP_ATTR));
    demo("attribute 0xBFFF0072 status 0xBFFF001D");
    demo("attribute 0xBFFF01A0 text");
    QCOMPARE(textOf(list, VI_ATTR_MANF_NAME), "VISA " + describe(VI_ERROR_NSUP_ATTR));
    QCOMPARE(textOf(list, VI_ATTR_USB_SERIAL_NUM), QByteArray());
    QCOMPARE(textOf(instrument.session, VI_ATTR_MANF_NAME), QByteArray("Veltro"));
    // The model and the file's own limits both bind.
    QCOMPARE(instrument.query("FREQ? MAX;:FREQ:STOP? MAX"), QByteArray("6000000000;6000000000"));
}

void DemoBusTest::attributesOfSessions()
{
    DemoSession instrument;
    const ViSession session = instrument.session;
    QCOMPARE(attributeOf<ViUInt32>(session, VI_ATTR_TMO_VALUE), 2000U);
    QCOMPARE(viSetAttribute(session, VI_ATTR_TMO_VALUE, 2500), VI_SUCCESS);
    QCOMPARE(attributeOf<ViUInt32>(session, VI_ATTR_TMO_VALUE), 2500U);
    QCOMPARE(attributeOf<ViUInt16>(session, VI_ATTR_INTF_TYPE), VI_INTF_USB);
    QCOMPARE(attributeOf<ViSession>(session, VI_ATTR_RM_SESSION), instrument.resourceManager);
    QCOMPARE(attributeOf<ViAccessMode>(session, VI_ATTR_RSRC_LOCK_STATE), VI_EXCLUSIVE_LOCK);
    QCOMPARE(textOf(session, VI_ATTR_RSRC_NAME), QByteArray(DemoSession::address));
    QCOMPARE(viSetAttribute(session, VI_ATTR_MODEL_NAME, 0), VI_ERROR_ATTR_READONLY);
    QCOMPARE(viSetAttribute(session, VI_ATTR_TERMCHAR_EN, 7), VI_ERROR_NSUP_ATTR_STATE);
    QCOMPARE(viSetAttribute(session, 0x12345678, 7), VI_ERROR_NSUP_ATTR);
    const auto pointer = reinterpret_cast<ViAttrState>(&session);
    viSetAttribute(instrument.resourceManager, VI_ATTR_USER_DATA, pointer);
    QCOMPARE(attributeOf<ViAttrState>(instrument.resourceManager, VI_ATTR_USER_DATA), pointer);
    char text[VI_FIND_BUFLEN] = {};
    QCOMPARE(viStatusDesc(session, VI_ERROR_TMO, text), VI_SUCCESS);
    QVERIFY(QByteArray(text).contains("time-out"));
    QCOMPARE(viStatusDesc(session, 12345, text), VI_WARN_UNKNOWN_STATUS);
}

void DemoBusTest::handlesAreChecked()
{
    DemoSession instrument;
    ViFindList list = VI_NULL;
    char text[VI_FIND_BUFLEN] = {};
    QCOMPARE(viClose(VI_NULL), VI_WARN_NULL_OBJECT);
    QCOMPARE(viPrintf(instrument.resourceManager, "FREQ 1\n"), VI_ERROR_INV_OBJECT);
    QCOMPARE(viFindRsrc(instrument.session, "USB?*", &list, nullptr, text), VI_ERROR_INV_OBJECT);
    QCOMPARE(viFindNext(instrument.session, text), VI_ERROR_INV_OBJECT);
    QCOMPARE(viClose(instrument.resourceManager), VI_SUCCESS);
    QCOMPARE(viPrintf(instrument.session, "FREQ 1\n"), VI_ERROR_INV_OBJECT);
    QCOMPARE(viClose(instrument.session), VI_ERROR_INV_OBJECT);
}

void DemoBusTest::locksBetweenSessions()
{
    DemoSession instrument;
    ViSession other = VI_NULL;
    const ViSession manager = instrument.resourceManager;
    QCOMPARE(viOpen(manager, DemoSession::address, VI_EXCLUSIVE_LOCK, 2000, &other),
             VI_ERROR_RSRC_LOCKED);
    QCOMPARE(viOpen(manager, DemoSession::address, VI_NO_LOCK, 0, &other), VI_SUCCESS);
    QCOMPARE(viPrintf(other, "FREQ 2 GHZ\n"), VI_ERROR_RSRC_LOCKED);
    QCOMPARE(viLock(other, VI_EXCLUSIVE_LOCK, VI_TMO_IMMEDIATE, nullptr, nullptr),
             VI_ERROR_RSRC_LOCKED);
    QCOMPARE(viLock(other, VI_EXCLUSIVE_LOCK, 10, nullptr, nullptr), VI_ERROR_TMO);
    QCOMPARE(viLock(instrument.session, VI_EXCLUSIVE_LOCK, 0, nullptr, nullptr),
             VI_SUCCESS_NESTED_EXCLUSIVE);
    QCOMPARE(viUnlock(instrument.session), VI_SUCCESS_NESTED_EXCLUSIVE);
    QCOMPARE(viUnlock(instrument.session), VI_SUCCESS);
    QCOMPARE(viUnlock(instrument.session), VI_ERROR_SESN_NLOCKED);
    QCOMPARE(viPrintf(other, "FREQ 2 GHZ\n"), VI_SUCCESS);
    QCOMPARE(instrument.query("FREQ?"), QByteArray("2000000000"));
    QCOMPARE(viLock(other, VI_EXCLUSIVE_LOCK, 0, nullptr, nullptr), VI_SUCCESS);
    QCOMPARE(instrument.query("FREQ?"), "VISA " + describe(VI_ERROR_RSRC_LOCKED));
    viClose(other);
    QCOMPARE(instrument.query("FREQ?"), QByteArray("2000000000"));
}

void DemoBusTest::sharedLocks()
{
    DemoSession first(VI_NO_LOCK);
    ViSession second = VI_NULL;
    char key[VI_FIND_BUFLEN] = {};
    viOpen(first.resourceManager, DemoSession::address, VI_NO_LOCK, 0, &second);
    QCOMPARE(viLock(first.session, VI_SHARED_LOCK, 0, nullptr, key), VI_SUCCESS);
    QVERIFY(qstrlen(key) > 0);
    QCOMPARE(viLock(second, VI_SHARED_LOCK, 0, "another key", nullptr), VI_ERROR_RSRC_LOCKED);
    QCOMPARE(viPrintf(second, "*CLS\n"), VI_ERROR_RSRC_LOCKED);
    QCOMPARE(viLock(second, VI_SHARED_LOCK, 0, key, nullptr), VI_SUCCESS);
    QCOMPARE(viPrintf(second, "*CLS\n"), VI_SUCCESS);
    QCOMPARE(viLock(second, VI_EXCLUSIVE_LOCK, 0, nullptr, nullptr), VI_ERROR_RSRC_LOCKED);
    QCOMPARE(viUnlock(first.session), VI_SUCCESS);
    QCOMPARE(viLock(second, VI_EXCLUSIVE_LOCK, 0, nullptr, nullptr), VI_SUCCESS);
    QCOMPARE(viUnlock(second), VI_SUCCESS_NESTED_SHARED);
    QCOMPARE(viUnlock(second), VI_SUCCESS);
    QCOMPARE(viLock(first.session, 9, 0, nullptr, nullptr), VI_ERROR_INV_LOCK_TYPE);
}

// The other process is this program again (see main below).
void DemoBusTest::lockOfAnotherProcess()
{
    DemoSession instrument(VI_NO_LOCK);
    QProcess other;
    other.start(QCoreApplication::applicationFilePath(), {"--hold-lock"});
    QVERIFY(other.waitForReadyRead(30000));
    QCOMPARE(other.readLine().trimmed(), QByteArray("0"));
    ViSession session = VI_NULL;
    QCOMPARE(
        viOpen(instrument.resourceManager, DemoSession::address, VI_EXCLUSIVE_LOCK, 0, &session),
        VI_ERROR_RSRC_LOCKED);
    QCOMPARE(viPrintf(instrument.session, "*CLS\n"), VI_ERROR_RSRC_LOCKED);
    demo("timeouts real");
    std::thread release([&other] { other.kill(); });
    release.join();
    QCOMPARE(viOpen(instrument.resourceManager, DemoSession::address, VI_EXCLUSIVE_LOCK, 30000,
                    &session),
             VI_SUCCESS);
    QVERIFY(other.waitForFinished());
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
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QByteArray>("fault");
    const QByteArray rows[][2] = {
        {"frequencyMaxHz=1e18", "frequencyMaxHz is 0 to 1000000000000"},
        {"listDwellMinUs=0", "listDwellMinUs is 0.001 to 1000000000000"},
        {"sweepPointsMax=1e300", "sweepPointsMax is 0 to 65535"},
        {"powerMinDbm=25", "powerMinDbm puts the lowest value above the highest"},
        {"latencyUs=16e9", "latencyUs is 0 to 60000000"},
        {"LatencyUs=-1", "latencyUs is 0 to 60000000"},
    };
    for (const auto& row : rows)
        QTest::newRow(row[0].constData()) << row[0] << row[1];
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
    QTest::addColumn<QByteArray>("fault");
    QTest::addColumn<QByteArray>("outcome");
    const QByteArray fine = "0 ";
    const QByteArray timeout = describe(VI_ERROR_TMO) + " ";
    const QByteArray lost = describe(VI_ERROR_CONN_LOST) + " ";
    QTest::newRow("none") << QByteArray("fault 9 status 0xBFFF0015") << fine.repeated(4);
    QTest::newRow("query") << QByteArray("fault 1 status 0xBFFF0015") << timeout + fine.repeated(3);
    QTest::newRow("write") << QByteArray("fault 2 status 0xBFFF0015")
                           << fine + timeout + timeout + fine;
    QTest::newRow("read") << QByteArray("fault 3 status 0xBFFF0015")
                          << fine.repeated(2) + timeout + fine;
    QTest::newRow("warning") << QByteArray("fault 4 status 0x3FFF0085")
                             << fine.repeated(3) + describe(VI_WARN_UNKNOWN_STATUS) + " ";
    QTest::newRow("cable") << QByteArray("fault 3 vanish") << fine.repeated(2) + lost.repeated(2);
    QTest::newRow("silence") << QByteArray("reply *IDN? ->") << fine.repeated(2) + timeout + fine;
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

void DemoBusTest::latencyAndTimeout()
{
    DemoSession instrument;
    QElapsedTimer timer;
    demo("latency 20000");
    timer.start();
    instrument.query("*OPC?");
    QVERIFY(timer.elapsed() >= 40);
    demo("latency 0");
    demo("timeouts real");
    viSetAttribute(instrument.session, VI_ATTR_TMO_VALUE, 80);
    timer.start();
    QCOMPARE(instrument.read(), "VISA " + describe(VI_ERROR_TMO));
    QVERIFY(timer.elapsed() >= 79);
    // A reply that comes while somebody waits for it is not missed.
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

void DemoBusTest::events()
{
    DemoSession instrument;
    const ViSession session = instrument.session;
    ViEventType type = 0;
    ViEvent context = VI_NULL;
    QCOMPARE(viWaitOnEvent(session, VI_EVENT_SERVICE_REQ, 0, &type, &context), VI_ERROR_NENABLED);
    QCOMPARE(viEnableEvent(session, 5, VI_QUEUE, VI_NULL), VI_ERROR_INV_EVENT);
    QCOMPARE(viEnableEvent(session, VI_EVENT_SERVICE_REQ, VI_HNDLR, VI_NULL),
             VI_ERROR_HNDLR_NINSTALLED);
    QCOMPARE(viInstallHandler(session, VI_EVENT_SERVICE_REQ, handleEvent, &handledEvents),
             VI_SUCCESS);
    QCOMPARE(viEnableEvent(session, VI_EVENT_SERVICE_REQ, VI_HNDLR | VI_QUEUE, VI_NULL),
             VI_SUCCESS);
    QCOMPARE(viEnableEvent(session, VI_EVENT_SERVICE_REQ, VI_QUEUE, VI_NULL), VI_SUCCESS_EVENT_EN);
    QCOMPARE(viWaitOnEvent(session, VI_EVENT_SERVICE_REQ, 5, &type, &context), VI_ERROR_TMO);
    handledEvents = 0;
    instrument.write("*SRE 32;*ESE 32;FOO");
    QCOMPARE(handledEvents.load(), 1);
    QCOMPARE(viWaitOnEvent(session, VI_ALL_ENABLED_EVENTS, 5, &type, &context), VI_SUCCESS);
    QCOMPARE(type, VI_EVENT_SERVICE_REQ);
    QCOMPARE(viClose(context), VI_SUCCESS);
    QCOMPARE(viDisableEvent(session, VI_ALL_ENABLED_EVENTS, VI_ALL_MECH), VI_SUCCESS);
    QCOMPARE(viUninstallHandler(session, VI_EVENT_SERVICE_REQ, handleEvent, &handledEvents),
             VI_SUCCESS);

    viEnableEvent(session, VI_EVENT_IO_COMPLETION, VI_QUEUE, VI_NULL);
    ViByte buffer[64] = {};
    ViJobId job = VI_NULL;
    instrument.write("*OPC?");
    QCOMPARE(viReadAsync(session, buffer, sizeof buffer, &job), VI_SUCCESS_SYNC);
    QCOMPARE(viWaitOnEvent(session, VI_EVENT_IO_COMPLETION, 5, &type, &context), VI_SUCCESS);
    QCOMPARE(attributeOf<ViJobId>(context, VI_ATTR_JOB_ID), job);
    QCOMPARE(attributeOf<ViStatus>(context, VI_ATTR_STATUS), VI_SUCCESS);
    QCOMPARE(attributeOf<ViBusSize>(context, VI_ATTR_RET_COUNT), ViBusSize(2));
    QCOMPARE(attributeOf<ViBuf>(context, VI_ATTR_BUFFER), static_cast<ViBuf>(buffer));
    viWriteAsync(session, buffer, 1, &job);
    QCOMPARE(viDiscardEvents(session, VI_EVENT_IO_COMPLETION, VI_QUEUE), VI_SUCCESS);
    QCOMPARE(viDiscardEvents(session, VI_EVENT_IO_COMPLETION, VI_QUEUE), VI_SUCCESS_QUEUE_EMPTY);
}

// The panel searches in a second thread while the first one may talk.
void DemoBusTest::searchBesideTraffic()
{
    DemoSession instrument;
    std::atomic<bool> isOver{false};
    std::atomic<int> searches{0};
    std::thread search([&] {
        while (!isOver) {
            ViFindList list = VI_NULL;
            char address[VI_FIND_BUFLEN] = {};
            viFindRsrc(instrument.resourceManager, "USB?*", &list, nullptr, address);
            searches += textOf(list, VI_ATTR_MODEL_NAME) == "KLV-20G" ? 1 : 0;
            viClose(list);
        }
    });
    // The second thread may be slow to start.
    for (int i = 0; i < 2000 || (searches == 0 && i < 500000); ++i) {
        char reply[64] = {};
        viQueryf(instrument.session, "FREQ %d;FREQ?\n", "%63T", 200000 + i, reply);
        QCOMPARE(QByteArray(reply).toInt(), 200000 + i);
    }
    isOver = true;
    search.join();
    QVERIFY(searches > 0);
}

void DemoBusTest::registersAreNotSupported()
{
    DemoSession instrument;
    ViUInt16 value = 0;
    QCOMPARE(viIn16(instrument.session, 1, 0, &value), VI_ERROR_NSUP_OPER);
    QCOMPARE(viGpibSendIFC(instrument.session), VI_ERROR_NSUP_OPER);
    QCOMPARE(viUsbControlIn(instrument.session, 0, 0, 0, 0, 0, nullptr, nullptr),
             VI_ERROR_NSUP_OPER);
    QCOMPARE(viMapTrigger(VI_NULL, 0, 0, 0), VI_ERROR_INV_OBJECT);
    viPeek16(instrument.session, nullptr, &value);
}

// With --hold-lock: takes the instrument's lock, says how that went and holds it until killed.
int main(int count, char** arguments)
{
    QCoreApplication application(count, arguments);
    if (application.arguments().contains("--hold-lock")) {
        ViSession manager = VI_NULL;
        ViSession session = VI_NULL;
        viOpenDefaultRM(&manager);
        std::printf("%d\n", viOpen(manager, DemoSession::address, VI_EXCLUSIVE_LOCK, 0, &session));
        std::fflush(stdout);
        return application.exec();
    }
    DemoBusTest test;
    return QTest::qExec(&test, count, arguments);
}
#include "demo_bus_test.moc"
