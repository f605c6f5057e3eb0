#include "tests/support/connection_rig.h"
#include "tests/support/rows.h"

/// The states of a connection, without a window: news from the bus, and what overtakes a sequence
/// that pauses.
class ConnectionTest : public QObject
{
    Q_OBJECT

private slots:
    /// Devices plugged in when a search has walked the bus and its result has not been received
    /// yet.
    void looksAgainAfterTheSearch()
    {
        const auto row =
            namedRows([this](const QStringList& present, const QString& set, int attempts) {
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
            });
        row("plugged in", QStringList("20215678"), "plug", 2);
        row("another device", QStringList(), "", 1);
        // Seen on the bus, and of no use: that is no reason to search for ever.
        row("not to be found", QStringList("20215678"), "", 2);
    }

    void anEndedSearchSaysNothing_data() { testNames("set", {"plug", "unplug"}); }

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

    void failuresNameTheLibrary()
    {
        const auto row = namedRows([](const QString& set, const QString& reason) {
            ConnectionRig rig;
            const bool isOpened = set != "unplug";
            rig.connection.setLibraryWords(
                [] { return [] { return QStringLiteral("its name"); }; });
            rig.connection.setObstacle([isOpened] {
                return isOpened ? StatusWords([] { return QStringLiteral("the obstacle"); })
                                : StatusWords();
            });
            rig.demo(set);
            QSignalSpy failed(&rig.connection, &Connection::failed);
            rig.connection.on_connect_clicked(true);
            QTRY_COMPARE(failed.count(), 1);
            QCOMPARE(failed.first().first().value<StatusWords>()(), reason);
        });
        row("nothing found", "unplug",
            "No instrument found: is it switched on and its cable plugged in? (its name)");
        row("silent", "fault 1 status 0xBFFF0015",
            "The instrument could not be opened: it does not answer (its name)");
        // What keeps this user from opening it says more.
        row("not permitted", "fault 1 status 0xBFFF00A8", "the obstacle");
    }

    void anOvertakenPushSendsNothing()
    {
        // Disconnected meanwhile, and perhaps connected again.
        for (const bool isAgain : {false, true}) {
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
    }
};

QTEST_MAIN(ConnectionTest)
#include "connection_test.moc"
