#include "link/pause.h"
#include "tests/modulation/modulation_rig.h"
#include "tests/support/rows.h"

#include <memory>

namespace
{
const QString on = QStringLiteral("LFO:STAT ON!");
const QStringList frequency = {"LFO:FUNC:FREQ 10000.0 Hz", "LFO:FUNC:FREQ?"};
const QString frequencySet = QStringLiteral("LFO:FUNC:FREQ 10000.000000 Hz;FREQ?!");
const QString amplitude = QStringLiteral("LFO:AMPLitude 1.000000;AMPLitude?!");
const QString duty = QStringLiteral("LFO:FUNC:SHAP:SQU:DUTY 50.000000;DUTY?!");

struct ShapeRow {
    const char* button;
    QStringList shape;
    int pauses;
    QStringList parameters;
    QStringList restored;
};
const ShapeRow shapeRows[] = {
    {"sine_select",
     {"SHAP SIN!"},
     1,
     frequency + QStringList(amplitude),
     {frequencySet, amplitude}},
    {"sawPos_select",
     {"SHAP RAMP!", "SHAP:RAMP POS!"},
     3,
     frequency + QStringList(amplitude),
     {frequencySet, amplitude}},
    {"sawNeg_select",
     {"SHAP RAMP!", "SHAP:RAMP NEG!"},
     3,
     frequency + QStringList(amplitude),
     {frequencySet, amplitude}},
    {"triangle_select",
     {"SHAP TRI!"},
     1,
     frequency + QStringList(amplitude),
     {frequencySet, amplitude}},
    {"random_select", {"SHAP RAND!"}, 1, {}, {}},
    {"rectangle_select",
     {"SHAP SQU!"},
     0,
     frequency + QStringList{amplitude, duty},
     {duty, frequencySet, amplitude}},
    {"dc_select", {"SHAP DC!"}, 0, {amplitude}, {amplitude}},
};
} // namespace

/// What the LF generator panel's controls send, and what is left when sequences meet.
class LfGeneratorCommandsTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { loadUiResources(); }
    void init() { m_rig = std::make_unique<ModulationRig>(); }
    void cleanup() { m_rig.reset(); }

    void waveforms_data();
    void waveforms();
    void restores_data() { waveforms_data(); }
    void restores();
    void fields_data();
    void fields();
    void frequencyGoesOutAsTyped();
    void modulationGoesOffFirst();
    void newestClickWins_data();
    void newestClickWins();
    void lostConnectionEndsSequences_data();
    void lostConnectionEndsSequences();

private:
    std::unique_ptr<ModulationRig> m_rig;
};

void LfGeneratorCommandsTest::waveforms_data()
{
    testColumns<int>("index");
    for (int i = 0; i < shapeCount; ++i)
        testRow(shapeRows[i].button, i);
}

void LfGeneratorCommandsTest::waveforms()
{
    QFETCH(int, index);
    const ShapeRow& row = shapeRows[index];
    QStringList expected = {on};
    for (const QString& each : row.shape)
        expected << "LFO:FUNC:" + each;
    expected += row.parameters;
    pauses().totalMs = 0;
    m_rig->click(row.button);
    QCOMPARE(pauses().totalMs, 400 * row.pauses);
    QCOMPARE(m_rig->sent(), expected);
    QCOMPARE(m_rig->sweepOffs, 1);
    QCOMPARE(m_rig->whatIsOn(), QString("LFO"));
    m_rig->click(row.button);
    QCOMPARE(m_rig->sent(), QStringList("LFO:STAT OFF!"));
    QCOMPARE(m_rig->sweepOffs, 1);
    QCOMPARE(m_rig->whatIsOn(), QString());
}

void LfGeneratorCommandsTest::restores()
{
    QFETCH(int, index);
    const ShapeRow& row = shapeRows[index];
    m_rig->lf.restore();
    QCOMPARE(m_rig->sent(), QStringList());
    m_rig->get(row.button)->setChecked(true);
    m_rig->lf.restore();
    QStringList expected = {on};
    for (const QString& each : row.shape)
        expected << "LFO:FUNC:" + each;
    QCOMPARE(m_rig->sent(), expected + row.restored);
}

void LfGeneratorCommandsTest::fields_data()
{
    testColumns<QString, QStringList, QString>("typed", "sent", "shown");
    testRow("FREQ", "2 500", QStringList("LFO:FUNC:FREQ 2500.000000 Hz;FREQ?!"), "2 500.0");
    testRow("VOLTAGE", "99", QStringList("LFO:AMPLitude 5.000000;AMPLitude?!"), "5.000");
    testRow("percent", "0", QStringList("LFO:FUNC:SHAP:SQU:DUTY 5.000000;DUTY?!"), "5");
}

void LfGeneratorCommandsTest::fields()
{
    QFETCH(QString, typed);
    m_rig->enter(QTest::currentDataTag(), typed);
    QTEST(m_rig->sent(), "sent");
    QTEST(m_rig->text(QTest::currentDataTag()), "shown");
    m_rig->enter(QTest::currentDataTag(), "");
    QCOMPARE(m_rig->sent(), QStringList());
}

void LfGeneratorCommandsTest::frequencyGoesOutAsTyped()
{
    m_rig->get<QLineEdit>("FREQ")->setText("2 500");
    m_rig->click("rectangle_select");
    QCOMPARE(m_rig->sent().at(2), QString("LFO:FUNC:FREQ 2500 Hz"));
    QCOMPARE(m_rig->text("FREQ"), QString("2 500.0"));
    m_rig->get<QLineEdit>("FREQ")->setText("9G");
    m_rig->click("rectangle_select");
    m_rig->click("rectangle_select");
    QVERIFY(m_rig->sent().contains("LFO:FUNC:FREQ 1000000.0 Hz"));
}

void LfGeneratorCommandsTest::modulationGoesOffFirst()
{
    m_rig->click("IntExt_AM AM IntExt_PULM Pulse");
    m_rig->sent();
    m_rig->sweepOffs = 0;
    m_rig->click("dc_select");
    QCOMPARE(m_rig->sent(),
             QStringList({"AM:STATe OFF", "PULM:STATe OFF", on, "LFO:FUNC:SHAP DC!", amplitude}));
    QCOMPARE(m_rig->whatIsOn(), QString("LFO"));
    QCOMPARE(m_rig->sweepOffs, 1);
}

void LfGeneratorCommandsTest::newestClickWins_data()
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

void LfGeneratorCommandsTest::newestClickWins()
{
    QFETCH(QString, first);
    QFETCH(QString, seen);
    QFETCH(QString, second);
    QFETCH(QString, lastShape);
    m_rig->whenSent(seen, [&] { m_rig->click(second); });
    m_rig->click(first);
    const QStringList shapes = m_rig->sent().filter("SHAP");
    QCOMPARE(shapes.isEmpty() ? QString() : shapes.last(), lastShape);
    QTEST(m_rig->whatIsOn(), "on");
}

void LfGeneratorCommandsTest::lostConnectionEndsSequences_data()
{
    testColumns<QString, int>("seen", "count");
    testRow("before the shape", "STAT ON", 1);
    testRow("in the ramp", "SHAP RAMP", 2);
    testRow("after the direction", "RAMP POS", 3);
}

void LfGeneratorCommandsTest::lostConnectionEndsSequences()
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

QTEST_MAIN(LfGeneratorCommandsTest)
#include "lf_generator_commands_test.moc"
