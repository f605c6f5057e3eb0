#include "service/firmware_update.h"
#include "tests/support/connection_rig.h"

namespace
{
const QString serial = QStringLiteral("20215678");
constexpr int longestMs = 200;

/// A connected instrument on its way into the bootloader.
struct Bench : ConnectionRig {
    Bench()
    {
        watch.serials = QStringList(serial);
        if (!connectDevice())
            qFatal("not connected");
        update.slotUpdateFirmware();
        demo.takeTranscript();
    }

    QString lastActivity() { return Activities::global().texts().join(' '); }

    FirmwareUpdate update{{session, connection, watch, fields.notices}, longestMs};
    QSignalSpy back{&update, &FirmwareUpdate::cameBack};
    QSignalSpy watchWantsToConnect{&connection, &Connection::buttonShouldBeClicked};
};
} // namespace

/// Waiting for an instrument that is in its bootloader.
class FirmwareUpdateTest : public QObject
{
    Q_OBJECT

private slots:
    void waitsForThisInstrument()
    {
        Bench bench;
        bench.watch.tell({serial, "another"});
        QVERIFY(bench.session.isConnected());
        bench.watch.tell({"another"});
        QVERIFY(!bench.session.isConnected());
        // Cancelled silently: nothing is received any more.
        QCOMPARE(bench.demo.takeTranscript(), QStringList("close"));
        QVERIFY(bench.lastActivity().contains("bootloader"));
        bench.watch.tell({"another", "third"});
        QCOMPARE(bench.back.size(), 0);
        QCOMPARE(bench.watchWantsToConnect.size(), 0);
        bench.watch.tell({serial});
        QCOMPARE(bench.back.size(), 1);
        QCOMPARE(bench.watchWantsToConnect.size(), 0);
        QCOMPARE(bench.lastActivity(), QString());
        // Over: the watch is the connection's again.
        bench.watch.tell({serial});
        QCOMPARE(bench.back.size(), 1);
        QCOMPARE(bench.watchWantsToConnect.size(), 1);
    }

    void aDeadConnectionIsNoEnd()
    {
        Bench bench;
        bench.session.checkErrors();
        QVERIFY(!bench.session.isConnected());
        QVERIFY(bench.lastActivity().contains("bootloader"));
        bench.watch.tell({serial});
        QCOMPARE(bench.back.size(), 1);
    }

    void givesUpAfterTheLongestTime()
    {
        for (const bool hasLeft : {true, false}) {
            Bench bench;
            if (hasLeft)
                bench.watch.tell({});
            QTRY_VERIFY(!bench.update.isRunning());
            QCOMPARE(bench.fields.said.size(), hasLeft ? 1 : 0);
            QCOMPARE(bench.lastActivity(), QString());
            QCOMPARE(bench.session.isConnected(), !hasLeft);
            bench.watch.tell(hasLeft ? QStringList(serial) : QStringList());
            QCOMPARE(bench.back.size(), 0);
            // Then the hot-plug watch works as usual.
            QCOMPARE(bench.watchWantsToConnect.size(), hasLeft ? 1 : 0);
            QVERIFY(!bench.session.isConnected());
        }
    }
};

QTEST_MAIN(FirmwareUpdateTest)
#include "firmware_update_test.moc"
