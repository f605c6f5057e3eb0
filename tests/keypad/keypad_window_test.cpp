#include "tests/keypad/keypad_rig.h"

#include "fields/keypad/keypad_place.h"
#include "ui/language.h"
#include "ui/theme.h"

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QScreen>
#include <QTimer>
#include <QToolButton>
#include <QWindow>

#include <functional>

Q_DECLARE_METATYPE(std::function<void(KeypadRig&)>)

class KeypadWindowTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void closes_data();
    void closes();
    void clickElsewhere();
    void turnsToAnotherField();
    void commitMayDoAnything_data();
    void commitMayDoAnything();
    void doubleClicks();
    void heldReturn();
    void placing_data();
    void placing();
    void staysOnTheScreen();
    void keysFitAFinger();
    void language();
};

void KeypadWindowTest::initTestCase()
{
    applyTheme(*qApp, ThemeName::Light, false);
}

using Action = std::function<void(KeypadRig&)>;

void KeypadWindowTest::closes_data()
{
    QTest::addColumn<Action>("action");
    QTest::newRow("Escape") << Action(
        [](KeypadRig& rig) { QTest::keyClick(rig.entry(), Qt::Key_Escape); });
    QTest::newRow("cross") << Action([](KeypadRig& rig) {
        QTest::mouseClick(rig.keypad->findChild<QToolButton*>("keypad_close"), Qt::LeftButton);
    });
    QTest::newRow("field hidden") << Action([](KeypadRig& rig) { rig.field->hide(); });
    QTest::newRow("field disabled") << Action([](KeypadRig& rig) { rig.field->setEnabled(false); });
    QTest::newRow("field read-only")
        << Action([](KeypadRig& rig) { rig.field->setReadOnly(true); });
    QTest::newRow("field deleted") << Action([](KeypadRig& rig) { delete rig.field; });
    QTest::newRow("window closed") << Action([](KeypadRig& rig) { rig.close(); });
    QTest::newRow("dialog opened") << Action([](KeypadRig& rig) {
        auto* dialog = new QDialog(&rig);
        dialog->open();
    });
}

void KeypadWindowTest::closes()
{
    QFETCH(Action, action);
    KeypadRig rig;
    rig.field->setText("50");
    const QPointer<NumberEdit> field = rig.field;
    rig.keypad->openFor(rig.field);
    QVERIFY(rig.keypad->isVisible());
    rig.clickKeys("12");
    action(rig);
    QVERIFY(!rig.keypad->isVisible());
    QCOMPARE(rig.keypad->field(), nullptr);
    // What is pressed too late does nothing.
    for (const char* name : {"enter", "unit_9", "up", "step", "5"})
        rig.click(name);
    QCOMPARE(rig.committed.count(), 0);
    if (field)
        QCOMPARE(field->text(), QString("50"));
}

void KeypadWindowTest::clickElsewhere()
{
    KeypadRig rig;
    rig.field->setText("50");
    QVERIFY(QTest::qWaitForWindowExposed(&rig));
    rig.keypad->openFor(rig.field);
    rig.clickKeys("12");
    // By way of the window, as the window system does it.
    QTest::mouseClick(rig.windowHandle(), Qt::LeftButton, {}, QPoint(590, 10));
    QTRY_VERIFY(!rig.keypad->isVisible());
    QCOMPARE(rig.committed.count(), 0);
    QCOMPARE(rig.field->text(), QString("50"));
}

void KeypadWindowTest::turnsToAnotherField()
{
    KeypadRig rig;
    rig.field->setText("50");
    rig.other->setText("-7");
    rig.keypad->openFor(rig.field);
    rig.click("step");
    rig.clickKeys("12");
    rig.keypad->openFor(rig.other);
    QCOMPARE(rig.entry()->text(), QString("-7"));
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

void KeypadWindowTest::commitMayDoAnything_data()
{
    QTest::addColumn<Action>("action");
    QTest::newRow("hides the field") << Action([](KeypadRig& rig) { rig.field->hide(); });
    QTest::newRow("deletes the field") << Action([](KeypadRig& rig) { rig.field->deleteLater(); });
    QTest::newRow("disables the field")
        << Action([](KeypadRig& rig) { rig.field->setEnabled(false); });
    QTest::newRow("opens another")
        << Action([](KeypadRig& rig) { rig.keypad->openFor(rig.other); });
    QTest::newRow("shows a dialog") << Action([](KeypadRig& rig) {
        QDialog dialog(&rig);
        QTimer::singleShot(0, &dialog, &QDialog::accept);
        dialog.exec();
    });
}

void KeypadWindowTest::commitMayDoAnything()
{
    QFETCH(Action, action);
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
}

void KeypadWindowTest::doubleClicks()
{
    KeypadRig rig;
    const auto send = [](QWidget* widget, QEvent::Type type) {
        QMouseEvent event(type, QPointF(5, 5), Qt::LeftButton,
                          type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, {});
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

void KeypadWindowTest::heldReturn()
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

void KeypadWindowTest::placing_data()
{
    QTest::addColumn<QRect>("field");
    QTest::addColumn<QPoint>("place");
    // A window of 300 by 400 on a screen of 1000 by 800 that starts at (100, 50).
    QTest::newRow("below") << QRect(500, 100, 200, 30) << QPoint(400, 138);
    QTest::newRow("above") << QRect(500, 700, 200, 30) << QPoint(400, 292);
    QTest::newRow("right") << QRect(200, 430, 200, 30) << QPoint(408, 430);
    QTest::newRow("left") << QRect(800, 440, 250, 30) << QPoint(492, 440);
    QTest::newRow("left edge") << QRect(110, 100, 100, 30) << QPoint(100, 138);
    QTest::newRow("right edge") << QRect(1000, 100, 300, 30) << QPoint(800, 138);
    QTest::newRow("no room") << QRect(110, 60, 980, 780) << QPoint(790, 450);
    QTest::newRow("off the screen") << QRect(5000, 5000, 10, 10) << QPoint(800, 450);
}

void KeypadWindowTest::placing()
{
    QFETCH(QRect, field);
    const QSize window(300, 400);
    const QRect screen(100, 50, 1000, 800);
    QTEST(placeBeside(field, window, screen), "place");
    QCOMPARE(placeBeside(field, screen.size() * 2, screen), screen.topLeft());
}

void KeypadWindowTest::staysOnTheScreen()
{
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    for (const QPoint& corner : {screen.topLeft(), screen.topRight(), screen.bottomLeft(),
                                 screen.bottomRight(), screen.center()}) {
        KeypadRig rig;
        rig.move(corner - QPoint(300, 100));
        rig.field->move(corner == screen.center() ? 0 : 300, 100);
        rig.keypad->openFor(rig.field);
        QVERIFY(screen.contains(rig.keypad->geometry()));
        const QRect field(rig.field->mapToGlobal(QPoint()), rig.field->size());
        QVERIFY(!rig.keypad->geometry().intersects(field));
        rig.click("step");
        QVERIFY(screen.contains(rig.keypad->geometry()));
    }
}

void KeypadWindowTest::keysFitAFinger()
{
    for (FieldKind kind : {FieldKind::Frequency, FieldKind::Power, FieldKind::PointCount}) {
        KeypadRig rig(kind, StepKind::Frequency);
        rig.keypad->openFor(rig.field);
        QRegion taken;
        for (QWidget* child : rig.keypad->findChildren<QWidget*>()) {
            const bool isTarget = qobject_cast<QAbstractButton*>(child) || child == rig.entry();
            if (!isTarget || !child->isVisible())
                continue;
            const QByteArray name = child->objectName().toUtf8();
            QVERIFY2(child->width() >= 40 && child->height() >= 40, name.data());
            const QRect place(child->mapTo(rig.keypad, QPoint()), child->size());
            QVERIFY2(rig.keypad->rect().contains(place) && !taken.intersects(place), name.data());
            taken += place;
        }
    }
}

void KeypadWindowTest::language()
{
    KeypadRig rig;
    rig.keypad->openFor(rig.field);
    rig.clickKeys("12");
    const auto texts = [&rig] {
        QStringList result;
        for (QAbstractButton* key : rig.keypad->findChildren<QAbstractButton*>()) {
            if (key->isVisible())
                result << key->toolTip() << key->accessibleName();
        }
        return result;
    };
    const QStringList before = texts();
    Language russian("ru");
    QTRY_COMPARE(rig.key("unit_9")->text(), QString("ГГц"));
    QCOMPARE(rig.keypad->findChild<QLabel*>("keypad_unit")->text(), QString("Гц"));
    QCOMPARE(rig.key("step")->text(), QString("Шаг 1 000 000 Гц"));
    QCOMPARE(rig.entry()->text(), QString("12"));
    const QStringList after = texts();
    QCOMPARE(after.size(), before.size());
    for (int i = 0; i < after.size(); ++i)
        QVERIFY2(after[i] != before[i], qPrintable(after[i]));
}

QTEST_MAIN(KeypadWindowTest)
#include "keypad_window_test.moc"
