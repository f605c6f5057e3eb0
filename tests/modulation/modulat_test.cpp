#include "modulation/modulat.h"
#include "tests/support/fields.h"
#include "tests/support/rows.h"

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

Q_DECLARE_METATYPE(Modulation)

namespace
{
const QStringList suffixes = {"Ampl", "FREQ", "Phase"};
const QStringList shapePrefixes = {"Sin", "SawPos", "SawNeg", "Triangle", "Random", "Rect"};

struct Bench {
    Bench()
    {
        panel.resize(panel.sizeHint());
        panel.show();
        panel.activateWindow();
        (void)QTest::qWaitForWindowActive(&panel);
    }

    template <typename T>
    T* find(const QString& name) const
    {
        T* widget = panel.findChild<T*>(name);
        if (widget == nullptr)
            qFatal("no %s", qPrintable(name));
        return widget;
    }
    QPushButton* button(const QString& name) const { return find<QPushButton>(name); }
    QLineEdit* field(const QString& name) const { return find<QLineEdit>(name); }

    /// In place of what the field holds.
    void type(const QString& name, const QString& keys) const
    {
        field(name)->setFocus();
        field(name)->selectAll();
        QTest::keyClicks(field(name), keys);
    }
    void click(const QString& name) const
    {
        QTest::mouseClick(find<QWidget>(name), Qt::LeftButton);
    }
    /// The groups that are or are becoming the expanded ones.
    QString expanded() const
    {
        QStringList names;
        for (const Modulation each : modulations) {
            if (panel.group(each).isExpanded())
                names << panel.group(each).name();
        }
        return names.join(' ');
    }
    bool isStill() const
    {
        const auto boxes = panel.findChildren<FoldBox*>();
        return std::none_of(boxes.begin(), boxes.end(),
                            [](const FoldBox* box) { return box->isMoving(); });
    }

    Fields fields;
    Modulat panel{fields.context};
};

void addModulations()
{
    testColumns<Modulation, QString>("modulation", "suffix");
    for (int i = 0; i < suffixes.size(); ++i)
        testRow(suffixes.at(i), static_cast<Modulation>(i), suffixes.at(i));
}
} // namespace

class ModulatTest : public QObject
{
    Q_OBJECT

private slots:
    void shapes_data() { addModulations(); }
    void shapes();
    void dutyButtonTellsTheDuty_data() { addModulations(); }
    void dutyButtonTellsTheDuty();
    void groupOfTheSwitchedOneIsExpanded();
    void updateFollowsTheStateButtons();
    void headersFoldWithoutSwitching();
    void keepsItsSize();
    void foldedFieldsTakeNoFocus();
    void pulseUnits();
    void externalPulsesDisablePeriodAndWidth();
    void picturesFollow();
};

void ModulatTest::shapes()
{
    QFETCH(Modulation, modulation);
    QFETCH(QString, suffix);
    Bench bench;
    bench.panel.expand(modulation, false);
    const auto checked = [&](const QString& group) {
        QStringList names;
        for (const QString& prefix : shapePrefixes) {
            if (bench.button(prefix + '_' + group)->isChecked())
                names << prefix;
        }
        return names.join(' ');
    };
    QCOMPARE(checked(suffix), QString("Sin"));
    QStringList clicks = shapePrefixes;
    clicks << "Random"
           << "Rect"
           << "Rect"
           << "Random"
           << "Sin";
    for (const QString& prefix : clicks) {
        bench.click(prefix + '_' + suffix);
        QCOMPARE(checked(suffix), prefix);
        QCOMPARE(bench.panel.checkedShape(modulation),
                 static_cast<WaveShape>(shapePrefixes.indexOf(prefix)));
        QCOMPARE(bench.field("line_" + suffix + "_1")->isEnabled(), prefix != "Random");
        QCOMPARE(bench.field("line_" + suffix + "_2")->isEnabled(), true);
        QCOMPARE(bench.field("percentLine_" + suffix)->isEnabled(), prefix == "Rect");
        QCOMPARE(bench.button("percentButton_" + suffix)->isEnabled(), prefix == "Rect");
        for (const QString& other : suffixes)
            QVERIFY(other == suffix || checked(other) == "Sin");
    }
}

void ModulatTest::dutyButtonTellsTheDuty()
{
    QFETCH(Modulation, modulation);
    QFETCH(QString, suffix);
    Bench bench;
    const QPushButton* button = bench.button("percentButton_" + suffix);
    QCOMPARE(button->text(), QString("50"));
    bench.panel.expand(modulation, false);
    bench.click("Rect_" + suffix);
    bench.type("percentLine_" + suffix, "35");
    QCOMPARE(button->text(), QString("35"));
    QEvent languageChange(QEvent::LanguageChange);
    QCoreApplication::sendEvent(&bench.panel, &languageChange);
    QCOMPARE(button->text(), QString("35"));
}

void ModulatTest::groupOfTheSwitchedOneIsExpanded()
{
    Bench bench;
    QCOMPARE(bench.expanded(), QString());
    bench.click("AM");
    QCOMPARE(bench.expanded(), QString("AM"));
    QVERIFY(bench.panel.group(Modulation::Am).isMoving());
    // The other one stays checked: switching it off is the owner's task, and comes later.
    bench.click("PM");
    QVERIFY(bench.button("AM")->isChecked());
    QCOMPARE(bench.expanded(), QString("PM"));
    bench.button("AM")->setChecked(false);
    bench.click("PM");
    QCOMPARE(bench.expanded(), QString());
    QTRY_VERIFY(bench.isStill());
    QVERIFY(!bench.panel.group(Modulation::Pm).body()->isVisible());
}

void ModulatTest::updateFollowsTheStateButtons()
{
    Bench bench;
    bench.button("PM")->setChecked(true);
    bench.panel.update_AM_PM_FM();
    QCOMPARE(bench.expanded(), QString("PM"));
    QCOMPARE(bench.panel.checkedModulation(), std::optional(Modulation::Pm));
    bench.panel.collapse(Modulation::Pm, false);
    QCOMPARE(bench.expanded(), QString());
    QVERIFY(bench.isStill());
}

void ModulatTest::headersFoldWithoutSwitching()
{
    Bench bench;
    bench.click("fold_FM_");
    QCOMPARE(bench.expanded(), QString("FM"));
    bench.click("titleAM");
    QCOMPARE(bench.expanded(), QString("AM"));
    bench.click("titleAM");
    QCOMPARE(bench.expanded(), QString());
    auto* pulseBox = bench.find<FoldBox>("PULM_");
    QVERIFY(pulseBox->isExpanded());
    bench.click("titlePulse");
    QVERIFY(!pulseBox->isExpanded());
    QVERIFY(!bench.panel.checkedModulation());
    // Switching on shows what is switched on.
    bench.click("Pulse");
    QVERIFY(pulseBox->isExpanded());
}

void ModulatTest::keepsItsSize()
{
    Bench bench;
    const QSize size = bench.panel.minimumSizeHint();
    QVERIFY2(size.height() <= 640, qPrintable(QString::number(size.height())));
    for (const Modulation each : modulations) {
        bench.panel.expand(each, false);
        QCoreApplication::processEvents();
        QCOMPARE(bench.panel.minimumSizeHint(), size);
    }
    bench.click("titlePulse");
    QTRY_VERIFY(bench.isStill());
    QTRY_COMPARE(bench.panel.minimumSizeHint(), size);
}

void ModulatTest::foldedFieldsTakeNoFocus()
{
    Bench bench;
    bench.panel.expand(Modulation::Am, false);
    bench.field("line_Ampl_1")->setFocus();
    bench.click("AM");
    bench.click("AM");
    QTRY_VERIFY(bench.isStill());
    QVERIFY(!bench.field("line_Ampl_1")->isVisible());
    QVERIFY(!bench.field("line_Ampl_1")->hasFocus());
}

void ModulatTest::pulseUnits()
{
    Bench bench;
    bench.panel.pulsePeriod().showAccepted("2 500");
    bench.click("us_per");
    QCOMPARE(bench.field("line_period")->text(), QString("2.5"));
    QCOMPARE(bench.field("line_width")->text(), QString("1.00"));
    QCOMPARE(bench.panel.pulsePeriod().value(), 2500.0);
    for (int i = 0; i < 3; ++i)
        bench.click("us_wid");
    QCOMPARE(bench.field("line_width")->text(), QString("1 000"));
    QCOMPARE(bench.button("us_wid")->text(), QString("ns"));
    QCOMPARE(bench.panel.pulseWidth().value(), 1.0);
    bench.panel.pulseWidth().showAccepted("20.00");
    QCOMPARE(bench.field("line_width")->text(), QString("20 000"));
    bench.panel.usePulseMicroseconds();
    QCOMPARE(bench.field("line_period")->text(), QString("2 500"));
    QCOMPARE(bench.field("line_width")->text(), QString("20.00"));
}

void ModulatTest::externalPulsesDisablePeriodAndWidth()
{
    Bench bench;
    for (const bool isExternal : {true, false}) {
        bench.click("IntExt_PULM");
        for (const char* name : {"line_period", "line_width", "us_per", "us_wid", "pulse_period"})
            QCOMPARE(bench.find<QWidget>(name)->isEnabled(), !isExternal);
    }
    // As a profile may switch it.
    bench.button("IntExt_PULM")->setChecked(true);
    QVERIFY(!bench.field("line_period")->isEnabled());
    bench.button("IntExt_PULM")->setChecked(false);
    bench.panel.setEnabledModulationSetting(true);
    QVERIFY(!bench.field("line_width")->isEnabled());
}

void ModulatTest::picturesFollow()
{
    Bench bench;
    bench.panel.expand(Modulation::Am, false);
    const auto words = [&](const QString& box) {
        const auto* body = bench.find<FoldBox>(box)->body();
        for (const auto* each : body->findChildren<QWidget*>()) {
            if (each->inherits("WaveformPicture"))
                return each->accessibleDescription();
        }
        return QString();
    };
    QCOMPARE(words("AM_"), QString("Sine, 1 kHz (period 1 ms), from \u22121 % to 1 %"));
    bench.click("Rect_Ampl");
    bench.field("line_Ampl_2")->setText("30.5");
    bench.field("line_Ampl_1")->setText("2 000");
    bench.field("percentLine_Ampl")->setText("20");
    QCOMPARE(words("AM_"), QString("Rectangle, 2 kHz (period 500 µs), from \u221230.5 % to 30.5 %, "
                                   "duty 20 %"));
    bench.field("line_Ampl_1")->clear();
    QCOMPARE(words("AM_"), QString("Rectangle, from \u221230.5 % to 30.5 %, duty 20 %"));
    bench.click("IntExt_AM");
    QCOMPARE(words("AM_"), QString("External source"));
    bench.panel.pulsePeriod().showAccepted("500");
    QCOMPARE(words("PULM_"), QString("Pulses: period 500 µs, width 1 µs"));
}

QTEST_MAIN(ModulatTest)
#include "modulat_test.moc"
