#include "cw/cw_controls.h"

#include "fields/number_edit.h"
#include "fields/power_guard.h"
#include "link/cw_formats.h"
#include "link/notices.h"
#include "link/scpi_session.h"
#include "numbers/number_text.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QSignalBlocker>

namespace
{
// In characters, blanks and unit letters included.
constexpr int longestFrequency = 24;
constexpr int longestPower = 8;
constexpr int longestReference = 5;

/// Of the lamp of the external reference; the style sheet shows it.
constexpr char unlockedProperty[] = "unlocked";

const QString outputOnCommand = QStringLiteral("OUTPut ON");
const QString outputOffCommand = QStringLiteral("OUTPut OFF");
const QString externalSourceCommand = QStringLiteral("ROSCillator:SOURce EXTernal");
const QString internalSourceCommand = QStringLiteral("ROSCillator:SOURce INTernal");
const QString externalFrequencyCommand = QStringLiteral("ROSC:EXT:FREQ %1 MHZ");
const QString externalFrequencyQuery = QStringLiteral("ROSC:EXT:FREQ?");

/// The focus moved to another control, not to a menu or another window from which it comes back.
bool isGoneForGood(const QEvent& focusOut)
{
    const Qt::FocusReason reason = static_cast<const QFocusEvent&>(focusOut).reason();
    return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason;
}

/// A text that is not a number is replaced by the last accepted value, which has not been sent to
/// the instrument: the field stays marked.
bool hasNumberToPush(NumberEdit& field)
{
    if (field.takeNumber())
        return true;
    field.setEdited(true);
    return false;
}
} // namespace

CwControls::CwControls(ScpiSession& session, const FieldContext& context, PowerGuard& guard,
                       const Widgets& widgets, QObject* parent)
    : QObject(parent), m_session(session), m_notices(context.notices), m_guard(guard), m_ui(widgets)
{
    setUpFields(context);
    holdCeiling();
    connect(&m_guard, &PowerGuard::ceilingChanged, this, &CwControls::holdCeiling);
    connect(&m_ui.reference, &QAbstractButton::toggled, this, &CwControls::animateSwitchRoscButton);
    animateSwitchRoscButton(isRoscExt());
    connect(&m_session, &ScpiSession::referenceUnlockSeen, this, &CwControls::showUnlockRosc);
    connect(&m_session, &ScpiSession::referenceUnlockGone, this, &CwControls::hideUnlockRosc);
}

void CwControls::setUpFields(const FieldContext& context)
{
    m_ui.frequency.setUp(Quantity::Frequency, context);
    m_ui.power.setUp(Quantity::Power, context);
    m_ui.referenceEntry.setUp(Quantity::ExternalReference, context);
    m_ui.frequency.setMaxLength(longestFrequency);
    m_ui.power.setMaxLength(longestPower);
    m_ui.referenceEntry.setMaxLength(longestReference);
    m_ui.referenceEntry.installEventFilter(this);
    connect(&m_ui.frequency, &QLineEdit::editingFinished, this,
            &CwControls::on_FREQ_editingFinished);
    connect(&m_ui.power, &QLineEdit::editingFinished, this, &CwControls::on_POW_editingFinished);
    connect(&m_ui.referenceEntry, &QLineEdit::editingFinished, this,
            &CwControls::RoscFreq_editingFinished);
    connect(&m_ui.referenceEntry, &QLineEdit::textEdited, this, &CwControls::slotSetTextButtonRosc);
}

void CwControls::on_FREQ_editingFinished()
{
    NumberEdit& field = m_ui.frequency;
    if (!field.takeNumber())
        return;
    field.clamp();
    // An accepted text is shown with nothing selected.
    field.end(false);
    field.showAccepted(field.text());
    if (!m_session.isConnected())
        return;
    field.showAnswer(m_session.setAndReadBack(frequencyFormat, field.value()));
    m_session.checkErrors();
}

void CwControls::on_POW_editingFinished()
{
    NumberEdit& field = m_ui.power;
    if (!field.takeNumber())
        return;
    m_guard.bound(field);
    const QString wanted = field.text();
    const double wantedDbm = field.value();
    const double fromDbm =
        m_guard.riseStart(field.acceptedValue(), wantedDbm, field.isBeingStepped());
    const auto raise = [this, wanted] {
        m_ui.power.setText(wanted);
        sendPower();
    };
    // Until it is answered, the field shows the level at the output: before it is asked, since the
    // question takes the focus, and a field that is left with another text commits it.
    if (m_guard.wouldAsk(fromDbm, wantedDbm))
        field.showAccepted(field.acceptedText());
    if (!m_guard.ask(fromDbm, wantedDbm, raise))
        sendPower();
}

void CwControls::pushPower()
{
    NumberEdit& field = m_ui.power;
    if (!hasNumberToPush(field))
        return;
    m_guard.bound(field);
    if (m_guard.wouldAsk(field.acceptedValue(), field.value()))
        field.showAccepted(m_guard.bounded(field.acceptedText()));
    sendPower();
}

/// A level above the limit is lowered at once, and is not raised again when the limit rises. In a
/// run it is the level that the instrument returns to.
void CwControls::holdCeiling()
{
    NumberEdit& field = m_ui.power;
    const QString accepted = field.acceptedText();
    const QString bounded = m_guard.bounded(accepted);
    if (bounded == accepted)
        return;
    field.showAccepted(bounded);
    if (field.isEnabled())
        sendPower();
}

void CwControls::sendPower()
{
    NumberEdit& field = m_ui.power;
    field.showAccepted(field.text());
    if (!m_session.isConnected())
        return;
    field.showAnswer(m_session.setAndReadBack(powerFormat, field.value()));
    m_session.checkErrors();
}

void CwControls::pushFrequency()
{
    if (hasNumberToPush(m_ui.frequency))
        on_FREQ_editingFinished();
}

void CwControls::on_Output_clicked()
{
    leaveUnreadable(m_ui.frequency);
    leaveUnreadable(m_ui.power);
    if (m_session.isConnected())
        pushOutput();
    else if (m_ui.output.isChecked())
        m_notices.sayOfInstrument(
            [] { return tr("No instrument is connected: RF will be switched on when one is"); });
    else
        m_notices.sayOfInstrument(
            [] { return tr("No instrument is connected: nothing was switched off"); });
}

/// Leaves a field that holds no number: a key, or a click that does not take the focus, does not.
/// While RF is being switched off, typing continues.
void CwControls::leaveUnreadable(NumberEdit& field)
{
    const bool isOn = m_ui.output.isChecked();
    if (field.hasNumber() || field.acceptedText().isEmpty() || (field.hasFocus() && !isOn))
        return;
    if (field.hasFocus())
        m_ui.output.setFocus();
    field.takeNumber();
}

void CwControls::pushOutput()
{
    if (!m_session.isConnected())
        return;
    if (m_ui.output.isChecked())
        m_session.writeChecked(outputOnCommand);
    else
        m_session.switchOffChecked(outputOffCommand);
    emit outputSent();
}

void CwControls::animateSwitchRoscButton(bool isExternal)
{
    m_ui.externalIndicator.setEnabled(isExternal);
}

bool CwControls::isRoscExt() const
{
    return m_ui.reference.isChecked();
}

void CwControls::on_ROSC_clicked()
{
    closeReferenceEntry();
    if (isRoscExt())
        captionReference(m_externalReferenceMHz);
    pushReferenceSource();
    pushExternalReference();
}

void CwControls::pushReferenceSource()
{
    if (m_session.isConnected())
        m_session.writeChecked(isRoscExt() ? externalSourceCommand : internalSourceCommand);
}

void CwControls::pushExternalReference()
{
    if (isRoscExt())
        sendExternalReference();
}

void CwControls::sendExternalReference()
{
    const QString captioned = captionedReferenceMHz();
    if (readsAsNumber(captioned)) {
        const Range& range = m_ui.referenceEntry.range();
        qint64 frequencyMHz = toWholeNumber(captioned);
        if (range.isKnown())
            frequencyMHz = qMax(qMin(frequencyMHz, qint64(range.max)), qint64(range.min));
        if (m_session.isConnected()) {
            m_session.write(externalFrequencyCommand.arg(frequencyMHz));
            const QString reply = m_session.read(externalFrequencyQuery);
            if (!m_session.lastFailed())
                m_externalReferenceMHz = replyHasNumber(reply, FieldKind::ExternalReference)
                                             ? displayText(reply, FieldKind::ExternalReference)
                                             : QString::number(frequencyMHz);
            m_session.checkErrors();
        } else {
            m_externalReferenceMHz = QString::number(frequencyMHz);
        }
    }
    if (m_ui.referenceEntry.isHidden() && isRoscExt())
        captionReference(m_externalReferenceMHz);
}

void CwControls::setExternalReferenceMHz(const QString& frequencyMHz)
{
    m_externalReferenceMHz = frequencyMHz;
    captionReference(frequencyMHz);
}

void CwControls::openReferenceEntry()
{
    if (m_ui.referenceEntry.isVisible()) {
        cancelReferenceEntry();
        return;
    }
    m_ui.referenceEntry.showAccepted(m_externalReferenceMHz);
    m_ui.referenceEntry.show();
    m_ui.referenceEntry.setFocus();
    m_ui.referenceEntry.selectAll();
}

void CwControls::closeReferenceEntry()
{
    // Losing the focus by being hidden would commit the entry a second time.
    const QSignalBlocker silent(m_ui.referenceEntry);
    const bool hadFocus = m_ui.referenceEntry.hasFocus();
    m_ui.referenceEntry.hide();
    if (hadFocus)
        m_ui.reference.setFocus();
}

void CwControls::forgetInstrument()
{
    closeReferenceEntry();
    hideUnlockRosc();
}

void CwControls::cancelReferenceEntry()
{
    closeReferenceEntry();
    captionReference(m_externalReferenceMHz);
}

/// The entry closes on Escape, and when it is left unchanged.
bool CwControls::eventFilter(QObject* watched, QEvent* event)
{
    const bool isEscape = event->type() == QEvent::KeyPress &&
                          static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
    const bool isLeft = event->type() == QEvent::FocusOut && isGoneForGood(*event) &&
                        m_ui.referenceEntry.isVisible() &&
                        m_ui.referenceEntry.text() == m_ui.referenceEntry.acceptedText();
    if (!isEscape && !isLeft)
        return QObject::eventFilter(watched, event);
    cancelReferenceEntry();
    return true;
}

void CwControls::slotSetTextButtonRosc(const QString& typedMHz)
{
    captionReference(typedMHz);
}

void CwControls::RoscFreq_editingFinished()
{
    const QString typedMHz = withoutBlanks(m_ui.referenceEntry.text());
    closeReferenceEntry();
    if (typedMHz.isEmpty()) {
        captionReference(m_externalReferenceMHz);
        return;
    }
    captionReference(typedMHz);
    sendExternalReference();
    if (!m_session.isConnected())
        captionReference(m_externalReferenceMHz);
}

void CwControls::captionReference(const QString& frequencyMHz)
{
    m_ui.reference.setText(frequencyMHz.isEmpty() ? QString() : frequencyMHz + tr(" MHz"));
}

/// The frequency on the reference button, without its unit.
QString CwControls::captionedReferenceMHz() const
{
    QString caption = m_ui.reference.text();
    const QString unit = tr(" MHz");
    if (caption.endsWith(unit))
        caption.chop(unit.size());
    return withoutBlanks(caption);
}

void CwControls::retranslate()
{
    for (NumberEdit* field : {&m_ui.frequency, &m_ui.power, &m_ui.referenceEntry})
        field->describe();
    // Blank while not locked, and the user's own while being typed.
    if (!m_ui.reference.text().isEmpty() && m_ui.referenceEntry.isHidden())
        captionReference(m_externalReferenceMHz);
}

void CwControls::showUnlockRosc()
{
    m_ui.reference.setText(QString());
    m_ui.externalIndicator.setProperty(unlockedProperty, isRoscExt());
    if (isRoscExt())
        m_notices.sayOfInstrument([] { return tr("The external reference is not locked"); });
    else
        m_ui.unlockIndicator.show();
}

void CwControls::hideUnlockRosc()
{
    m_ui.unlockIndicator.hide();
    m_ui.externalIndicator.setProperty(unlockedProperty, false);
    captionReference(m_externalReferenceMHz);
}
