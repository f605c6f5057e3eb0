#include "connection/connection.h"
#include "connection/gui_list_klv.h"
#include "connection/hot_plug_watch.h"
#include "connection/running_copies.h"
#include "link/instrument_limits.h"
#include "link/scpi_session.h"
#include "link/search_klv.h"
#include "tests/support/demo.h"

#include <QSignalSpy>
#include <QtTest>

namespace
{
class FakeWatch : public HotPlugWatch
{
public:
    QStringList presentSerials(bool) const override { return serials; }
    QStringList serials;
};
} // namespace

/// News of devices that come while a search has walked the bus and has not been heard of yet.
class ConnectionTest : public QObject
{
    Q_OBJECT

private slots:
    void looksAgainAfterTheSearch_data();
    void looksAgainAfterTheSearch();
};

void ConnectionTest::looksAgainAfterTheSearch_data()
{
    QTest::addColumn<QStringList>("present");
    QTest::addColumn<QString>("set");
    QTest::addColumn<int>("attempts");
    QTest::newRow("plugged in") << QStringList("20215678") << "plug" << 2;
    QTest::newRow("another device") << QStringList() << "" << 1;
    // Seen on the bus, and of no use: that is no reason to search for ever.
    QTest::newRow("not to be found") << QStringList("20215678") << "" << 2;
}

void ConnectionTest::looksAgainAfterTheSearch()
{
    QFETCH(QStringList, present);
    QFETCH(QString, set);
    QFETCH(int, attempts);
    Demo demo;
    demo(QStringLiteral("unplug"));
    VisaLibrary visa;
    visa.load(Demo::libraryPath().toLocal8Bit().constData());
    ScpiSession session(visa);
    session.openResourceManager();
    InstrumentLimits limits;
    SearchKLV search(visa, session.defaultRM());
    GuiListKLV chooser;
    RunningCopies copies;
    FakeWatch watch;
    Connection connection({session, limits, search, chooser, copies, watch});
    connect(&search, &SearchKLV::sendData, &connection, &Connection::showKLVDevice);
    connect(&search, &SearchKLV::finish, &connection, &Connection::finishVisaSearch);
    connect(&search, &SearchKLV::error, &connection, &Connection::failVisaSearch);
    connect(&chooser, &GuiListKLV::sendAddress, &connection, &Connection::slot_connect);
    connect(&connection, &Connection::buttonShouldBeClicked, &connection,
            [&] { connection.on_connect_clicked(true); });
    QSignalSpy started(&connection, &Connection::attemptStarted);
    QSignalSpy failed(&connection, &Connection::failed);

    connection.on_connect_clicked(true);
    search.wait();
    if (!set.isEmpty())
        demo(set);
    watch.serials = present;
    emit watch.devicesChanged();
    QTRY_COMPARE(session.isConnected() || failed.count() == 1, true);
    QCOMPARE(session.isConnected(), !set.isEmpty());
    QCOMPARE(started.count(), attempts);
    QVERIFY(!QTest::qWaitFor([&] { return started.count() > attempts; }, 100));
    connection.shutDown();
}

QTEST_MAIN(ConnectionTest)
#include "connection_test.moc"
