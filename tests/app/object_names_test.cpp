#include "modulation/generator.h"
#include "modulation/modulat.h"
#include "sweep/list_panel.h"
#include "tests/support/panel_rig.h"
#include "tests/support/rows.h"

#include <QLineEdit>

Q_DECLARE_METATYPE(Quantity)

/// The side panels by the names of their controls, which profiles and others know them by.
class ObjectNamesTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void controlsAreThere_data();
    void controlsAreThere();
    void fieldsHoldTheirQuantity_data();
    void fieldsHoldTheirQuantity();
    void aSweepOverPowerTakesOtherQuantities();

private:
    template <typename Widget>
    Widget& get(const QString& panel, const QString& name)
    {
        const auto found = m_rig->get(qPrintable(panel)).findChildren<Widget*>(name);
        if (found.size() != 1)
            qFatal("%d times %s in %s", int(found.size()), qPrintable(name), qPrintable(panel));
        return *found.first();
    }

    Demo m_demo;
    std::unique_ptr<PanelRig> m_rig;
    QStringList m_asked; ///< the fields that a keypad was wanted for
};

void ObjectNamesTest::initTestCase()
{
    StartOptions options = PanelRig::defaultOptions();
    options.isClean = true;
    m_rig = std::make_unique<PanelRig>(options);
    const auto note = [this](const NumberEdit* field) { m_asked << field->objectName(); };
    connect(&m_rig->get<Modulat>("Modulat"), &Modulat::keypadRequested, this, note);
    connect(&m_rig->get<generator>("generator"), &generator::keypadRequested, this, note);
    connect(&m_rig->get<List>("List"), &List::keypadRequested, this, note);
    for (const char* name : {"Rect_Ampl", "Rect_FREQ", "Rect_Phase"})
        get<QPushButton>("Modulat", name).click();
    get<QPushButton>("generator", "rectangle_select").click();
}

void ObjectNamesTest::controlsAreThere_data()
{
    testColumns<QString, QString, QString>("panel", "type", "names");
    const QString checkable = "checkable";
    testRow("groups", "Modulat", "QGroupBox", "Box_modulation PULM_ AM_ FM_ PM_");
    testRow("titles", "Modulat", "QLabel",
            "titleModulation=Modulation titlePulse titleAM titleFM titlePM label_3 label_4 label_7 "
            "label_8 label_9 label_10");
    testRow("switches", "Modulat", checkable,
            "AM FM PM Pulse IntExt_AM IntExt_FM IntExt_PM IntExt_PULM");
    testRow("units", "Modulat", "QPushButton", "us_per=µs us_wid=µs");
    for (const QString suffix : {"Ampl", "FREQ", "Phase"}) {
        testRow("shapes of " + suffix, "Modulat", checkable,
                QString("Sin_%1 SawPos_%1 SawNeg_%1 Triangle_%1 Random_%1 Rect_%1").arg(suffix));
    }
    testRow("LF title", "generator", "QLabel", "name_generator");
    testRow("LF shapes", "generator", checkable,
            "sine_select sawPos_select sawNeg_select triangle_select random_select "
            "rectangle_select dc_select");
    testRow("sweep texts", "List", "QLabel",
            "title_Sweep=Sweep label_Freq_Pow=Power label_Start=Start label_Stop=Stop "
            "label_Step=Points label_Time=Dwell");
    testRow("sweep groups", "List", "QGroupBox", "Sweep__ List__");
    testRow("sweep switches", "List", checkable,
            "List_is_Checked=Sweep time_select=AUTO int_select= ext_select= left_select= "
            "right_select= trigMode= modeFront=ALLPOINTS button_Sweep=Run button_List=Run");
    testRow("kind of sweep", "List", "QPushButton", "power_toFrom_freq");
    testRow("table", "List", "QTableWidget", "table_List");
}

void ObjectNamesTest::controlsAreThere()
{
    QFETCH(QString, panel);
    QFETCH(QString, type);
    QFETCH(QString, names);
    for (const QString& each : names.split(' ')) {
        const auto& control = get<QWidget>(panel, each.section('=', 0, 0));
        const bool isCheckable = control.property("checkable").toBool();
        QVERIFY2(control.inherits(type == "checkable" ? "QPushButton" : qPrintable(type)),
                 qPrintable(each));
        if (type != "QGroupBox")
            QVERIFY2(isCheckable == (type == "checkable") || type == "QPushButton",
                     qPrintable(each));
        if (each.contains('='))
            QCOMPARE(control.property("text").toString(), each.section('=', 1));
    }
}

void ObjectNamesTest::fieldsHoldTheirQuantity_data()
{
    // The buttons, by name or caption, bring up the keypad of the field.
    testColumns<QString, Quantity, QString, QString>("panel", "quantity", "text", "buttons");
    using Q = Quantity;
    const QString modulation = "Modulat";
    testRow("line_period", modulation, Q::PulsePeriod, "1 000", "pulse_period");
    testRow("line_width", modulation, Q::PulseWidth, "1.00", "pulse_width");
    testRow("line_Ampl_1", modulation, Q::AmRate, "1 000", "Ampl_F pushButton");
    testRow("line_Ampl_2", modulation, Q::AmDepth, "1.00", "Ampl_depth pushButton_2");
    testRow("percentLine_Ampl", modulation, Q::AmDuty, "50", "percentButton_Ampl pushButton_7");
    testRow("line_FREQ_1", modulation, Q::FmRate, "1 000", "FREQ_T pushButton_3");
    testRow("line_FREQ_2", modulation, Q::FmDeviation, "0.0015625", "FREQ_Dev pushButton_4");
    testRow("percentLine_FREQ", modulation, Q::FmDuty, "50", "percentButton_FREQ pushButton_8");
    testRow("line_Phase_1", modulation, Q::PmRate, "1 000", "Phase_T pushButton_5");
    testRow("line_Phase_2", modulation, Q::PmDeviation, "0.001", "Phase_Dev pushButton_6");
    testRow("percentLine_Phase", modulation, Q::PmDuty, "50", "percentButton_Phase pushButton_9");
    testRow("FREQ", "generator", Q::LfFrequency, "10 000.0", "Frequency");
    testRow("VOLTAGE", "generator", Q::LfAmplitude, "1.000", "Magnitude");
    testRow("percent", "generator", Q::LfDuty, "50", "vvod_Percent");
    testRow("Freq_Pow", "List", Q::SweepFixedPower, "0", "key_Freq_Pow");
    testRow("Start", "List", Q::SweepStartFrequency, "25 000 000", "key_Start");
    testRow("Stop", "List", Q::SweepStopFrequency, "1 000 000 000", "key_Stop");
    testRow("Step", "List", Q::SweepPoints, "100", "key_Step");
    testRow("Time", "List", Q::SweepDwell, "1 000", "key_Time");
}

void ObjectNamesTest::fieldsHoldTheirQuantity()
{
    QFETCH(QString, panel);
    QFETCH(Quantity, quantity);
    QFETCH(QString, buttons);
    const QString name = QTest::currentDataTag();
    auto& field = get<NumberEdit>(panel, name);
    QCOMPARE(field.quantity(), quantity);
    QTEST(field.text(), "text");
    for (const QString& button : buttons.split(' ')) {
        m_asked.clear();
        const auto all = m_rig->get(qPrintable(panel)).findChildren<QAbstractButton*>();
        for (QAbstractButton* each : all) {
            if (each->objectName() == button || each->text() == button)
                each->click();
        }
        QCOMPARE(m_asked, QStringList(name));
    }
}

void ObjectNamesTest::aSweepOverPowerTakesOtherQuantities()
{
    get<QPushButton>("List", "power_toFrom_freq").click();
    const std::pair<const char*, Quantity> rows[] = {{"Freq_Pow", Quantity::SweepFixedFrequency},
                                                     {"Start", Quantity::SweepStartPower},
                                                     {"Stop", Quantity::SweepStopPower}};
    for (const auto& [name, quantity] : rows)
        QCOMPARE(get<NumberEdit>("List", name).quantity(), quantity);
}

QTEST_MAIN(ObjectNamesTest)
#include "object_names_test.moc"
