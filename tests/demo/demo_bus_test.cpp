#include "tests/demo/demo_session.h"
#include "tests/support/files.h"

/// Instruments that come and go, described by a file or at once, and the lock of another program.
class DemoBusTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        m_file.setFileName(m_folder->filePath("instruments.ini"));
    }
    void cleanup() { qunsetenv("KLV_DEMO_FILE"); }

    void followsTheFile()
    {
        const QByteArray first = "# two of them\n[111]\nmodel = KLV-6G\nfirmware=1.4.0\n"
                                 "powerMaxDbm=13\n";
        const QByteArray second = "[20215678]\nmaker=Veltro\ncalibrationDue=01.02.2030\n";
        write(first + second);
        DemoSession instrument;
        QCOMPARE(instrument.query("SERV:SOUR:CDUE?"), QByteArray("01.02.2030"));
        instrument.write("FREQ 3 GHZ");
        const ViSession opened = instrument.session;
        QCOMPARE(instrument.open(VI_NO_LOCK, "USB::0x5645::0x40::111"), VI_SUCCESS);
        QCOMPARE(instrument.query("*IDN?;POW? MAX;FREQ? MAX;:FREQ:STOP? MAX"),
                 QByteArray("Veltro,KLV-6G,111,1.4.0;13;6000000000;6000000000"));

        write(second);
        QTRY_COMPARE(instrument.write("*CLS"), VI_ERROR_CONN_LOST);
        write(first + second + "frequencyMaxHz=4e9\n");
        const ViSession lost = std::exchange(instrument.session, opened);
        QTRY_COMPARE(instrument.query("FREQ? MAX"), QByteArray("4000000000"));
        QCOMPARE(instrument.query("FREQ?"), QByteArray("3000000000"));
        QCOMPARE(viPrintf(lost, "*CLS\n"), VI_ERROR_CONN_LOST);
        m_file.remove();
        QTRY_COMPARE(instrument.query("FREQ?"), m_lost);
    }

    void refusedDescriptions()
    {
        const std::pair<QByteArray, QByteArray> rows[] = {
            {"frequencyMaxHz=1e18", "frequencyMaxHz is 0 to 1000000000000"},
            {"listDwellMinUs=0", "listDwellMinUs is 0.001 to 1000000000000"},
            {"sweepPointsMax=1e300", "sweepPointsMax is 0 to 65535"},
            {"powerMinDbm=25", "powerMinDbm puts the lowest value above the highest"},
            {"latencyUs=16e9", "latencyUs is 0 to 60000000"},
            {"LatencyUs=-1", "latencyUs is 0 to 60000000"},
        };
        for (const auto& [line, fault] : rows) {
            const QByteArray text = "# one\n[20215678]\nmodel=KLV-20G\n" + line;
            qunsetenv("KLV_DEMO_FILE");
            DemoSession instrument;
            QCOMPARE(demo("instruments " + text), "error: line 4: " + fault);
            QCOMPARE(instrument.query("FREQ? MAX"), QByteArray("20000000000"));
            write(text);
            demo("reset");
            QCOMPARE(demo("ask *IDN?"), QByteArray("error: no such instrument"));
        }
    }

    void massStorage()
    {
        QByteArray text =
            "; [20215678] is kept\n[20215678]\nmodel=KLV-20G\n[111]\nmassStorage=on\n";
        write(text);
        DemoSession instrument;
        const auto send = [&](const QByteArray& mode) {
            instrument.write("MEM:MSC " + mode);
            QCOMPARE(bytesOf(m_file.fileName()), text);
        };
        send("OFF");
        QCOMPARE(instrument.query("MEM:MSC?"), QByteArray("OFF"));
        text.replace("678]\n", "678]\nmassStorage=on\n");
        send("ON");
        QCOMPARE(instrument.query("MEM:MSC?"), m_lost);
        instrument.open();
        QCOMPARE(instrument.query("*RST;:MEM:MSC?"), QByteArray("ON"));
        text.replace("678]\nmassStorage=on", "678]\nmassStorage=off");
        send("OFF");
        QCOMPARE(instrument.query("MEM:MSC?"), m_lost);
        QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files).size(), 1);
        instrument.open();
        write("[20215678]\nmassStorage=on\n");
        QTRY_COMPARE(instrument.query("MEM:MSC?"), m_lost);
    }

    // The other process is this program again (see main below).
    void lockOfAnotherProcess()
    {
        DemoSession instrument(VI_NO_LOCK);
        QProcess other;
        other.start(QCoreApplication::applicationFilePath(), {"--hold-lock"});
        QVERIFY(other.waitForReadyRead(30000));
        QCOMPARE(other.readLine().trimmed(), QByteArray("0"));
        QCOMPARE(instrument.write("*CLS"), VI_ERROR_RSRC_LOCKED);
        QCOMPARE(instrument.open(), VI_ERROR_RSRC_LOCKED);
        demo("timeouts real");
        other.kill();
        QCOMPARE(instrument.open(VI_EXCLUSIVE_LOCK, DemoSession::address, 30000), VI_SUCCESS);
        QVERIFY(other.waitForFinished());
    }

private:
    void write(const QByteArray& text)
    {
        qputenv("KLV_DEMO_FILE", writeFile(m_file.fileName(), text).toLocal8Bit());
    }

    const QByteArray m_lost = "VISA " + describe(VI_ERROR_CONN_LOST);
    std::unique_ptr<QTemporaryDir> m_folder;
    QFile m_file;
};

// With --hold-lock: takes the instrument's lock, reports the result and holds it until killed.
int main(int count, char** arguments)
{
    QCoreApplication application(count, arguments);
    if (application.arguments().contains("--hold-lock")) {
        DemoSession holder(VI_NO_LOCK);
        QTextStream(stdout) << holder.open() << Qt::endl;
        return application.exec();
    }
    DemoBusTest test;
    return QTest::qExec(&test, count, arguments);
}
#include "demo_bus_test.moc"
