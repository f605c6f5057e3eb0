#include "app/field_line.h"

#include "fields/number_edit.h"
#include "fields/power_guard.h"
#include "fields/range_text.h"
#include "ui/named.h"

#include <QApplication>
#include <QEvent>
#include <QVariant>

namespace
{
constexpr int lineHeight = 20;
const QString separator = QStringLiteral("  ·  ");
} // namespace

FieldLine::FieldLine(const PowerGuard& guard, QWidget& display,
                     const std::function<StatusWords()>& isHeld, QWidget* parent)
    : ElidingLabel(parent), m_guard(guard), m_display(display), m_isHeld(isHeld)
{
    setObjectName(QStringLiteral("field_line"));
    setTextFormat(Qt::PlainText);
    setFixedHeight(lineHeight);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget*, QWidget* now) { follow(now); });
    connect(&m_guard, &PowerGuard::ceilingChanged, this, &FieldLine::refresh);
    m_display.installEventFilter(this);
    refresh();
}

/// The keypad, a menu or another window gives the focus back.
void FieldLine::follow(QWidget* focus)
{
    if (!focus)
        return;
    if (focus->window() == window())
        setField(qobject_cast<NumberEdit*>(focus));
    else
        refresh();
}

void FieldLine::setField(NumberEdit* field)
{
    if (field == m_field) {
        refresh();
        return;
    }
    if (m_field)
        m_field->disconnect(this);
    m_field = field;
    m_refusal = nullptr;
    if (field) {
        connect(field, &NumberEdit::refused, this, &FieldLine::showRefusal);
        const auto forget = [this] { showRefusal(nullptr); };
        connect(field, &QLineEdit::textEdited, this, forget);
        connect(field, &NumberEdit::accepted, this, forget);
        // Before the commit, which may be refused itself.
        connect(field, &QLineEdit::returnPressed, this, forget);
    }
    refresh();
}

void FieldLine::showRefusal(const StatusWords& reason)
{
    if (!reason && !m_refusal)
        return;
    m_refusal = reason;
    refresh();
}

QString FieldLine::fieldText() const
{
    QStringList parts = {rangeText(*m_field, &m_guard)};
    const QString step = stepSizeText(*m_field);
    if (!step.isEmpty())
        parts << tr("step %1").arg(step);
    parts << m_field->unitLettersHint();
    parts.removeAll(QString());
    return parts.join(separator);
}

void FieldLine::refresh()
{
    const bool isFieldShown = m_field && m_field->isEnabled();
    const StatusWords held = isFieldShown || m_display.isEnabled() ? nullptr : m_isHeld();
    const bool isRefused = isFieldShown && m_refusal;
    QString text;
    if (isRefused)
        text = m_refusal();
    else if (isFieldShown)
        text = fieldText();
    else if (held)
        text = held();
    setProperty("warning", isRefused);
    setText(text);
}

bool FieldLine::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::EnabledChange)
        refresh();
    return ElidingLabel::eventFilter(watched, event);
}

void FieldLine::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        refresh();
    ElidingLabel::changeEvent(event);
}
