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

    void waveforms()
    {
        const auto check = [this](const char* button, QStringList shape, int count,
                                  const QStringList& values, const QStringList& restored) {
            cleanup();
            init();
            shape.replaceInStrings(QRegularExpression("^"), "LFO:FUNC:SHAP");
            const QStringList switchedOn = QStringList("LFO:STAT ON!") + shape;
            pauses().totalMs = 0;
            m_rig->click(button);
            QCOMPARE(pauses().totalMs, 400 * count);
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
        };
        const QStringList usual = frequency + QStringList(amplitude);
        const QStringList usualRestored = {"LFO:FUNC:FREQ 10000.000000 Hz;FREQ?!", amplitude};
        check("sine_select", {" SIN!"}, 1, usual, usualRestored);
        check("sawPos_select", {" RAMP!", ":RAMP POS!"}, 3, usual, usualRestored);
        check("sawNeg_select", {" RAMP!", ":RAMP NEG!"}, 3, usual, usualRestored);
        check("triangle_select", {" TRI!"}, 1, usual, usualRestored);
        check("random_select", {" RAND!"}, 1, {}, {});
        check("rectangle_select", {" SQU!"}, 0, usual + QStringList(duty),
              QStringList(duty) + usualRestored);
        check("dc_select", {" DC!"}, 0, {amplitude}, {amplitude});
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

    void newestClickWins()
    {
        const auto row =
            freshRows(this, [this](const QString& first, const QString& seen, const QString& second,
                                   const QString& on, const QString& lastShape) {
                m_rig->whenSent(seen, [&] { m_rig->click(second); });
                m_rig->click(first);
                const QStringList shapes = m_rig->sent().filter("SHAP");
                QCOMPARE(shapes.value(shapes.size() - 1), lastShape);
                QCOMPARE(m_rig->whatIsOn(), on);
            });
        row("off before the shape", "sine_select", "STAT ON", "sine_select", "", "");
        row("another before the shape", "sine_select", "STAT ON", "triangle_select", "LFO",
            "LFO:FUNC:SHAP TRI!");
        row("another in the ramp", "sawPos_select", "SHAP RAMP", "dc_select", "LFO",
            "LFO:FUNC:SHAP DC!");
        row("off after the direction", "sawNeg_select", "RAMP NEG", "sawNeg_select", "",
            "LFO:FUNC:SHAP:RAMP NEG!");
        row("off and on", "random_select", "STAT ON", "random_select random_select", "LFO",
            "LFO:FUNC:SHAP RAND!");
    }

    void lostConnectionEndsSequences()
    {
        const auto row = freshRows(this, [this](const QString& seen, int count) {
            m_rig->whenSent(seen, [this] { m_rig->session.close(); });
            m_rig->click("sawPos_select");
            QCOMPARE(static_cast<int>(m_rig->sent().size()), count);
            QVERIFY(m_rig->lfPanel.isOn());
            QVERIFY(!m_rig->gener.pixmap(Qt::ReturnByValue).isNull());
            // Sweep or list is stopped because of the panel's state.
            QCOMPARE(m_rig->sweepOffs, 1);
        });
        row("before the shape", "STAT ON", 1);
        row("in the ramp", "SHAP RAMP", 2);
        row("after the direction", "RAMP POS", 3);
    }

private:
    std::unique_ptr<ModulationRig> m_rig;
};

QTEST_MAIN(LfGeneratorCommandsTest)
#include "lf_generator_commands_test.moc"
