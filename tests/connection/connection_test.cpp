#include "tests/support/connection_rig.h"
#include "tests/support/rows.h"

/// The states of a connection, without a window: news from the bus, and what overtakes a sequence
/// that pauses.
class ConnectionTest : public QObject
{
    Q_OBJECT

private slots:
    void looksAgainAfterTheSearch_data()
    {
        testColumns<QStringList, QString, int>("present", "set", "attempts");
        testRow("plugged in", QStringList("20215678"), "plug", 2);
        testRow("another device", QStringList(), "", 1);
        // Seen on the bus, and of no use: that is no reason to search for ever.
        testRow("not to be found", QStringList("20215678"), "", 2);
    }

    /// Devices plugged in when a search has walked the bus and its result has not been received
    /// yet.
    void looksAgainAfterTheSearch()
    {
        QFETCH(QStringList, present);
        QFETCH(QString, set);
        QFETCH(int, attempts);
        ConnectionRig rig;
        rig.demo(QStringLiteral("unplug"));
        connect(&rig.connection, &Connection::buttonShouldBeClicked, this,
                [&] { rig.connection.on_connect_clicked(true); });
        QSignalSpy started(&rig.connection, &Connection::attemptStarted);
        QSignalSpy failed(&rig.connection, &Connection::failed);

        rig.connection.on_connect_clicked(true);
        rig.search.wait();
        if (!set.isEmpty())
            rig.demo(set);
        rig.watch.tell(present);
        QTRY_VERIFY(rig.session.isConnected() || failed.count() == 1);
        QCOMPARE(rig.session.isConnected(), !set.isEmpty());
        QCOMPARE(started.count(), attempts);
        QVERIFY(!QTest::qWaitFor([&] { return started.count() > attempts; }, 100));
    }

    void anEndedSearchSaysNothing_data()
    {
        testColumns<QString>("set");
        testRow("finished", "plug");
        testRow("failed", "unplug");
    }

    /// The search has walked the bus when the program ends, and its result arrives only then.
    void anEndedSearchSaysNothing()
    {
        QFETCH(QString, set);
        ConnectionRig rig;
        rig.demo(set);
        rig.demo.takeTranscript();
        QSignalSpy failed(&rig.connection, &Connection::failed);
        rig.connection.on_connect_clicked(true);
        rig.search.wait();
        rig.watch.tell(QStringList("20215678"));
        rig.connection.shutDown();
        QCoreApplication::processEvents();
        QCOMPARE(failed.count(), 0);
        QCOMPARE(rig.demo.takeSent(), QStringList());
        QVERIFY(!QGuiApplication::overrideCursor());
    }

    void failuresNameTheLibrary_data()
    {
        testColumns<QString, QString>("set", "reason");
        testRow("nothing found", "unplug",
                "No instrument found: is it switched on and its cable plugged in? (its name)");
        testRow("silent", "fault 1 status 0xBFFF0015",
                "The instrument could not be opened: it does not answer (its name)");
        // What keeps this user from opening it says more.
        testRow("not permitted", "fault 1 status 0xBFFF00A8", "the obstacle");
    }

    void failuresNameTheLibrary()
    {
        QFETCH(QString, set);
        ConnectionRig rig;
        const bool isOpened = set != "unplug";
        rig.connection.setLibraryWords([] { return [] { return QStringLiteral("its name"); }; });
        rig.connection.setObstacle([isOpened] {
            return isOpened ? StatusWords([] { return QStringLiteral("the obstacle"); })
                            : StatusWords();
        });
        rig.demo(set);
        QSignalSpy failed(&rig.connection, &Connection::failed);
        rig.connection.on_connect_clicked(true);
        QTRY_COMPARE(failed.count(), 1);
        QTEST(failed.first().first().value<StatusWords>()(), "reason");
    }

    void anOvertakenPushSendsNothing_data()
    {
        testColumns<bool>("isAgain");
        testRow("disconnected", false);
        testRow("and connected again", true);
    }

    void anOvertakenPushSendsNothing()
    {
        QFETCH(bool, isAgain);
        ConnectionRig rig;
        // Handed back, it would otherwise have to leave its mass-storage mode first.
        rig.demo(QStringLiteral("reply MEM:MSC? -> OFF"));
        QSignalSpy ready(&rig.connection, &Connection::ready);
        int pushes = 0;
        const auto overtake = [&] {
            if (++pushes > 1)
                return;
            rig.connection.on_connect_clicked(false);
            if (isAgain)
                QVERIFY(rig.connectDevice());
        };
        rig.connection.setPushSteps(
            {{[] { return QStringLiteral("the pause"); }, overtake},
             {[] { return QStringLiteral("the rest"); }, [&] { rig.session.write("REST"); }}});
        rig.connection.on_connect_clicked(true);
        QTRY_VERIFY(pushes > 0);
        QCoreApplication::processEvents();
        QCOMPARE(rig.demo.takeSent().count("REST\\n"), isAgain ? 1 : 0);
        QCOMPARE(ready.count(), isAgain ? 1 : 0);
        QCOMPARE(rig.session.isConnected(), isAgain);
    }
};

QTEST_MAIN(ConnectionTest)
#include "connection_test.moc"
