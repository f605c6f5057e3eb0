#include "modulation/modulat.h"
#include "tests/support/fields.h"

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

Q_DECLARE_METATYPE(Modulation)
Q_DECLARE_METATYPE(FieldKind)
Q_DECLARE_METATYPE(StepKind)

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

/// The first two controls that lie on each other.
QString overlapping(const QWidget& body)
{
    const auto children = body.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    for (const QWidget* one : children) {
        for (const QWidget* other : children) {
            if (one != other && one->geometry().intersects(other->geometry()))
                return one->objectName() + " over " + other->objectName();
        }
    }
    return QString();
}

void addModulations()
{
    QTest::addColumn<Modulation>("modulation");
    QTest::addColumn<QString>("suffix");
    for (int i = 0; i < suffixes.size(); ++i)
        QTest::newRow(qPrintable(suffixes.at(i))) << static_cast<Modulation>(i) << suffixes.at(i);
}
} // namespace

class ModulatTest : public QObject
{
    Q_OBJECT

private slots:
    void hasEveryWidget_data();
    void hasEveryWidget();
    void everyControlSaysWhatItIs();
    void shapes_data() { addModulations(); }
    void shapes();
    void dutyButtonTellsTheDuty_data() { addModulations(); }
    void dutyButtonTellsTheDuty();
    void fields_data();
    void fields();
    void keypad_data();
    void keypad();
    void groupOfTheSwitchedOneIsExpanded();
    void updateFollowsTheStateButtons();
    void headersFoldWithoutSwitching();
    void keepsItsSize();
    void bodiesAreNotCut();
    void foldedFieldsTakeNoFocus();
    void pulseUnits();
    void externalPulsesDisablePeriodAndWidth();
    void picturesFollow();
};

void ModulatTest::hasEveryWidget_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("names");
    QTest::newRow("group boxes") << "QGroupBox"
                                 << "Box_modulation PULM_ AM_ FM_ PM_";
    QTest::newRow("labels") << "QLabel"
                            << "titleModulation titlePulse titleAM titleFM titlePM label_3 label_4 "
                               "label_7 label_8 label_9 label_10";
    QTest::newRow("checkable") << "checkable"
                               << "AM FM PM Pulse IntExt_AM IntExt_FM IntExt_PM IntExt_PULM";
    QTest::newRow("buttons") << "QPushButton"
                             << "pulse_period pulse_width us_per us_wid pushButton pushButton_2 "
                                "pushButton_3 pushButton_4 pushButton_5 pushButton_6 pushButton_7 "
                                "pushButton_8 pushButton_9 Ampl_F Ampl_depth FREQ_T FREQ_Dev "
                                "Phase_T Phase_Dev";
    QTest::newRow("fields") << "QLineEdit"
                            << "line_period line_width";
    for (const QString& suffix : suffixes) {
        QTest::addRow("fields %s", qPrintable(suffix))
            << "QLineEdit" << QString("line_%1_1 line_%1_2 percentLine_%1").arg(suffix);
        QTest::addRow("duty button %s", qPrintable(suffix)) << "QPushButton"
                                                            << "percentButton_" + suffix;
        for (const QString& prefix : shapePrefixes)
            QTest::addRow("%s %s", qPrintable(prefix), qPrintable(suffix))
                << "checkable" << prefix + '_' + suffix;
    }
}

void ModulatTest::hasEveryWidget()
{
    QFETCH(QString, type);
    QFETCH(QString, names);
    const bool isCheckable = type == "checkable";
    const Fields fields;
    const Modulat panel(fields.context);
    QCOMPARE(panel.objectName(), QString("Modulat"));
    for (const QString& name : names.split(' ')) {
        const auto found = panel.findChildren<QWidget*>(name);
        QVERIFY2(found.size() == 1, qPrintable(name));
        QVERIFY2(found.first()->inherits(isCheckable ? "QPushButton" : qPrintable(type)),
                 qPrintable(name));
        if (const auto* button = qobject_cast<QPushButton*>(found.first()))
            QVERIFY2(button->isCheckable() == isCheckable, qPrintable(name));
    }
}

void ModulatTest::everyControlSaysWhatItIs()
{
    const Fields fields;
    const Modulat panel(fields.context);
    QStringList names;
    for (const QWidget* each : panel.findChildren<QWidget*>()) {
        const bool isControl = each->inherits("QAbstractButton") || each->inherits("QLineEdit");
        if (!isControl)
            continue;
        QVERIFY2(!each->toolTip().isEmpty(), qPrintable(each->objectName()));
        QVERIFY2(!each->accessibleName().isEmpty(), qPrintable(each->objectName()));
        if (const auto* field = qobject_cast<const QLineEdit*>(each))
            names << field->accessibleName();
    }
    QCOMPARE(names.removeDuplicates(), 0);
}

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

void ModulatTest::fields_data()
{
    QTest::addColumn<FieldKind>("kind");
    QTest::addColumn<StepKind>("step");
    QTest::addColumn<QString>("initial");
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("shown");
    using F = FieldKind;
    using S = StepKind;
    QTest::newRow("line_period") << F::PulsePeriod << S::PulsePeriod << "1 000"
                                 << "12345x"
                                 << "12 345";
    QTest::newRow("line_width") << F::PulseWidth << S::PulseWidth << "1.00"
                                << "2500,5"
                                << "2 500.5";
    QTest::newRow("line_Ampl_1") << F::ModulationRate << S::AmRate << "1 000"
                                 << "2.5k"
                                 << "2 500";
    QTest::newRow("line_Ampl_2") << F::AmDepth << S::AmDepth << "1.00"
                                 << "3%0,5"
                                 << "30.5";
    QTest::newRow("percentLine_Ampl") << F::Duty << S::AmDuty << "50"
                                      << "4.5"
                                      << "4";
    QTest::newRow("line_FREQ_1") << F::ModulationRate << S::FmRate << "1 000"
                                 << "1m"
                                 << "1 000 000";
    QTest::newRow("line_FREQ_2") << F::FmDeviation << S::FmDeviation << "0.0015625"
                                 << "2k"
                                 << "2 000";
    QTest::newRow("percentLine_FREQ") << F::Duty << S::FmDuty << "50"
                                      << "-45"
                                      << "45";
    QTest::newRow("line_Phase_1") << F::ModulationRate << S::PmRate << "1 000"
                                  << "12345.5"
                                  << "12 345.5";
    QTest::newRow("line_Phase_2") << F::PmDeviation << S::PmDeviation << "0.001"
                                  << "1,5k"
                                  << "1.5";
    QTest::newRow("percentLine_Phase") << F::Duty << S::PmDuty << "50"
                                       << "4 5"
                                       << "45";
}

void ModulatTest::fields()
{
    QFETCH(FieldKind, kind);
    QFETCH(StepKind, step);
    QFETCH(QString, keys);
    Bench bench;
    auto* field = static_cast<NumberEdit*>(bench.field(QTest::currentDataTag()));
    QCOMPARE(field->kind(), kind);
    QCOMPARE(stepKind(field->quantity()), std::optional(step));
    QTEST(field->text(), "initial");
    for (const QString& suffix : suffixes)
        bench.click("Rect_" + suffix);
    for (const Modulation each : modulations) {
        if (bench.panel.group(each).isAncestorOf(field))
            bench.panel.expand(each, false);
    }
    bench.type(QTest::currentDataTag(), keys);
    QTEST(field->text(), "shown");
}

void ModulatTest::keypad_data()
{
    QTest::addColumn<QString>("buttons");
    QTest::newRow("line_period") << "pulse_period";
    QTest::newRow("line_width") << "pulse_width";
    QTest::newRow("line_Ampl_1") << "Ampl_F pushButton";
    QTest::newRow("line_Ampl_2") << "Ampl_depth pushButton_2";
    QTest::newRow("percentLine_Ampl") << "percentButton_Ampl pushButton_7";
    QTest::newRow("line_FREQ_1") << "FREQ_T pushButton_3";
    QTest::newRow("line_FREQ_2") << "FREQ_Dev pushButton_4";
    QTest::newRow("percentLine_FREQ") << "percentButton_FREQ pushButton_8";
    QTest::newRow("line_Phase_1") << "Phase_T pushButton_5";
    QTest::newRow("line_Phase_2") << "Phase_Dev pushButton_6";
    QTest::newRow("percentLine_Phase") << "percentButton_Phase pushButton_9";
}

void ModulatTest::keypad()
{
    QFETCH(QString, buttons);
    Bench bench;
    for (const QString& suffix : suffixes)
        bench.click("Rect_" + suffix);
    QStringList asked;
    connect(&bench.panel, &Modulat::keypadRequested,
            [&](const QLineEdit* field) { asked << field->objectName(); });
    for (const QString& name : buttons.split(' ')) {
        asked.clear();
        bench.click(name);
        QCOMPARE(asked, QStringList(QTest::currentDataTag()));
    }
}

void ModulatTest::groupOfTheSwitchedOneIsExpanded()
{
    Bench bench;
    QCOMPARE(bench.expanded(), QString());
    bench.click("AM");
    QCOMPARE(bench.expanded(), QString("AM"));
    QVERIFY(bench.panel.group(Modulation::Am).isMoving());
    // The other one stays checked: switching it off is somebody else's, and comes later.
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

void ModulatTest::bodiesAreNotCut()
{
    Bench bench;
    for (const Modulation each : modulations) {
        bench.panel.expand(each, false);
        QCoreApplication::processEvents();
        for (const auto* box : bench.panel.findChildren<FoldBox*>()) {
            const QWidget* body = box->body();
            QVERIFY2(!box->isExpanded() || body->width() >= body->minimumSizeHint().width(),
                     qPrintable(box->objectName()));
            QVERIFY(!box->isExpanded() || body->parentWidget()->height() == body->height());
            QVERIFY2(!box->isExpanded() || overlapping(*body).isEmpty(),
                     qPrintable(overlapping(*body)));
        }
    }
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
