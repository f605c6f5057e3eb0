#include "ui/dialog_header.h"

#include "ui/named.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>

namespace
{
constexpr int spacing = 8;
constexpr int logoSize = 24;
} // namespace

DialogHeader::DialogHeader(QWidget* parent)
    : QWidget(parent), m_title(named("dialog_title", new QLabel(this))),
      m_row(new QHBoxLayout(this))
{
    auto* logo = new QLabel(this);
    logo->setPixmap(QIcon(QStringLiteral(":/images/logotip.png")).pixmap(logoSize));
    m_row->setContentsMargins(0, 0, 0, 0);
    m_row->setSpacing(spacing);
    m_row->addWidget(logo);
    m_row->addWidget(m_title, 1);
}

void DialogHeader::setTitle(const QString& title)
{
    m_title->setText(title);
}

void DialogHeader::add(QWidget* control)
{
    m_row->addWidget(control);
}
