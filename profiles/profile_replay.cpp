#include "profiles/profile_replay.h"

#include "profiles/profile_store.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QPointer>
#include <QRegularExpression>
#include <QScopedValueRollback>

#include <utility>

namespace
{
/// A blank and the digit that says which kind of control the text belongs to.
constexpr int kindCodeLength = 2;

QString withoutKindCode(const QString& text)
{
    return text.left(text.size() - kindCodeLength);
}

/// Converted to the variable's type; invalid if the text is no such value.
QVariant valueOf(const QString& text, SharedVariable::Type type)
{
    bool isNumber = true;
    QVariant value = text;
    switch (type) {
    case SharedVariable::Type::Text:
        break;
    case SharedVariable::Type::Double:
        value = text.toDouble(&isNumber);
        break;
    case SharedVariable::Type::Int32:
        value = text.toInt(&isNumber);
        break;
    case SharedVariable::Type::Int64:
        value = text.toLongLong(&isNumber);
        break;
    }
    return isNumber ? value : QVariant();
}
} // namespace

ProfileReplay::ProfileReplay(const ProfileStore& store, Pause pause)
    : m_store(store), m_pause(std::move(pause))
{
}

bool ProfileReplay::run(const std::vector<ProfileEntry>& entries, bool isWaiting)
{
    const QScopedValueRollback<bool> running(m_isRunning, true);
    m_isStopped = false;
    m_isComplete = true;
    for (const ProfileEntry& entry : entries) {
        replay(entry, isWaiting);
        // Lets the user switch the RF output off before the rest.
        if (isWaiting && !m_isStopped && !m_pause(0))
            stop();
        if (m_isStopped)
            return false;
    }
    return m_isComplete;
}

void ProfileReplay::replay(const ProfileEntry& entry, bool isWaiting)
{
    static const QRegularExpression valuePattern(QStringLiteral("[0-9.-]+ [012]"));
    if (entry.isVariable) {
        setVariable(entry);
    } else if (!entry.panel) {
        return;
    } else if (entry.text == QLatin1String("ON") || entry.text == QLatin1String("OFF")) {
        setButton(entry, isWaiting);
    } else if (valuePattern.match(entry.text).hasMatch()) {
        if (entry.text.endsWith(QLatin1Char('0')))
            setField(entry);
        else if (entry.text.endsWith(QLatin1Char('1')))
            setBox(entry);
    }
}

void ProfileReplay::setVariable(const ProfileEntry& entry) const
{
    if (entry.text.size() < kindCodeLength)
        return;
    for (const SharedVariable& variable : m_store.variables()) {
        if (variable.name != entry.name)
            continue;
        const QVariant value = valueOf(withoutKindCode(entry.text), variable.type);
        if (value.isValid())
            variable.setValue(value);
        return;
    }
}

void ProfileReplay::setButton(const ProfileEntry& entry, bool isWaiting)
{
    auto* button = m_store.control<QAbstractButton>(*entry.panel, entry.name);
    if (!button || button->isChecked() == (entry.text == QLatin1String("ON")))
        return;
    button->click();
    const bool waits = isWaiting && !m_isStopped && m_store.waitsAfter(entry.name);
    if (waits && !m_pause(m_store.waitMs()))
        stop();
}

void ProfileReplay::setField(const ProfileEntry& entry) const
{
    auto* field = m_store.control<QLineEdit>(*entry.panel, entry.name);
    if (!field)
        return;
    field->setText(withoutKindCode(entry.text));
    emit field->editingFinished();
}

void ProfileReplay::setBox(const ProfileEntry& entry) const
{
    const QPointer<QComboBox> box = m_store.control<QComboBox>(*entry.panel, entry.name);
    if (!box)
        return;
    const QString text = withoutKindCode(entry.text);
    const int index = box->findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (index < 0) {
        box->clear();
        box->insertItem(0, text);
    } else {
        box->setCurrentIndex(index);
    }
    // Receivers may be connected to the signal's old name or to its new one.
    QMetaObject::invokeMethod(box, "activated", Q_ARG(QString, text));
    if (box)
        emit box->textActivated(text);
}
