#include "tests/demo/demo_session.h"

#include <atomic>
#include <thread>

/// Resources, sessions and locks, by the rules of VISA. What a PyVISA script uses is tested by one.
class DemoLibraryTest : public QObject
{
    Q_OBJECT

private slots:
    void find()
    {
        const auto check = [](std::initializer_list<const char*> expressions, int count,
                              ViStatus status) {
            DemoSession instrument(VI_NO_LOCK, "instruments [20215678]\nmodel=KLV-6G\n[777]\n");
            for (const char* expression : expressions) {
                ViFindList list = VI_NULL;
                ViUInt32 found = 0;
                char address[VI_FIND_BUFLEN] = {};
                QVERIFY2(viFindRsrc(instrument.resourceManager, expression, &list, &found,
                                    address) == status,
                         expression);
                QVERIFY2(int(found) == count, expression);
                for (int i = 1; i <= count; ++i)
                    QCOMPARE(viFindNext(list, address),
                             i < count ? VI_SUCCESS : VI_ERROR_RSRC_NFOUND);
            }
        };
        check({"USB?*", "?*", "?*INSTR", "?*::INSTR", "USB[0-9]*::0x5645::?*", "(GPIB|USB)?*",
               "(USB0|[x-z])+(::?+)+", "USB?*{VI_ATTR_MANF_ID==0x5645 && VI_ATTR_MODEL_CODE < 65}"},
              2, VI_SUCCESS);
        check({"usb0::?*::777::?*", "USB0::0x5645::0x0040::2021567[^1-7]::0::INSTR",
               "?*INSTR{VI_ATTR_MODEL_NAME == \"KLV-6G\"}",
               "USB?*{!(VI_ATTR_USB_SERIAL_NUM!=\"777\")}",
               "?*{VI_ATTR_INTF_TYPE==VI_INTF_GPIB || VI_ATTR_USB_SERIAL_NUM >= \"5\"}"},
              1, VI_SUCCESS);
        check({"GPIB?*", "USB", "USB?**X", "\\USB[^]?*7", "GPIB?*{VI_ATTR_INTF_TYPE==7}",
               "?*{VI_ATTR_INTF_NUM > 0}",
               "?*{VI_ATTR_MANF_NAME == \"veltro\" || !VI_ATTR_INTF_NUM<=0}"},
              0, VI_ERROR_RSRC_NFOUND);
        check({"USB[", "USB(+", "USB?*)", "USB?*\\", "USB[9-0]?*", "", "USB?*{", "USB?*{}",
               "{VI_ATTR_INTF_NUM==0}", "?*{VI_ATTR_INTF_NUM==\"0\"}", "?*{VI_ATTR_INTF_NUM}",
               "?*{VI_ATTR_INTF_NUM==0x}", "?*{VI_ATTR_TMO_VALUE==1}", "?*{(VI_ATTR_INTF_NUM==0}",
               "?*{VI_ATTR_INTF_NUM==0 &&}", "?*{VI_ATTR_RSRC_NAME==\"}",
               "?*{VI_ATTR_INTF_NUM==0}?*"},
              0, VI_ERROR_INV_EXPR);
    }

    void open()
    {
        const auto check = [](const QByteArray& name, ViAccessMode mode, ViStatus status) {
            DemoSession instrument(VI_NO_LOCK);
            QCOMPARE(instrument.open(mode, name.constData()), status);
            char opened[VI_FIND_BUFLEN] = {};
            viGetAttribute(instrument.session, VI_ATTR_RSRC_NAME, opened);
            QCOMPARE(QByteArray(opened),
                     status == VI_SUCCESS ? QByteArray(DemoSession::address) : "");
            QCOMPARE(instrument.session != VI_NULL, status == VI_SUCCESS);
        };
        check("usb::0x5645::0x40::20215678", 0, VI_SUCCESS);
        check("USB0::22085::64::20215678::INSTR", 1, VI_SUCCESS);
        check("USB0::0x1111::0x0040::20215678::0::INSTR", 0, VI_ERROR_RSRC_NFOUND);
        check("GPIB0::5::INSTR", 0, VI_ERROR_INV_RSRC_NAME);
        check("USB0::0x5645::0x0040::20215678::0::1::INSTR", 0, VI_ERROR_INV_RSRC_NAME);
        check(QByteArray(DemoSession::address).repeated(20), 0, VI_ERROR_INV_RSRC_NAME);
        check(DemoSession::address, 3, VI_ERROR_INV_ACC_MODE);
    }

    void handlesAreChecked()
    {
        DemoSession instrument;
        const ViSession session = instrument.session;
        ViUInt16 value = 0;
        char text[VI_FIND_BUFLEN] = {};
        QCOMPARE(viClose(VI_NULL), VI_WARN_NULL_OBJECT);
        QCOMPARE(viPrintf(instrument.resourceManager, "FREQ 1\n"), VI_ERROR_INV_OBJECT);
        QCOMPARE(viFindNext(session, text), VI_ERROR_INV_OBJECT);
        QCOMPARE(viIn16(session, 1, 0, &value), VI_ERROR_NSUP_OPER);
        QCOMPARE(viMapTrigger(VI_NULL, 0, 0, 0), VI_ERROR_INV_OBJECT);
        QCOMPARE(viClose(instrument.resourceManager), VI_SUCCESS);
        QCOMPARE(viPrintf(session, "FREQ 1\n"), VI_ERROR_INV_OBJECT);
        QCOMPARE(viClose(session), VI_ERROR_INV_OBJECT);
        // Whoever looks at the count alone sees that nothing has passed.
        const auto passesNothing = [session](auto call, auto argument) {
            ViUInt32 count = 1;
            QCOMPARE(call(session, argument, 1, &count), VI_ERROR_INV_OBJECT);
            QCOMPARE(count, ViUInt32{0});
        };
        passesNothing(viRead, ViPBuf());
        passesNothing(viWrite, ViConstBuf());
        for (const auto call : {viReadToFile, viWriteFromFile})
            passesNothing(call, "");
    }

    // Two sessions, the first of which opens with an exclusive lock.
    void locks()
    {
        DemoSession instrument;
        const ViSession first = instrument.session;
        const auto lock = [](ViSession session, ViAccessMode mode, const char* key = nullptr,
                             ViChar* newKey = nullptr) {
            return viLock(session, mode, 0, key, newKey);
        };
        const auto write = [](ViSession session) { return viPrintf(session, "*CLS\n"); };
        char key[VI_FIND_BUFLEN] = {};
        QCOMPARE(instrument.open(), VI_ERROR_RSRC_LOCKED);
        QCOMPARE(instrument.open(VI_NO_LOCK), VI_SUCCESS);
        const ViSession second = instrument.session;
        QCOMPARE(write(second), VI_ERROR_RSRC_LOCKED);
        QCOMPARE(lock(second, VI_EXCLUSIVE_LOCK), VI_ERROR_RSRC_LOCKED);
        QCOMPARE(viLock(second, VI_EXCLUSIVE_LOCK, 10, nullptr, nullptr), VI_ERROR_TMO);
        QCOMPARE(lock(first, VI_EXCLUSIVE_LOCK), VI_SUCCESS_NESTED_EXCLUSIVE);
        QCOMPARE(viUnlock(first), VI_SUCCESS_NESTED_EXCLUSIVE);
        QCOMPARE(viUnlock(first), VI_SUCCESS);
        QCOMPARE(viUnlock(first), VI_ERROR_SESN_NLOCKED);
        QCOMPARE(write(second), VI_SUCCESS);

        QCOMPARE(lock(first, VI_SHARED_LOCK, nullptr, key), VI_SUCCESS);
        QVERIFY(qstrlen(key) > 0);
        QCOMPARE(lock(second, VI_SHARED_LOCK, "another key"), VI_ERROR_RSRC_LOCKED);
        QCOMPARE(write(second), VI_ERROR_RSRC_LOCKED);
        QCOMPARE(lock(second, VI_SHARED_LOCK, key), VI_SUCCESS);
        QCOMPARE(write(second), VI_SUCCESS);
        QCOMPARE(lock(second, VI_EXCLUSIVE_LOCK), VI_ERROR_RSRC_LOCKED);
        QCOMPARE(viUnlock(first), VI_SUCCESS);
        QCOMPARE(lock(second, VI_EXCLUSIVE_LOCK), VI_SUCCESS);
        QCOMPARE(viUnlock(second), VI_SUCCESS_NESTED_SHARED);
        QCOMPARE(lock(first, VI_SHARED_LOCK, key), VI_SUCCESS);
        QCOMPARE(viUnlock(first), VI_SUCCESS);
        QCOMPARE(lock(second, VI_EXCLUSIVE_LOCK), VI_SUCCESS);
        QCOMPARE(write(first), VI_ERROR_RSRC_LOCKED);
        viClose(second);
        QCOMPARE(write(first), VI_SUCCESS);
        QCOMPARE(lock(first, 9), VI_ERROR_INV_LOCK_TYPE);
    }

    // The panel searches in a second thread while the first one may talk.
    void searchBesideTraffic()
    {
        DemoSession instrument;
        std::atomic<bool> isOver{false};
        std::atomic<int> searches{0};
        std::thread search([&] {
            while (!isOver) {
                ViFindList list = VI_NULL;
                char text[VI_FIND_BUFLEN] = {};
                viFindRsrc(instrument.resourceManager, "USB?*", &list, nullptr, text);
                viClose(list);
                ++searches;
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

    // A reply that comes during a wait for it is not missed.
    void waitForAReply()
    {
        DemoSession instrument;
        demo("timeouts real");
        viSetAttribute(instrument.session, VI_ATTR_TMO_VALUE, 30000);
        std::thread writer([&instrument] { viPrintf(instrument.session, "*IDN?\n"); });
        QVERIFY(instrument.read().startsWith("Veltro"));
        writer.join();
    }
};

QTEST_GUILESS_MAIN(DemoLibraryTest)
#include "demo_library_test.moc"
