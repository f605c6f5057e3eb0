#include "tests/demo/demo_session.h"
#include "tests/support/rows.h"

#include <QProcess>

#include <atomic>
#include <cstdio>
#include <thread>

class DemoLibraryTest : public QObject
{
    Q_OBJECT

private slots:
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
    void events();
    void searchBesideTraffic();
    void registersAreNotSupported();
};

namespace
{

const char* const twoInstruments = "instruments [20215678]\nmodel=KLV-6G\n"
                                   "[777]\nmaker = Other & Co\nmodel=X-1\nfrequencyMaxHz=5e9\n";

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

std::atomic<int> handledEvents{0};

ViStatus KLV_VISA_FIXED handleEvent(ViSession, ViEventType type, ViEvent context, ViAddr userHandle)
{
    if (userHandle == &handledEvents &&
        attributeOf<ViEventType>(context, VI_ATTR_EVENT_TYPE) == type)
        ++handledEvents;
    return VI_SUCCESS;
}

} // namespace

void DemoLibraryTest::find_data()
{
    testColumns<QByteArray, int>("expression", "count");
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
        testRow(row.expression, QByteArray(row.expression), row.count);
}

void DemoLibraryTest::find()
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

void DemoLibraryTest::openNames_data()
{
    testColumns<QByteArray, int, int>("name", "mode", "status");
    const QByteArray address = DemoSession::address;
    testRow("short", QByteArray("usb::0x5645::0x40::20215678"), 0, int(VI_SUCCESS));
    testRow("decimal", QByteArray("USB0::22085::64::20215678::INSTR"), 1, int(VI_SUCCESS));
    testRow("other maker", QByteArray("USB0::0x1111::0x0040::20215678::0::INSTR"), 0,
            int(VI_ERROR_RSRC_NFOUND));
    testRow("no USB", QByteArray("GPIB0::5::INSTR"), 0, int(VI_ERROR_INV_RSRC_NAME));
    testRow("rubbish", address.repeated(20), 0, int(VI_ERROR_INV_RSRC_NAME));
    testRow("mode", address, 3, int(VI_ERROR_INV_ACC_MODE));
}

void DemoLibraryTest::openNames()
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

void DemoLibraryTest::attributesOfFindLists()
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

void DemoLibraryTest::attributesOfSessions()
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

void DemoLibraryTest::handlesAreChecked()
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

void DemoLibraryTest::locksBetweenSessions()
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

void DemoLibraryTest::sharedLocks()
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
void DemoLibraryTest::lockOfAnotherProcess()
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

void DemoLibraryTest::events()
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
void DemoLibraryTest::searchBesideTraffic()
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

void DemoLibraryTest::registersAreNotSupported()
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

// With --hold-lock: takes the instrument's lock, reports the result and holds it until killed.
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
    DemoLibraryTest test;
    return QTest::qExec(&test, count, arguments);
}
#include "demo_library_test.moc"
