#pragma once

#include "fields/keypad/keypad.h"
#include "tests/support/quantities.h"

#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

/// A window with two fields, a plain button and the keypad.
class KeypadRig : public QWidget
{
public:
    explicit KeypadRig(FieldKind kind = FieldKind::Frequency,
                       std::optional<StepKind> step = StepKind::Frequency)
    {
        resize(600, 200);
        field->setGeometry(20, 20, 200, 30);
        field->setAccessibleName("Value");
        other->setGeometry(20, 80, 200, 30);
        button->setGeometry(20, 140, 200, 30);
        setUpNumericField(field, quantityOf(kind, step));
        setUpNumericField(other, Quantity::Power);
        connect(button, &QPushButton::clicked, this, [this] { ++buttonClicks; });
        show();
        button->setFocus();
    }

    /// A key by the end of its object name, to be seen and pressed by the user only while shown.
    QPushButton* key(const QString& name)
    {
        return keypad->findChild<QPushButton*>("keypad_" + name);
    }

    void click(const QString& name) { QTest::mouseClick(key(name), Qt::LeftButton); }

    /// Clicks digits, points and signs.
    void clickKeys(const QString& characters)
    {
        for (QChar c : characters)
            click(c == '.' ? QString("point") : c == '-' ? QString("sign") : QString(c));
    }

    QLineEdit* entry() { return keypad->findChild<QLineEdit*>("keypad_entry"); }

    QLineEdit* field = new QLineEdit(this);
    QLineEdit* other = new QLineEdit(this);
    QPushButton* button = new QPushButton(this);
    Keypad* keypad = new Keypad(this);
    QSignalSpy committed{field, &QLineEdit::editingFinished};
    int buttonClicks = 0;
};
