#pragma once

#include "numbers/entry_units.h"
#include "numbers/quantity.h"

#include <QFrame>
#include <QPointer>

class KeypadKeys;
class NumberEdit;
class PowerGuard;
class QLabel;
class QPushButton;
class QToolButton;
struct FieldContext;

/// The on-screen keypad: types a number or a step size for one numeric field at a time. A popup
/// beside the field; it owns its entry line and no field, bounds nothing and sends nothing. What is
/// entered is typed into the field and committed there once, as by Return. A press elsewhere,
/// Escape, or the field going away close it without a change.
class Keypad : public QFrame
{
    Q_OBJECT

public:
    Keypad(const FieldContext& context, QWidget* window);

    /// Opens for a field, or switches to it when already open. Ignores a read-only or disabled
    /// field.
    void openFor(NumberEdit* field);

    /// The guard that knows the user's highest power; outlives the keypad's use.
    void setPowerGuard(const PowerGuard& guard) { m_guard = &guard; }

    /// The field it is open for; none while it is closed.
    NumberEdit* field() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void build();
    void wire();

    void watch(NumberEdit* field);
    void release();
    void place();
    /// Switches to the value of the field, or to the step of its quantity.
    void showPage(bool isStepPage);
    void setUpEntry();
    void showPresent();
    void updateKeys();
    void retranslate();
    FieldKind kind() const;
    /// The current step of the quantity; none where it does not step.
    std::optional<double> step() const;
    std::vector<EntryUnit> units() const;
    /// The power of ten of the kind's own unit that a number without a unit counts in.
    int plainPower() const;
    /// The number in the entry line; empty while it is not a finished one.
    QString enteredNumber() const;

    void type(int key, const QString& text);
    void changeSign();
    void stepField(int direction);
    void enterIn(int power);
    void acceptStep(int power);
    void commit(const QString& text);

    QPointer<NumberEdit> m_field;
    const PowerGuard* m_guard = nullptr;
    bool m_isStepPage = false;
    bool m_isTyped = false; ///< the entry line holds the user's number, not the current one

    QLabel* m_title;
    QToolButton* m_close;
    NumberEdit* m_entry;
    QLabel* m_unit;
    QLabel* m_limits;
    KeypadKeys* m_keys;
    QPushButton* m_stepButton;
    QPushButton* m_enter;
};
