#include "tests/support/fields.h"
#include "tests/support/quantities.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QTest>

#include <functional>

/// A field that steps takes no keys without it.
static void focus(QLineEdit& field)
{
    field.show();
    QApplication::setActiveWindow(&field);
    field.setFocus();
    QVERIFY(field.hasFocus());
}

class PastingTest : public QObject
{
    Q_OBJECT

private slots:
    void pasting()
    {
        using K = FieldKind;
        const auto check = [](K kind, const char* pasted, const char* shown, const char* said) {
            Fields fields;
            NumberEdit field(quantityOf(kind), fields.context, nullptr, "7");
            field.setAccessibleName("field");
            field.setMaxLength(16);
            focus(field);
            QApplication::clipboard()->setText(pasted);
            QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier);
            QCOMPARE(field.text(), QString(shown));
            QCOMPARE(fields.said.value(0), QString(said));
            QCOMPARE(field.isEdited(), fields.said.isEmpty());
        };
        check(K::Frequency, " 2.45 GHz\n", "2 450 000 000", "");
        check(K::Power, "-10.0 dBm", "-10", "");
        check(K::ExternalReference, "0.01 GHz", "10", "");
        check(K::Power, "-10.5 dBm", "7", "field: whole dBm");
        check(K::PointCount, "1.5", "7", "field: whole numbers only");
        check(K::Power, "5-3", "7", "field: \"5-3\" cannot be read");
        check(K::Frequency, "-1 MHz", "7", "field: \"-1 MHz\" cannot be read");
        check(K::Frequency, "123456789012345", "7", "field: \"123456789012345\" cannot be read");
    }

    /// "2 450 MHz" would be cut to its digits by each way that goes past the filter.
    void everyWayOfPasting()
    {
        Fields fields;
        NumberEdit field(Quantity::Frequency, fields.context);
        focus(field);
        const QString text = "2 450 MHz";
        QApplication::clipboard()->setText(text);
        const std::function<void()> ways[] = {
            [&] { QTest::keyClick(&field, Qt::Key_Insert, Qt::ShiftModifier); },
            [&] {
                QContextMenuEvent asked(QContextMenuEvent::Keyboard, {}, field.mapToGlobal({}));
                QApplication::sendEvent(&field, &asked);
                auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
                for (QAction* action : menu->actions()) {
                    if (action->text().startsWith("&Paste"))
                        action->trigger();
                }
                menu->close();
            },
            [&] {
                QMimeData dragged;
                dragged.setText(text);
                QDragEnterEvent enter({}, Qt::CopyAction | Qt::MoveAction, &dragged, Qt::LeftButton,
                                      {});
                QApplication::sendEvent(&field, &enter);
                QDropEvent drop({}, Qt::CopyAction | Qt::MoveAction, &dragged, Qt::LeftButton, {});
                QApplication::sendEvent(&field, &drop);
                QCOMPARE(drop.dropAction(), Qt::CopyAction);
            },
            [&] {
                QInputMethodEvent composed;
                composed.setCommitString(text);
                QApplication::sendEvent(&field, &composed);
            },
        };
        for (const auto& way : ways) {
            field.setText("1");
            way();
            QCOMPARE(field.text(), QString("2 450 000 000"));
        }
    }
};

QTEST_MAIN(PastingTest)
#include "pasting_test.moc"
