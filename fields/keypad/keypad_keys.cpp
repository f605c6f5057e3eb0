#include "fields/keypad/keypad_keys.h"

#include <QGridLayout>
#include <QPushButton>
#include <QVariant>

namespace
{
constexpr int spacing = 8;
constexpr int bottomRow = 3;
constexpr int editingColumn = 3;
constexpr int unitColumn = 4;

void describe(QPushButton* button, const QString& name, const QString& toolTip)
{
    button->setAccessibleName(name);
    button->setToolTip(toolTip);
}
} // namespace

KeypadKeys::KeypadKeys(QWidget* parent) : QWidget(parent), m_grid(new QGridLayout(this))
{
    m_grid->setContentsMargins(0, 0, 0, 0);
    m_grid->setSpacing(spacing);
    makeDigits();
    makeEditingKeys();
    makeUnitKeys();
    setCharacters(true, true);
    setSteppable(true);
}

QPushButton* KeypadKeys::makeButton(const QString& objectName, QWidget* parent)
{
    auto* button = new QPushButton(parent);
    button->setObjectName(objectName);
    button->setFocusPolicy(Qt::TabFocus);
    button->setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::Preferred);
    return button;
}

QPushButton* KeypadKeys::makeTypingKey(const QString& objectName, int key, const QString& text)
{
    QPushButton* button = makeButton(objectName, this);
    // The keyboard has these keys itself.
    button->setFocusPolicy(Qt::NoFocus);
    button->setText(text);
    connect(button, &QPushButton::clicked, this, [this, key, text] { emit typed(key, text); });
    return button;
}

void KeypadKeys::makeDigits()
{
    for (int digit = 0; digit <= 9; ++digit) {
        const QString text = QString::number(digit);
        QPushButton* key = makeTypingKey(QStringLiteral("keypad_") + text, Qt::Key_0 + digit, text);
        m_digits[static_cast<std::size_t>(digit)] = key;
        if (digit > 0)
            m_grid->addWidget(key, 2 - (digit - 1) / 3, (digit - 1) % 3);
    }
    m_point = makeTypingKey(QStringLiteral("keypad_point"), Qt::Key_Period, QStringLiteral("."));
    m_sign = makeButton(QStringLiteral("keypad_sign"), this);
    m_sign->setFocusPolicy(Qt::NoFocus);
    m_sign->setText(QStringLiteral("±"));
    connect(m_sign, &QPushButton::clicked, this, &KeypadKeys::signPressed);
}

void KeypadKeys::makeEditingKeys()
{
    m_backspace = makeButton(QStringLiteral("keypad_backspace"), this);
    m_backspace->setText(QStringLiteral("⌫"));
    connect(m_backspace, &QPushButton::clicked, this,
            [this] { emit typed(Qt::Key_Backspace, QString()); });
    m_clear = makeButton(QStringLiteral("keypad_clear"), this);
    m_clear->setText(QStringLiteral("C"));
    connect(m_clear, &QPushButton::clicked, this, &KeypadKeys::clearPressed);
    m_up = makeButton(QStringLiteral("keypad_up"), this);
    m_up->setText(QStringLiteral("▲"));
    connect(m_up, &QPushButton::clicked, this, [this] { emit stepPressed(1); });
    m_down = makeButton(QStringLiteral("keypad_down"), this);
    m_down->setText(QStringLiteral("▼"));
    connect(m_down, &QPushButton::clicked, this, [this] { emit stepPressed(-1); });

    m_grid->addWidget(m_up, 2, editingColumn);
    m_grid->addWidget(m_down, bottomRow, editingColumn);
    for (QPushButton* key : {m_backspace, m_clear}) {
        key->setFocusPolicy(Qt::NoFocus);
        key->setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::Expanding);
    }
    for (QPushButton* key : {m_backspace, m_up, m_down})
        key->setAutoRepeat(true);
}

void KeypadKeys::makeUnitKeys()
{
    auto* column = new QVBoxLayout;
    column->setSpacing(spacing);
    m_grid->addLayout(column, 0, unitColumn, bottomRow + 1, 1);
    for (std::size_t i = 0; i < m_unitKeys.size(); ++i) {
        m_unitKeys[i] = makeButton(QString(), this);
        m_unitKeys[i]->setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::Expanding);
        m_unitKeys[i]->setProperty("unitKey", true);
        column->addWidget(m_unitKeys[i]);
        connect(m_unitKeys[i], &QPushButton::clicked, this,
                [this, i] { emit unitPressed(m_units.at(i).powerOfTen); });
    }
}

/// The zero takes the place of a key that the number has no use for.
void KeypadKeys::setCharacters(bool hasSign, bool hasPoint)
{
    QPushButton* zero = m_digits[0];
    for (QPushButton* key : {m_sign, zero, m_point})
        m_grid->removeWidget(key);
    m_sign->setVisible(hasSign);
    m_point->setVisible(hasPoint);
    if (hasSign)
        m_grid->addWidget(m_sign, bottomRow, 0);
    if (hasPoint)
        m_grid->addWidget(m_point, bottomRow, 2);
    m_grid->addWidget(zero, bottomRow, hasSign ? 1 : 0, 1, 3 - int(hasSign) - int(hasPoint));
}

void KeypadKeys::setUnits(const std::vector<EntryUnit>& units)
{
    m_units = units;
    for (std::size_t i = 0; i < m_unitKeys.size(); ++i) {
        m_unitKeys[i]->setVisible(i < units.size());
        m_unitKeys[i]->setObjectName(i < units.size()
                                         ? QStringLiteral("keypad_unit_%1").arg(units[i].powerOfTen)
                                         : QString());
    }
    retranslate();
}

void KeypadKeys::enableUnits(bool hasNumber, std::optional<int> onlyPower)
{
    for (std::size_t i = 0; i < m_units.size(); ++i)
        m_unitKeys[i]->setEnabled(hasNumber && m_units[i].powerOfTen ==
                                                   onlyPower.value_or(m_units[i].powerOfTen));
}

/// Without arrows the editing keys have their room.
void KeypadKeys::setSteppable(bool isSteppable)
{
    m_up->setVisible(isSteppable);
    m_down->setVisible(isSteppable);
    m_grid->removeWidget(m_backspace);
    m_grid->removeWidget(m_clear);
    const int rows = isSteppable ? 1 : 2;
    m_grid->addWidget(m_backspace, 0, editingColumn, rows, 1);
    m_grid->addWidget(m_clear, rows, editingColumn, rows, 1);
}

void KeypadKeys::enableStepping(bool isEnabled)
{
    m_up->setEnabled(isEnabled);
    m_down->setEnabled(isEnabled);
}

void KeypadKeys::retranslate()
{
    for (std::size_t digit = 0; digit < m_digits.size(); ++digit) {
        const QString name = tr("Digit %1").arg(digit);
        describe(m_digits[digit], name, name);
    }
    describe(m_sign, tr("Sign"), tr("Change the sign (-)"));
    describe(m_point, tr("Decimal point"), tr("Decimal point (.)"));
    describe(m_backspace, tr("Backspace"), tr("Delete the last character (Backspace)"));
    describe(m_clear, tr("Clear"), tr("Clear the number"));
    describe(m_up, tr("One step up"), tr("Set the value one step higher at once"));
    describe(m_down, tr("One step down"), tr("Set the value one step lower at once"));
    for (std::size_t i = 0; i < m_units.size(); ++i) {
        const QString symbol = m_units[i].text();
        m_unitKeys[i]->setText(symbol);
        const QString action = tr("Enter the number in %1").arg(symbol);
        describe(m_unitKeys[i], action, action);
    }
}
