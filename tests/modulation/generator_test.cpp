#include "modulation/generator.h"
#include "modulation/waveform_picture.h"
#include "tests/support/fields.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

namespace
{
const QStringList shapes = {"sine", "sawPos", "sawNeg", "triangle", "random", "rectangle", "dc"};

struct Bench {
    Bench()
    {
        panel.show();
        panel.activateWindow();
        (void)QTest::qWaitForWindowActive(&panel);
    }

    QPushButton* shape(const QString& name) const
    {
        return panel.findChild<QPushButton*>(name + "_select");
    }
    void click(const QString& name) const { QTest::mouseClick(shape(name), Qt::LeftButton); }
    QString checked() const
    {
        QStringList names;
        for (const QString& name : shapes) {
            if (shape(name)->isChecked())
                names << name;
        }
        return names.join(' ');
    }
    QString picture() const { return panel.findChild<WaveformPicture*>()->accessibleDescription(); }

    Fields fields;
    generator panel{fields.context};
};
} // namespace

class GeneratorTest : public QObject
{
    Q_OBJECT

private slots:
    void hasEveryWidget();
    void waveformsExcludeOneAnother();
    void choiceIsMadeBeforeOthersHearOfIt();
    void autoOff();
    void fields_data();
    void fields();
    void keypad_data();
    void keypad();
    void pictureFollows();
};

void GeneratorTest::hasEveryWidget()
{
    const Bench bench;
    QCOMPARE(bench.panel.objectName(), QString("generator"));
    QCOMPARE(bench.panel.findChild<QLabel*>("name_generator")->text(), QString("LF Generator"));
    QCOMPARE(bench.panel.findChildren<QPushButton*>(QRegularExpression("\\w*_select")).size(),
             shapes.size());
    for (const QString& name : shapes)
        QVERIFY2(bench.shape(name) && bench.shape(name)->isCheckable(), qPrintable(name));
    QVERIFY(bench.panel.findChild<QPushButton*>("vvod_Percent"));
    for (const QWidget* each : bench.panel.findChildren<QWidget*>()) {
        if (each->inherits("QAbstractButton") || each->inherits("QLineEdit"))
            QVERIFY2(!each->toolTip().isEmpty() && !each->accessibleName().isEmpty(),
                     qPrintable(each->objectName()));
    }
}

void GeneratorTest::waveformsExcludeOneAnother()
{
    const Bench bench;
    const auto* duty = bench.panel.findChild<QLineEdit*>("percent");
    const auto* dutyButton = bench.panel.findChild<QPushButton*>("vvod_Percent");
    QCOMPARE(bench.checked(), QString());
    QVERIFY(!bench.panel.isOn());
    QVERIFY(!duty->isEnabled());
    for (int i = 0; i < shapes.size(); ++i) {
        bench.click(shapes.at(i));
        QCOMPARE(bench.checked(), shapes.at(i));
        QCOMPARE(bench.panel.checkedShape(), std::optional(static_cast<WaveShape>(i)));
        QCOMPARE(duty->isEnabled(), shapes.at(i) == "rectangle");
        QCOMPARE(dutyButton->isEnabled(), shapes.at(i) == "rectangle");
    }
    bench.click("rectangle");
    bench.click("rectangle");
    QCOMPARE(bench.checked(), QString());
    QVERIFY(!duty->isEnabled());
}

void GeneratorTest::choiceIsMadeBeforeOthersHearOfIt()
{
    Bench bench;
    QStringList heard;
    for (const QString& name : shapes)
        connect(bench.shape(name), &QPushButton::clicked, [&] { heard << bench.checked(); });
    bench.click("sine");
    bench.click("triangle");
    bench.click("triangle");
    QCOMPARE(heard, QStringList({"sine", "triangle", ""}));
}

void GeneratorTest::autoOff()
{
    Bench bench;
    QSignalSpy hide(&bench.panel, &SidePanel::hide_);
    bench.click("dc");
    int hiddenAtClick = -1;
    connect(bench.shape("dc"), &QPushButton::clicked, [&] { hiddenAtClick = hide.size(); });
    bench.panel.autoOff();
    QCOMPARE(bench.checked(), QString());
    QCOMPARE(hiddenAtClick, 0);
    QCOMPARE(hide.size(), 1);
}

void GeneratorTest::fields_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("step");
    QTest::addColumn<QString>("initial");
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("shown");
    const auto row = [](const char* name, FieldKind kind, StepKind step) -> QTestData& {
        return QTest::newRow(name) << static_cast<int>(kind) << static_cast<int>(step);
    };
    row("FREQ", FieldKind::LfFrequency, StepKind::LfFrequency) << "10 000.0"
                                                               << "2,5k"
                                                               << "2 500";
    row("VOLTAGE", FieldKind::LfAmplitude, StepKind::LfAmplitude) << "1.000"
                                                                  << "250m"
                                                                  << "0.25";
    row("percent", FieldKind::LfDuty, StepKind::LfDuty) << "50"
                                                        << "2.5"
                                                        << "2";
}

void GeneratorTest::fields()
{
    QFETCH(int, kind);
    QFETCH(int, step);
    QFETCH(QString, keys);
    const Bench bench;
    auto* field = bench.panel.findChild<NumberEdit*>(QTest::currentDataTag());
    QCOMPARE(static_cast<int>(field->kind()), kind);
    QCOMPARE(static_cast<int>(*stepKind(field->quantity())), step);
    QTEST(field->text(), "initial");
    bench.click("rectangle");
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, keys);
    QTEST(field->text(), "shown");
}

void GeneratorTest::keypad_data()
{
    QTest::addColumn<QString>("caption");
    QTest::newRow("FREQ") << "Frequency";
    QTest::newRow("VOLTAGE") << "Magnitude";
    QTest::newRow("percent") << "DUTY";
}

void GeneratorTest::keypad()
{
    QFETCH(QString, caption);
    Bench bench;
    bench.click("rectangle");
    QStringList asked;
    connect(&bench.panel, &generator::keypadRequested,
            [&](const QLineEdit* field) { asked << field->objectName(); });
    for (auto* button : bench.panel.findChildren<QPushButton*>()) {
        if (button->text() == caption)
            QTest::mouseClick(button, Qt::LeftButton);
    }
    QCOMPARE(asked, QStringList(QTest::currentDataTag()));
}

void GeneratorTest::pictureFollows()
{
    const Bench bench;
    QCOMPARE(bench.picture(), QString("The LF generator is off"));
    // What a click would bring is shown before it is switched on.
    bench.shape("triangle")->setFocus();
    QTRY_COMPARE(bench.picture(),
                 QString("Triangle, 10 kHz (period 100 µs), from \u22121 V to 1 V"));
    QVERIFY(!bench.panel.isOn());
    bench.click("dc");
    bench.panel.amplitude().setText("0.25");
    QCOMPARE(bench.picture(), QString("DC, level 250 mV"));
    bench.click("random");
    QCOMPARE(bench.picture(), QString("Random, from \u2212250 mV to 250 mV"));
}

QTEST_MAIN(GeneratorTest)
#include "generator_test.moc"
