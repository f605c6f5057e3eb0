#include "connection/instrument_source.h"
#include "link/scpi_session.h"
#include "tests/support/rows.h"

#include <QtTest>

/// Which VISA library the program takes for itself. The path that the loader searches is the
/// build's to set; the library lies there or not.
class InstrumentSourceTest : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QFile::remove(m_found); }

    void choosesALibrary()
    {
        const auto row = freshRows(this, [this](bool isFound, const QString& named,
                                                bool isSimulated, const QString& loaded) {
            if (isFound)
                QVERIFY(QFile::copy(KLV_USBTMC_LIBRARY, m_found));
            VisaLibrary visa;
            ScpiSession session(visa);
            InstrumentSource source(isSimulated, named, visa, session);
            source.open();
            const QString file = visa.fileName();
            QVERIFY2(file.endsWith(loaded) && file.isEmpty() == loaded.isEmpty(), qPrintable(file));
            const bool isOwn =
                named == KLV_USBTMC_LIBRARY || (!isFound && named.isEmpty() && !isSimulated);
            QCOMPARE(file.contains("/usbtmc/"), isOwn);
            QCOMPARE(source.node() == DeviceNode::UsbTmc, isOwn);
            QCOMPARE(source.libraryWords()().contains("the program's own"), isOwn);
            QVERIFY(source.libraryWords()().contains(file));
            QCOMPARE(bool(source.ownLibraryWords()), isOwn);
        });
        row("none found", false, QString(), false, "usbtmc/libVeVISA32.so");
        row("the maker's found", true, QString(), false, "libVeVISA32.so");
        row("none found, one named", false, QString("VeVISA32"), false, QString());
        row("named", true, QString(KLV_USBTMC_LIBRARY), false, "usbtmc/libVeVISA32.so");
        row("simulated", true, QString(), true, "demo/libVeVISA32.so");
    }

    // The simulated one, which has the same name, may still be in memory.
    void choosesAgainAfterTheSimulation()
    {
        VisaLibrary visa;
        ScpiSession session(visa);
        InstrumentSource source(true, QString(), visa, session);
        source.open();
        source.simulate(false);
        QVERIFY2(visa.fileName().endsWith("usbtmc/libVeVISA32.so"), qPrintable(visa.fileName()));
        QVERIFY(session.defaultRM() != VI_NULL);
    }

private:
    const QString m_found = QStringLiteral(KLV_SEARCHED_FOLDER "/libVeVISA32.so");
};

QTEST_GUILESS_MAIN(InstrumentSourceTest)
#include "instrument_source_test.moc"
