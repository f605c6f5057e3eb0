#include "modulation/generator.h"
#include "modulation/waveform_picture.h"
#include "tests/support/fields.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
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
    void waveformsExcludeOneAnother();
    void choiceIsMadeBeforeOthersHearOfIt();
    void autoOff();
    void pictureFollows();
};

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
