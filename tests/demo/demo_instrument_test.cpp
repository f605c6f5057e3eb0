#include "tests/demo/demo_session.h"
#include "tests/support/rows.h"

/// The simulated instrument as its messages show it.
class DemoInstrumentTest : public QObject
{
    Q_OBJECT

private slots:
    // One message to a freshly reset instrument: its reply (empty: none) and the errors it leaves.
    void message_data()
    {
        testColumns<QString, QString>("reply", "errors");
        testRow("*IDN?", "Veltro,KLV-20G,20215678,2.7.1", "");
        // headers: forms, case, optional parts
        testRow("FREQ 2500000000.000000 Hz;FREQ?", "2500000000", "");
        testRow("FREQUEN?", "", "-113");
        testRow("SYSTem:ERRor?", "0,\"No error\"", "");
        testRow("ROSCillator:SOURce EXTernal;SOURce?", "EXT", "");
        testRow("*ABORt", "", "");
        // the path
        testRow("PULM:INT:PER 100 U;*OPC?;PER?", "1;100 US", "");
        testRow("PULM:INT:PER 100 U;FREQ?", "", "-113");
        testRow("PULM:INT:PER 100 U;:FREQ?;:PULM:INT:PWID?", "1000000000;1 US", "");
        testRow(";; *OPC?;", "1", "");
        // numbers and units
        testRow("FREQ 2.5 GHZ;FREQ?", "2500000000", "");
        testRow("FREQ 1 000 000Hz;FREQ?", "1000000", "");
        testRow("FREQ 123456789.1234;FREQ?", "123456789.123", "");
        testRow("POW -.004;POW?", "0", "");
        testRow("PULM:INT:PWID 2.5 MS;PWID?", "2500 US", "");
        testRow("PULM:INT:PWID 0.25;PWID?", "250000 US", "");
        testRow("PM 180 DEG;PM?", "3.141593", "");
        testRow("LFO:AMPL 250 MV;AMPL?", "0.25", "");
        testRow("SWEep:DWELl 5e-05;DWELl?", "50", "");
        testRow("FREQ MAX;FREQ?;FREQ MIN;FREQ?;FREQ? DEF", "20000000000;100000;1000000000", "");
        // what is refused leaves the setting as it was, and the rest of the message is executed
        testRow("FREQ 99 GHZ;FREQ?;:SYST:ERR?", "1000000000;-222,\"Data out of range\"", "");
        testRow("FREQ 99 KHZ;FREQ?", "1000000000", "-222");
        testRow("SWE:DWEL MAX;DWEL 19 US;DWEL?;DWEL? MIN", "200000000;20", "-222");
        testRow("FREQ;FREQ?", "1000000000", "-109");
        testRow("FREQ 1,2", "", "-108");
        testRow("FREQ fast", "", "-104");
        testRow("FOO;:FREQ 1 V;:SYST:ERR:COUN?", "2", "-113 -131");
        testRow("FREQ? 5", "", "-224");
        testRow("OUTP MAYBE;OUTP?", "0", "-224");
        testRow("*IDN", "", "-113");
        testRow("SWEep:POINts ", "", "-109");
        testRow("FREQ 1\x01", "", "-101");
        testRow("FOO;*CLS", "", "");
        testRow(QString("FOO;").repeated(40), "", QString("-113 ").repeated(31) + "-350");
        testRow("*ESR?;*ESE 32;*SRE 32;FOO;*OPC;*STB?;*ESR?", "128;36;33", "-113");
        // lists
        testRow("LIST:FREQ 1 000 000Hz,2 000 000Hz;FREQ:ADD 3MHZ;:LIST:FREQ?",
                "1000000,2000000,3000000", "");
        testRow("LIST:FREQ 1MHZ,99GHZ;FREQ:POIN?", "0", "-222");
        testRow("LIST:POW 0,-5;POW 0,;:LIST:POW?;*RST;POW:POIN?", "0,-5;0", "-109");
        testRow("LIST:DWEL 0.001,5e-05;DWEL?;DWEL:POIN? MIN;POIN? MAX", "1000,50;50;100000000", "");
        // starts and steps
        testRow("INIT", "", "-221");
        testRow("FREQ:MODE LIST;:INIT", "", "-221");
        testRow("FREQ:MODE LIST;:POW:MODE SWE;:LIST:FREQ 1MHZ;DWEL 1;:INIT", "", "-221");
        testRow("FREQ:MODE LIST;:POW:MODE LIST;:LIST:FREQ 1MHZ,2MHZ,3MHZ;POW 0,1;DWEL 1;:INIT", "",
                "-226");
        testRow("FREQ:MODE SWE;:INIT;INIT", "", "-213");
        testRow("LIST:MODE MAN;MAN UP", "", "-221");
        testRow("FREQ:MODE SWE;:INIT;:LIST:MAN 2", "", "-221");
        testRow("FREQ:MODE SWE;:LIST:MODE MAN;:INIT;:LIST:MAN 0", "", "-222");
        testRow("FREQ:MODE SWE;:LIST:MODE MAN;:INIT;:LIST:MAN 102", "", "-222");
        testRow("FREQ:MODE SWE;:TRIG:SOUR BUS;*TRG", "", "-211");
        testRow("SWE:POIN 3;:POW:STAR -10;STOP 20;MODE SWE;:TRIG:SOUR BUS;:LIST:MODE MAN;:INIT;"
                ":LIST:MAN 2;:POW:CURR?;:FREQ:CURR?;:POW?",
                "5;1000000000;0", "");
        // the calibration table, of which one that is not stored is forgotten
        testRow("MEM:TABLE:ADD 1500000000 -3;ADD 2250000000 12;ADD 1500000000 4;POIN:ALL?",
                "1500000000 4 2250000000 12", "");
        testRow("MEM:TABLE:ADD 1000000000 7;*RST;POIN?", "20", "");
        testRow("MEM:TABLE:ADD 1000000000 7;SAVE;*RST;POIN:ALL?", "1000000000 7", "");
        testRow("MEM:TABLE:ADD 5", "", "-109");
        testRow("MEM:DAC 40000;*RST;DAC?", "40000", "");
    }

    void message()
    {
        QFETCH(QString, reply);
        QFETCH(QString, errors);
        DemoSession instrument;
        QCOMPARE(instrument.write(QTest::currentDataTag()), VI_SUCCESS);
        if (!reply.isEmpty())
            QCOMPARE(instrument.read(), reply.toLatin1());
        QCOMPARE(instrument.errors(), errors.toLatin1());
    }

    // Every setting of the panel, with the limits of numbers. No two have the same, so that a
    // mix-up shows.
    void settings_data()
    {
        testColumns<QString, QString>("minimum", "maximum");
        testRow("FREQ 5000000", "100000", "20000000000");
        testRow("POW -7.5", "-20", "20");
        testRow("PULM:INT:PER 250 US", "2 US", "10000000 US");
        testRow("PULM:INT:PWID 3 US", "1 US", "9999999 US");
        testRow("AM 7.25", "0", "100");
        testRow("AM:INT:FUNC:FREQ 440", "0.1", "100000");
        testRow("AM:INT:FUNC:SHAP:SQU:DUTY 20", "1", "99");
        testRow("FM 7.25", "0", "20000000");
        testRow("FM:INT:FUNC:FREQ 440", "0.2", "200000");
        testRow("FM:INT:FUNC:SHAP:SQU:DUTY 20", "2", "98");
        testRow("PM 7.25", "0", "20");
        testRow("PM:INT:FUNC:FREQ 440", "0.5", "50000");
        testRow("PM:INT:FUNC:SHAP:SQU:DUTY 20", "3", "97");
        testRow("LFO:FUNC:SHAP:SQU:DUTY 20", "5", "95");
        testRow("LFO:AMPL 0.25", "0", "5");
        testRow("LFO:FUNC:FREQ 20000.5", "1", "1000000");
        testRow("ROSC:EXT:FREQ 25 MHZ", "1 MHZ", "100 MHZ");
        testRow("SWE:POIN 12", "2", "65535");
        for (const char* setting :
             {"OUTP 1", "POW:BOOS 1", "LFO:FUNC:SHAP DC", "LFO:FUNC:SHAP:RAMP NEG",
              "FREQ:STAR 1000000", "FREQ:MODE LIST", "POW:MODE SWE", "TRIG:SOUR BUS",
              "LIST:MODE MAN", "INIT:CONT 1"})
            testRow(setting, "", "");
        for (const QString modulation : {"AM", "FM", "PM"})
            for (const char* setting :
                 {":STAT 1", ":SOUR EXT", ":INT:FUNC:SHAP TRI", ":INT:FUNC:SHAP:RAMP NEG"})
                testRow(modulation + setting, "", "");
    }

    void settings()
    {
        QFETCH(QString, minimum);
        QFETCH(QString, maximum);
        const QByteArray command = QTest::currentDataTag();
        const QByteArray header = command.left(command.indexOf(' '));
        const QByteArray query = header + '?';
        DemoSession instrument;
        const QByteArray atReset = instrument.query(query);
        instrument.write(command);
        QCOMPARE(header + ' ' + instrument.query(query), command);
        QVERIFY(instrument.query(query) != atReset);
        if (!maximum.isEmpty()) {
            const QString limits = minimum + ';' + maximum;
            QCOMPARE(instrument.query(query + " MIN;:" + query + " MAX"), limits.toLatin1());
            instrument.write(header + " MIN");
            QCOMPARE(instrument.query(query), minimum.toLatin1());
            instrument.write(header + " MAX");
            const QString unit = maximum.section(' ', 1);
            const double beyond = maximum.section(' ', 0, 0).toDouble() * 1.01;
            instrument.write(header + ' ' + QByteArray::number(beyond, 'f', 2) + unit.toLatin1());
            QCOMPARE(instrument.query(query), maximum.toLatin1());
            QCOMPARE(instrument.errors(), QByteArray("-222"));
        }
        instrument.write("*RST");
        QCOMPARE(instrument.errors(), QByteArray());
        QCOMPARE(instrument.query(query), atReset);
    }

    // Actions in order, each with what is then seen: state, point, frequency in MHz.
    void run_data()
    {
        testColumns<QString, QString>("setting", "steps");
        const char* const sweep = "SWE:POIN 5;DWEL 0.001;:FREQ:STAR 1MHZ;STOP 5MHZ;MODE SWE";
        const char* const list = "LIST:FREQ 10MHZ,20MHZ,30MHZ;DWEL 0.001,0.002,0.003;POW 0;"
                                 ":FREQ:MODE LIST;:POW:MODE LIST";
        testRow("sweep, free", sweep,
                "INIT:IMM > RUN 1 1 | clock 999 > RUN 1 1 | *TRG > RUN 1 1 | clock 1001 > RUN 3 3 |"
                "clock 2000 > RUN 5 5 | clock 1000 > IDLE 5 5 | FREQ:MODE LIST > IDLE 0 1000 |"
                "FREQ:MODE SWE > IDLE 0 1000 | INIT > RUN 1 1 | POW:MODE LIST > IDLE 0 1000 |"
                "POW:MODE FIX;:INIT > RUN 1 1 | ABOR > IDLE 0 1000");
        testRow("sweep, repeated", sweep,
                "INIT:CONT ON > IDLE 0 1000 | INIT:IMM > RUN 1 1 | clock 6000 > RUN 2 2 |"
                "clock 50000001000 > RUN 3 3 | INIT:CONT OFF > RUN 3 3 | clock 3000 > IDLE 5 5 |"
                "INIT:CONT ON > RUN 1 1");
        testRow("list, free", list,
                "INIT:IMM > RUN 1 10 | clock 1000 > RUN 2 20 | clock 1999 > RUN 2 20 |"
                "clock 1 > RUN 3 30 | clock 3000 > IDLE 3 30");
        testRow("sweep, by hand", sweep,
                "TRIG:SOUR BUS > IDLE 0 1000 | LIST:MODE MAN > IDLE 0 1000 | INIT > WAIT 0 1000 |"
                "*TRG > WAIT 1 1 | LIST:MAN UP > WAIT 2 2 | LIST:MAN UP > WAIT 3 3 |"
                "clock 99000 > WAIT 3 3 | LIST:MAN DOWN > WAIT 2 2 | LIST:MAN 5 > WAIT 5 5 |"
                "LIST:MAN UP > WAIT 5 5 | *TRG > IDLE 5 5");
        testRow("list, point by edge", list,
                "TRIG:SLOP NEG;SOUR EXT > IDLE 0 1000 | LIST:MODE MAN > IDLE 0 1000 |"
                "INIT:CONT ON;IMM > WAIT 0 1000 | trigger rising > WAIT 0 1000 |"
                "*TRG > WAIT 0 1000 | trigger falling > WAIT 1 10 | trigger falling > WAIT 2 20 |"
                "trigger falling > WAIT 3 30 | trigger falling > WAIT 1 10");
        testRow("list, all at one edge", list,
                "TRIG:SOUR EXT > IDLE 0 1000 | INIT:CONT ON;IMM > WAIT 0 1000 |"
                "trigger rising > RUN 1 10 | clock 1500 > RUN 2 20 | clock 9000 > WAIT 3 30 |"
                "trigger rising > RUN 1 10");
        testRow("changes in a run", sweep,
                "TRIG:SOUR BUS > IDLE 0 1000 | INIT > WAIT 0 1000 | *TRG > RUN 1 1 |"
                "clock 1500 > RUN 2 2 | LIST:MODE MAN > WAIT 2 2 | clock 5000 > WAIT 2 2 |"
                "TRIG:SOUR IMM > RUN 2 2 | clock 1000 > RUN 3 3 | SWE:POIN 4 > RUN 3 3.666666667 |"
                "FREQ:MODE FIX > IDLE 0 1000");
    }

    void run()
    {
        QFETCH(QString, setting);
        QFETCH(QString, steps);
        DemoSession instrument;
        demo("clock stop");
        instrument.write(setting.toLatin1());
        for (const QString& step : steps.split('|')) {
            const QByteArray action = step.section('>', 0, 0).trimmed().toLatin1();
            if (action.startsWith("clock") || action.startsWith("trigger"))
                QCOMPARE(demo(action), QByteArray());
            else
                instrument.write(action);
            const QByteArray state = instrument.query("TRIG:STAT?;:LIST:POIN:CURR?");
            const double megahertz = instrument.query("FREQ:CURR?").toDouble() * 1e-6;
            QCOMPARE(action + " > " + QByteArray(state).replace(';', ' ') + ' ' +
                         QByteArray::number(megahertz, 'g', 10),
                     step.trimmed().toLatin1());
        }
        QCOMPARE(instrument.errors(), QByteArray());
    }

    void conditionsStandInTheQueue()
    {
        DemoSession instrument;
        demo("reference absent");
        QCOMPARE(instrument.errors(), QByteArray());
        instrument.write("ROSC:SOUR EXT");
        demo("condition 329 on");
        for (int reading = 0; reading < 2; ++reading)
            QCOMPARE(instrument.errors(), QByteArray("328 329"));
        demo("condition 329 off");
        instrument.write("*RST");
        QCOMPARE(instrument.errors(), QByteArray());
    }

    void messageExchangeErrors()
    {
        DemoSession instrument;
        instrument.write("*IDN?");
        QCOMPARE(instrument.query("FREQ?"), QByteArray("1000000000"));
        QCOMPARE(instrument.errors(), QByteArray("-410"));
        instrument.write("*IDN?");
        viClear(instrument.session);
        QCOMPARE(instrument.query("*OPC?"), QByteArray("1"));
        instrument.write(QByteArray(2 << 20, ' '));
        QCOMPARE(instrument.errors(), QByteArray("-363"));
    }
};

QTEST_GUILESS_MAIN(DemoInstrumentTest)
#include "demo_instrument_test.moc"
