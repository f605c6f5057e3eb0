#pragma once

#include "fields/keypad/keypad.h"
#include "tests/support/fields.h"
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
        other->setGeometry(20, 80, 200, 30);
        button->setGeometry(20, 140, 200, 30);
        field->setUp(quantityOf(kind, step), fields.context);
        field->setAccessibleName("Value");
        other->setUp(Quantity::Power, fields.context);
        connect(button, &QPushButton::clicked, this, [this] { ++buttonClicks; });
        show();
        button->setFocus();
    }

    /// Opens the keypad for the field with this text.
    void open(const QString& text)
    {
        field->setText(text);
        keypad->openFor(field);
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
    QString typed() { return entry()->text(); }
    double step() { return fields.steps.step(*stepKind(field->quantity())); }

    Fields fields;
    NumberEdit* field = new NumberEdit(this);
    NumberEdit* other = new NumberEdit(this);
    QPushButton* button = new QPushButton(this);
    Keypad* keypad = new Keypad(fields.context, this);
    QSignalSpy committed{field, &QLineEdit::editingFinished};
    int buttonClicks = 0;
};
