#include "link/instrument_limits.h"
#include "link/scpi_session.h"
#include "tests/support/demo.h"
#include "tests/support/rows.h"

#include <QSignalSpy>
#include <QtTest>

#include <clocale>

Q_DECLARE_METATYPE(FieldKind)

namespace
{
const QString address = QStringLiteral("USB0::0x5645::0x0040::20215678::0::INSTR");
}

class SessionTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { std::setlocale(LC_NUMERIC, "C"); }
    void init();
    void cleanup();

    void libraryCountsWhatItLacks();
    void placeholdersAnswerWithoutALibrary();
    void openLocksAndReportsNothing();
    void textReachesTheWireAsItStands_data();
    void textReachesTheWireAsItStands();
    void completionQueryHasNoLineFeed();
    void settingIsReadBack_data();
    void settingIsReadBack();
    void failedSettingEndsTheConnection();
    void writesLeaveTheStatus();
    void repliesOfAnyKindStayInside_data();
    void repliesOfAnyKindStayInside();
    void errorQueueIsDrained_data();
    void errorQueueIsDrained();
    void indicatorsFollowTheQueue();
    void errorDrainFails_data();
    void errorDrainFails();
    void endlessQueueIsLeftInTime();
    void limitsAreRead();
    void firstFailedLimitStopsTheRest();

private:
    std::unique_ptr<Demo> m_demo;
    std::unique_ptr<VisaLibrary> m_visa;
    std::unique_ptr<ScpiSession> m_session;
};

void SessionTest::init()
{
    m_demo = std::make_unique<Demo>();
    m_visa = std::make_unique<VisaLibrary>();
    m_visa->load(Demo::libraryPath().toLocal8Bit().constData());
    m_session = std::make_unique<ScpiSession>(*m_visa);
    m_session->openResourceManager();
    QVERIFY(m_session->open(address));
    m_session->setConnected();
    m_demo->takeTranscript();
}

void SessionTest::cleanup()
{
    m_session->close();
    m_session.reset();
    m_visa.reset();
}

void SessionTest::libraryCountsWhatItLacks()
{
    VisaLibrary visa;
    QCOMPARE(visa.unresolvedCount(), -1);
    for (const char* name : {static_cast<const char*>(nullptr), "", "no such library"}) {
        visa.load(name);
        QCOMPARE(visa.unresolvedCount(), -1);
        QCOMPARE(visa.viClose(0), static_cast<ViStatus>(0xBFFF009E));
    }
    visa.load(Demo::libraryPath().toLocal8Bit().constData());
    QCOMPARE(visa.unresolvedCount(), 0);
    visa.load(KLV_PARTIAL_LIBRARY);
    QCOMPARE(visa.unresolvedCount(), 76);
    QCOMPARE(visa.viClose(0), VI_SUCCESS);
    QCOMPARE(visa.viClear(0), static_cast<ViStatus>(0xBFFF009E));
    visa.load("");
    QCOMPARE(visa.unresolvedCount(), -1);
    QCOMPARE(visa.viClose(0), static_cast<ViStatus>(0xBFFF009E));
}

void SessionTest::placeholdersAnswerWithoutALibrary()
{
    VisaLibrary nothing;
    ScpiSession session(nothing);
    session.openResourceManager();
    QVERIFY(!session.open(address));
    session.write(QStringLiteral("*RST"));
    QCOMPARE(session.read(QStringLiteral("*IDN?")), QString());
    QCOMPARE(session.lastStatus(), static_cast<ViStatus>(0xBFFF009E));
    session.waitComplete(QStringLiteral("*RST"));
    session.close();
}

void SessionTest::openLocksAndReportsNothing()
{
    ScpiSession other(*m_visa);
    other.openResourceManager();
    QVERIFY2(!other.open(address), "the first session holds the instrument");
    QVERIFY(!other.isConnected());
    QVERIFY(!other.open(QString::fromUtf8("USB0::ж::INSTR")));
    m_session->close();
    QVERIFY(other.open(address));
    other.close();
}

void SessionTest::textReachesTheWireAsItStands_data()
{
    testColumns<QString>("command");
    testRow("plain", "OUTPut ON");
    testRow("conversions", "%n%s%d%lf%");
    testRow("doubled", "100%% %%n");
    testRow("grouped", "LIST:FREQ 1 000 000Hz,2 000 000Hz");
    testRow("empty", "");
}

void SessionTest::textReachesTheWireAsItStands()
{
    QFETCH(QString, command);
    const QStringList expected{command + QLatin1String("\\n")};
    m_session->write(command);
    QCOMPARE(m_demo->takeSent(), expected);
    (*m_demo)(QStringLiteral("fault 1 status 0"));
    m_session->query(command);
}

void SessionTest::completionQueryHasNoLineFeed()
{
    m_session->waitComplete(QStringLiteral("LIST:POW 0,-5,-10"));
    QCOMPARE(m_demo->takeSent(), QStringList({"LIST:POW 0,-5,-10\\n", "*OPC?"}));
    QCOMPARE(m_session->lastStatus(), VI_SUCCESS);
}

void SessionTest::settingIsReadBack_data()
{
    testColumns<QByteArray, double, FieldKind, QString, QString>("format", "value", "kind", "sent",
                                                                 "shown");

    testRow("frequency", QByteArray("FREQ %lf Hz;FREQ?"), 2.5e9, FieldKind::Frequency,
            "FREQ 2500000000.000000 Hz;FREQ?\\n", "2 500 000 000");
    testRow("power", QByteArray("POW %lf;POW?"), -7.0, FieldKind::Power, "POW -7.000000;POW?\\n",
            "-7");
    testRow("refused", QByteArray("FREQ %lf Hz;FREQ?"), 1e30, FieldKind::Frequency,
            "FREQ 1000000000000000019884624838656.000000 Hz;FREQ?\\n", "1 000 000 000");
    testRow("period", QByteArray("PULM:INT:PER %lf U;PER?"), 1000.0, FieldKind::PulsePeriod,
            "PULM:INT:PER 1000.000000 U;PER?\\n", "1 000");
}

void SessionTest::settingIsReadBack()
{
    QFETCH(QByteArray, format);
    QFETCH(double, value);
    QFETCH(FieldKind, kind);
    QFETCH(QString, sent);
    QFETCH(QString, shown);
    QCOMPARE(m_session->setAndReadBack(format.constData(), value, kind), shown);
    QCOMPARE(m_demo->takeSent(), QStringList{sent});
}

void SessionTest::failedSettingEndsTheConnection()
{
    QSignalSpy failed(m_session.get(), &ScpiSession::connectionFailed);
    (*m_demo)(QStringLiteral("unplug"));
    QCOMPARE(m_session->setAndReadBack("FREQ %lf Hz;FREQ?", 1e9, FieldKind::Frequency), QString());
    QCOMPARE(failed.count(), 1);
    QVERIFY(m_session->lastFailed());
}

void SessionTest::writesLeaveTheStatus()
{
    m_session->query(QStringLiteral("*IDN?"));
    (*m_demo)(QStringLiteral("fault 1 status 0xBFFF0015"));
    m_session->write(QStringLiteral("*RST"));
    QCOMPARE(m_session->lastStatus(), VI_SUCCESS);
}

void SessionTest::repliesOfAnyKindStayInside_data()
{
    testColumns<QString, QString, int>("fault", "start", "length");
    testRow("100 kB", "fault 1 length 100000", "", 65535);
    testRow("exactly the buffer", "fault 1 length 65534", "", 65535);
    testRow("endless", "fault 1 endless", "", 0);
    testRow("with NUL", "fault 1 reply AB\\x00CD\\n", "AB", 2);
    testRow("high bytes", "fault 1 reply \\xFF\\xFE\\n", "\xC3\xBF\xC3\xBE\n", 3);
    testRow("nothing", "fault 1 reply \\n", "\n", 1);
}

void SessionTest::repliesOfAnyKindStayInside()
{
    QFETCH(QString, fault);
    QFETCH(QString, start);
    QFETCH(int, length);
    (*m_demo)(fault);
    const QString reply = m_session->query(QStringLiteral("*IDN?"));
    QCOMPARE(reply.size(), length);
    QCOMPARE(m_session->lastFailed(), fault.contains("endless"));
    if (m_session->lastFailed())
        return;
    QVERIFY(reply.startsWith(start));
    // The rest of a cut reply must not be taken for the next answer.
    QCOMPARE(m_session->query(QStringLiteral("*OPC?")).trimmed(), QString("1"));
}

void SessionTest::errorQueueIsDrained_data()
{
    testColumns<QStringList>("replies");
    testRow("empty, bare", QStringList{"0,\"No error\"\\n"});
    testRow("empty, plus", QStringList{"+0,\"No error\"\\n"});
    testRow("empty, minus", QStringList{"-0,\"No error\"\\n"});
    testRow("several", QStringList{"-113,\"Undefined header\"\\n", "-222,\"Data out of range\"\\n",
                                   "0,\"No error\"\\n"});
    testRow("rubbish", QStringList{"\\n", "?\\n", ",,,\\n", "0\\n"});
}

void SessionTest::errorQueueIsDrained()
{
    QFETCH(QStringList, replies);
    QSignalSpy failed(m_session.get(), &ScpiSession::connectionFailed);
    for (int round = 0; round < replies.size(); ++round)
        (*m_demo)(QStringLiteral("fault %1 reply %2").arg(round + 1).arg(replies.at(round)));
    m_session->checkErrors();
    QCOMPARE(m_demo->takeSent().size(), replies.size());
    QCOMPARE(failed.count(), 0);
}

void SessionTest::indicatorsFollowTheQueue()
{
    QSignalSpy seen329(m_session.get(), &ScpiSession::error329Seen);
    QSignalSpy gone329(m_session.get(), &ScpiSession::error329Gone);
    QSignalSpy seen328(m_session.get(), &ScpiSession::referenceUnlockSeen);
    QSignalSpy gone328(m_session.get(), &ScpiSession::referenceUnlockGone);

    (*m_demo)(QStringLiteral("error 329 Reverse power"));
    m_session->checkErrors();
    QCOMPARE(seen329.count(), 1);
    QVERIFY(seen329.first().first().toString().contains("Reverse power"));
    QCOMPARE(gone329.count(), 0);
    QCOMPARE(gone328.count(), 1);

    (*m_demo)(QStringLiteral("error 328"));
    m_session->checkErrors();
    QCOMPARE(seen328.count(), 1);
    QCOMPARE(gone329.count(), 1);
    QCOMPARE(gone328.count(), 1);

    m_session->checkErrors();
    QCOMPARE(gone328.count(), 2);
}

void SessionTest::errorDrainFails_data()
{
    testColumns<QString, int>("fault", "queries");
    testRow("time-out", "fault 1 status 0xBFFF0015", 1);
    testRow("warning", "fault 1 status 0x3FFF0085", 1);
    testRow("unplugged", "unplug", 1);
    testRow("never empty", "errors endless -350", 10000);
}

void SessionTest::errorDrainFails()
{
    QFETCH(QString, fault);
    QFETCH(int, queries);
    QSignalSpy failed(m_session.get(), &ScpiSession::connectionFailed);
    connect(m_session.get(), &ScpiSession::connectionFailed, this, [this] { m_session->close(); });
    (*m_demo)(fault);
    const int before = (*m_demo)(QStringLiteral("calls")).toInt();
    m_session->checkErrors();
    QCOMPARE(failed.count(), 1);
    QVERIFY(!failed.first().first().value<StatusWords>()().isEmpty());
    // Beside the queries: the description of the status, and the close.
    QCOMPARE((*m_demo)(QStringLiteral("calls")).toInt() - before, queries + 2);
    m_session->checkErrors();
    QCOMPARE((*m_demo)(QStringLiteral("calls")).toInt() - before, queries + 2);
}

/// At 2 ms an answer the rounds alone would take 20 s.
void SessionTest::endlessQueueIsLeftInTime()
{
    (*m_demo)(QStringLiteral("errors endless -350"));
    (*m_demo)(QStringLiteral("latency 2000"));
    QSignalSpy failed(m_session.get(), &ScpiSession::connectionFailed);
    QElapsedTimer time;
    time.start();
    m_session->checkErrors();
    QCOMPARE(failed.count(), 1);
    QVERIFY(!time.hasExpired(8000));
}

void SessionTest::limitsAreRead()
{
    (*m_demo)(QStringLiteral("reply PULM:INT:PER? MAX -> 10 S"));
    (*m_demo)(QStringLiteral("reply ROSC:EXT:FREQ? MAX -> 100 MHZ"));
    (*m_demo)(QStringLiteral("reply AM:INT:FUNC:SHAP:SQU:DUTY? MAX -> 1e300"));
    (*m_demo)(QStringLiteral("reply LFO:AMPL? MAX -> rubbish"));
    (*m_demo)(QStringLiteral("reply FREQ? MAX -> 20000000000.9"));

    InstrumentLimits limits;
    m_session->query(QStringLiteral("*OPC?"));
    limits.readLimits(*m_session);
    QCOMPARE(limits[Quantity::Frequency].max, 20e9);
    QCOMPARE(limits[Quantity::Frequency].min, 100e3);
    QCOMPARE(limits[Quantity::PulsePeriod].max, 10e6);
    QCOMPARE(limits[Quantity::ExternalReference].max, 100.0);
    QCOMPARE(limits[Quantity::AmDuty].max, double(std::numeric_limits<qint32>::max()));
    QCOMPARE(limits[Quantity::LfAmplitude].max, 0.0);
    QVERIFY(limits[Quantity::Power].max > limits[Quantity::Power].min);
}

void SessionTest::firstFailedLimitStopsTheRest()
{
    InstrumentLimits limits;
    limits[Quantity::Power].max = 77.0;
    limits[Quantity::SweepDwell].max = 99;
    m_session->query(QStringLiteral("*OPC?"));
    m_demo->takeSent();
    // Write and read of both frequency limits, then the write and the failing read of a third.
    (*m_demo)(QStringLiteral("fault 6 status 0xBFFF0015"));
    limits.readLimits(*m_session);
    QCOMPARE(m_demo->takeSent().size(), 3);
    QVERIFY(limits[Quantity::Frequency].isKnown());
    QCOMPARE(limits[Quantity::Power].max, 77.0);
    QCOMPARE(limits[Quantity::SweepDwell].max, 99.0);

    m_session->query(QStringLiteral("*OPC?"));
    limits.readLimits(*m_session);
    QVERIFY(limits[Quantity::Power].max < 77.0);
    QVERIFY(limits[Quantity::SweepDwell].max > 99);
}

QTEST_GUILESS_MAIN(SessionTest)
#include "session_test.moc"
