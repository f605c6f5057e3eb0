#include "tests/demo/demo_session.h"
#include "tests/support/rows.h"

class DemoScpiTest : public QObject
{
    Q_OBJECT

private slots:
    void message_data();
    void message();
    void settingsHoldAndReset_data();
    void settingsHoldAndReset();
    void limits_data();
    void limits();
    void errorQueue();
    void standingConditions();
    void messageExchangeErrors();
    void calibrationTable();
    void statusRegisters();
};

// One message to a freshly reset instrument: its reply (empty: none) and the errors it leaves.
void DemoScpiTest::message_data()
{
    testColumns<QByteArray, QByteArray, QByteArray>("message", "reply", "errors");
    const struct {
        const char* message;
        const char* reply;
        const char* errors;
    } rows[] = {
        {"*IDN?", "Veltro,KLV-20G,20215678,2.7.1", ""},
        // headers: forms, case, optional parts
        {"FREQ 2500000000.000000 Hz;FREQ?", "2500000000", ""},
        {"FREQUEN?", "", "-113"},
        {"SYSTem:ERRor?", "0,\"No error\"", ""},
        {"ROSCillator:SOURce EXTernal;SOURce?", "EXT", ""},
        {"*ABORt", "", ""},
        // the path
        {"PULM:INT:PER 100.000000 U;PER?", "100 US", ""},
        {"PULM:INT:PER 100 U;*OPC?;PER?", "1;100 US", ""},
        {"PULM:INT:PER 100 U;FREQ?", "", "-113"},
        {"PULM:INT:PER 100 U;:FREQ?;:PULM:INT:PWID?", "1000000000;1 US", ""},
        {";; *OPC?;", "1", ""},
        // numbers and units
        {"FREQ 2.5 GHZ;FREQ?", "2500000000", ""},
        {"FREQ 1 000 000Hz;FREQ?", "1000000", ""},
        {"FREQ 123456789.1234;FREQ?", "123456789.123", ""},
        {"POW -.004;POW?", "0", ""},
        {"PULM:INT:PWID 2.5 MS;PWID?", "2500 US", ""},
        {"PULM:INT:PWID 0.25;PWID?", "250000 US", ""},
        {"PM 180 DEG;PM?", "3.141593", ""},
        {"LFO:AMPL 250 MV;AMPL?", "0.25", ""},
        {"SWEep:DWELl 5e-05;DWELl?", "50", ""},
        {"FREQ MAX;FREQ?;FREQ MIN;FREQ?;FREQ? DEF", "20000000000;100000;1000000000", ""},
        // what is refused leaves the setting as it was, and the rest of the message is executed
        {"FREQ 99 GHZ;FREQ?", "1000000000", "-222"},
        {"FREQ;FREQ?", "1000000000", "-109"},
        {"FREQ 1,2", "", "-108"},
        {"FREQ fast", "", "-104"},
        {"FREQ 1 V", "", "-131"},
        {"FREQ? 5", "", "-224"},
        {"OUTP MAYBE;OUTP?", "0", "-224"},
        {"*IDN", "", "-113"},
        {"SWEep:POINts ", "", "-109"},
        {"FREQ 1\x01", "", "-101"},
        {"LIST:FREQ 1 000 000Hz,2 000 000Hz;FREQ?", "1000000,2000000", ""},
        {"LIST:FREQ 1MHZ,99GHZ;FREQ:POIN?", "0", "-222"},
        {"LIST:POW 0,;:POW?", "0", "-109"},
    };
    for (const auto& row : rows)
        testRow(row.message, QByteArray(row.message), QByteArray(row.reply),
                QByteArray(row.errors));
}

void DemoScpiTest::message()
{
    QFETCH(QByteArray, message);
    QFETCH(QByteArray, reply);
    QFETCH(QByteArray, errors);
    DemoSession instrument;
    QCOMPARE(instrument.write(message), VI_SUCCESS);
    if (!reply.isEmpty())
        QCOMPARE(instrument.read(), reply);
    QCOMPARE(instrument.errors(), errors);
}

// Every setting of the panel: the command that sets it, and the reply to its query.
void DemoScpiTest::settingsHoldAndReset_data()
{
    testColumns<QByteArray, QByteArray, QByteArray>("command", "query", "reply");
    const QByteArray rows[][3] = {
        {"OUTPut ON", "OUTP?", "1"},
        {"POW:BOOST ON", "POW:BOOST?", "1"},
        {"ROSC:EXT:FREQ 25 MHZ", "ROSC:EXT:FREQ?", "25 MHZ"},
        {"LFO:FUNC:SHAP DC", "LFO:FUNC:SHAP?", "DC"},
        {"LFO:FUNC:SHAP:RAMP NEG", "LFO:FUNC:SHAP:RAMP?", "NEG"},
        {"LFO:FUNC:FREQ 20000.5 Hz", "LFO:FUNC:FREQ?", "20000.5"},
        {"SWEep:POINts 12", "SWE:POIN?", "12"},
        {"FREQ:START 1000000", "FREQ:STAR?", "1000000"},
        {"POW:MODE SWE", "POW:MODE?", "SWE"},
        {"FREQ:MODE LIST", "FREQ:MODE?", "LIST"},
        {"TRIG:SOUR BUS", "TRIG:SOUR?", "BUS"},
        {"LIST:MODE MAN", "LIST:MODE?", "MAN"},
        {"INIT:CONT ON", "INIT:CONT?", "1"},
        {"LIST:POW 0,-5,-10", "LIST:POW?", "0,-5,-10"},
        {"LIST:DWEL 0.001,5e-05", "LIST:DWEL?", "1000,50"},
        {"LIST:FREQ 1MHZ;FREQ:ADD 2MHZ,3MHZ", "LIST:FREQ?", "1000000,2000000,3000000"},
    };
    for (const auto& row : rows)
        testRow(row[0].constData(), row[0], row[1], row[2]);
    const QByteArray modulationRows[][3] = {
        {":STATe ON", ":STAT?", "1"},
        {":SOUR EXT", ":SOUR?", "EXT"},
        {" 7.25", "?", "7.25"},
        {":INT:FUNC:FREQ 440 Hz", ":INT:FUNC:FREQ?", "440"},
        {":INT:FUNC:SHAP TRI", ":INT:FUNC:SHAP?", "TRI"},
        {":INT:FUNC:SHAP:RAMP NEG", ":INT:FUNC:SHAP:RAMP?", "NEG"},
        {":INT:FUNC:SHAP:SQU:DUTY 20", ":INT:FUNC:SHAP:SQU:DUTY?", "20"},
    };
    for (const QByteArray modulation : {"AM", "FM", "PM"})
        for (const auto& row : modulationRows)
            testRow((modulation + row[0]).constData(), modulation + row[0], modulation + row[1],
                    row[2]);
}

void DemoScpiTest::settingsHoldAndReset()
{
    QFETCH(QByteArray, command);
    QFETCH(QByteArray, query);
    QFETCH(QByteArray, reply);
    DemoSession instrument;
    const QByteArray atReset = instrument.query(query);
    QVERIFY(atReset != reply);
    instrument.write(command);
    QCOMPARE(instrument.query(query), reply);
    instrument.write("*RST");
    instrument.errors();
    QCOMPARE(instrument.query(query), atReset);
}

// The limits are answered and kept: at each of them a setting is taken, beyond it refused.
void DemoScpiTest::limits_data()
{
    testColumns<QByteArray, QByteArray, QByteArray, QByteArray>("header", "minimum", "maximum",
                                                                "beyond");
    const QByteArray rows[][4] = {
        {"FREQ", "100000", "20000000000", "20.001 GHZ"},
        {"POW", "-20", "20", "20.01"},
        {"PULM:INT:PER", "2 US", "10000000 US", "1.9 US"},
        {"PULM:INT:PWID", "1 US", "9999999 US", "0.9 US"},
        {"AM", "0", "100", "100.01"},
        {"AM:INT:FUNC:FREQ", "0.1", "100000", "100001"},
        {"AM:INT:FUNC:SHAP:SQU:DUTY", "1", "99", "99.1"},
        {"FM", "0", "20000000", "20.1 MHZ"},
        {"FM:INT:FUNC:FREQ", "0.2", "200000", "0.1"},
        {"FM:INT:FUNC:SHAP:SQU:DUTY", "2", "98", "1"},
        {"PM", "0", "20", "-0.1"},
        {"PM:INT:FUNC:FREQ", "0.5", "50000", "100 KHZ"},
        {"PM:INT:FUNC:SHAP:SQU:DUTY", "3", "97", "98"},
        {"LFO:FUNC:SHAP:SQU:DUTY", "5", "95", "97"},
        {"LFO:AMPL", "0", "5", "5001 MV"},
        {"LFO:FUNC:FREQ", "1", "1000000", "2 MHZ"},
        {"ROSC:EXT:FREQ", "1 MHZ", "100 MHZ", "101 MHZ"},
        {"SWEEP:DWEL", "20", "200000000", "19 US"},
        {"LIST:DWEL:POIN", "50", "100000000", ""},
    };
    QSet<QByteArray> ranges;
    for (const auto& row : rows) {
        // A mix-up of two quantities' limits has to show.
        QVERIFY2(!ranges.contains(row[1] + row[2]), row[0].constData());
        ranges += row[1] + row[2];
        testRow(row[0].constData(), row[0], row[1], row[2], row[3]);
    }
}

void DemoScpiTest::limits()
{
    QFETCH(QByteArray, header);
    QFETCH(QByteArray, minimum);
    QFETCH(QByteArray, maximum);
    QFETCH(QByteArray, beyond);
    DemoSession instrument;
    QCOMPARE(instrument.query(header + "? MAX"), maximum);
    QCOMPARE(instrument.query(header + "? MIN"), minimum);
    if (beyond.isEmpty())
        return;
    for (const QByteArray limit : {"MIN", "MAX"}) {
        instrument.write(header + " " + limit);
        QCOMPARE(instrument.query(header + "?"), limit == "MIN" ? minimum : maximum);
    }
    QCOMPARE(instrument.errors(), QByteArray());
    instrument.write(header + " " + beyond);
    QCOMPARE(instrument.errors(), QByteArray("-222"));
    QCOMPARE(instrument.query(header + "?"), maximum);
}

void DemoScpiTest::errorQueue()
{
    DemoSession instrument;
    instrument.write("FOO;FREQ 1 V");
    QCOMPARE(instrument.query("SYST:ERR?"), QByteArray("-113,\"Undefined header\""));
    QCOMPARE(instrument.query("SYST:ERR:COUN?"), QByteArray("1"));
    QCOMPARE(instrument.errors(), QByteArray("-131"));
    for (int i = 0; i < 40; ++i)
        instrument.write("FOO");
    const QList<QByteArray> codes = instrument.errors().split(' ');
    QCOMPARE(codes.size(), 32);
    QCOMPARE(codes.first(), QByteArray("-113"));
    QCOMPARE(codes.last(), QByteArray("-350"));
    instrument.write("FOO;*CLS");
    QCOMPARE(instrument.errors(), QByteArray());

    demo("error 321 Oven is \\xFEcold");
    QCOMPARE(instrument.query("SYST:ERR?"), QByteArray("321,\"Oven is \xFE"
                                                       "cold\""));
    demo("errors endless -310");
    QCOMPARE(instrument.errors().split(' ').size(), 100);
    demo("errors normal");
    QCOMPARE(instrument.errors(), QByteArray());
}

void DemoScpiTest::standingConditions()
{
    DemoSession instrument;
    demo("reference absent");
    QCOMPARE(instrument.errors(), QByteArray());
    instrument.write("ROSC:SOUR EXT");
    QCOMPARE(instrument.errors(), QByteArray("328"));
    QCOMPARE(instrument.errors(), QByteArray("328"));
    demo("condition 329 on");
    QCOMPARE(instrument.errors(), QByteArray("328 329"));
    demo("reference present");
    QCOMPARE(instrument.errors(), QByteArray("329"));
    demo("reference absent");
    demo("condition 329 off");
    instrument.write("*RST");
    QCOMPARE(instrument.errors(), QByteArray());
}

void DemoScpiTest::messageExchangeErrors()
{
    DemoSession instrument;
    QCOMPARE(instrument.read(), QByteArray("VISA bfff0015"));
    QCOMPARE(instrument.errors(), QByteArray("-420"));
    instrument.write("*IDN?");
    QCOMPARE(instrument.query("FREQ?"), QByteArray("1000000000"));
    QCOMPARE(instrument.errors(), QByteArray("-410"));
    instrument.write("*IDN?");
    viClear(instrument.session);
    QCOMPARE(instrument.query("*OPC?"), QByteArray("1"));
    QCOMPARE(instrument.errors(), QByteArray());
    const QByteArray tooLong(2 << 20, ' ');
    viWrite(instrument.session, reinterpret_cast<ViConstBuf>(tooLong.constData()),
            static_cast<ViUInt32>(tooLong.size()), nullptr);
    QCOMPARE(instrument.errors(), QByteArray("-363"));
}

void DemoScpiTest::calibrationTable()
{
    DemoSession instrument;
    const int count = instrument.query("MEM:TABLE:POIN?").toInt();
    QCOMPARE(count, 20);
    const QByteArray stored = instrument.query("MEM:TABLE:POINt:ALL?");
    QCOMPARE(stored.split(' ').size(), 2 * count);
    instrument.write("MEM:TABLE:ADD 1500000000 -3");
    instrument.write("MEM:TABLE:ADD 2250000000 12");
    instrument.write("MEM:TABLE:ADD 1500000000 4");
    QCOMPARE(instrument.query("MEM:TABLE:POINt:ALL?"), QByteArray("1500000000 4 2250000000 12"));
    instrument.write("*RST");
    QCOMPARE(instrument.query("MEM:TABLE:POINt:ALL?"), stored);
    instrument.write("MEM:TABLE:ADD 1000000000 7");
    instrument.write("MEM:TABLE:SAVE");
    instrument.write("MEM:DAC 40000;*RST");
    QCOMPARE(instrument.query("MEM:TABLE:POINt:ALL?"), QByteArray("1000000000 7"));
    QCOMPARE(instrument.query("MEM:DAC?"), QByteArray("40000"));
    instrument.write("MEM:TABLE:ADD 5");
    QCOMPARE(instrument.errors(), QByteArray("-109"));
}

void DemoScpiTest::statusRegisters()
{
    DemoSession instrument;
    QCOMPARE(instrument.query("*ESR?"), QByteArray("128"));
    instrument.write("*ESE 32;*SRE 32;FOO;*OPC");
    ViUInt16 status = 0;
    QCOMPARE(viReadSTB(instrument.session, &status), VI_SUCCESS);
    QCOMPARE(int(status), 0x64);
    instrument.write("*IDN?");
    viReadSTB(instrument.session, &status);
    QCOMPARE(int(status), 0x74);
    instrument.read();
    QCOMPARE(instrument.query("*ESR?"), QByteArray("33"));
    QCOMPARE(instrument.query("*STB?"), QByteArray("4"));
}

QTEST_GUILESS_MAIN(DemoScpiTest)
#include "demo_scpi_test.moc"
