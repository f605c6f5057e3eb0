#include "ui/anim_label.h"
#include "ui/eliding_label.h"
#include "ui/error_box.h"
#include "ui/indicator.h"
#include "ui/question.h"
#include "ui/state_button.h"
#include "ui/theme.h"
#include "ui/two_part_button.h"

#include <QGraphicsEffect>
#include <QToolTip>
#include <QtTest>

#include <memory>

class FormWidgetsTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { applyTheme(*qApp, ThemeName::Dark, false); }

    void aLongTextIsElided()
    {
        ElidingLabel label;
        label.setFixedWidth(171);
        const QString name = "KLV-20G with all options 5678";
        label.setText(name);
        label.setToolTip("tool-tip");
        label.show();
        const QImage elided = label.grab().toImage();
        QHelpEvent hover(QEvent::ToolTip, QPoint(5, 5), label.mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(&label, &hover);
        QCOMPARE(QToolTip::text(), name + "\ntool-tip");
        // What comes behind the ellipsis does not show.
        label.setText(name + "9");
        QCOMPARE(label.grab().toImage(), elided);
        label.setText("KLV-20G 5678");
        QVERIFY(label.grab().toImage() != elided);
    }

    void aSwitchLightsThePartThatIsChosen()
    {
        TwoPartButton button("switch");
        button.setTexts("Sweep", "List of points");
        button.show();
        QVERIFY(QTest::qWaitForWindowExposed(&button));
        const QSize size = button.sizeHint();
        const QColor fill = themeColour(ThemeName::Dark, "fill");
        for (const bool isChecked : {false, true}) {
            QCOMPARE(button.isChecked(), isChecked);
            QCOMPARE(button.text(), QString(isChecked ? "List of points" : "Sweep"));
            const QImage image = button.grab().toImage();
            const int edge = 6;
            QCOMPARE(image.pixelColor(edge, image.height() / 2) == fill, !isChecked);
            QCOMPARE(image.pixelColor(image.width() - edge, image.height() / 2) == fill, isChecked);
            QCOMPARE(button.sizeHint(), size);
            QTest::mouseClick(&button, Qt::LeftButton);
        }
        // It is seen that it cannot be used.
        const QImage usable = button.grab().toImage();
        button.setEnabled(false);
        QVERIFY(button.grab().toImage() != usable);
    }

    void aLampSaysItsSettingBesideItsIcon()
    {
        Indicator lamp;
        lamp.setToolTip("tool-tip");
        lamp.resize(200, 24);
        lamp.show();
        const QImage dark = lamp.grab().toImage();
        lamp.setWords("AM 30 % 1 kHz");
        QCOMPARE(lamp.grab().toImage(), dark);
        QCOMPARE(lamp.words(), QString());
        QCOMPARE(lamp.sizeHint().width(), 0);
        lamp.setPixmap(QPixmap(":/images/am.png"));
        QCOMPARE(lamp.words(), QString("AM 30 % 1 kHz"));
        const QImage lit = lamp.grab().toImage();
        lamp.setWords("AM 31 % 1 kHz");
        QVERIFY(lamp.grab().toImage() != lit);
        const int shortWidth = lamp.sizeHint().width();
        lamp.setWords("AM 30 % 1 kHz and more");
        QVERIFY(lamp.sizeHint().width() > shortWidth);
        // The icon stays where there is no room for words; they are in the tool-tip.
        QVERIFY(lamp.minimumSizeHint().width() < shortWidth);
        QHelpEvent hover(QEvent::ToolTip, QPoint(5, 5), lamp.mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(&lamp, &hover);
        QCOMPARE(QToolTip::text(), QString("tool-tip\nAM 30 % 1 kHz and more"));
        lamp.clear();
        QCOMPARE(lamp.grab().toImage(), dark);
    }

    void aQuestionGoesOnOnlyByItsButton()
    {
        const struct {
            const char* button;
            Qt::Key key;
            bool isConfirmed;
        } ways[] = {{"yes", Qt::Key_Space, true},
                    {"cancel", Qt::Key_Space, false},
                    {nullptr, Qt::Key_Return, false},
                    {nullptr, Qt::Key_Escape, false}};
        QWidget window;
        window.show();
        for (const auto& way : ways) {
            bool isConfirmed = false;
            const QPointer<Question> question = askBefore(&window, "title", "a < b?", "Go on",
                                                          [&isConfirmed] { isConfirmed = true; });
            QVERIFY(QTest::qWaitForWindowExposed(question));
            QVERIFY(question->isModal());
            QWidget* const at = way.button ? question->findChild<QPushButton*>(way.button)
                                           : question->focusWidget();
            QTest::keyClick(at, way.key);
            QTRY_VERIFY(question.isNull());
            QCOMPARE(isConfirmed, way.isConfirmed);
        }
    }

    void anErrorIsShownUntilPutAway()
    {
        for (const QString& by : QStringList({"button", "Escape", "its window's end"})) {
            auto window = std::make_unique<QWidget>();
            window->show();
            QPointer<ErrorBox> box = ErrorBox::report("first \n second", window.get());
            QVERIFY(QTest::qWaitForWindowExposed(box));
            QCOMPARE(box->windowModality(), Qt::ApplicationModal);
            QCOMPARE(box->findChild<QLabel*>("message")->text(), QString("first \n second"));
            const auto buttons = box->findChildren<QPushButton*>();
            QCOMPARE(buttons.size(), 1);
            if (by == "button")
                QTest::mouseClick(buttons.first(), Qt::LeftButton);
            else if (by == "Escape")
                QTest::keyClick(box, Qt::Key_Escape);
            else
                window.reset();
            QTRY_VERIFY2(box.isNull(), qPrintable(by));
        }
    }

    void aStateButtonWordsItsState()
    {
        StateButton button;
        button.setCheckable(true);
        button.setText("10 MHz");
        button.click();
        QCOMPARE(button.text(), QString("10 MHz"));
        button.setTextOff("RF OFF");
        button.setTextOn("RF ON");
        QCOMPARE(button.text(), QString("RF ON"));
        button.setChecked(false);
        QCOMPARE(button.text(), QString("RF OFF"));
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
};

QTEST_MAIN(FormWidgetsTest)
#include "form_widgets_test.moc"
