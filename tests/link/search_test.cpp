#include "link/search_klv.h"
#include "tests/support/rows.h"
#include "tests/support/wire_rig.h"

#include <QtTest>

class SearchTest : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_rig = std::make_unique<WireRig>(); }
    void cleanup() { m_rig.reset(); }

    void reportsInOrder()
    {
        const auto row =
            freshRows(this, [this](const QString& control, const QStringList& reports) {
                m_rig->demo(control);
                const ViSession manager = m_rig->session.defaultRM();
                SearchKLV search(m_rig->visa, manager);
                QSignalSpy found(&search, &SearchKLV::sendData);
                QSignalSpy finished(&search, &SearchKLV::finish);
                search.begin();
                QVERIFY(search.wait());
                QCOMPARE(finished.count(), 1);
                QStringList told;
                for (const QList<QVariant>& report : found) {
                    QVERIFY(report.at(0).toString().startsWith("USB"));
                    told << report.at(1).toString() + '/' + report.at(2).toString();
                }
                QCOMPARE(told, reports);
                QVERIFY2(m_rig->demo.takeTranscript().filter("open").isEmpty(),
                         "a search opens no instrument");
            });
        const QString one = "KLV-20G/20215678";
        row("one", "clear", QStringList{one});
        row("two", "instruments [1111]\nmodel=KLV-6G\n[2222]\nmodel=KLV-20G\n",
            QStringList{"KLV-6G/1111", "KLV-20G/2222"});
        row("another maker's", "instruments [1111]\nmaker=Somebody\n[2222]\nmodel=KLV-20G\n",
            QStringList{"KLV-20G/2222"});
        row("maker in capitals", "attribute 0xBFFF0072 text VELTRO", QStringList{one});
        row("another model", "attribute 0xBFFF0077 text Scope", QStringList{});
        row("maker unreadable", "attribute 0xBFFF0072 status 0xBFFF001D", QStringList{one});
        row("model unreadable", "attribute 0xBFFF0077 status 0xBFFF001D", QStringList{"/20215678"});
        row("serial empty", "attribute 0xBFFF01A0 text ", QStringList{});
        row("serial unreadable", "attribute 0xBFFF01A0 status 0xBFFF001D", QStringList{"KLV-20G/"});
    }

    void stopsWithoutASignal()
    {
        m_rig->demo("instruments [1]\nmodel=KLV-20G\n[2]\nmodel=KLV-20G\n");
        const ViSession manager = m_rig->session.defaultRM();
        SearchKLV search(m_rig->visa, manager);
        QSignalSpy finished(&search, &SearchKLV::finish);
        // Stopped from its own thread at the first report, so that it is surely still walking.
        QSignalSpy found(&search, &SearchKLV::sendData);
        connect(&search, &SearchKLV::sendData, &search, &SearchKLV::slotStop, Qt::DirectConnection);
        search.begin();
        QVERIFY(search.wait());
        QCoreApplication::processEvents();
        QCOMPARE(found.count(), 1);
        QCOMPARE(finished.count(), 0);
    }

private:
    std::unique_ptr<WireRig> m_rig;
};

QTEST_MAIN(SearchTest)
#include "search_test.moc"
