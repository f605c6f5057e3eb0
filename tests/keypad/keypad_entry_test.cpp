#include "tests/keypad/keypad_rig.h"

#include "link/instrument_limits.h"
#include "numbers/step_table.h"
#include "tests/support/rows.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>

Q_DECLARE_METATYPE(FieldKind)

using Step = std::optional<StepKind>;
Q_DECLARE_METATYPE(Step)

class KeypadEntryTest : public QObject
{
    Q_OBJECT

private slots:
    void keysOfKind_data();
    void keysOfKind();
    void unitKeys_data();
    void unitKeys();
    void keyboard_data();
    void keyboard();
    void editingKeys();
    void presentValueIsNotScaled();
    void unfinishedIsNotEntered();
    void fieldRefuses();
    void committedAsTyped();
    void stepArrows();
    void stepPage();
    void stepPageUnits();
    void stepPagePastes();
    void limits_data();
    void limits();
    void followsTheField();
};

void KeypadEntryTest::keysOfKind_data()
{
    testColumns<FieldKind, Step, QString, QString>("kind", "step", "units", "characters");

    using K = FieldKind;
    const QString hertz = "GHz MHz kHz Hz";
    const QString seconds = "s ms µs";
    testRow("frequency", K::Frequency, Step(StepKind::Frequency), hertz, ".");
    testRow("power", K::Power, Step(StepKind::Power), "dBm", "-");
    testRow("reference", K::ExternalReference, Step(), "MHz", "");
    testRow("period", K::PulsePeriod, Step(StepKind::PulsePeriod), seconds, ".");
    testRow("duty", K::Duty, Step(StepKind::PmDuty), "%", "");
    testRow("voltage", K::LfAmplitude, Step(StepKind::LfAmplitude), "V mV", ".");
    testRow("points", K::PointCount, Step(StepKind::PointCount), "", "");
}

void KeypadEntryTest::keysOfKind()
{
    QFETCH(FieldKind, kind);
    QFETCH(Step, step);
    KeypadRig rig(kind, step);
    rig.keypad->openFor(rig.field);

    QStringList units;
    for (QPushButton* key : rig.keypad->findChildren<QPushButton*>()) {
        if (!key->isVisible())
            continue;
        if (key->property("unitKey").toBool())
            units << key->text();
        QVERIFY2(!key->text().isEmpty() && !key->toolTip().isEmpty() &&
                     !key->accessibleName().isEmpty(),
                 qPrintable(key->objectName()));
    }
    QTEST(units.join(' '), "units");
    QString characters;
    if (rig.key("sign")->isVisible())
        characters += '-';
    if (rig.key("point")->isVisible())
        characters += '.';
    QTEST(characters, "characters");
    for (const char* name : {"up", "down", "step"})
        QCOMPARE(rig.key(name)->isVisible(), step.has_value());
    for (const char* name : {"0", "5", "9", "backspace", "clear", "enter"})
        QVERIFY(rig.key(name)->isVisible());
}

void KeypadEntryTest::unitKeys_data()
{
    testColumns<FieldKind, int, QString, QString, QString>("kind", "shownPower", "keys", "finish",
                                                           "result");

    using K = FieldKind;
    const auto row = [](const char* name, K kind, const char* keys, const char* finish,
                        const char* result, int shownPower = 0) {
        testRow(name, kind, shownPower, keys, finish, result);
    };
    row("GHz", K::Frequency, "2.5", "unit_9", "2 500 000 000");
    row("MHz beyond a double", K::Frequency, "9007199254740.993", "unit_6",
        "9 007 199 254 740 993 000");
    row("µs", K::PulseWidth, "0.1", "unit_0", "0.1");
    row("mV", K::LfAmplitude, "7", "unit_-3", "0.007");
    row("MHz of the reference", K::ExternalReference, "13", "unit_0", "13");
    row("Enter", K::PointCount, "1500", "enter", "1 500");
    row("µs in ms", K::PulsePeriod, "2500", "unit_0", "2.5", 3);
    row("s in ms", K::PulsePeriod, "0.001", "unit_6", "1", 3);
    row("Enter in ms", K::PulsePeriod, "2.5", "enter", "2.5", 3);
    row("ms in ns", K::PulsePeriod, "0.1", "unit_3", "100 000", -3);
    row("ns in ns", K::PulsePeriod, "7", "unit_-3", "7", -3);
}

void KeypadEntryTest::unitKeys()
{
    QFETCH(FieldKind, kind);
    QFETCH(int, shownPower);
    QFETCH(QString, keys);
    QFETCH(QString, finish);
    KeypadRig rig(kind, {});
    rig.field->setUnitPower(shownPower);
    rig.field->setText("1");
    QString typed;
    connect(rig.field, &QLineEdit::textEdited, this, [&](const QString& text) { typed = text; });
    QSignalSpy returned(rig.field, &QLineEdit::returnPressed);

    rig.keypad->openFor(rig.field);
    rig.clickKeys(keys);
    QCOMPARE(rig.field->text(), QString("1"));
    rig.click(finish);
    QTEST(rig.field->text(), "result");
    QCOMPARE(typed.remove(' '), rig.field->text().remove(' '));
    QCOMPARE(rig.committed.count(), 1);
    QCOMPARE(returned.count(), 1);
    QVERIFY(!rig.keypad->isVisible());
    QVERIFY(rig.field->property("edited").toBool());
}

/// "*" is Tab, "~" Return, "!" Escape, "<" Backspace, "^" and "_" the arrows.
void KeypadEntryTest::keyboard_data()
{
    testColumns<FieldKind, QString, QString, int>("kind", "keys", "result", "commits");

    using K = FieldKind;
    const auto row = [](const char* name, K kind, const char* keys, const char* result,
                        int commits) { testRow(name, kind, keys, result, commits); };
    row("letter", K::Frequency, "2,5G~", "2 500 000 000", 1);
    row("Escape", K::Frequency, "25!", "50", 0);
    row("untouched", K::Frequency, "~", "50", 1);
    row("refused", K::Duty, "4a-.,k 2~", "42", 1);
    row("backspace over a group", K::Frequency, "1234<<<<5~", "5", 1);
    row("stepped", K::Frequency, "5^^_~", "1 000 005", 1);
    row("not below zero", K::Power, "5______~", "0", 1);
    row("unit key", K::Frequency, "2***~", "2 000 000 000", 1);
    row("Enter key", K::Frequency, "2********~", "2", 1);
    row("step page", K::Frequency, "2*******~7~!", "50", 0);
}

void KeypadEntryTest::keyboard()
{
    QFETCH(FieldKind, kind);
    QFETCH(QString, keys);
    KeypadRig rig(kind, kind == FieldKind::Power ? StepKind::Power : StepKind::Frequency);
    rig.field->setText("50");
    rig.keypad->openFor(rig.field);
    const QHash<QChar, Qt::Key> named = {{'*', Qt::Key_Tab},    {'~', Qt::Key_Return},
                                         {'!', Qt::Key_Escape}, {'<', Qt::Key_Backspace},
                                         {'^', Qt::Key_Up},     {'_', Qt::Key_Down}};
    for (QChar key : keys) {
        QWidget* focus = QApplication::focusWidget();
        QVERIFY(focus != nullptr && rig.keypad->isAncestorOf(focus));
        if (named.contains(key))
            QTest::keyClick(focus, named[key]);
        else
            QTest::keyClicks(focus, QString(key));
    }
    QTEST(rig.field->text(), "result");
    QTEST(rig.committed.count(), "commits");
    QVERIFY(!rig.keypad->isVisible());
}

void KeypadEntryTest::editingKeys()
{
    KeypadRig rig(FieldKind::Power, StepKind::Power);
    rig.field->setText("-10");
    rig.keypad->openFor(rig.field);
    // Over the present value the sign begins a new one, then it turns the number's.
    rig.clickKeys("-");
    QCOMPARE(rig.entry()->text(), QString("-"));
    rig.clickKeys("12-");
    QCOMPARE(rig.entry()->text(), QString("12"));
    rig.clickKeys("-3");
    QCOMPARE(rig.entry()->text(), QString("-123"));
    rig.click("backspace");
    QCOMPARE(rig.entry()->text(), QString("-12"));
    rig.click("clear");
    QCOMPARE(rig.entry()->text(), QString());
    rig.clickKeys("-5");
    QCOMPARE(rig.entry()->text(), QString("-5"));
    QCOMPARE(rig.field->text(), QString("-10"));
}

void KeypadEntryTest::presentValueIsNotScaled()
{
    KeypadRig rig;
    rig.field->setText("1 000");
    rig.keypad->openFor(rig.field);
    QCOMPARE(rig.entry()->text(), QString("1 000"));
    QVERIFY(!rig.key("unit_9")->isEnabled());
    QVERIFY(rig.key("unit_0")->isEnabled());
    rig.clickKeys("2");
    QVERIFY(rig.key("unit_9")->isEnabled());
    rig.click("up");
    QVERIFY(!rig.key("unit_9")->isEnabled());
}

void KeypadEntryTest::unfinishedIsNotEntered()
{
    KeypadRig rig(FieldKind::Power, StepKind::Power);
    rig.field->setText("7");
    rig.keypad->openFor(rig.field);
    for (const char* text : {"-", "", "1-2"}) {
        rig.click("clear");
        QTest::keyClicks(rig.entry(), text);
        QCOMPARE(rig.entry()->text(), QString(text));
        rig.click("enter");
        rig.click("unit_0");
        QTest::keyClick(rig.entry(), Qt::Key_Return);
    }
    QVERIFY(rig.keypad->isVisible());
    QCOMPARE(rig.committed.count(), 0);
    QCOMPARE(rig.field->text(), QString("7"));
}

void KeypadEntryTest::fieldRefuses()
{
    KeypadRig rig;
    rig.field->setText("7");
    rig.field->setMaxLength(6);
    rig.keypad->openFor(rig.field);
    rig.clickKeys("12");
    rig.click("unit_9");
    QVERIFY(rig.keypad->isVisible());
    QCOMPARE(rig.field->text(), QString("7"));
    QCOMPARE(rig.committed.count(), 0);
    rig.click("unit_3");
    QCOMPARE(rig.field->text(), QString("12 000"));
    QCOMPARE(rig.committed.count(), 1);

    rig.other->setReadOnly(true);
    rig.field->setEnabled(false);
    for (NumberEdit* field : {rig.other, rig.field}) {
        rig.keypad->openFor(field);
        QVERIFY(!rig.keypad->isVisible());
    }
}

/// The answer is written back into the field while it is announced.
void KeypadEntryTest::committedAsTyped()
{
    KeypadRig rig;
    bool wasEdited = false;
    connect(rig.field, &QLineEdit::editingFinished, this, [&] {
        wasEdited = rig.field->property("edited").toBool();
        QVERIFY(!rig.keypad->isVisible());
        rig.field->showAccepted("20 000 000 000");
    });
    rig.keypad->openFor(rig.field);
    rig.clickKeys("99");
    rig.click("unit_9");
    QVERIFY(wasEdited);
    QVERIFY(!rig.field->property("edited").toBool());
    QCOMPARE(rig.field->text(), QString("20 000 000 000"));
}

void KeypadEntryTest::stepArrows()
{
    KeypadRig rig(FieldKind::PulsePeriod, StepKind::PulsePeriod);
    rig.field->setText("1 000");
    rig.keypad->openFor(rig.field);
    rig.clickKeys("77");
    rig.click("up");
    QCOMPARE(rig.field->text(), QString("1 100"));
    QCOMPARE(rig.entry()->text(), QString("1 100"));
    QCOMPARE(rig.committed.count(), 1);
    rig.click("down");
    rig.click("down");
    QCOMPARE(rig.field->text(), QString("900"));
    QCOMPARE(rig.committed.count(), 3);
    QVERIFY(rig.keypad->isVisible());

    // A step of 100 µs while the field shows milliseconds.
    rig.field->setUnitPower(3);
    rig.field->setText("1");
    rig.keypad->openFor(rig.field);
    rig.click("up");
    QCOMPARE(rig.field->text(), QString("1.1"));
    rig.click("down");
    QCOMPARE(rig.field->text(), QString("1"));
    rig.field->setText("0.05");
    rig.click("down");
    QCOMPARE(rig.field->text(), QString("0"));
}

void KeypadEntryTest::stepPage()
{
    KeypadRig rig(FieldKind::Power, StepKind::Power);
    rig.fields.limits[Quantity::Power] = {-120, 20};
    rig.field->setText("-10");
    rig.keypad->openFor(rig.field);
    QCOMPARE(rig.key("step")->text(), QString("Step 1 dB"));
    const auto enterStep = [&rig](const QString& keys, const char* finish) {
        rig.click("step");
        rig.clickKeys(keys);
        rig.click(finish);
    };
    rig.click("step");
    QCOMPARE(rig.entry()->text(), QString("1"));
    QVERIFY(!rig.key("sign")->isVisible());
    QTest::keyClicks(rig.entry(), "-");
    QCOMPARE(rig.entry()->text(), QString("1"));
    QVERIFY(!rig.key("up")->isEnabled());
    rig.click("step");
    QCOMPARE(rig.entry()->text(), QString("-10"));

    enterStep("999", "unit_0");
    QCOMPARE(rig.fields.steps.step(StepKind::Power), 140.0);
    QCOMPARE(rig.key("step")->text(), QString("Step 140 dB"));
    enterStep("0", "enter");
    QCOMPARE(rig.fields.steps.step(StepKind::Power), 1.0);
    enterStep("5", "enter");
    QCOMPARE(rig.field->text(), QString("-10"));
    QCOMPARE(rig.committed.count(), 0);
    rig.click("up");
    QCOMPARE(rig.field->text(), QString("-5"));

    rig.click("step");
    rig.clickKeys("9");
    QTest::keyClick(rig.entry(), Qt::Key_Escape);
    QVERIFY(!rig.keypad->isVisible());
    QCOMPARE(rig.fields.steps.step(StepKind::Power), 5.0);
    rig.keypad->openFor(rig.field);
    QCOMPARE(rig.entry()->text(), QString("-5"));
}

void KeypadEntryTest::stepPageUnits()
{
    KeypadRig rig(FieldKind::PulsePeriod, StepKind::PulsePeriod);
    rig.field->setUnitPower(-3);
    rig.field->setText("100 000");
    rig.keypad->openFor(rig.field);
    QCOMPARE(rig.key("step")->text(), QString("Step 100 µs"));
    rig.click("step");
    QVERIFY(!rig.key("unit_-3"));
    rig.clickKeys("0.25");
    rig.click("unit_3");
    QCOMPARE(rig.fields.steps.step(StepKind::PulsePeriod), 250.0);
    rig.click("step");
    QTest::keyClicks(rig.entry(), "2m");
    QCOMPARE(rig.entry()->text(), QString("2 000"));
    QTest::keyClick(rig.entry(), Qt::Key_Return);
    QCOMPARE(rig.fields.steps.step(StepKind::PulsePeriod), 2000.0);
    QTest::keyClicks(rig.entry(), "2m");
    QCOMPARE(rig.entry()->text(), QString("2 000 000"));
}

void KeypadEntryTest::stepPagePastes()
{
    QApplication::clipboard()->setText("250");
    KeypadRig rig;
    rig.keypad->openFor(rig.field);
    rig.click("step");
    rig.click("clear");
    rig.click("enter");
    QCOMPARE(rig.entry()->text(), QString("250"));
    QCOMPARE(rig.fields.steps.step(StepKind::Frequency), 1e6);
    rig.click("enter");
    QCOMPARE(rig.fields.steps.step(StepKind::Frequency), 250.0);
}

void KeypadEntryTest::limits_data()
{
    testColumns<FieldKind, Step, int, QString>("kind", "step", "shownPower", "text");

    using K = FieldKind;
    testRow("frequency", K::Frequency, Step(StepKind::Frequency), 0, "100 000 … 20 000 000 000 Hz");
    testRow("power", K::Power, Step(StepKind::Power), 0, "-120 … 25 dBm");
    testRow("dwell of a sweep", K::Dwell, Step(StepKind::Time), 0, "50 … 1 000 000 µs");
    testRow("dwell in a list", K::Dwell, Step(), 0, "20 … 3 000 µs");
    testRow("in seconds", K::PulsePeriod, Step(StepKind::PulsePeriod), 6, "0.000001 … 20 s");
    testRow("never told", K::PointCount, Step(StepKind::PointCount), 0, "");
}

void KeypadEntryTest::limits()
{
    QFETCH(FieldKind, kind);
    QFETCH(Step, step);
    QFETCH(int, shownPower);
    KeypadRig rig(kind, step);
    rig.field->setUnitPower(shownPower);
    const auto* label = rig.keypad->findChild<QLabel*>("keypad_limits");
    rig.keypad->openFor(rig.field);
    QVERIFY(!label->isVisible());

    InstrumentLimits& limits = rig.fields.limits;
    limits[Quantity::Frequency] = {100000, 20000000000};
    limits[Quantity::Power] = {-120, 25};
    limits[Quantity::ExternalReference] = {1, 200};
    limits[Quantity::LfAmplitude] = {0.001, 3};
    limits[Quantity::PulsePeriod] = {1, 20000000};
    limits[Quantity::SweepDwell] = {50, 1000000};
    limits[Quantity::ListDwell] = {20, 3000};
    rig.keypad->openFor(rig.field);
    QTEST(label->text(), "text");
    QCOMPARE(label->isVisible(), !label->text().isEmpty());
}

/// A reply that arrives in between is shown, but never over what is being typed.
void KeypadEntryTest::followsTheField()
{
    KeypadRig rig;
    rig.keypad->openFor(rig.field);
    rig.field->setText("5");
    QCOMPARE(rig.entry()->text(), QString("5"));
    rig.clickKeys("12");
    rig.field->setText("6");
    QCOMPARE(rig.entry()->text(), QString("12"));
}

QTEST_MAIN(KeypadEntryTest)
#include "keypad_entry_test.moc"
