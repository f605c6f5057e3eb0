#include "modulation/generator.h"
#include "modulation/modulat.h"
#include "sweep/list_panel.h"
#include "tests/support/panel_test.h"
#include "tests/support/rows.h"

#include <QLineEdit>

Q_DECLARE_METATYPE(Quantity)

/// The side panels by the names of their controls, which profiles and others know them by.
class ObjectNamesTest : public PanelTest
{
    Q_OBJECT

private slots:
    void init()
    {
        PanelTest::init();
        begin();
        const auto note = [this](const NumberEdit* field) { m_asked << field->objectName(); };
        connect(&m_rig->get<Modulat>("Modulat"), &Modulat::keypadRequested, this, note);
        connect(&m_rig->get<generator>("generator"), &generator::keypadRequested, this, note);
        connect(&m_rig->get<List>("List"), &List::keypadRequested, this, note);
        m_rig->clickAll("Rect_Ampl Rect_FREQ Rect_Phase rectangle_select");
    }

    void controlsAreThere_data()
    {
        testColumns<QString>("names");
        testRow("Modulat",
                QString("Box_modulation PULM_ AM_ FM_ PM_ titleModulation titlePulse "
                        "titleAM titleFM titlePM label_3 label_4 label_7 label_8 label_9 "
                        "label_10 AM FM PM Pulse us_per us_wid IntExt_AM IntExt_FM "
                        "IntExt_PM IntExt_PULM"));
        for (const QString shape : {"Sin", "SawPos", "SawNeg", "Triangle", "Random", "Rect"})
            testRow("Modulat", shape + "_Ampl " + shape + "_FREQ " + shape + "_Phase");
        testRow("generator", QString("name_generator sine_select sawPos_select sawNeg_select "
                                     "dc_select triangle_select random_select rectangle_select"));
        testRow("List", QString("title_Sweep label_Freq_Pow label_Start label_Stop label_Step "
                                "label_Time Sweep__ List__ List_is_Checked time_select int_select "
                                "ext_select trigMode left_select right_select modeFront "
                                "power_toFrom_freq button_Sweep button_List table_List"));
    }

    void controlsAreThere()
    {
        QFETCH(QString, names);
        for (const QString& name : names.split(' '))
            QVERIFY(get<QWidget>(QTest::currentDataTag(), name).isWidgetType());
    }

    void fieldsHoldTheirQuantity_data()
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
        testRow("percentLine_Phase", modulation, Q::PmDuty, "50",
                "percentButton_Phase pushButton_9");
        testRow("FREQ", "generator", Q::LfFrequency, "10 000.0", "Frequency");
        testRow("VOLTAGE", "generator", Q::LfAmplitude, "1.000", "Magnitude");
        testRow("percent", "generator", Q::LfDuty, "50", "vvod_Percent");
        testRow("Freq_Pow", "List", Q::SweepFixedPower, "0", "key_Freq_Pow");
        testRow("Start", "List", Q::SweepStartFrequency, "25 000 000", "key_Start");
        testRow("Stop", "List", Q::SweepStopFrequency, "1 000 000 000", "key_Stop");
        testRow("Step", "List", Q::SweepPoints, "100", "key_Step");
        testRow("Time", "List", Q::SweepDwell, "1 000", "key_Time");
    }

    void fieldsHoldTheirQuantity()
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

private:
    template <typename Widget>
    Widget& get(const QString& panel, const QString& name)
    {
        const auto found = m_rig->get(qPrintable(panel)).findChildren<Widget*>(name);
        if (found.size() != 1)
            qFatal("%d times %s in %s", int(found.size()), qPrintable(name), qPrintable(panel));
        return *found.first();
    }

    QStringList m_asked; ///< the fields that a keypad was wanted for
};

QTEST_MAIN(ObjectNamesTest)
#include "object_names_test.moc"
