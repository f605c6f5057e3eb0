#include "fields/select_line.h"
#include "tests/numbers/text_pairs.h"
#include "tests/support/fields.h"
#include "tests/support/quantities.h"

#include <QApplication>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>

Q_DECLARE_METATYPE(FieldKind)

namespace
{
/// Two fields in a window that sees the wheel events its fields let through.
class Window : public QWidget
{
public:
    Window()
    {
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(&plain);
        layout->addWidget(&field);
        layout->addWidget(&other);
        show();
        other.setFocus();
        if (!QTest::qWaitForWindowActive(this))
            qFatal("not active");
    }

    Fields fields;
    QLineEdit plain; ///< nothing more than a line edit
    NumberEdit field{Quantity::Frequency, fields.context};
    QLineEdit other;
    int wheelEvents = 0;

protected:
    void wheelEvent(QWheelEvent* event) override
    {
        ++wheelEvents;
        event->accept();
    }
};

void turnWheel(QWidget& widget, const QPoint& angle, Qt::KeyboardModifiers modifiers = {})
{
    const QPoint at = widget.rect().center();
    QWheelEvent event(at, widget.mapToGlobal(at), QPoint(), angle, Qt::NoButton, modifiers,
                      Qt::NoScrollPhase, false);
    // As from the window system: Qt hands only these on to the parent.
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(&widget, &event);
}

/// The text with "|" at the cursor.
QString withCursor(const QLineEdit& field)
{
    return field.text().insert(field.cursorPosition(), '|');
}

void setWithCursor(QLineEdit& field, QString text)
{
    const int cursor = text.indexOf('|');
    field.setText(text.remove('|'));
    field.setCursorPosition(cursor);
}

/// A click, or a double one, beside the character at that place.
void clickAt(QLineEdit& field, int position, bool isDouble = false)
{
    int x = 0;
    while (x < field.width() && field.cursorPositionAt(QPoint(x, 5)) < position)
        ++x;
    const QPoint at(x, field.height() / 2);
    QTest::mouseClick(&field, Qt::LeftButton, {}, at);
    if (isDouble)
        QTest::mouseDClick(&field, Qt::LeftButton, {}, at);
}
} // namespace

class NumberEntryTest : public QObject
{
    Q_OBJECT

private slots:
    void clamping()
    {
        Fields fields;
        fields.limits[Quantity::Frequency] = {9e3, 2e10};
        NumberEdit field(Quantity::Frequency, fields.context, nullptr, "25G");
        field.clamp();
        QCOMPARE(field.text(), QString("20 000 000 000"));
        field.setCursorPosition(3);
        field.clamp();
        QCOMPARE(field.cursorPosition(), 3);
    }

    void onlyTheFocusedFieldIsStepped()
    {
        Window window;
        turnWheel(window.plain, {0, 120});
        QCOMPARE(window.wheelEvents, 1);
        window.field.setText("1 000 000 000");
        QSignalSpy committed(&window.field, &QLineEdit::editingFinished);
        turnWheel(window.field, {0, 120});
        QTest::keyClick(&window.field, Qt::Key_Up);
        QTest::keyClicks(&window.field, "7");
        QCOMPARE(window.field.text(), QString("1 000 000 000"));
        QCOMPARE(committed.count(), 0);

        window.field.setFocus();
        turnWheel(window.field, {0, 120});
        QCOMPARE(window.field.text(), QString("1 001 000 000"));
        turnWheel(window.field, {0, -120});
        turnWheel(window.field, {0, -120});
        turnWheel(window.field, {0, 0});
        QCOMPARE(window.field.text(), QString("999 000 000"));
        QCOMPARE(committed.count(), 3);
        window.fields.steps.setStep(StepKind::Frequency, 5);
        QTest::keyClick(&window.field, Qt::Key_Up);
        QTest::keyClick(&window.field, Qt::Key_Up);
        QTest::keyClick(&window.field, Qt::Key_Down);
        QCOMPARE(window.field.text(), QString("999 000 005"));
        QCOMPARE(committed.count(), 6);
        QCOMPARE(window.wheelEvents, 1);
    }

    void digitStepKeepsItsPlace()
    {
        Window window;
        NumberEdit& field = window.field;
        // As a commit does: the accepted text is written back, the cursor left at the end.
        QStringList committed;
        connect(&field, &QLineEdit::editingFinished, &field, [&] {
            committed << field.text();
            field.setText(clampText(field.text(), 100, 2e10, FieldKind::Frequency));
            field.selectAll();
            field.deselect();
        });
        field.setFocus();
        const auto step = [&field](Qt::Key key) {
            QTest::keyClick(&field, key, Qt::ControlModifier);
            return withCursor(field);
        };
        setWithCursor(field, "9| 500");
        QCOMPARE(step(Qt::Key_Up), QString("10| 500"));
        QCOMPARE(step(Qt::Key_Down), QString("9| 500"));
        QCOMPARE(committed, QStringList({"10 500", "9 500"}));
        // The digit vanishes and comes back: the place is still that of the ten thousands.
        setWithCursor(field, "1|0 500");
        QCOMPARE(step(Qt::Key_Down), QString("|500"));
        QCOMPARE(step(Qt::Key_Up), QString("1|0 500"));
        // Bounded by the commit.
        setWithCursor(field, "1|00");
        QCOMPARE(step(Qt::Key_Down), QString("1|00"));
        committed.clear();
        setWithCursor(field, "-|");
        QCOMPARE(step(Qt::Key_Up), QString("-|"));
        QVERIFY(committed.isEmpty());
    }

    /// "u" and "d" are Up and Down, "w" and "W" the wheel turned down and up; a "^" before them
    /// stands for Ctrl.
    void stepsLeaveTheCursor_data()
    {
        testColumns<QString, QString, QString>("before", "steps", "after");
        testRow("plain", "1 0|00 000", "uW", "3 0|00 000");
        testRow("at the start", "|1 000 000", "u", "|2 000 000");
        testRow("beside a blank", "1 |000 000", "W", "2 |000 000");
        testRow("a digit more", "9 0|00 000", "u", "10 0|00 000");
        testRow("a digit less", "10 0|00 000", "w", "9 0|00 000");
        testRow("digit by the wheel", "1 0|00 000", "^W", "1 1|00 000");
        testRow("digit down by the wheel", "1 000 00|0", "^w^w", "999 98|0");
        testRow("digit, then step", "9 5|00 000", "^uud", "9 6|00 000");
    }

    void stepsLeaveTheCursor()
    {
        QFETCH(QString, before);
        QFETCH(QString, steps);
        Window window;
        NumberEdit& field = window.field;
        connect(&field, &QLineEdit::editingFinished, &field, [&] {
            field.selectAll();
            field.deselect();
        });
        field.setFocus();
        setWithCursor(field, before);
        Qt::KeyboardModifiers modifiers;
        for (QChar step : steps) {
            if (step == '^') {
                modifiers = Qt::ControlModifier;
                continue;
            }
            if (step.toLower() == 'w')
                turnWheel(field, {0, step == 'W' ? 120 : -120}, modifiers);
            else
                QTest::keyClick(&field, step == 'u' ? Qt::Key_Up : Qt::Key_Down, modifiers);
            modifiers = {};
        }
        QTEST(withCursor(field), "after");
    }

    /// What the user did before typing a 7; "c" and "C" are a click and a double click behind the
    /// first digit, "l" and "h" the keys Left and Home, "<" Backspace, "u" Up, "r" Return.
    void typingReplacesUnlessTheCursorIsPlaced_data()
    {
        testColumns<QString, QString>("acts", "after");
        for (const char* acts : {"", "c", "u", "cu", "r", "5r", "5u", "lr"})
            testRow(QString("replaces after \"%1\"").arg(acts), acts, "7|");
        testRow("goes on", "5", "57|");
        testRow("double click", "C", "17|2");
        testRow("Left", "l", "17|2");
        testRow("Home", "h", "7|12");
        testRow("Left in what is typed", "5l", "7|5");
        testRow("Left, then stepped", "lu", "10 000 17|2");
        testRow("Backspace", "c<", "7|2");
    }

    void typingReplacesUnlessTheCursorIsPlaced()
    {
        QFETCH(QString, acts);
        Window window;
        NumberEdit& field = window.field;
        field.showAccepted("12");
        field.setFocus();
        const QMap<QChar, Qt::Key> keys = {{'l', Qt::Key_Left},
                                           {'h', Qt::Key_Home},
                                           {'<', Qt::Key_Backspace},
                                           {'u', Qt::Key_Up},
                                           {'r', Qt::Key_Return}};
        for (QChar act : acts) {
            if (act.toLower() == 'c')
                clickAt(field, 1, act == 'C');
            else if (keys.contains(act))
                QTest::keyClick(&field, keys[act]);
            else
                QTest::keyClicks(&field, QString(act));
        }
        QTest::keyClicks(&field, "7");
        QTEST(withCursor(field), "after");
    }

    /// Only the digit that the user has chosen is underlined, in the colour of selections.
    void theChosenDigitIsUnderlined()
    {
        Window window;
        NumberEdit& field = window.field;
        QPalette palette = field.palette();
        palette.setColor(QPalette::Highlight, Qt::magenta);
        field.setPalette(palette);
        field.showAccepted("1 234 567");
        field.setFocus();
        field.deselect();
        /// The digits that the line covers, by where a click would set the cursor.
        const auto underlined = [&field] {
            const QImage image = field.grab().toImage();
            QString digits;
            for (int y = 0; y < image.height() && digits.isEmpty(); ++y) {
                for (int x = 1; x < image.width(); ++x) {
                    const bool starts = image.pixelColor(x, y) == QColor(Qt::magenta) &&
                                        image.pixelColor(x - 1, y) != QColor(Qt::magenta);
                    if (starts)
                        digits += field.text().at(field.cursorPositionAt(QPoint(x, y)));
                }
            }
            return digits;
        };
        QCOMPARE(underlined(), QString());
        clickAt(field, 3);
        QCOMPARE(underlined(), QString("2"));
        QTest::keyClick(&field, Qt::Key_Right);
        QCOMPARE(underlined(), QString("3"));
        QTest::keyClick(&field, Qt::Key_Up, Qt::ControlModifier);
        QCOMPARE(field.text(), QString("1 244 567"));
        QCOMPARE(underlined(), QString("4"));
        window.other.setFocus();
        QCOMPARE(underlined(), QString());
        field.setFocus();
        QTest::keyClick(&field, Qt::Key_Up, Qt::ControlModifier);
        QCOMPARE(underlined(), QString("8"));
        QTest::keyClicks(&field, "9");
        QCOMPARE(underlined(), QString());
    }

    /// As when the window is closed in a pause of the commit.
    void commitMayDeleteTheField()
    {
        Window window;
        for (Qt::KeyboardModifier modifier : {Qt::NoModifier, Qt::ControlModifier}) {
            QPointer<QLineEdit> field =
                new NumberEdit(Quantity::Frequency, window.fields.context, &window, "5");
            connect(field, &QLineEdit::editingFinished, this, [field] { delete field; });
            field->show();
            field->setFocus();
            QTest::keyPress(field.data(), Qt::Key_Up, modifier);
            QVERIFY(!field);
        }
    }

    /// "<" and ">" stand for the keys Backspace and Delete, "|" for the cursor.
    void typing_data()
    {
        testColumns<FieldKind, QString, QString, QString>("kind", "before", "keys", "after");
        using K = FieldKind;
        const auto rows = [](const QString& before, K kind, const QStringList& pairs) {
            pairRows(before, pairs, kind, before);
        };
        rows("|", K::Frequency,
             {"2.5G=2 500 000 000|", "2kk7k=20 007 000|", "2k<k=200 000|", "1234.=1 234.|",
              "1.2.3G=1.2|", "2ю5п=2|", "-5=|", "2,5Г=2 500 000 000|", "7ь=7 000 000|"});
        rows("|25", K::Frequency, {"M>5k=5 000|", "M=|25"});
        rows("2|5", K::Frequency, {"k=2 000|"});
        rows("1 |234", K::Frequency, {"9=19| 234", "<=|234"});
        rows("12|3", K::Frequency, {"9=1 29|3"});
        rows("1| 234", K::Frequency, {">=1|34"});
        rows("|", K::PulsePeriod, {"5mm=5 000|"});
        rows("|", K::Dwell, {"2ы=2 000 000|"});
        rows("|", K::Power, {"-10.5=-10|", "1.5<25=25|", "5к=5|", "-123=-123|", "\u221210=|"});
        rows("- 123|", K::Power, {"x4=-1234|"});
    }

    void typing()
    {
        QFETCH(FieldKind, kind);
        QFETCH(QString, before);
        QFETCH(QString, keys);
        Window window;
        NumberEdit& field = window.field;
        field.setQuantity(quantityOf(kind));
        field.setFocus();
        // From now on what is typed no longer replaces the whole number.
        QTest::keyClick(&field, Qt::Key_End);
        setWithCursor(field, before);
        QSignalSpy edited(&field, &QLineEdit::textEdited);
        for (QChar key : keys) {
            if (key == '<' || key == '>')
                QTest::keyClick(&field, key == '<' ? Qt::Key_Backspace : Qt::Key_Delete);
            else
                QTest::sendKeyEvent(QTest::Click, &field, Qt::Key_unknown, QString(key),
                                    Qt::NoModifier);
            QVERIFY(edited.count() <= 1);
            edited.clear();
        }
        QTEST(withCursor(field), "after");
    }

    void leavingCommitsChangesOnly()
    {
        Window window;
        NumberEdit& field = window.field;
        field.showAccepted("10");
        QSignalSpy committed(&field, &QLineEdit::editingFinished);
        const auto commitsOnLeaving = [&] {
            field.clearFocus();
            field.setFocus();
            const int count = committed.count();
            committed.clear();
            return count;
        };
        QCOMPARE(commitsOnLeaving(), 0);
        QTest::keyClicks(&field, "5");
        QCOMPARE(commitsOnLeaving(), 1);
        field.showAccepted("7");
        QCOMPARE(commitsOnLeaving(), 0);
        field.setText("8");
        QCOMPARE(commitsOnLeaving(), 1);
        field.showAccepted("8");
        QTest::keyClick(&field, Qt::Key_Return);
        QCOMPARE(commitsOnLeaving(), 1);
        // The answer to what leaving commits fails.
        connect(&field, &QLineEdit::editingFinished, &field, [&] {
            field.acceptClamped();
            field.showAnswer(QString());
        });
        field.setText("9");
        QCOMPARE(commitsOnLeaving(), 1);
        QCOMPARE(field.text(), QString("9"));
    }

    void selection()
    {
        Window window;
        QLineEdit& field = window.plain;
        new selectLine(&field);
        field.setText("1 000 000 000");
        const QPoint start(2, field.height() / 2);

        QTest::mouseClick(&field, Qt::LeftButton, {}, start);
        QCOMPARE(field.selectedText(), field.text());
        QTest::mouseClick(&field, Qt::LeftButton, {}, start);
        QCOMPARE(field.selectedText(), QString());
        QCOMPARE(field.cursorPosition(), 0);

        window.other.setFocus();
        field.deselect();
        field.setFocus();
        QCOMPARE(field.selectedText(), field.text());

        // A selection dragged with the first click is the user's own.
        window.other.setFocus();
        field.deselect();
        QTest::mousePress(&field, Qt::LeftButton, {}, start);
        const QPoint end = start + QPoint(40, 0);
        QMouseEvent drag(QEvent::MouseMove, end, Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(&field, &drag);
        const QString dragged = field.selectedText();
        QTest::mouseRelease(&field, Qt::LeftButton, {}, end);
        QVERIFY(!dragged.isEmpty() && dragged != field.text());
        QCOMPARE(field.selectedText(), dragged);
    }
};

QTEST_MAIN(NumberEntryTest)
#include "number_entry_test.moc"
