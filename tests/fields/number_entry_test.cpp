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

void turnWheel(QWidget& widget, const QPoint& angle)
{
    const QPoint at = widget.rect().center();
    QWheelEvent event(at, widget.mapToGlobal(at), QPoint(), angle, Qt::NoButton, Qt::NoModifier,
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
