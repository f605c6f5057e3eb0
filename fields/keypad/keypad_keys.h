#pragma once

#include "numbers/entry_units.h"

#include <QWidget>

#include <array>
#include <optional>

class QGridLayout;
class QPushButton;

/// The keys of the keypad: digits, sign, point, editing, step arrows and units. Reports what was
/// pressed and knows neither the number nor the field.
class KeypadKeys : public QWidget
{
    Q_OBJECT

public:
    static constexpr int mostUnits = 4;

    explicit KeypadKeys(QWidget* parent);

    /// A push button of the keypad: large enough for a finger, and a click does not take the focus
    /// from the entry line.
    static QPushButton* makeButton(const QString& objectName, QWidget* parent);

    void setCharacters(bool hasSign, bool hasPoint);
    void setUnits(const std::vector<EntryUnit>& units);
    /// Unit keys finish a number; while `onlyPower` is given, only the unit of that power may.
    void enableUnits(bool hasNumber, std::optional<int> onlyPower);
    void setSteppable(bool isSteppable);
    void enableStepping(bool isEnabled);

    void retranslate();

signals:
    /// A key that types: the Qt::Key and its text.
    void typed(int key, const QString& text);
    void signPressed();
    void clearPressed();
    void stepPressed(int direction);
    void unitPressed(int powerOfTen);

private:
    QPushButton* makeTypingKey(const QString& objectName, int key, const QString& text);
    void makeDigits();
    void makeEditingKeys();
    void makeUnitKeys();

    QGridLayout* m_grid;
    std::array<QPushButton*, 10> m_digits{};
    QPushButton* m_sign;
    QPushButton* m_point;
    QPushButton* m_backspace;
    QPushButton* m_clear;
    QPushButton* m_up;
    QPushButton* m_down;
    std::array<QPushButton*, mostUnits> m_unitKeys{};
    std::vector<EntryUnit> m_units;
};
