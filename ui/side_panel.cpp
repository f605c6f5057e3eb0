#include "ui/side_panel.h"

#include <QEvent>
#include <QIcon>
#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>
#include <QVariant>

namespace
{
// With the output beside it the window fits a screen of 1366 pixels.
constexpr int panelWidth = 528;
constexpr int margin = 16;
constexpr int topMargin = 8;
constexpr int bottomMargin = 12;
constexpr int spacing = 8;
} // namespace

SidePanel::SidePanel(const QString& objectName, QWidget* parent)
    : QFrame(parent), m_title(new QLabel(this)), m_close(new QToolButton(this)),
      m_content(new QVBoxLayout)
{
    setObjectName(objectName);
    setProperty("sidePanel", true);
    setFixedWidth(panelWidth);

    m_title->setProperty("panelTitle", true);
    m_close->setIcon(QIcon(QStringLiteral(":/images/close.png")));
    m_close->setAutoRaise(true);
    // By keys, Escape and the panel's own key close it.
    m_close->setFocusPolicy(Qt::NoFocus);

    auto* header = new QHBoxLayout;
    header->addWidget(m_title, 1);
    header->addWidget(m_close);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(margin, topMargin, margin, bottomMargin);
    column->setSpacing(spacing);
    column->addLayout(header);
    column->addLayout(m_content);
    column->addStretch(1);
    m_content->setSpacing(spacing);

    connect(m_close, &QToolButton::clicked, this, &SidePanel::hide_);
    SidePanel::retranslate();
}

void SidePanel::growContent()
{
    auto* column = static_cast<QVBoxLayout*>(layout());
    // The last item is the stretch that keeps the controls at the top.
    delete column->takeAt(column->count() - 1);
    column->setStretchFactor(m_content, 1);
}

void SidePanel::setTitle(const QString& title)
{
    m_title->setText(title);
    setAccessibleName(title);
}

void SidePanel::retranslate()
{
    m_close->setToolTip(tr("Close panel"));
    m_close->setAccessibleName(tr("Close panel"));
}

void SidePanel::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QFrame::changeEvent(event);
}
