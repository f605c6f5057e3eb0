#include "tests/keypad/keypad_rig.h"

#include "link/instrument_limits.h"
#include "numbers/step_table.h"
#include "tests/numbers/text_pairs.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>

Q_DECLARE_METATYPE(FieldKind)

using K = FieldKind;
using Step = std::optional<StepKind>;
Q_DECLARE_METATYPE(Step)

class KeypadEntryTest : public QObject
{
    Q_OBJECT

private slots:
    void keysOfKind_data()
    {
        testColumns<FieldKind, Step, QString>("kind", "step", "keys");
        testRow("frequency", K::Frequency, Step(StepKind::Frequency),
                "GHz MHz kHz Hz point up down step");
        testRow("power", K::Power, Step(StepKind::Power), "dBm sign up down step");
        testRow("reference", K::ExternalReference, Step(), "MHz");
        testRow("period", K::PulsePeriod, Step(StepKind::PulsePeriod),
                "s ms µs point up down step");
        testRow("duty", K::Duty, Step(StepKind::PmDuty), "% up down step");
        testRow("voltage", K::LfAmplitude, Step(StepKind::LfAmplitude), "V mV point up down step");
        testRow("points", K::PointCount, Step(StepKind::PointCount), "up down step");
    }

    void keysOfKind()
    {
        QFETCH(FieldKind, kind);
        QFETCH(Step, step);
        KeypadRig rig(kind, step);
        rig.open("1");
        QStringList keys;
        for (QPushButton* key : rig.keypad->findChildren<QPushButton*>()) {
            if (key->isVisible() && key->property("unitKey").toBool())
                keys << key->text();
        }
        for (const char* name : {"sign", "point", "up", "down", "step"}) {
            if (rig.key(name)->isVisible())
                keys << name;
        }
        QTEST(keys.join(' '), "keys");
    }

    /// The last key's name stands behind "@".
    void unitKeys_data()
    {
        testColumns<FieldKind, int, QString, QString>("kind", "shownPower", "keys", "result");
        pairRows("frequency",
                 {"2.5@unit_9=2 500 000 000", "9007199254740.993@unit_6=9 007 199 254 740 993 000"},
                 K::Frequency, 0);
        pairRows("amplitude", {"7@unit_-3=0.007"}, K::LfAmplitude, 0);
        pairRows("reference", {"13@unit_0=13"}, K::ExternalReference, 0);
        pairRows("points", {"1500@enter=1 500"}, K::PointCount, 0);
        pairRows("in ms", {"2500@unit_0=2.5", "0.001@unit_6=1", "2.5@enter=2.5"}, K::PulsePeriod,
                 3);
        pairRows("in ns", {"0.1@unit_3=100 000", "7@unit_-3=7"}, K::PulsePeriod, -3);
    }

    void unitKeys()
    {
        QFETCH(FieldKind, kind);
        QFETCH(int, shownPower);
        QFETCH(QString, keys);
        KeypadRig rig(kind, {});
        rig.field->setUnitPower(shownPower);
        QSignalSpy edited(rig.field, &QLineEdit::textEdited);
        QSignalSpy returned(rig.field, &QLineEdit::returnPressed);
        rig.open("1");
        rig.clickKeys(keys.section('@', 0, 0));
        QCOMPARE(rig.field->text(), QString("1"));
        rig.click(keys.section('@', 1));
        QTEST(rig.field->text(), "result");
        QCOMPARE(edited.count(), 1);
        QCOMPARE(rig.committed.count(), 1);
        QCOMPARE(returned.count(), 1);
        QVERIFY(!rig.keypad->isVisible());
        QVERIFY(rig.field->property("edited").toBool());
    }

    /// "*" is Tab, "~" Return, "!" Escape, "<" Backspace, "^" and "_" the arrows.
    void keyboard_data()
    {
        testColumns<FieldKind, QString, QString, int>("kind", "keys", "result", "commits");
        testRow("letter", K::Frequency, "2,5G~", "2 500 000 000", 1);
        testRow("Escape", K::Frequency, "25!", "50", 0);
        testRow("untouched", K::Frequency, "~", "50", 1);
        testRow("refused", K::Duty, "4a-.,k 2~", "42", 1);
        testRow("backspace over a group", K::Frequency, "1234<<<<5~", "5", 1);
        testRow("stepped", K::Frequency, "5^^_~", "1 000 005", 1);
        testRow("not below zero", K::Power, "5______~", "0", 1);
        testRow("unit key", K::Frequency, "2***~", "2 000 000 000", 1);
        testRow("Enter key", K::Frequency, "2********~", "2", 1);
        testRow("step page", K::Frequency, "2*******~7~!", "50", 0);
    }

    void keyboard()
    {
        QFETCH(FieldKind, kind);
        QFETCH(QString, keys);
        KeypadRig rig(kind, kind == K::Power ? StepKind::Power : StepKind::Frequency);
        rig.open("50");
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

    void editingKeys()
    {
        KeypadRig rig(K::Power, StepKind::Power);
        rig.open("-10");
        // Over the present value the sign begins a new one, then it turns the number's.
        for (const auto& [keys, shown] : {std::pair("-", "-"), {"12-", "12"}, {"-3", "-123"}}) {
            rig.clickKeys(keys);
            QCOMPARE(rig.typed(), QString(shown));
        }
        rig.click("backspace");
        QCOMPARE(rig.typed(), QString("-12"));
        rig.click("clear");
        QCOMPARE(rig.typed(), QString());
        rig.clickKeys("-5");
        QCOMPARE(rig.typed(), QString("-5"));
        QCOMPARE(rig.field->text(), QString("-10"));
    }

    void presentValueIsNotScaled()
    {
        KeypadRig rig;
        rig.open("1 000");
        QVERIFY(!rig.key("unit_9")->isEnabled() && rig.key("unit_0")->isEnabled());
        rig.clickKeys("2");
        QVERIFY(rig.key("unit_9")->isEnabled());
        rig.click("up");
        QVERIFY(!rig.key("unit_9")->isEnabled());
    }

    void unfinishedIsNotEntered()
    {
        KeypadRig rig(K::Power, StepKind::Power);
        rig.open("7");
        for (const char* text : {"-", "", "1-2"}) {
            rig.click("clear");
            QTest::keyClicks(rig.entry(), text);
            QCOMPARE(rig.typed(), QString(text));
            rig.click("enter");
            rig.click("unit_0");
            QTest::keyClick(rig.entry(), Qt::Key_Return);
        }
        QVERIFY(rig.keypad->isVisible());
        QCOMPARE(rig.committed.count(), 0);
        QCOMPARE(rig.field->text(), QString("7"));
    }

    void fieldRefuses()
    {
        KeypadRig rig;
        rig.field->setMaxLength(6);
        rig.open("7");
        rig.clickKeys("12");
        rig.click("unit_9");
        QVERIFY(rig.keypad->isVisible());
        QCOMPARE(rig.field->text(), QString("7"));
        QCOMPARE(rig.committed.count(), 0);
        rig.click("unit_3");
        QCOMPARE(rig.field->text(), QString("12 000"));
        rig.other->setReadOnly(true);
        rig.field->setEnabled(false);
        for (NumberEdit* field : {rig.other, rig.field}) {
            rig.keypad->openFor(field);
            QVERIFY(!rig.keypad->isVisible());
        }
    }

    /// The answer is written back into the field while it is announced.
    void committedAsTyped()
    {
        KeypadRig rig;
        connect(rig.field, &QLineEdit::editingFinished, this, [&] {
            QVERIFY(rig.field->property("edited").toBool() && !rig.keypad->isVisible());
            rig.field->showAccepted("20 000 000 000");
        });
        rig.open("");
        rig.clickKeys("99");
        rig.click("unit_9");
        QVERIFY(!rig.field->property("edited").toBool());
        QCOMPARE(rig.field->text(), QString("20 000 000 000"));
    }

    void stepArrows()
    {
        KeypadRig rig(K::PulsePeriod, StepKind::PulsePeriod);
        rig.open("1 000");
        rig.clickKeys("77");
        rig.click("up");
        QCOMPARE(rig.field->text(), QString("1 100"));
        QCOMPARE(rig.typed(), QString("1 100"));
        rig.click("down");
        QCOMPARE(rig.field->text(), QString("1 000"));
        QCOMPARE(rig.committed.count(), 2);
        QVERIFY(rig.keypad->isVisible());
        // A step of 100 µs while the field shows milliseconds.
        rig.field->setUnitPower(3);
        rig.open("1");
        rig.click("up");
        QCOMPARE(rig.field->text(), QString("1.1"));
        rig.field->setText("0.05");
        rig.click("down");
        QCOMPARE(rig.field->text(), QString("0"));
    }

    void stepPage()
    {
        KeypadRig rig(K::Power, StepKind::Power);
        rig.fields.limits[Quantity::Power] = {-120, 20};
        rig.open("-10");
        const auto enterStep = [&rig](const QString& keys, const char* finish) {
            rig.click("step");
            rig.clickKeys(keys);
            rig.click(finish);
        };
        rig.click("step");
        QCOMPARE(rig.typed(), QString("1"));
        QTest::keyClicks(rig.entry(), "-");
        QCOMPARE(rig.typed(), QString("1"));
        QVERIFY(!rig.key("sign")->isVisible() && !rig.key("up")->isEnabled());
        rig.click("step");
        QCOMPARE(rig.typed(), QString("-10"));

        enterStep("999", "unit_0");
        QCOMPARE(rig.step(), 140.0);
        QCOMPARE(rig.key("step")->text(), QString("Step 140 dB"));
        enterStep("5", "enter");
        QCOMPARE(rig.step(), 5.0);
        QCOMPARE(rig.committed.count(), 0);
        rig.click("up");
        QCOMPARE(rig.field->text(), QString("-5"));

        rig.click("step");
        rig.clickKeys("9");
        QTest::keyClick(rig.entry(), Qt::Key_Escape);
        QVERIFY(!rig.keypad->isVisible());
        QCOMPARE(rig.step(), 5.0);
    }

    void stepPageUnits()
    {
        KeypadRig rig(K::PulsePeriod, StepKind::PulsePeriod);
        rig.field->setUnitPower(-3);
        rig.open("100 000");
        QCOMPARE(rig.key("step")->text(), QString("Step 100 µs"));
        rig.click("step");
        QVERIFY(!rig.key("unit_-3"));
        rig.clickKeys("0.25");
        rig.click("unit_3");
        QCOMPARE(rig.step(), 250.0);
        rig.click("step");
        QTest::keyClicks(rig.entry(), "2m");
        QCOMPARE(rig.typed(), QString("2 000"));
        QTest::keyClick(rig.entry(), Qt::Key_Return);
        QCOMPARE(rig.step(), 2000.0);
        QTest::keyClicks(rig.entry(), "2m");
        QCOMPARE(rig.typed(), QString("2 000 000"));
    }

    void stepPagePastes()
    {
        QApplication::clipboard()->setText("250");
        KeypadRig rig;
        rig.open("");
        rig.click("step");
        rig.click("clear");
        rig.click("enter");
        QCOMPARE(rig.typed(), QString("250"));
        QCOMPARE(rig.step(), 1e6);
        rig.click("enter");
        QCOMPARE(rig.step(), 250.0);
    }

    void limits_data()
    {
        testColumns<FieldKind, int, double, double, QString>("kind", "shownPower", "min", "max",
                                                             "text");
        testRow("frequency", K::Frequency, 0, 1e5, 2e10, "100 000 … 20 000 000 000 Hz");
        testRow("power", K::Power, 0, -120.0, 25.0, "-120 … 25 dBm");
        testRow("dwell", K::Dwell, 0, 20.0, 3000.0, "20 … 3 000 µs");
        testRow("in seconds", K::PulsePeriod, 6, 1.0, 2e7, "0.000001 … 20 s");
        testRow("never told", K::PointCount, 0, 0.0, 0.0, "");
    }

    void limits()
    {
        QFETCH(FieldKind, kind);
        QFETCH(int, shownPower);
        QFETCH(double, min);
        QFETCH(double, max);
        KeypadRig rig(kind, {});
        rig.field->setUnitPower(shownPower);
        rig.fields.limits[rig.field->quantity()] = {min, max};
        rig.open("1");
        const auto* label = rig.keypad->findChild<QLabel*>("keypad_limits");
        QTEST(label->text(), "text");
        QCOMPARE(label->isVisible(), !label->text().isEmpty());
    }

    /// A reply that arrives in between is shown, but never over what is being typed.
    void followsTheField()
    {
        KeypadRig rig;
        rig.open("4");
        rig.field->setText("5");
        QCOMPARE(rig.typed(), QString("5"));
        rig.clickKeys("12");
        rig.field->setText("6");
        QCOMPARE(rig.typed(), QString("12"));
    }
};

QTEST_MAIN(KeypadEntryTest)
#include "keypad_entry_test.moc"
