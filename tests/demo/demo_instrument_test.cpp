#include "tests/demo/demo_session.h"
#include "tests/support/rows.h"

/// The simulated instrument as its messages show it.
class DemoInstrumentTest : public QObject
{
    Q_OBJECT

private slots:
    // One message to a freshly reset instrument: its reply (empty: none) and the errors it leaves.
    void messages()
    {
        const auto check = [](const QByteArray& message, const char* reply,
                              const QByteArray& errors) {
            DemoSession instrument;
            QCOMPARE(instrument.write(message), VI_SUCCESS);
            if (*reply)
                QCOMPARE(instrument.read(), QByteArray(reply));
            QVERIFY2(instrument.errors() == errors, message.constData());
        };
        check("*IDN?", "Veltro,KLV-20G,20215678,2.7.1", "");
        // headers: forms, case, optional parts
        check("FREQ 2500000000.000000 Hz;FREQ?", "2500000000", "");
        check("FREQUEN?", "", "-113");
        check("SYSTem:ERRor?", "0,\"No error\"", "");
        check("ROSCillator:SOURce EXTernal;SOURce?", "EXT", "");
        check("*ABORt", "", "");
        // the path
        check("PULM:INT:PER 100 U;*OPC?;PER?", "1;100 US", "");
        check("PULM:INT:PER 100 U;FREQ?", "", "-113");
        check("PULM:INT:PER 100 U;:FREQ?;:PULM:INT:PWID?", "1000000000;1 US", "");
        check(";; *OPC?;", "1", "");
        // numbers and units
        check("FREQ 2.5 GHZ;FREQ?", "2500000000", "");
        check("FREQ 1 000 000Hz;FREQ?", "1000000", "");
        check("FREQ 123456789.1234;FREQ?", "123456789.123", "");
        check("POW -.004;POW?", "0", "");
        check("PULM:INT:PWID 2.5 MS;PWID?", "2500 US", "");
        check("PULM:INT:PWID 0.25;PWID?", "250000 US", "");
        check("PM 180 DEG;PM?", "3.141593", "");
        check("LFO:AMPL 250 MV;AMPL?", "0.25", "");
        check("SWEep:DWELl 5e-05;DWELl?", "50", "");
        check("FREQ MAX;FREQ?;FREQ MIN;FREQ?;FREQ? DEF", "20000000000;100000;1000000000", "");
        // what is refused leaves the setting as it was, and the rest of the message is executed
        check("FREQ 99 GHZ;FREQ?;:SYST:ERR?", "1000000000;-222,\"Data out of range\"", "");
        check("FREQ 99 KHZ;FREQ?", "1000000000", "-222");
        check("SWE:DWEL MAX;DWEL 19 US;DWEL?;DWEL? MIN", "200000000;20", "-222");
        check("FREQ;FREQ?", "1000000000", "-109");
        check("FREQ 1,2", "", "-108");
        check("FREQ fast", "", "-104");
        check("FOO;:FREQ 1 V;:SYST:ERR:COUN?", "2", "-113 -131");
        check("FREQ? 5", "", "-224");
        check("OUTP MAYBE;OUTP?", "0", "-224");
        check("*IDN", "", "-113");
        check("SWEep:POINts ", "", "-109");
        check("FREQ 1\x01", "", "-101");
        check("FOO;*CLS", "", "");
        check(QByteArray("FOO;").repeated(40), "", QByteArray("-113 ").repeated(31) + "-350");
        check("*ESR?;*ESE 32;*SRE 32;FOO;*OPC;*STB?;*ESR?", "128;36;33", "-113");
        // lists
        check("LIST:FREQ 1 000 000Hz,2 000 000Hz;FREQ:ADD 3MHZ;:LIST:FREQ?",
              "1000000,2000000,3000000", "");
        check("LIST:FREQ 1MHZ,99GHZ;FREQ:POIN?", "0", "-222");
        check("LIST:POW 0,-5;POW 0,;:LIST:POW?;*RST;POW:POIN?", "0,-5;0", "-109");
        check("LIST:DWEL 0.001,5e-05;DWEL?;DWEL:POIN? MIN;POIN? MAX", "1000,50;50;100000000", "");
        // starts and steps
        check("INIT", "", "-221");
        check("FREQ:MODE LIST;:INIT", "", "-221");
        check("FREQ:MODE LIST;:POW:MODE SWE;:LIST:FREQ 1MHZ;DWEL 1;:INIT", "", "-221");
        check("FREQ:MODE LIST;:POW:MODE LIST;:LIST:FREQ 1MHZ,2MHZ,3MHZ;POW 0,1;DWEL 1;:INIT", "",
              "-226");
        check("FREQ:MODE SWE;:INIT;INIT", "", "-213");
        check("LIST:MODE MAN;MAN UP", "", "-221");
        check("FREQ:MODE SWE;:INIT;:LIST:MAN 2", "", "-221");
        check("FREQ:MODE SWE;:LIST:MODE MAN;:INIT;:LIST:MAN 0", "", "-222");
        check("FREQ:MODE SWE;:LIST:MODE MAN;:INIT;:LIST:MAN 102", "", "-222");
        check("FREQ:MODE SWE;:TRIG:SOUR BUS;*TRG", "", "-211");
        check("SWE:POIN 3;:POW:STAR -10;STOP 20;MODE SWE;:TRIG:SOUR BUS;:LIST:MODE MAN;:INIT;"
              ":LIST:MAN 2;:POW:CURR?;:FREQ:CURR?;:POW?",
              "5;1000000000;0", "");
        // the calibration table, of which one that is not stored is forgotten
        check("MEM:TABLE:ADD 1500000000 -3;ADD 2250000000 12;ADD 1500000000 4;POIN:ALL?",
              "1500000000 4 2250000000 12", "");
        check("MEM:TABLE:ADD 1000000000 7;*RST;POIN?", "20", "");
        check("MEM:TABLE:ADD 1000000000 7;SAVE;*RST;POIN:ALL?", "1000000000 7", "");
        check("MEM:TABLE:ADD 5", "", "-109");
        check("MEM:DAC 40000;*RST;DAC?", "40000", "");
    }

    // Every setting of the panel, with the limits of numbers. No two have the same, so that a
    // mix-up shows.
    void settings()
    {
        const auto check = [](const QByteArray& command, const QByteArray& minimum,
                              const QByteArray& maximum) {
            const QByteArray header = command.left(command.indexOf(' '));
            const QByteArray query = header + '?';
            DemoSession instrument;
            const QByteArray atReset = instrument.query(query);
            instrument.write(command);
            QCOMPARE(header + ' ' + instrument.query(query), command);
            QVERIFY(instrument.query(query) != atReset);
            if (!maximum.isEmpty()) {
                QCOMPARE(instrument.query(query + " MIN;:" + query + " MAX"),
                         minimum + ';' + maximum);
                instrument.write(header + " MIN");
                QCOMPARE(instrument.query(query), minimum);
                instrument.write(header + " MAX");
                const QByteArrayList parts = maximum.split(' ');
                const double beyond = parts.first().toDouble() * 1.01;
                instrument.write(header + ' ' + QByteArray::number(beyond, 'f', 2) +
                                 parts.value(1));
                QCOMPARE(instrument.query(query), maximum);
                QCOMPARE(instrument.errors(), QByteArray("-222"));
            }
            instrument.write("*RST");
            QCOMPARE(instrument.errors(), QByteArray());
            QCOMPARE(instrument.query(query), atReset);
        };
        check("FREQ 5000000", "100000", "20000000000");
        check("POW -7.5", "-20", "20");
        check("PULM:INT:PER 250 US", "2 US", "10000000 US");
        check("PULM:INT:PWID 3 US", "1 US", "9999999 US");
        check("AM 7.25", "0", "100");
        check("AM:INT:FUNC:FREQ 440", "0.1", "100000");
        check("AM:INT:FUNC:SHAP:SQU:DUTY 20", "1", "99");
        check("FM 7.25", "0", "20000000");
        check("FM:INT:FUNC:FREQ 440", "0.2", "200000");
        check("FM:INT:FUNC:SHAP:SQU:DUTY 20", "2", "98");
        check("PM 7.25", "0", "20");
        check("PM:INT:FUNC:FREQ 440", "0.5", "50000");
        check("PM:INT:FUNC:SHAP:SQU:DUTY 20", "3", "97");
        check("LFO:FUNC:SHAP:SQU:DUTY 20", "5", "95");
        check("LFO:AMPL 0.25", "0", "5");
        check("LFO:FUNC:FREQ 20000.5", "1", "1000000");
        check("ROSC:EXT:FREQ 25 MHZ", "1 MHZ", "100 MHZ");
        check("SWE:POIN 12", "2", "65535");
        for (const char* setting :
             {"OUTP 1", "POW:BOOS 1", "LFO:FUNC:SHAP DC", "LFO:FUNC:SHAP:RAMP NEG",
              "FREQ:STAR 1000000", "FREQ:MODE LIST", "POW:MODE SWE", "TRIG:SOUR BUS",
              "LIST:MODE MAN", "INIT:CONT 1"})
            check(setting, "", "");
        for (const QByteArray modulation : {"AM", "FM", "PM"})
            for (const char* setting :
                 {":STAT 1", ":SOUR EXT", ":INT:FUNC:SHAP TRI", ":INT:FUNC:SHAP:RAMP NEG"})
                check(modulation + setting, "", "");
    }

    // Actions in order, each with what is then seen: state, point, frequency in MHz.
    void run()
    {
        const auto row = namedRows([](const QString& setting, const QString& steps) {
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
        });
        const char* const sweep = "SWE:POIN 5;DWEL 0.001;:FREQ:STAR 1MHZ;STOP 5MHZ;MODE SWE";
        const char* const list = "LIST:FREQ 10MHZ,20MHZ,30MHZ;DWEL 0.001,0.002,0.003;POW 0;"
                                 ":FREQ:MODE LIST;:POW:MODE LIST";
        row("sweep, free", sweep,
            "INIT:IMM > RUN 1 1 | clock 999 > RUN 1 1 | *TRG > RUN 1 1 | clock 1001 > RUN 3 3 |"
            "clock 2000 > RUN 5 5 | clock 1000 > IDLE 5 5 | FREQ:MODE LIST > IDLE 0 1000 |"
            "FREQ:MODE SWE > IDLE 0 1000 | INIT > RUN 1 1 | POW:MODE LIST > IDLE 0 1000 |"
            "POW:MODE FIX;:INIT > RUN 1 1 | ABOR > IDLE 0 1000");
        row("sweep, repeated", sweep,
            "INIT:CONT ON > IDLE 0 1000 | INIT:IMM > RUN 1 1 | clock 6000 > RUN 2 2 |"
            "clock 50000001000 > RUN 3 3 | INIT:CONT OFF > RUN 3 3 | clock 3000 > IDLE 5 5 |"
            "INIT:CONT ON > RUN 1 1");
        row("list, free", list,
            "INIT:IMM > RUN 1 10 | clock 1000 > RUN 2 20 | clock 1999 > RUN 2 20 |"
            "clock 1 > RUN 3 30 | clock 3000 > IDLE 3 30");
        row("sweep, by hand", sweep,
            "TRIG:SOUR BUS > IDLE 0 1000 | LIST:MODE MAN > IDLE 0 1000 | INIT > WAIT 0 1000 |"
            "*TRG > WAIT 1 1 | LIST:MAN UP > WAIT 2 2 | LIST:MAN UP > WAIT 3 3 |"
            "clock 99000 > WAIT 3 3 | LIST:MAN DOWN > WAIT 2 2 | LIST:MAN 5 > WAIT 5 5 |"
            "LIST:MAN UP > WAIT 5 5 | *TRG > IDLE 5 5");
        row("list, point by edge", list,
            "TRIG:SLOP NEG;SOUR EXT > IDLE 0 1000 | LIST:MODE MAN > IDLE 0 1000 |"
            "INIT:CONT ON;IMM > WAIT 0 1000 | trigger rising > WAIT 0 1000 |"
            "*TRG > WAIT 0 1000 | trigger falling > WAIT 1 10 | trigger falling > WAIT 2 20 |"
            "trigger falling > WAIT 3 30 | trigger falling > WAIT 1 10");
        row("list, all at one edge", list,
            "TRIG:SOUR EXT > IDLE 0 1000 | INIT:CONT ON;IMM > WAIT 0 1000 |"
            "trigger rising > RUN 1 10 | clock 1500 > RUN 2 20 | clock 9000 > WAIT 3 30 |"
            "trigger rising > RUN 1 10");
        row("changes in a run", sweep,
            "TRIG:SOUR BUS > IDLE 0 1000 | INIT > WAIT 0 1000 | *TRG > RUN 1 1 |"
            "clock 1500 > RUN 2 2 | LIST:MODE MAN > WAIT 2 2 | clock 5000 > WAIT 2 2 |"
            "TRIG:SOUR IMM > RUN 2 2 | clock 1000 > RUN 3 3 | SWE:POIN 4 > RUN 3 3.666666667 |"
            "FREQ:MODE FIX > IDLE 0 1000");
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
