#include "app/status_line.h"

#include "connection/connection.h"
#include "link/pause.h"

#include <QLabel>
#include <QVariant>

namespace
{
constexpr int messageMs = 6000;
/// A text shown for less is not noticed.
constexpr int seenMs = 20;
/// The outermost and the innermost activity: more would not be read.
constexpr int mostActivities = 2;
const QString separator = QStringLiteral("  ·  ");
} // namespace

StatusLine::StatusLine(QLabel& label, const Notices& notices, QObject* parent)
    : QObject(parent), m_label(label)
{
    for (QTimer* timer : {&m_messageTimer, &m_faultTimer}) {
        timer->setSingleShot(true);
        timer->setInterval(static_cast<int>(messageMs * pauses().messageShare));
    }
    connect(&m_messageTimer, &QTimer::timeout, this, &StatusLine::forgetNotice);
    connect(&notices, &Notices::said, this, &StatusLine::showNotice);
    connect(&notices, &Notices::takenBack, this, [this](int number) {
        if (m_notice && m_notice->number == number)
            forgetNotice();
    });
    connect(&m_faultTimer, &QTimer::timeout, this, &StatusLine::refresh);
    m_sincePainted.start();
    connect(&Activities::global(), &Activities::changed, this, [this](bool blocks) {
        const QString before = m_label.text();
        refresh();
        // What follows may block the event loop, which would otherwise paint.
        if (m_label.text() != before && (blocks || m_sincePainted.hasExpired(seenMs))) {
            m_label.repaint();
            m_sincePainted.start();
        }
    });
}

void StatusLine::follow(const Connection& connection)
{
    connect(&connection, &Connection::failed, this, &StatusLine::showFailure);
    connect(&connection, &Connection::lost, this, &StatusLine::showLoss);
    connect(&connection, &Connection::attemptStarted, this, &StatusLine::forgetFailure);
    connect(&connection, &Connection::attemptStarted, this, &StatusLine::forgetInstrument);
    connect(&connection, &Connection::ready, this, &StatusLine::forgetFault);
    connect(&connection, &Connection::disconnected, this, &StatusLine::forgetInstrument);
}

void StatusLine::showNotice(const Notice& notice)
{
    const bool isBeside =
        notice.about == Notice::About::InstrumentToo && isOfInstrument() && !noticeText().isEmpty();
    const Notice before = m_notice.value_or(notice);
    m_notice = notice;
    if (isBeside) {
        m_notice->words = [before, words = notice.words] {
            return before.words() + separator + words();
        };
        m_notice->isDone = before.isDone && notice.isDone;
    }
    m_messageTimer.stop();
    refresh();
}

void StatusLine::forgetNotice()
{
    m_notice.reset();
    m_messageTimer.stop();
    refresh();
}

bool StatusLine::isOfInstrument() const
{
    return m_notice && m_notice->about != Notice::About::Program;
}

void StatusLine::forgetInstrument()
{
    if (isOfInstrument())
        forgetNotice();
}

void StatusLine::showFailure(const StatusWords& reason)
{
    showFault(reason, false);
}

void StatusLine::showLoss(const StatusWords& reason)
{
    showFault(reason, true);
}

void StatusLine::showFault(const StatusWords& reason, bool isLoss)
{
    m_fault = reason;
    m_isLoss = isLoss;
    m_faultTimer.start();
    refresh();
}

void StatusLine::forgetFailure()
{
    if (!m_isLoss)
        forgetFault();
}

void StatusLine::forgetFault()
{
    m_fault = nullptr;
    m_faultTimer.stop();
    refresh();
}

QString StatusLine::activityText() const
{
    QStringList texts = Activities::global().texts();
    while (texts.size() > mostActivities)
        texts.removeAt(1);
    if (!texts.isEmpty() && m_isLoss)
        texts << faultText();
    texts.removeAll(QString());
    return texts.join(separator);
}

void StatusLine::refresh()
{
    const QString activity = activityText();
    const QString notice = noticeText();
    const bool isMessage = activity.isEmpty() && !notice.isEmpty() && !m_faultTimer.isActive();
    // Its full time starts when it is first shown.
    if (!isMessage)
        m_messageTimer.stop();
    else if (!m_messageTimer.isActive())
        m_messageTimer.start();
    const QString text = isMessage ? notice : activity.isEmpty() ? faultText() : activity;
    const bool isDone = isMessage && m_notice->isDone;
    m_label.setProperty("warning", activity.isEmpty() && !text.isEmpty() && !isDone);
    m_label.setProperty("lit", isDone);
    m_label.setText(text);
}
