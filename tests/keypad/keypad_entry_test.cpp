#include "tests/keypad/keypad_rig.h"

#include "tests/numbers/text_pairs.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>

using K = FieldKind;

class KeypadEntryTest : public QObject
{
    Q_OBJECT

private slots:
    void keysOfKind()
    {
        const auto check = [](K kind, std::optional<StepKind> step, const QString& expected) {
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
            QCOMPARE(keys.join(' '), expected);
        };
        check(K::Frequency, StepKind::Frequency, "GHz MHz kHz Hz point up down step");
        check(K::Power, StepKind::Power, "dBm sign up down step");
        check(K::ExternalReference, {}, "MHz");
        check(K::PulsePeriod, StepKind::PulsePeriod, "s ms µs point up down step");
        check(K::Duty, StepKind::PmDuty, "% up down step");
        check(K::LfAmplitude, StepKind::LfAmplitude, "V mV point up down step");
        check(K::PointCount, StepKind::PointCount, "up down step");
    }

    /// The last key's name stands behind "@".
    void unitKeys()
    {
        const auto check = [](K kind, int shownPower, const QStringList& pairs) {
            checkPairs(pairs, [=](const QString& keys) {
                KeypadRig rig(kind, {});
                rig.field->setUnitPower(shownPower);
                QSignalSpy edited(rig.field, &QLineEdit::textEdited);
                QSignalSpy returned(rig.field, &QLineEdit::returnPressed);
                rig.open("1");
                rig.clickKeys(keys.section('@', 0, 0));
                const bool isEarly = rig.field->text() != "1";
                rig.click(keys.section('@', 1));
                const bool isOnce = edited.count() == 1 && rig.committed.count() == 1 &&
                                    returned.count() == 1 && rig.field->isEdited();
                return isEarly || !isOnce || rig.keypad->isVisible() ? "not entered once"
                                                                     : rig.field->text();
            });
        };
        check(K::Frequency, 0,
              {"2.5@unit_9=2 500 000 000", "9007199254740.993@unit_6=9 007 199 254 740 993 000"});
        check(K::LfAmplitude, 0, {"7@unit_-3=0.007"});
        check(K::ExternalReference, 0, {"13@unit_0=13"});
        check(K::PointCount, 0, {"1500@enter=1 500"});
        check(K::PulsePeriod, 3, {"2500@unit_0=2.5", "0.001@unit_6=1", "2.5@enter=2.5"});
        check(K::PulsePeriod, -3, {"0.1@unit_3=100 000", "7@unit_-3=7"});
    }

    /// "*" is Tab, "~" Return, "!" Escape, "<" Backspace, "^" and "_" the arrows.
    void keyboard()
    {
        const QHash<QChar, Qt::Key> named = {{'*', Qt::Key_Tab},    {'~', Qt::Key_Return},
                                             {'!', Qt::Key_Escape}, {'<', Qt::Key_Backspace},
                                             {'^', Qt::Key_Up},     {'_', Qt::Key_Down}};
        const auto check = [&](K kind, const QString& keys, const QString& result, int commits) {
            KeypadRig rig(kind, kind == K::Power ? StepKind::Power : StepKind::Frequency);
            rig.open("50");
            for (QChar key : keys) {
                QWidget* focus = QApplication::focusWidget();
                QVERIFY(focus != nullptr && rig.keypad->isAncestorOf(focus));
                if (named.contains(key))
                    QTest::keyClick(focus, named[key]);
                else
                    QTest::keyClicks(focus, QString(key));
            }
            QCOMPARE(rig.field->text(), result);
            QCOMPARE(rig.committed.count(), commits);
            QVERIFY(!rig.keypad->isVisible());
        };
        check(K::Frequency, "2,5G~", "2 500 000 000", 1);
        check(K::Frequency, "25!", "50", 0);
        check(K::Frequency, "~", "50", 1);
        check(K::Duty, "4a-.,k 2~", "42", 1);
        check(K::Frequency, "1234<<<<5~", "5", 1);
        check(K::Frequency, "5^^_~", "1 000 005", 1);
        check(K::Power, "5______~", "0", 1);
        // A unit key, the Enter key, and the page of the step.
        check(K::Frequency, "2***~", "2 000 000 000", 1);
        check(K::Frequency, "2********~", "2", 1);
        check(K::Frequency, "2*******~7~!", "50", 0);
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

    void limits()
    {
        const auto check = [](K kind, int shownPower, const Range& range, const QString& text) {
            KeypadRig rig(kind, {});
            rig.field->setUnitPower(shownPower);
            rig.fields.limits[rig.field->quantity()] = range;
            rig.open("1");
            const auto* label = rig.keypad->findChild<QLabel*>("keypad_limits");
            QCOMPARE(label->text(), text);
            QCOMPARE(label->isVisible(), !text.isEmpty());
        };
        check(K::Frequency, 0, {1e5, 2e10}, "100 000 … 20 000 000 000 Hz");
        check(K::Power, 0, {-120.0, 25.0}, "-120 … 25 dBm");
        check(K::Dwell, 0, {20.0, 3000.0}, "20 … 3 000 µs");
        check(K::PulsePeriod, 6, {1.0, 2e7}, "0.000001 … 20 s");
        // Never told.
        check(K::PointCount, 0, {0.0, 0.0}, "");
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
