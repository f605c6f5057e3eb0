#include "tests/modulation/modulation_rig.h"
#include "tests/support/rows.h"

#include <memory>

namespace
{
const QStringList names = {"AM", "FM", "PM"};
const QStringList suffixes = {"Ampl", "FREQ", "Phase"};
const QStringList levels = {"AM 1.000000;AM?!", "FM 0.001563 Hz;FM?!", "PM 0.001000;PM?!"};

QStringList twoStep(const QString& header, const QString& value)
{
    return {header + ' ' + value, header + '?'};
}

/// Rate, depth or deviation and duty in the order that is the modulation's own.
QStringList valuesOf(int index)
{
    const QString header = names.at(index) + ":INT:FUNC:";
    const QStringList rate = twoStep(header + "FREQ", "1000 Hz");
    const QStringList duty = twoStep(header + "SHAP:SQU:DUTY", "50");
    const QStringList level = {levels.at(index)};
    return names.at(index) == "FM" ? level + rate + duty : rate + level + duty;
}

QStringList setUpOf(int index)
{
    const QString& name = names.at(index);
    return QStringList{name + ":SOUR INT", name + ":INT:FUNC:SHAP SIN!"} + valuesOf(index);
}

const QStringList pulseValues = {"PULM:INT:PER 1000.000000 U;PER?!",
                                 "PULM:INT:PWID 1.000000 U;PWID?!"};
} // namespace

/// What the modulation panel's controls send, and what is left when sequences meet.
class ModulationCommandsTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { loadUiResources(); }
    void init() { m_rig = std::make_unique<ModulationRig>(); }
    void cleanup() { m_rig.reset(); }

    void switches()
    {
        const auto row = freshRows(this, [this](const QString& before, const QString& clicked,
                                                const QStringList& sent, const QString& on) {
            m_rig->click(before);
            m_rig->panel.group(Modulation::Fm).level().field->setText("0.0015626");
            m_rig->get<QLineEdit>("line_Ampl_2")->setText("1.00");
            m_rig->get<QLineEdit>("line_Phase_2")->setText("0.001");
            m_rig->sent();
            m_rig->sweepOffs = 0;
            QSignalSpy hidden(&m_rig->lfPanel, &SidePanel::hide_);
            m_rig->click(clicked);
            QCOMPARE(m_rig->sent(), sent);
            QCOMPARE(m_rig->whatIsOn(), on);
            QCOMPARE(hidden.size(), before.contains("dc_select") ? 1 : 0);
            const bool isSwitchedOn =
                !clicked.startsWith("IntExt") && m_rig->get(clicked)->isChecked();
            QCOMPARE(m_rig->sweepOffs, isSwitchedOn ? 1 : 0);
        });
        for (int i = 0; i < names.size(); ++i) {
            const QString& name = names.at(i);
            const QString source = "IntExt_" + name;
            const QString on = name + ":STATe ON";
            const QString external = name + ":SOUR EXT";
            row(name + " on", "", name, QStringList(on) + setUpOf(i), name);
            row(name + " on, external", source, name, QStringList{on, external}, name);
            row(name + " off", name, name, QStringList(name + ":STATe OFF"), "");
            row(name + " to external", name, source, QStringList(external), name);
            row(name + " to internal", source + ' ' + name, source, setUpOf(i), name);
            row(name + " off, source", "", source, QStringList(), "");
        }
        row("FM after AM", "AM", "FM", QStringList{"AM:STATe OFF", "FM:STATe ON"} + setUpOf(1),
            "FM");
        row("PM of its shape", "SawNeg_Phase Rect_Ampl", "PM",
            QStringList{"PM:STATe ON", "PM:SOUR INT", "PM:INT:FUNC:SHAP RAMP!",
                        "PM:INT:FUNC:SHAP:RAMP NEG!"} +
                valuesOf(2),
            "PM");
        row("PM beside pulse", "Pulse", "PM", QStringList("PM:STATe ON") + setUpOf(2), "PM PULM");
        const QStringList pulseOn = {"PULM:STATe ON", "PULM:SOUR INT"};
        const QStringList pulseExternal = {"PULM:STATe ON", "PULM:SOUR EXT"};
        row("Pulse on", "", "Pulse", pulseOn + pulseValues, "PULM");
        row("Pulse on, external", "IntExt_PULM", "Pulse", pulseExternal, "PULM");
        row("Pulse off", "Pulse", "Pulse", QStringList{"PULM:STATe OFF", "PULM:SOUR INT"}, "");
        row("Pulse to external", "Pulse", "IntExt_PULM", pulseExternal, "PULM");
        row("Pulse to internal", "IntExt_PULM Pulse", "IntExt_PULM", pulseOn + pulseValues, "PULM");
        row("AM after LF", "dc_select IntExt_AM", "AM",
            QStringList{"LFO:STAT OFF!", "AM:STATe ON", "AM:SOUR EXT"}, "AM");
        row("LF after AM and pulse", "IntExt_AM AM IntExt_PULM Pulse", "dc_select",
            QStringList{"AM:STATe OFF", "PULM:STATe OFF", "LFO:STAT ON!", "LFO:FUNC:SHAP DC!",
                        "LFO:AMPLitude 1.000000;AMPLitude?!"},
            "LFO");
        row("Pulse after LF", "dc_select IntExt_PULM", "Pulse",
            pulseExternal + QStringList("LFO:STAT OFF!"), "PULM");
    }

    void shapes()
    {
        const auto row = namedRows([this](const QString& prefix, const QStringList& shape) {
            for (int i = 0; i < names.size(); ++i) {
                cleanup();
                init();
                const QString header = names.at(i) + ":INT:FUNC:";
                QStringList sent = shape;
                sent.replaceInStrings(QRegularExpression("^"), header + "SHAP");
                m_rig->click(prefix + suffixes.at(i));
                QCOMPARE(m_rig->sent(), sent + twoStep(header + "FREQ", "1000 Hz"));
            }
        });
        row("sine", "Sin_", QStringList(" SIN!"));
        row("rising", "SawPos_", QStringList{" RAMP!", ":RAMP POS!"});
        row("falling", "SawNeg_", QStringList{" RAMP!", ":RAMP NEG!"});
        row("triangle", "Triangle_", QStringList(" TRI!"));
        row("random", "Random_", QStringList(" RAND!"));
        row("square", "Rect_", QStringList(" SQU!"));
    }

    void fields()
    {
        const auto check = [this](const QString& field, const QString& typed,
                                  const QStringList& sent, const QString& shown) {
            cleanup();
            init();
            m_rig->enter(field, typed);
            QCOMPARE(m_rig->sent(), sent);
            QCOMPARE(m_rig->text(field), shown);
        };
        const QStringList highestRates = {"100 000", "200 000", "50 000"};
        for (int i = 0; i < names.size(); ++i) {
            const QString header = names.at(i) + ":INT:FUNC:";
            const QString& highest = highestRates.at(i);
            const QString lowestDuty = QString::number(i + 1);
            const QString rate = "line_" + suffixes.at(i) + "_1";
            const QString duty = "percentLine_" + suffixes.at(i);
            check(rate, "12 500", twoStep(header + "FREQ", "12500 Hz"), "12 500");
            check(rate, "2.50", twoStep(header + "FREQ", "2.50 Hz"), "2.5");
            check(rate, "9M", twoStep(header + "FREQ", QString(highest).remove(' ') + " Hz"),
                  highest);
            check(duty, "30", twoStep(header + "SHAP:SQU:DUTY", "30"), "30");
            check(duty, "0", twoStep(header + "SHAP:SQU:DUTY", lowestDuty), lowestDuty);
        }
        check("line_Ampl_2", "12.5", {"AM 12.500000;AM?!"}, "12.50");
        check("line_Ampl_2", "120", {"AM 100.000000;AM?!"}, "100.00");
        check("line_Ampl_2", "1.2.3", {}, "1.00");
        check("line_FREQ_2", "2,5k", {"FM 2500.000000 Hz;FM?!"}, "2 500");
        check("line_Phase_2", "99", {"PM 20.000000;PM?!"}, "20.00");
        check("line_period", "2m", {"PULM:INT:PER 2000.000000 U;PER?!"}, "2 000");
        check("line_period", "0.5", {"PULM:INT:PER 2.000000 U;PER?!"}, "2");
        for (const auto& [field, shown] :
             {std::pair("line_Ampl_1", "1 000"), {"line_period", "1 000"}, {"VOLTAGE", "1.000"}})
            check(field, " ", {}, shown);
        check("line_width", "4.5", {"PULM:INT:PWID 4.500000 U;PWID?!"}, "4.50");
        check("FREQ", "2 500", {"LFO:FUNC:FREQ 2500.000000 Hz;FREQ?!"}, "2 500.0");
        check("VOLTAGE", "99", {"LFO:AMPLitude 5.000000;AMPLitude?!"}, "5.000");
        check("percent", "0", {"LFO:FUNC:SHAP:SQU:DUTY 5.000000;DUTY?!"}, "5");
    }

    void failedReads()
    {
        m_rig->demo("fault 2 status 0xBFFF0015");
        m_rig->enter("line_Ampl_1", "500");
        QCOMPARE(m_rig->text("line_Ampl_1"), QString("500"));
        QVERIFY(m_rig->session.isConnected());
        m_rig->demo("fault 1 status 0xBFFF0015");
        m_rig->enter("line_Ampl_2", "5");
        QCOMPARE(m_rig->text("line_Ampl_2"), QString());
        QVERIFY(!m_rig->session.isConnected());
    }

    /// Period and width of at most 5 ms.
    void widthStaysBelowThePeriod()
    {
        const auto row = freshRows(this, [this](const QString& width, const QString& field,
                                                const QString& typed, const QStringList& sent,
                                                const QString& shown) {
            m_rig->fields.limits[Quantity::PulsePeriod].max = 5000;
            m_rig->fields.limits[Quantity::PulseWidth].max = 5000;
            m_rig->enter("line_width", width);
            m_rig->get<NumberEdit>("line_width")->showAccepted(width);
            m_rig->sent();
            if (typed.isEmpty())
                m_rig->click(field);
            else
                m_rig->enter(field, typed);
            QCOMPARE(m_rig->sent(), sent);
            QCOMPARE(m_rig->text("line_period") + ", " + m_rig->text("line_width"), shown);
            const double periodUs = microsecondsFromReply(m_rig->session.query("PULM:INT:PER?"));
            const double widthUs = microsecondsFromReply(m_rig->session.query("PULM:INT:PWID?"));
            QCOMPARE(periodUs, m_rig->panel.pulsePeriod().value());
            QCOMPARE(widthUs, m_rig->panel.pulseWidth().value());
            QVERIFY(widthUs < periodUs);
        });
        const QStringList highest = {"PULM:INT:PER 5000.000000 U;PER?!",
                                     "PULM:INT:PWID 4999.900000 U;PWID?!"};
        row("period below", "20.00", "line_period", "8",
            QStringList{"PULM:INT:PER 20.100000 U;PER?!"}, "20.1, 20.00");
        row("width above", "20.00", "line_width", "2000",
            QStringList{"PULM:INT:PER 2000.100000 U;PER?!", "PULM:INT:PWID 2000.000000 U;PWID?!"},
            "2 000.1, 2 000.00");
        // No period is long enough for such a width: the width has to give way.
        row("width at the limit", "20.00", "line_width", "5000", highest, "5 000, 4 999.9");
        row("width beyond the limit", "20.00", "line_width", "9s", highest, "5 000, 4 999.9");
        // A width from before the connection, which no limits bound.
        row("period below such a width", "5 000", "line_period", "100", highest, "5 000, 4 999.9");
        row("on with such a width", "5 000", "Pulse", "",
            QStringList{"PULM:STATe ON", "PULM:SOUR INT"} + highest, "5 000, 4 999.9");
    }

    /// A value that only the next instrument refuses does not affect the other one.
    void pulseValuesGoOutAlone()
    {
        m_rig->fields.limits[Quantity::PulseWidth].min = 5;
        m_rig->enter("line_period", "500");
        QCOMPARE(m_rig->sent(), QStringList("PULM:INT:PER 500.000000 U;PER?!"));
        m_rig->fields.limits[Quantity::PulsePeriod].max = 100;
        m_rig->enter("line_width", "3");
        QCOMPARE(m_rig->sent(), QStringList("PULM:INT:PWID 5.000000 U;PWID?!"));
    }

    /// Compared is what the instrument has answered, not what is being typed.
    void pulseValuesAsAnswered()
    {
        m_rig->get<QLineEdit>("line_width")->setText("900");
        m_rig->enter("line_period", "500");
        QCOMPARE(m_rig->sent(), QStringList("PULM:INT:PER 500.000000 U;PER?!"));
        QCOMPARE(m_rig->text("line_width"), QString("900"));
        m_rig->demo("reply PWID? -> 500");
        m_rig->enter("line_width", "499.95");
        QCOMPARE(m_rig->sent(), QStringList({"PULM:INT:PWID 499.950000 U;PWID?!",
                                             "PULM:INT:PER 500.100000 U;PER?!"}));
    }

    void pulseValueWithoutNumberIsNotSent()
    {
        m_rig->get<QLineEdit>("line_period")->setText(".");
        m_rig->click("Pulse");
        QCOMPARE(m_rig->sent().filter("PULM:INT:"), QStringList(pulseValues.at(1)));
        QCOMPARE(m_rig->text("line_period"), QString("1 000"));
    }

    void restores()
    {
        const auto row = freshRows(this, [this](const QString& checked, const QStringList& sent) {
            for (const QString& name : checked.split(' '))
                m_rig->get(name)->setChecked(true);
            m_rig->get<QLineEdit>("line_FREQ_2")->setText("0.0015626");
            m_rig->get("percentButton_Phase")->setText("30");
            m_rig->modulation.restore();
            QCOMPARE(m_rig->sent(), sent);
        });
        const QStringList reversed = {pulseValues.at(1), pulseValues.at(0)};
        for (int i = 0; i < names.size(); ++i) {
            const QString& name = names.at(i);
            const QStringList on = {name + ":STAT ON"};
            QStringList values = valuesOf(i);
            if (name == "PM")
                values.replaceInStrings("DUTY 50", "DUTY 30");
            row(name, name, on + values);
            row(name + ", external", name + " IntExt_" + name, on);
            row(name + " and pulse", name + " Pulse",
                QStringList("PULM:STAT ON") + on + reversed + values);
        }
        row("all external", "AM IntExt_AM Pulse IntExt_PULM",
            QStringList{"PULM:STAT ON", "AM:STAT ON"});
        row("pulse alone", "Pulse", QStringList{"PULM:STATe ON", "PULM:SOUR INT"} + pulseValues);
        row("none", "IntExt_FM", QStringList());
    }

    void everythingOff()
    {
        m_rig->click("IntExt_FM FM Pulse");
        m_rig->panel.expand(Modulation::Fm, false);
        m_rig->sent();
        m_rig->modulation.switchEverythingOff(false);
        QCOMPARE(m_rig->sent(), QStringList({"FM:STATe OFF", "PULM:STATe OFF"}));
        QCOMPARE(m_rig->whatIsOn(), QString());
        QVERIFY(!m_rig->panel.group(Modulation::Fm).isExpanded());
        m_rig->modulation.switchEverythingOff(false);
        QCOMPARE(m_rig->sent(), QStringList());

        // With nothing on, the groups stay as they are.
        m_rig->panel.expand(Modulation::Pm, false);
        m_rig->modulation.switchEverythingOff(false);
        QVERIFY(m_rig->panel.group(Modulation::Pm).isExpanded());

        // A button that cannot be clicked goes off all the same.
        m_rig->click("FM");
        m_rig->get("FM")->setEnabled(false);
        m_rig->modulation.switchEverythingOff(false);
        QCOMPARE(m_rig->whatIsOn(), QString());
    }

    void newestClickWins()
    {
        const auto row =
            freshRows(this, [this](const QString& before, const QString& first, const QString& seen,
                                   const QString& second, const QString& on) {
                m_rig->click(before);
                m_rig->sent();
                bool isClicked = false;
                m_rig->whenSent(seen, [&] {
                    isClicked = true;
                    m_rig->click(second);
                });
                m_rig->click(first);
                QVERIFY(isClicked);
                const QStringList sent = m_rig->sent();
                QCOMPARE(m_rig->whatIsOn(), on);
                QVERIFY2(sent.filter("!!").isEmpty(), "the instrument refused something");
                // However they met, the last word on a source is the panel's.
                for (const QString& name : names) {
                    const QStringList sources = sent.filter(name + ":SOUR ");
                    const QString panel = m_rig->get("IntExt_" + name)->isChecked() ? "EXT" : "INT";
                    QVERIFY(sources.isEmpty() || sources.last().endsWith(panel));
                }
            });
        row("off again before on", "", "AM", "", "AM", "");
        row("off again before set-up", "", "AM", "AM:STATe ON", "AM", "");
        row("on again before off", "AM", "AM", "", "AM", "AM");
        row("another before on", "", "AM", "", "FM", "FM");
        row("another before set-up", "", "AM", "AM:STATe ON", "FM", "FM");
        row("back before the other's off", "AM", "FM", "", "AM", "AM");
        row("a third before the first's off", "AM", "FM", "", "PM", "PM");
        row("neither before the first's off", "AM", "FM", "", "FM", "");
        row("pulse before on", "", "AM", "", "Pulse", "AM PULM");
        row("source before on", "", "PM", "", "IntExt_PM", "PM");
        row("source there and back", "", "PM", "", "IntExt_PM IntExt_PM", "PM");
        row("pulse off again", "", "Pulse", "", "Pulse", "");
        row("pulse external", "", "Pulse", "", "IntExt_PULM", "PULM");
        row("AM before pulse's values", "", "Pulse", "PULM:SOUR INT", "AM", "AM PULM");
        row("LF before on", "", "AM", "", "dc_select", "LFO");
        row("LF before set-up", "", "AM", "AM:STATe ON", "sine_select", "LFO");
        row("LF before off", "AM", "AM", "", "dc_select", "LFO");
        row("LF before pulse's values", "", "Pulse", "PULM:SOUR INT", "dc_select", "LFO");
        row("AM while all go off for LF", "FM Pulse", "dc_select", "", "AM", "AM PULM");
        row("AM once more while all go off", "AM", "dc_select", "AM:STATe OFF", "AM", "AM");
        row("pulse while all go off for LF", "FM", "dc_select", "", "Pulse", "PULM");
        row("AM before LF's shape", "", "sine_select", "LFO:STAT ON", "AM", "AM");
        row("pulse in LF's ramp", "", "sawPos_select", "SHAP RAMP", "Pulse", "PULM");
    }

    void lostConnectionEndsSequences()
    {
        const auto row = freshRows(this, [this](const QString& before, const QString& clicked,
                                                const QString& seen, const QStringList& sent) {
            m_rig->click(before);
            m_rig->sent();
            m_rig->whenSent(seen, [this] { m_rig->session.close(); });
            m_rig->click(clicked);
            QVERIFY(!m_rig->session.isConnected());
            QCOMPARE(m_rig->sent(), sent);
        });
        row("before on", "", "AM", "", QStringList());
        row("before set-up", "", "AM", "AM:STATe ON", QStringList("AM:STATe ON"));
        row("before the other's off", "AM", "FM", "", QStringList());
        row("before pulse's values", "", "Pulse", "PULM:SOUR",
            QStringList{"PULM:STATe ON", "PULM:SOUR INT"});
        row("source", "IntExt_PM PM", "IntExt_PM", "", QStringList());
    }

    void offlineOnlyThePanelChanges()
    {
        m_rig->session.close();
        m_rig->demo.takeTranscript();
        m_rig->click("AM FM Rect_FREQ IntExt_FM IntExt_FM Pulse");
        QCOMPARE(m_rig->panel.checkedModulation(), std::optional(Modulation::Fm));
        m_rig->modulation.restore();
        m_rig->click("triangle_select");
        QVERIFY(!m_rig->get("FM")->isChecked() && !m_rig->get("Pulse")->isChecked());
        for (const Indicator* lamp : {&m_rig->amPmFm, &m_rig->pulse})
            QVERIFY(lamp->pixmap(Qt::ReturnByValue).isNull());
        QCOMPARE(m_rig->demo.takeTranscript(), QStringList());
    }

private:
    std::unique_ptr<ModulationRig> m_rig;
};

QTEST_MAIN(ModulationCommandsTest)
#include "modulation_commands_test.moc"
