#include "link/scpi_session.h"
#include "link/search_klv.h"
#include "tests/support/demo.h"
#include "tests/support/rows.h"

#include <QSignalSpy>
#include <QtTest>

class SearchTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void reportsInOrder_data();
    void reportsInOrder();
    void findsNothing();
    void stopsWithoutASignal();

private:
    std::unique_ptr<Demo> m_demo;
    VisaLibrary m_visa;
};

void SearchTest::init()
{
    m_demo = std::make_unique<Demo>();
    m_visa.load(Demo::libraryPath().toLocal8Bit().constData());
}

void SearchTest::reportsInOrder_data()
{
    testColumns<QString, QStringList>("control", "reports");

    const QString one = QStringLiteral("KLV-20G/20215678");
    testRow("one", "clear", QStringList{one});
    testRow("two", "instruments [1111]\nmodel=KLV-6G\n[2222]\nmodel=KLV-20G\n",
            QStringList{"KLV-6G/1111", "KLV-20G/2222"});
    testRow("another maker's", "instruments [1111]\nmaker=Somebody\n[2222]\nmodel=KLV-20G\n",
            QStringList{"KLV-20G/2222"});
    testRow("maker in capitals", "attribute 0xBFFF0072 text VELTRO", QStringList{one});
    testRow("another model", "attribute 0xBFFF0077 text Scope", QStringList{});
    testRow("maker unreadable", "attribute 0xBFFF0072 status 0xBFFF001D", QStringList{one});
    testRow("model unreadable", "attribute 0xBFFF0077 status 0xBFFF001D", QStringList{"/20215678"});
    testRow("serial empty", "attribute 0xBFFF01A0 text ", QStringList{});
    testRow("serial unreadable", "attribute 0xBFFF01A0 status 0xBFFF001D", QStringList{"KLV-20G/"});
}

void SearchTest::reportsInOrder()
{
    QFETCH(QString, control);
    QFETCH(QStringList, reports);
    (*m_demo)(control);
    ScpiSession session(m_visa);
    session.openResourceManager();
    SearchKLV search(m_visa, session.defaultRM());
    QSignalSpy found(&search, &SearchKLV::sendData);
    QSignalSpy finished(&search, &SearchKLV::finish);
    search.begin();
    QVERIFY(search.wait(5000));
    QCOMPARE(finished.count(), 1);
    QStringList told;
    for (const QList<QVariant>& report : found) {
        QVERIFY(report.at(0).toString().startsWith("USB"));
        told << report.at(1).toString() + '/' + report.at(2).toString();
    }
    QCOMPARE(told, reports);
    for (const QString& line : m_demo->takeTranscript())
        QVERIFY2(!line.startsWith("open"), "a search opens no instrument");
}

void SearchTest::findsNothing()
{
    (*m_demo)(QStringLiteral("unplug"));
    VisaLibrary nothing;
    for (VisaLibrary* visa : {&m_visa, &nothing}) {
        ScpiSession session(*visa);
        session.openResourceManager();
        SearchKLV search(*visa, session.defaultRM());
        QSignalSpy error(&search, &SearchKLV::error);
        QSignalSpy finished(&search, &SearchKLV::finish);
        search.begin();
        QVERIFY(search.wait(5000));
        QCOMPARE(error.count(), 1);
        QCOMPARE(finished.count(), 0);
    }
}

void SearchTest::stopsWithoutASignal()
{
    QString many = QStringLiteral("instruments ");
    for (int serial = 1; serial <= 300; ++serial)
        many += QStringLiteral("[%1]\nmodel=KLV-20G\n").arg(serial);
    (*m_demo)(many);
    ScpiSession session(m_visa);
    session.openResourceManager();
    SearchKLV search(m_visa, session.defaultRM());
    QSignalSpy finished(&search, &SearchKLV::finish);
    // Stopped from its own thread at the first report, so that it is surely still walking.
    QSignalSpy found(&search, &SearchKLV::sendData);
    connect(&search, &SearchKLV::sendData, &search, &SearchKLV::slotStop, Qt::DirectConnection);
    search.begin();
    QVERIFY(search.wait(5000));
    QCoreApplication::processEvents();
    QCOMPARE(found.count(), 1);
    QCOMPARE(finished.count(), 0);
}

QTEST_GUILESS_MAIN(SearchTest)
#include "search_test.moc"
