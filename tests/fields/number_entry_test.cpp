#include "fields/select_line.h"
#include "tests/numbers/text_pairs.h"
#include "tests/support/fields.h"
#include "tests/support/quantities.h"
#include "tests/support/rows.h"

#include <QApplication>
#include <QLineEdit>
#include <QSignalSpy>
#include <QVBoxLayout>
#include <QWheelEvent>

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

/// What a field shows after keys; each changes it once at most.
QString typed(const QString& before, FieldKind kind, const QString& keys)
{
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
        if (edited.count() > 1)
            return "changed twice";
        edited.clear();
    }
    return withCursor(field);
}
} // namespace

class NumberEntryTest : public QObject
{
    Q_OBJECT

private slots:
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

    /// "u" and "d" are Up and Down, "w" and "W" the wheel turned down and up; a "^" before them
    /// stands for Ctrl.
    void stepsLeaveTheCursor()
    {
        const auto row =
            namedRows([](const QString& before, const QString& steps, const QString& after) {
                Window window;
                window.fields.limits[Quantity::Frequency] = {100, 2e10};
                NumberEdit& field = window.field;
                // As a commit does, which may leave the cursor anywhere.
                int commits = 0;
                connect(&field, &QLineEdit::editingFinished, &field, [&] {
                    ++commits;
                    field.clamp();
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
                QCOMPARE(withCursor(field), after);
                QCOMPARE(commits, before == "-|" ? 0 : QString(steps).remove('^').size());
            });
        row("plain", "1 0|00 000", "uW", "3 0|00 000");
        row("at the start", "|1 000 000", "u", "|2 000 000");
        row("beside a blank", "1 |000 000", "W", "2 |000 000");
        row("a digit more", "9 0|00 000", "u", "10 0|00 000");
        row("a digit less", "10 0|00 000", "w", "9 0|00 000");
        row("digit by the wheel", "1 0|00 000", "^W", "1 1|00 000");
        row("digit down by the wheel", "1 000 00|0", "^w^w", "999 98|0");
        row("digit, then step", "9 5|00 000", "^uud", "9 6|00 000");
        row("digit before a blank", "9| 500", "^u", "10| 500");
        // The place is still that of the ten thousands.
        row("digit vanishes", "1|0 500", "^d", "|500");
        row("digit comes back", "1|0 500", "^d^u", "1|0 500");
        row("bounded", "1|00", "^d", "1|00");
        row("no digit", "-|", "^u", "-|");
    }

    /// What the user did before typing a 7; "c" and "C" are a click and a double click behind the
    /// first digit, "l" and "h" the keys Left and Home, "<" Backspace, "u" Up, "r" Return.
    void typingReplacesUnlessTheCursorIsPlaced()
    {
        const auto row = namedRows([](const QString& acts, const QString& after) {
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
            QCOMPARE(withCursor(field), after);
        });
        for (const char* acts : {"", "c", "u", "cu", "r", "5r", "5u", "lr"})
            row(QString("replaces after \"%1\"").arg(acts), acts, "7|");
        row("goes on", "5", "57|");
        row("double click", "C", "17|2");
        row("Left", "l", "17|2");
        row("Home", "h", "7|12");
        row("Left in what is typed", "5l", "7|5");
        row("Left, then stepped", "lu", "10 000 17|2");
        row("Backspace", "c<", "7|2");
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
    void typing()
    {
        using K = FieldKind;
        const auto check = [](const QString& before, K kind, const QStringList& pairs) {
            checkPairs(pairs, [=](const QString& keys) { return typed(before, kind, keys); });
        };
        check("|", K::Frequency,
              {"2.5G=2 500 000 000|", "2kk7k=20 007 000|", "2k<k=200 000|", "1234.=1 234.|",
               "1.2.3G=1.2|", "2ю5п=2|", "-5=|", "2,5Г=2 500 000 000|", "7ь=7 000 000|"});
        check("|25", K::Frequency, {"M>5k=5 000|", "M=|25"});
        check("2|5", K::Frequency, {"k=2 000|"});
        check("1 |234", K::Frequency, {"9=19| 234", "<=|234"});
        check("12|3", K::Frequency, {"9=1 29|3"});
        check("1| 234", K::Frequency, {">=1|34"});
        check("|", K::PulsePeriod, {"5mm=5 000|"});
        check("|", K::Dwell, {"2ы=2 000 000|"});
        check("|", K::Power, {"-10.5=-10|", "1.5<25=25|", "5к=5|", "-123=-123|", "\u221210=|"});
        check("- 123|", K::Power, {"x4=-1234|"});
    }

    void leavingCommitsChangesOnly()
    {
        Window window;
        NumberEdit& field = window.field;
        field.showAccepted("10");
        // What is within the limits stays, and the cursor with it.
        field.setCursorPosition(1);
        field.clamp();
        QCOMPARE(field.cursorPosition(), 1);
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
