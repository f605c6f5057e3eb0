#include "fields/select_line.h"
#include "fields/step_entry.h"
#include "tests/support/fields.h"
#include "tests/support/quantities.h"
#include "tests/support/rows.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <QValidator>
#include <QWheelEvent>

Q_DECLARE_METATYPE(FieldKind)
Q_DECLARE_METATYPE(StepKind)

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
        isActive = QTest::qWaitForWindowActive(this);
    }

    Fields fields;
    QLineEdit plain; ///< nothing more than a line edit
    NumberEdit field{Quantity::Frequency, fields.context};
    QLineEdit other;
    bool isActive = false;
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
    void validators_data();
    void validators();
    void clamping();
    void stepsFocusedField();
    void unfocusedFieldIsLeftAlone();
    void silentStepsAnnounceNothing();
    void digitStepKeepsItsPlace();
    void commitMayDeleteTheField();
    void emptyStepEntryPastes();
    void typing_data();
    void typing();
    void editedMark();
    void leavingCommitsChangesOnly();
    void selection();
};

void NumberEntryTest::validators_data()
{
    testColumns<FieldKind, QString, QString>("kind", "admitted", "refused");
    const struct {
        FieldKind kind;
        const char* admitted;
        const char* refused;
    } rows[] = {
        {FieldKind::Frequency, "0 9kmgKMG,.", "-es"}, {FieldKind::Power, "09-", " .,k"},
        {FieldKind::Dwell, "0 9msMS.,", "-kg"},       {FieldKind::LfAmplitude, "09mM,.", " -k"},
        {FieldKind::AmDepth, "09,.", " -m"},          {FieldKind::PmDeviation, "09,.", " -m"},
        {FieldKind::PointCount, "0 9", ".,-k"},       {FieldKind::Duty, "09", " .,-k"},
    };
    for (const auto& row : rows)
        testRow(row.admitted, row.kind, QString(row.admitted), QString(row.refused));
}

void NumberEntryTest::validators()
{
    QFETCH(FieldKind, kind);
    QFETCH(QString, admitted);
    QFETCH(QString, refused);
    Fields fields;
    const NumberEdit field(quantityOf(kind), fields.context);
    const auto isAdmitted = [&](QString text) {
        int position = 0;
        return field.validator()->validate(text, position) == QValidator::Acceptable;
    };
    QVERIFY(isAdmitted(admitted));
    for (const QChar c : refused)
        QVERIFY(!isAdmitted(c));
}

void NumberEntryTest::clamping()
{
    Fields fields;
    fields.limits[Quantity::Frequency] = {9e3, 2e10};
    NumberEdit field(Quantity::Frequency, fields.context, nullptr, "25G");
    field.clamp();
    QCOMPARE(field.text(), QString("20 000 000 000"));
    field.setCursorPosition(3);
    field.clamp();
    QCOMPARE(field.cursorPosition(), 3);
    field.clear();
    field.clamp();
    QCOMPARE(field.text(), QString());
}

void NumberEntryTest::stepsFocusedField()
{
    Window window;
    QVERIFY(window.isActive);
    QSignalSpy committed(&window.field, &QLineEdit::editingFinished);
    window.field.setText("1 000 000 000");
    window.field.setFocus();

    turnWheel(window.field, {0, 120});
    QCOMPARE(window.field.text(), QString("1 001 000 000"));
    turnWheel(window.field, {0, -120});
    turnWheel(window.field, {0, -120});
    QCOMPARE(window.field.text(), QString("999 000 000"));
    turnWheel(window.field, {0, 0});
    QCOMPARE(committed.count(), 3);
    QTest::keyClick(&window.field, Qt::Key_Up);
    QTest::keyClick(&window.field, Qt::Key_Down);
    QCOMPARE(window.field.text(), QString("999 000 000"));
    QCOMPARE(committed.count(), 5);
    window.fields.steps.setStep(StepKind::Frequency, 5);
    QTest::keyClick(&window.field, Qt::Key_Up);
    QCOMPARE(window.field.text(), QString("999 000 005"));
    QCOMPARE(window.wheelEvents, 0);
}

void NumberEntryTest::unfocusedFieldIsLeftAlone()
{
    Window window;
    QVERIFY(window.isActive);
    turnWheel(window.plain, {0, 120});
    QCOMPARE(window.wheelEvents, 1);

    window.field.setText("100");
    QSignalSpy committed(&window.field, &QLineEdit::editingFinished);
    QVERIFY(!window.field.hasFocus());
    turnWheel(window.field, {0, 120});
    QTest::keyClick(&window.field, Qt::Key_Up);
    QTest::keyClicks(&window.field, "7");
    QCOMPARE(window.field.text(), QString("100"));
    QCOMPARE(committed.count(), 0);
    QCOMPARE(window.wheelEvents, 1);
}

void NumberEntryTest::silentStepsAnnounceNothing()
{
    Window window;
    QVERIFY(window.isActive);
    window.field.setQuantity(Quantity::Power);
    window.field.setStepFlags({true, false});
    QSignalSpy committed(&window.field, &QLineEdit::editingFinished);
    window.field.setText("1");
    window.field.setFocus();
    QTest::keyClick(&window.field, Qt::Key_Down);
    QTest::keyClick(&window.field, Qt::Key_Down);
    QCOMPARE(window.field.text(), QString("0"));
    QTest::keyClick(&window.field, Qt::Key_Up, Qt::ControlModifier);
    QCOMPARE(window.field.text(), QString("1"));
    QCOMPARE(committed.count(), 0);
}

void NumberEntryTest::digitStepKeepsItsPlace()
{
    Window window;
    QVERIFY(window.isActive);
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

    setWithCursor(field, "9| 500");
    QTest::keyClick(&field, Qt::Key_Up, Qt::ControlModifier);
    QCOMPARE(withCursor(field), QString("10| 500"));
    QTest::keyClick(&field, Qt::Key_Down, Qt::ControlModifier);
    QCOMPARE(withCursor(field), QString("9| 500"));
    QCOMPARE(committed, QStringList({"10 500", "9 500"}));

    // The digit vanishes and comes back: the place is still the thousands.
    setWithCursor(field, "1| 500");
    QTest::keyClick(&field, Qt::Key_Down, Qt::ControlModifier);
    QCOMPARE(withCursor(field), QString("|500"));
    QTest::keyClick(&field, Qt::Key_Up, Qt::ControlModifier);
    QCOMPARE(withCursor(field), QString("1| 500"));

    // Bounded by the commit.
    setWithCursor(field, "1|00");
    QTest::keyClick(&field, Qt::Key_Down, Qt::ControlModifier);
    QCOMPARE(withCursor(field), QString("1|00"));

    field.setText("-");
    committed.clear();
    QTest::keyClick(&field, Qt::Key_Up, Qt::ControlModifier);
    QCOMPARE(field.text(), QString("-"));
    QVERIFY(committed.isEmpty());
}

/// As when the window is closed in a pause of the commit.
void NumberEntryTest::commitMayDeleteTheField()
{
    Window window;
    QVERIFY(window.isActive);
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

void NumberEntryTest::emptyStepEntryPastes()
{
    QApplication::clipboard()->setText("250");
    Fields fields;
    NumberEdit line(Quantity::Frequency, fields.context, nullptr, " ");
    QVERIFY(!acceptStepEntry(line));
    QCOMPARE(line.text(), QString("250"));
    QCOMPARE(fields.steps.step(StepKind::Frequency), defaultStep(StepKind::Frequency));
}

/// "<" and ">" stand for the keys Backspace and Delete, "|" for the cursor.
void NumberEntryTest::typing_data()
{
    testColumns<FieldKind, QString, QString, QString>("kind", "before", "keys", "after");

    using K = FieldKind;
    const struct {
        const char* name;
        FieldKind kind;
        const char* before;
        const char* keys;
        const char* after;
    } rows[] = {
        {"unit", K::Frequency, "|", "2.5G", "2 500 000 000|"},
        {"unit, digit, unit", K::Frequency, "|", "2kk7k", "20 007 000|"},
        {"unit, deleted, unit", K::Frequency, "|", "2k<k", "200 000|"},
        {"milliseconds twice", K::PulsePeriod, "|", "5mm", "5 000|"},
        {"misplaced unit, unit", K::Frequency, "|25", "M>5k", "5 000|"},
        {"unit without number", K::Frequency, "|25", "M", "|25"},
        {"unit in the middle", K::Frequency, "2|5", "k", "2 000|"},
        {"behind a blank", K::Frequency, "1 |234", "9", "19| 234"},
        {"group grows", K::Frequency, "12|3", "9", "1 29|3"},
        {"backspace over a blank", K::Frequency, "1 |234", "<", "|234"},
        {"delete over a blank", K::Frequency, "1| 234", ">", "1|34"},
        {"unfinished", K::Frequency, "|", "1234.", "1 234.|"},
        {"second point", K::Frequency, "|", "1.2.3G", "1.2|"},
        {"point on its Russian key", K::Frequency, "|", "2ю5п", "2|"},
        {"no minus there", K::Frequency, "|", "-5", "|"},
        {"another minus", K::Power, "|", "\u221210", "|"},
        {"point in whole dB", K::Power, "|", "-10.5", "-10|"},
        {"point, something else, digit", K::Power, "|", "1.5<25", "25|"},
        {"Russian words", K::Frequency, "|", "2,5Г", "2 500 000 000|"},
        {"Russian keys", K::Frequency, "|", "7ь", "7 000 000|"},
        {"Russian seconds", K::Dwell, "|", "2ы", "2 000 000|"},
        {"no unit there", K::Power, "|", "5к", "5|"},
        {"minus", K::Power, "|", "-123", "-123|"},
        {"stepped power", K::Power, "- 123|", "x4", "-1234|"},
    };
    for (const auto& row : rows)
        testRow(row.name, row.kind, QString(row.before), QString(row.keys), QString(row.after));
}

void NumberEntryTest::typing()
{
    QFETCH(FieldKind, kind);
    QFETCH(QString, before);
    QFETCH(QString, keys);
    Window window;
    QVERIFY(window.isActive);
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

void NumberEntryTest::editedMark()
{
    Window window;
    QVERIFY(window.isActive);
    NumberEdit& field = window.field;
    field.setFocus();
    field.setText("5");
    QVERIFY(!field.property("edited").toBool());
    QTest::keyClicks(&field, "0k");
    QCOMPARE(field.property("edited"), QVariant(true));
    QSignalSpy edited(&field, &QLineEdit::textEdited);
    QSignalSpy committed(&field, &QLineEdit::editingFinished);
    field.showAccepted("40 000");
    QCOMPARE(field.text(), QString("40 000"));
    QCOMPARE(field.property("edited"), QVariant(false));
    QCOMPARE(edited.count() + committed.count(), 0);
}

void NumberEntryTest::leavingCommitsChangesOnly()
{
    Window window;
    QVERIFY(window.isActive);
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

void NumberEntryTest::selection()
{
    Window window;
    QVERIFY(window.isActive);
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
    QMouseEvent drag(QEvent::MouseMove, start + QPoint(40, 0), Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(&field, &drag);
    const QString dragged = field.selectedText();
    QTest::mouseRelease(&field, Qt::LeftButton, {}, start + QPoint(40, 0));
    QVERIFY(!dragged.isEmpty() && dragged != field.text());
    QCOMPARE(field.selectedText(), dragged);
}

QTEST_MAIN(NumberEntryTest)
#include "number_entry_test.moc"
