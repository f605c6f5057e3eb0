#include "fields/paste_filter.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>

namespace
{
/// Qt's names of the actions in the line edit's own menu.
constexpr char pasteText[] = "&Paste";

bool pastesSelection(const QMouseEvent& event)
{
    return event.button() == Qt::MiddleButton && QApplication::clipboard()->supportsSelection();
}
} // namespace

PasteFilter::PasteFilter(QLineEdit* field, Taker taker) : m_field(field), m_taker(std::move(taker))
{
    field->installEventFilter(this);
}

void PasteFilter::paste()
{
    take(QApplication::clipboard()->text());
}

bool PasteFilter::take(const QString& text)
{
    if (!m_field->isReadOnly() && !text.isEmpty())
        m_taker(text);
    return true;
}

bool PasteFilter::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
        if (!static_cast<QKeyEvent*>(event)->matches(QKeySequence::Paste))
            break;
        paste();
        return true;
    case QEvent::MouseButtonRelease:
        if (!pastesSelection(*static_cast<QMouseEvent*>(event)))
            break;
        return take(QApplication::clipboard()->text(QClipboard::Selection));
    case QEvent::ContextMenu:
        showMenu(*static_cast<QContextMenuEvent*>(event));
        return true;
    case QEvent::Drop: {
        auto* drop = static_cast<QDropEvent*>(event);
        // Moving digits within a number would make another one.
        if (drop->source() != m_field)
            take(drop->mimeData()->text());
        // The source keeps its text.
        drop->setDropAction(Qt::CopyAction);
        drop->accept();
        return true;
    }
    case QEvent::InputMethod: {
        const QString composed = static_cast<QInputMethodEvent*>(event)->commitString();
        if (composed.isEmpty())
            break;
        QInputMethodEvent nothing;
        QCoreApplication::sendEvent(m_field, &nothing);
        if (composed.size() > 1)
            return take(composed);
        QKeyEvent key(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, composed);
        QCoreApplication::sendEvent(m_field, &key);
        return true;
    }
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

/// The line edit's own menu, whose action would paste past this filter.
void PasteFilter::showMenu(const QContextMenuEvent& event)
{
    QMenu* menu = m_field->createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (QAction* action : menu->actions()) {
        if (!action->text().startsWith(QLineEdit::tr(pasteText)))
            continue;
        action->disconnect(m_field);
        connect(action, &QAction::triggered, this, &PasteFilter::paste);
    }
    menu->popup(event.globalPos());
}
