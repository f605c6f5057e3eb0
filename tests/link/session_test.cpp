#include "tests/support/rows.h"
#include "tests/support/wire_rig.h"

#include <QtTest>

/// A session on the wire, by a library that is complete, lacks functions or is missing.
class SessionTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_rig = std::make_unique<WireRig>();
        m_session = &m_rig->session;
    }
    void cleanup() { m_rig.reset(); }

    void libraryCountsWhatItLacks()
    {
        VisaLibrary visa;
        const auto isMissing = [&visa] {
            return visa.unresolvedCount() == -1 &&
                   visa.viClose(0) == static_cast<ViStatus>(0xBFFF009E);
        };
        QVERIFY(isMissing());
        for (const char* name : {static_cast<const char*>(nullptr), "", "no such library"}) {
            visa.load(name);
            QVERIFY2(isMissing(), name);
        }
        visa.load(Demo::libraryPath().toLocal8Bit().constData());
        QCOMPARE(visa.unresolvedCount(), 0);
        visa.load(KLV_PARTIAL_LIBRARY);
        QCOMPARE(visa.unresolvedCount(), 76);
        QCOMPARE(visa.viClose(0), VI_SUCCESS);
        QCOMPARE(visa.viClear(0), static_cast<ViStatus>(0xBFFF009E));
        visa.load("");
        QVERIFY(isMissing());
    }

    void textReachesTheWireAsItStands()
    {
        for (const QString text :
             {"OUTPut ON", "%n%s%d%lf%", "100%% %%n", "LIST:FREQ 1 000 000Hz,2 000 000Hz", ""}) {
            m_session->write(text);
            m_session->query(text);
            const QString line = text + "\\n";
            QCOMPARE(m_rig->demo.takeSent(), QStringList({line, line}));
        }
    }

    void writesLeaveTheStatus()
    {
        m_session->query("*IDN?");
        m_rig->demo("fault 1 status 0xBFFF0015");
        m_session->write("*RST");
        QCOMPARE(m_session->lastStatus(), VI_SUCCESS);
    }

    void repliesOfAnyKindStayInside()
    {
        const auto row =
            freshRows(this, [this](const QString& fault, const QString& start, int length) {
                m_rig->demo(fault);
                const QString reply = m_session->query("*IDN?");
                QCOMPARE(reply.size(), length);
                QCOMPARE(m_session->lastFailed(), fault.contains("endless"));
                if (m_session->lastFailed())
                    return;
                QVERIFY(reply.startsWith(start));
                // The rest of a cut reply must not be taken for the next answer.
                QCOMPARE(m_session->query("*OPC?").trimmed(), QString("1"));
            });
        row("100 kB", "fault 1 length 100000", "", 65535);
        row("exactly the buffer", "fault 1 length 65534", "", 65535);
        row("endless", "fault 1 endless", "", 0);
        row("with NUL", "fault 1 reply AB\\x00CD\\n", "AB", 2);
        row("high bytes", "fault 1 reply \\xFF\\xFE\\n", "\xC3\xBF\xC3\xBE\n", 3);
        row("nothing", "fault 1 reply \\n", "\n", 1);
    }

    void errorQueueIsDrained()
    {
        QSignalSpy failed(m_session, &ScpiSession::connectionFailed);
        for (const QString& replies :
             QStringList({"0,\"No error\"", "+0,\"No error\"", "-0,\"No error\"",
                          "-113,\"Undefined header\"|-222,\"Data out of range\"|0,\"No error\"",
                          "|?|,,,|0"})) {
            int round = 0;
            for (const QString& reply : replies.split('|'))
                m_rig->demo(QString("fault %1 reply %2\\n").arg(++round).arg(reply));
            m_session->checkErrors();
            QCOMPARE(m_rig->sent(), QStringList(QString(round, '!')));
        }
        QCOMPARE(failed.count(), 0);
    }

    void errorDrainFails()
    {
        const auto row =
            freshRows(this, [this](const QString& fault, const QString& latency, int mostRounds) {
                QSignalSpy failed(m_session, &ScpiSession::connectionFailed);
                connect(m_session, &ScpiSession::connectionFailed, this,
                        [this] { m_session->close(); });
                m_rig->demo(fault);
                m_rig->demo(latency);
                QElapsedTimer time;
                time.start();
                const int before = m_rig->demo("calls").toInt();
                m_session->checkErrors();
                // Beside the queries: the description of the status, and the close.
                const int calls = m_rig->demo("calls").toInt();
                const int rounds = calls - before - 2;
                QCOMPARE(failed.count(), 1);
                QVERIFY(!failed.first().first().value<StatusWords>()().isEmpty());
                QVERIFY2(0 < rounds && rounds <= mostRounds, qPrintable(QString::number(rounds)));
                QVERIFY(rounds == 10000 || rounds == 1 || time.hasExpired(5000));
                m_session->checkErrors();
                QCOMPARE(m_rig->demo("calls").toInt(), calls);
            });
        row("time-out", "fault 1 status 0xBFFF0015", "latency 0", 1);
        row("warning", "fault 1 status 0x3FFF0085", "latency 0", 1);
        row("unplugged", "unplug", "latency 0", 1);
        row("never empty", "errors endless -350", "latency 0", 10000);
        // The same number of rounds would take 20 s.
        row("never empty, slow", "errors endless -350", "latency 2000", 9999);
    }

    void limitsAreRead()
    {
        for (const char* reply : {"PULM:INT:PER? MAX -> 10 S", "ROSC:EXT:FREQ? MAX -> 100 MHZ",
                                  "AM:INT:FUNC:SHAP:SQU:DUTY? MAX -> 1e300",
                                  "LFO:AMPL? MAX -> rubbish", "FREQ? MAX -> 20000000000.9"})
            m_rig->demo(QString("reply ") + reply);
        InstrumentLimits limits;
        m_session->query("*OPC?");
        limits.readLimits(*m_session);
        QCOMPARE(limits[Quantity::Frequency].max, 20e9);
        QCOMPARE(limits[Quantity::Frequency].min, 100e3);
        QCOMPARE(limits[Quantity::PulsePeriod].max, 10e6);
        QCOMPARE(limits[Quantity::ExternalReference].max, 100.0);
        QCOMPARE(limits[Quantity::AmDuty].max, double(std::numeric_limits<qint32>::max()));
        QCOMPARE(limits[Quantity::LfAmplitude].max, 0.0);
        QVERIFY(limits[Quantity::Power].max > limits[Quantity::Power].min);
    }

    void firstFailedLimitStopsTheRest()
    {
        InstrumentLimits limits;
        limits[Quantity::Power].max = 77.0;
        m_session->query("*OPC?");
        m_rig->demo.takeSent();
        // Write and read of both frequency limits, then the write and the failing read of a third.
        m_rig->demo("fault 6 status 0xBFFF0015");
        limits.readLimits(*m_session);
        QCOMPARE(m_rig->demo.takeSent().size(), 3);
        QVERIFY(limits[Quantity::Frequency].isKnown());
        QCOMPARE(limits[Quantity::Power].max, 77.0);
    }

private:
    std::unique_ptr<WireRig> m_rig;
    ScpiSession* m_session = nullptr;
};

QTEST_MAIN(SessionTest)
#include "session_test.moc"
