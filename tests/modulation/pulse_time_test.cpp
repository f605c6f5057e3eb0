#include "modulation/pulse_group.h"
#include "tests/support/fields.h"
#include "tests/support/rows.h"

#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

namespace
{
struct Bench {
    Bench()
    {
        auto* column = new QVBoxLayout(&window);
        column->addWidget(&group);
        column->addWidget(&other);
        // As the panel does.
        QObject::connect(&unit, &QPushButton::clicked, [this] { group.nextUnit(field); });
        group.setExpanded(true, false);
        window.show();
        window.activateWindow();
        (void)QTest::qWaitForWindowActive(&window);
        field.setFocus();
    }

    void nextUnit() { unit.click(); }

    void useUnit(const QString& symbol)
    {
        for (int i = 0; i < 4 && unit.text() != symbol; ++i)
            nextUnit();
        QCOMPARE(unit.text(), symbol);
    }

    Fields fields;
    QWidget window;
    PulseGroup& group = *new PulseGroup(fields.context, &window, &window);
    NumberEdit& field = group.period();
    QPushButton& unit = *group.periodRow().unit;
    QLineEdit& other = *new QLineEdit(&window);
};
} // namespace

class PulseTimeTest : public QObject
{
    Q_OBJECT

private slots:
    void cyclesWithoutLoss_data();
    void cyclesWithoutLoss();
    void typing_data();
    void typing();
    void steps_data();
    void steps();
    void newUnitCommitsNothing();
    void acceptedValue();
};

void PulseTimeTest::cyclesWithoutLoss_data()
{
    testColumns<QString, QString, QString, QString>("us", "ms", "s", "ns");
    testRow("1 000", "1 000", "1", "0.001", "1 000 000");
    testRow("decimals", "12 345.678", "12.345678", "0.012345678", "12 345 678");
    testRow("smallest", "0.000001", "0.000000001", "0.000000000001", "0.001");
    testRow("empty", "", "", "", "");
}

void PulseTimeTest::cyclesWithoutLoss()
{
    QFETCH(QString, us);
    QFETCH(QString, ms);
    QFETCH(QString, s);
    QFETCH(QString, ns);
    Bench bench;
    bench.field.setText(us);
    const double microseconds = bench.field.value();
    const struct {
        const char* unit;
        QString text;
    } views[] = {{"ms", ms}, {"s", s}, {"ns", ns}, {"µs", us}};
    for (const auto& view : views) {
        bench.nextUnit();
        QCOMPARE(bench.unit.text(), QString(view.unit));
        QCOMPARE(bench.field.text(), view.text);
        QCOMPARE(bench.field.value(), microseconds);
        QCOMPARE(bench.field.ownText(), us);
    }
    bench.nextUnit();
    bench.group.useMicroseconds();
    QCOMPARE(bench.field.text(), us);
}

void PulseTimeTest::typing_data()
{
    testColumns<QString, QString, QString, double>("unit", "keys", "shown", "microseconds");
    testRow("µs", "µs", "2500", "2 500", 2500.0);
    testRow("ms", "ms", "2500", "2 500", 2.5e6);
    testRow("ms letter into µs", "µs", "2.5m", "2 500", 2500.0);
    testRow("ms letter into ns", "ns", "2m", "2 000 000", 2000.0);
    testRow("letter without a number", "s", "m2", "2", 2e6);
}

void PulseTimeTest::typing()
{
    QFETCH(QString, unit);
    QFETCH(QString, keys);
    Bench bench;
    bench.useUnit(unit);
    bench.field.clear();
    QTest::keyClicks(&bench.field, keys);
    QTEST(bench.field.text(), "shown");
    QTEST(bench.field.value(), "microseconds");
    QCOMPARE(bench.field.property("edited").toBool(), true);
}

void PulseTimeTest::steps_data()
{
    testColumns<QString, QString, QString>("unit", "shown", "stepped");
    testRow("µs", "µs", "1 000", "1 100");
    testRow("ms", "ms", "1", "1.1");
    testRow("s", "s", "0.001", "0.0011");
    testRow("ns", "ns", "1 000 000", "1 100 000");
}

// One step is 100 µs, whatever unit is shown.
void PulseTimeTest::steps()
{
    QFETCH(QString, unit);
    QString announced;
    Bench bench;
    QVERIFY(bench.fields.steps.setStep(StepKind::PulsePeriod, 100.0));
    bench.field.setText("1 000");
    bench.useUnit(unit);
    QTEST(bench.field.text(), "shown");
    connect(&bench.field, &QLineEdit::editingFinished, &bench.window,
            [&] { announced = bench.field.ownText(); });
    QTest::keyClick(&bench.field, Qt::Key_Up);
    QTEST(bench.field.text(), "stepped");
    QCOMPARE(announced, QString("1 100"));
}

void PulseTimeTest::newUnitCommitsNothing()
{
    Bench bench;
    bench.field.showAccepted("1 000");
    const QSignalSpy announced(&bench.field, &QLineEdit::editingFinished);
    bench.nextUnit();
    bench.other.setFocus();
    QCOMPARE(announced.size(), 0);
    // What was typed before is still to be committed, in whatever unit.
    bench.field.setFocus();
    bench.field.selectAll();
    QTest::keyClicks(&bench.field, "2");
    bench.nextUnit();
    QCOMPARE(bench.field.property("edited").toBool(), true);
    bench.other.setFocus();
    QCOMPARE(announced.size(), 1);
    QCOMPARE(bench.field.ownText(), QString("2 000"));
}

void PulseTimeTest::acceptedValue()
{
    Bench bench;
    bench.useUnit("ms");
    bench.field.setEdited(true);
    const QSignalSpy announced(&bench.field, &QLineEdit::editingFinished);
    bench.field.showAccepted("12 500.5");
    QCOMPARE(bench.field.text(), QString("12.5005"));
    QCOMPARE(bench.field.ownText(), QString("12 500.5"));
    QCOMPARE(bench.field.property("edited").toBool(), false);
    QCOMPARE(announced.size(), 0);
    // A failed read leaves an empty text.
    bench.field.showAccepted(QString());
    QCOMPARE(bench.field.text(), QString());
}

QTEST_MAIN(PulseTimeTest)
#include "pulse_time_test.moc"
