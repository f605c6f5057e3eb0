#include "tests/support/rows.h"
#include "ui/anim_label.h"
#include "ui/error_box.h"
#include "ui/state_button.h"
#include "ui/theme.h"
#include "ui/window_chrome.h"

#include <QGraphicsEffect>
#include <QLabel>
#include <QPointer>
#include <QVBoxLayout>
#include <QtTest>

class FormWidgetsTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { applyTheme(*qApp, ThemeName::Dark, false); }

    void anErrorIsShownUntilPutAway_data()
    {
        testColumns<bool>("byKey");
        testRow("Cancel", false);
        testRow("Escape", true);
    }

    void anErrorIsShownUntilPutAway()
    {
        QFETCH(bool, byKey);
        QWidget window;
        window.show();
        QPointer<ErrorBox> box = ErrorBox::report("first \n second", &window);
        QVERIFY(QTest::qWaitForWindowExposed(box));
        QCOMPARE(box->windowTitle(), QString("Error"));
        QCOMPARE(box->windowModality(), Qt::ApplicationModal);
        QVERIFY(!box->windowIcon().isNull());
        QCOMPARE(box->findChild<QLabel*>("message")->text(), QString("first \n second"));
        const auto buttons = box->findChildren<QPushButton*>();
        QCOMPARE(buttons.size(), 1);
        QCOMPARE(buttons.first()->text(), QString("Cancel"));
        if (byKey)
            QTest::keyClick(box, Qt::Key_Escape);
        else
            QTest::mouseClick(buttons.first(), Qt::LeftButton);
        QTRY_VERIFY(box.isNull());
    }

    void anErrorMayGoWithItsWindow()
    {
        auto* window = new QWidget;
        window->show();
        QPointer<ErrorBox> box = ErrorBox::report("gone", window);
        delete window;
        QVERIFY(box.isNull());
    }

    void aStateButtonWordsItsState()
    {
        StateButton button;
        button.setCheckable(true);
        button.setTextOff("RF OFF");
        button.setTextOn("RF ON");
        button.show();
        QCOMPARE(button.text(), QString("RF OFF"));
        button.click();
        QCOMPARE(button.text(), QString("RF ON"));
        button.setChecked(false);
        QCOMPARE(button.text(), QString("RF OFF"));

        StateButton captioned;
        captioned.setCheckable(true);
        captioned.setText("10 MHz");
        captioned.click();
        QCOMPARE(captioned.text(), QString("10 MHz"));
    }

    void anAnimatedLabelEndsFullyShown()
    {
        animLabel label;
        label.setText("329");
        label.start(40);
        label.start(80);
        label.show();
        QVERIFY(label.graphicsEffect());
        QTRY_VERIFY(!label.graphicsEffect());
    }

    void aWindowIsMovedByItsSurfaceOnly()
    {
        QWidget window;
        new WindowChrome(&window);
        auto* layout = new QVBoxLayout(&window);
        auto* label = new QLabel("surface");
        auto* button = new QPushButton("control");
        layout->addWidget(label);
        layout->addWidget(button);
        window.move(50, 50);
        window.show();
        QVERIFY(window.windowFlags() & Qt::FramelessWindowHint);
        const QPoint start = window.pos();

        const auto drag = [](QWidget* from, const QPoint& by) {
            const QPoint grip(5, 5);
            const QPoint at = from->mapToGlobal(grip);
            QMouseEvent press(QEvent::MouseButtonPress, grip, at, Qt::LeftButton, Qt::LeftButton,
                              Qt::NoModifier);
            QMouseEvent move(QEvent::MouseMove, grip + by, at + by, Qt::NoButton, Qt::LeftButton,
                             Qt::NoModifier);
            QMouseEvent release(QEvent::MouseButtonRelease, grip, at + by, Qt::LeftButton,
                                Qt::NoButton, Qt::NoModifier);
            for (QMouseEvent* event : {&press, &move, &release})
                QCoreApplication::sendEvent(from, event);
        };
        drag(button, QPoint(60, 40));
        QCOMPARE(window.pos(), start);
        drag(label, QPoint(60, 40));
        QCOMPARE(window.pos(), start + QPoint(60, 40));
        drag(label, QPoint(1, 1));
        QCOMPARE(window.pos(), start + QPoint(60, 40));
    }
};

QTEST_MAIN(FormWidgetsTest)
#include "form_widgets_test.moc"
