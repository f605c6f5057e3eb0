#include "tests/keypad/keypad_rig.h"

#include "fields/keypad/keypad_place.h"
#include "tests/support/rows.h"
#include "ui/theme.h"

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QTimer>
#include <QToolButton>
#include <QWindow>

#include <functional>

using Action = std::function<void(KeypadRig&)>;

class KeypadWindowTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { applyTheme(*qApp, ThemeName::Light, false); }

    void closes()
    {
        const auto row = namedRows([](const Action& action) {
            KeypadRig rig;
            const QPointer<NumberEdit> field = rig.field;
            rig.open("50");
            QVERIFY(rig.keypad->isVisible());
            rig.clickKeys("12");
            action(rig);
            QTRY_VERIFY(!rig.keypad->isVisible());
            QCOMPARE(rig.keypad->field(), nullptr);
            // A key pressed too late does nothing.
            for (const char* name : {"enter", "unit_9", "up", "step", "5"})
                rig.click(name);
            QCOMPARE(rig.committed.count(), 0);
            if (field)
                QCOMPARE(field->text(), QString("50"));
        });
        row("Escape", [](KeypadRig& rig) { QTest::keyClick(rig.entry(), Qt::Key_Escape); });
        row("cross", [](KeypadRig& rig) {
            QTest::mouseClick(rig.keypad->findChild<QToolButton*>("keypad_close"), Qt::LeftButton);
        });
        row("click elsewhere", [](KeypadRig& rig) {
            QVERIFY(QTest::qWaitForWindowExposed(&rig));
            // By way of the window, as the window system does it.
            QTest::mouseClick(rig.windowHandle(), Qt::LeftButton, {}, QPoint(590, 10));
        });
        row("field hidden", [](KeypadRig& rig) { rig.field->hide(); });
        row("field disabled", [](KeypadRig& rig) { rig.field->setEnabled(false); });
        row("field read-only", [](KeypadRig& rig) { rig.field->setReadOnly(true); });
        row("field deleted", [](KeypadRig& rig) { delete rig.field; });
        row("window closed", [](KeypadRig& rig) { rig.close(); });
        row("dialog opened", [](KeypadRig& rig) { (new QDialog(&rig))->open(); });
    }

    void turnsToAnotherField()
    {
        KeypadRig rig;
        rig.other->setText("-7");
        rig.open("50");
        rig.click("step");
        rig.clickKeys("12");
        rig.keypad->openFor(rig.other);
        QCOMPARE(rig.typed(), QString("-7"));
        QCOMPARE(rig.keypad->findChild<QLabel*>("keypad_unit")->text(), QString("dBm"));
        QCOMPARE(rig.entry()->selectedText(), QString("-7"));
        QVERIFY(rig.key("sign")->isVisible());
        // The first field matters no more.
        rig.field->setText("51");
        rig.field->hide();
        QVERIFY(rig.keypad->isVisible());
        QSignalSpy committed(rig.other, &QLineEdit::editingFinished);
        rig.clickKeys("3");
        rig.click("enter");
        QCOMPARE(rig.other->text(), QString("3"));
        QCOMPARE(committed.count(), 1);
        QCOMPARE(rig.committed.count(), 0);
        QCOMPARE(rig.field->text(), QString("51"));
    }

    void commitMayDoAnything()
    {
        const auto row = namedRows([](const Action& action) {
            for (const char* finish : {"unit_6", "up"}) {
                KeypadRig rig;
                connect(rig.field, &QLineEdit::editingFinished, &rig, [&] { action(rig); });
                rig.keypad->openFor(rig.field);
                rig.clickKeys("2");
                rig.click(finish);
                QCOMPARE(rig.committed.count(), 1);
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
                QVERIFY(!rig.keypad->isVisible() || rig.keypad->field() == rig.other ||
                        rig.keypad->field() == rig.field);
            }
        });
        row("hides the field", [](KeypadRig& rig) { rig.field->hide(); });
        row("deletes the field", [](KeypadRig& rig) { rig.field->deleteLater(); });
        row("disables the field", [](KeypadRig& rig) { rig.field->setEnabled(false); });
        row("opens another", [](KeypadRig& rig) { rig.keypad->openFor(rig.other); });
        row("shows a dialog", [](KeypadRig& rig) {
            QDialog dialog(&rig);
            QTimer::singleShot(0, &dialog, &QDialog::accept);
            dialog.exec();
        });
    }

    void doubleClicks()
    {
        KeypadRig rig;
        const auto send = [](QWidget* widget, QEvent::Type type) {
            QMouseEvent event(type, QPointF(5, 5), Qt::LeftButton,
                              type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton,
                              {});
            QApplication::sendEvent(widget, &event);
        };
        const auto clickAgain = [&send](QWidget* widget) {
            send(widget, QEvent::MouseButtonDblClick);
            send(widget, QEvent::MouseButtonRelease);
        };
        rig.keypad->openFor(rig.field);
        rig.click("7");
        clickAgain(rig.key("7"));
        QCOMPARE(rig.entry()->text(), QString("77"));
        rig.click("enter");
        clickAgain(rig.key("enter"));
        QCOMPARE(rig.field->text(), QString("77"));
        QCOMPARE(rig.committed.count(), 1);

        // The second half of a double click finds what lay beneath the keypad.
        rig.keypad->openFor(rig.field);
        rig.clickKeys("8");
        rig.click("enter");
        clickAgain(rig.button);
        QCOMPARE(rig.buttonClicks, 0);
        QTest::mouseClick(rig.button, Qt::LeftButton);
        clickAgain(rig.button);
        QCOMPARE(rig.buttonClicks, 2);
    }

    void heldReturn()
    {
        KeypadRig rig;
        rig.field->setFocus();
        rig.keypad->openFor(rig.field);
        QTest::keyClicks(rig.entry(), "9");
        QTest::keyPress(rig.entry(), Qt::Key_Return);
        QTRY_VERIFY(rig.field->hasFocus());
        for (int i = 0; i < 3; ++i) {
            QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
            QApplication::sendEvent(rig.field, &held);
        }
        QCOMPARE(rig.committed.count(), 1);
        QTest::keyClick(rig.field, Qt::Key_Return);
        QCOMPARE(rig.committed.count(), 2);
    }

    void placing()
    {
        const QSize window(300, 400);
        const QRect screen(100, 50, 1000, 800);
        const std::pair<QRect, QPoint> places[] = {
            {{500, 100, 200, 30}, {400, 138}},  // below
            {{500, 700, 200, 30}, {400, 292}},  // above
            {{200, 430, 200, 30}, {408, 430}},  // right
            {{800, 440, 250, 30}, {492, 440}},  // left
            {{110, 100, 100, 30}, {100, 138}},  // at the left edge
            {{1000, 100, 300, 30}, {800, 138}}, // at the right edge
            {{110, 60, 980, 780}, {790, 450}},  // no room
            {{5000, 5000, 10, 10}, {800, 450}}, // off the screen
        };
        for (const auto& [field, place] : places) {
            QCOMPARE(placeBeside(field, window, screen), place);
            QCOMPARE(placeBeside(field, screen.size() * 2, screen), screen.topLeft());
        }
    }
};

QTEST_MAIN(KeypadWindowTest)
#include "keypad_window_test.moc"
