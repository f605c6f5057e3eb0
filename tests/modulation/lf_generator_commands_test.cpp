#include "link/pause.h"
#include "tests/modulation/modulation_rig.h"
#include "tests/support/rows.h"

#include <memory>

namespace
{
const QStringList frequency = {"LFO:FUNC:FREQ 10000.0 Hz", "LFO:FUNC:FREQ?"};
const QString amplitude = QStringLiteral("LFO:AMPLitude 1.000000;AMPLitude?!");
const QString duty = QStringLiteral("LFO:FUNC:SHAP:SQU:DUTY 50.000000;DUTY?!");
} // namespace

/// What the LF generator panel's controls send, and what is left when sequences meet.
class LfGeneratorCommandsTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { loadUiResources(); }
    void init() { m_rig = std::make_unique<ModulationRig>(); }
    void cleanup() { m_rig.reset(); }

    void waveforms_data()
    {
        testColumns<QStringList, int, QStringList, QStringList>("shape", "pauses", "values",
                                                                "restored");
        const auto row = [](const char* button, const QStringList& shape, int count,
                            const QStringList& values, const QStringList& restored) {
            testRow(button, shape, count, values, restored);
        };
        const QStringList usual = frequency + QStringList(amplitude);
        const QStringList usualRestored = {"LFO:FUNC:FREQ 10000.000000 Hz;FREQ?!", amplitude};
        row("sine_select", {" SIN!"}, 1, usual, usualRestored);
        row("sawPos_select", {" RAMP!", ":RAMP POS!"}, 3, usual, usualRestored);
        row("sawNeg_select", {" RAMP!", ":RAMP NEG!"}, 3, usual, usualRestored);
        row("triangle_select", {" TRI!"}, 1, usual, usualRestored);
        row("random_select", {" RAND!"}, 1, {}, {});
        row("rectangle_select", {" SQU!"}, 0, usual + QStringList(duty),
            QStringList(duty) + usualRestored);
        row("dc_select", {" DC!"}, 0, {amplitude}, {amplitude});
    }
    void waveforms()
    {
        QFETCH(QStringList, shape);
        QFETCH(int, pauses);
        QFETCH(QStringList, values);
        QFETCH(QStringList, restored);
        const QString button = QTest::currentDataTag();
        shape.replaceInStrings(QRegularExpression("^"), "LFO:FUNC:SHAP");
        const QStringList switchedOn = QStringList("LFO:STAT ON!") + shape;
        ::pauses().totalMs = 0;
        m_rig->click(button);
        QCOMPARE(::pauses().totalMs, 400 * pauses);
        QCOMPARE(m_rig->sent(), switchedOn + values);
        QCOMPARE(m_rig->sweepOffs, 1);
        QCOMPARE(m_rig->whatIsOn(), QString("LFO"));
        m_rig->click(button);
        QCOMPARE(m_rig->sent(), QStringList("LFO:STAT OFF!"));
        QCOMPARE(m_rig->sweepOffs, 1);
        QCOMPARE(m_rig->whatIsOn(), QString());

        // What the start of a connection sends.
        m_rig->lf.restore();
        QCOMPARE(m_rig->sent(), QStringList());
        m_rig->get(button)->setChecked(true);
        m_rig->lf.restore();
        QCOMPARE(m_rig->sent(), switchedOn + restored);
    }

    void frequencyGoesOutAsTyped()
    {
        m_rig->get<QLineEdit>("FREQ")->setText("2 500");
        m_rig->click("rectangle_select");
        QCOMPARE(m_rig->sent().at(2), QString("LFO:FUNC:FREQ 2500 Hz"));
        QCOMPARE(m_rig->text("FREQ"), QString("2 500.0"));
        m_rig->get<QLineEdit>("FREQ")->setText("9G");
        m_rig->click("rectangle_select rectangle_select");
        QVERIFY(m_rig->sent().contains("LFO:FUNC:FREQ 1000000.0 Hz"));
    }

    void newestClickWins_data()
    {
        testColumns<QString, QString, QString, QString, QString>("first", "seen", "second", "on",
                                                                 "lastShape");
        testRow("off before the shape", "sine_select", "STAT ON", "sine_select", "", "");
        testRow("another before the shape", "sine_select", "STAT ON", "triangle_select", "LFO",
                "LFO:FUNC:SHAP TRI!");
        testRow("another in the ramp", "sawPos_select", "SHAP RAMP", "dc_select", "LFO",
                "LFO:FUNC:SHAP DC!");
        testRow("off after the direction", "sawNeg_select", "RAMP NEG", "sawNeg_select", "",
                "LFO:FUNC:SHAP:RAMP NEG!");
        testRow("off and on", "random_select", "STAT ON", "random_select random_select", "LFO",
                "LFO:FUNC:SHAP RAND!");
    }
    void newestClickWins()
    {
        QFETCH(QString, first);
        QFETCH(QString, seen);
        QFETCH(QString, second);
        m_rig->whenSent(seen, [&] { m_rig->click(second); });
        m_rig->click(first);
        const QStringList shapes = m_rig->sent().filter("SHAP");
        QTEST(shapes.value(shapes.size() - 1), "lastShape");
        QTEST(m_rig->whatIsOn(), "on");
    }

    void lostConnectionEndsSequences_data()
    {
        testColumns<QString, int>("seen", "count");
        testRow("before the shape", "STAT ON", 1);
        testRow("in the ramp", "SHAP RAMP", 2);
        testRow("after the direction", "RAMP POS", 3);
    }
    void lostConnectionEndsSequences()
    {
        QFETCH(QString, seen);
        m_rig->whenSent(seen, [this] { m_rig->session.close(); });
        m_rig->click("sawPos_select");
        QTEST(static_cast<int>(m_rig->sent().size()), "count");
        QVERIFY(m_rig->lfPanel.isOn());
        QVERIFY(!m_rig->gener.pixmap(Qt::ReturnByValue).isNull());
        // Sweep or list is stopped because of the panel's state.
        QCOMPARE(m_rig->sweepOffs, 1);
    }

private:
    std::unique_ptr<ModulationRig> m_rig;
};

QTEST_MAIN(LfGeneratorCommandsTest)
#include "lf_generator_commands_test.moc"
