#include "profiles/panel/quick_profile_row.h"

#include "profiles/profile_folder.h"
#include "ui/describe.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QKeyEvent>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>
#include <QVariant>

namespace
{
constexpr int spacing = 8;
constexpr int keyWidth = 64;
constexpr int toolSide = 32;
/// Frame and padding of the button, in addition to its text.
constexpr int aroundText = 32;

QToolButton* newTool(const QString& objectName, const QString& image, QWidget* parent)
{
    auto* tool = new QToolButton(parent);
    tool->setObjectName(objectName);
    tool->setIcon(QIcon(image));
    tool->setAutoRaise(true);
    tool->setFixedSize(toolSide, toolSide);
    return tool;
}
} // namespace

QKeySequence quickProfileKey(int number)
{
    return number <= quickProfileKeys ? QKeySequence(int(Qt::CTRL) + int(Qt::Key_0) + number)
                                      : QKeySequence();
}

QuickProfileRow::QuickProfileRow(int number, const QString& name, QWidget* parent)
    : QWidget(parent), m_number(number), m_name(name), m_apply(new QPushButton(this)),
      m_entry(new QLineEdit(this)), m_differs(new QLabel(this)), m_key(new QPushButton(this)),
      m_rename(newTool(QStringLiteral("rename_%1").arg(number), QStringLiteral(":/images/edit.png"),
                       this)),
      m_delete(newTool(QStringLiteral("delete_%1").arg(number),
                       QStringLiteral(":/images/trash.png"), this))
{
    build();
    connect(m_apply, &QAbstractButton::clicked, this, &QuickProfileRow::applyWanted);
    connect(m_key, &QAbstractButton::clicked, this, [this] { emit numberWanted(m_key); });
    connect(m_rename, &QAbstractButton::clicked, this, &QuickProfileRow::openEntry);
    connect(m_delete, &QAbstractButton::clicked, this, &QuickProfileRow::deleteWanted);
    connect(m_entry, &QLineEdit::returnPressed, this,
            [this] { emit renameWanted(m_entry->text()); });
    m_entry->installEventFilter(this);
    retranslate();
}

void QuickProfileRow::build()
{
    m_apply->setObjectName(QStringLiteral("quick_%1").arg(m_number));
    m_apply->setProperty("quickProfile", true);
    m_entry->setObjectName(QStringLiteral("name_%1").arg(m_number));
    m_entry->setMaxLength(nameLengthLimit);
    m_entry->hide();
    m_differs->setObjectName(QStringLiteral("differs_%1").arg(m_number));
    m_differs->setProperty("differs", true);
    m_differs->hide();
    m_key->setObjectName(QStringLiteral("number_%1").arg(m_number));
    m_key->setProperty("valueUnit", true);
    m_key->setAutoDefault(false);
    m_key->setFixedWidth(keyWidth);
    // The name is cut to the room there is.
    for (QWidget* wide : {static_cast<QWidget*>(m_apply), static_cast<QWidget*>(m_entry)})
        wide->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(spacing);
    row->addWidget(m_apply, 1);
    row->addWidget(m_entry, 1);
    row->addWidget(m_differs);
    row->addWidget(m_key);
    row->addWidget(m_rename);
    row->addWidget(m_delete);
}

void QuickProfileRow::retranslate()
{
    const QString key = quickProfileKey(m_number).toString(QKeySequence::NativeText);
    m_key->setText(key.isEmpty() ? QString::number(m_number) : key);
    describe(m_key, tr("Number of %1").arg(m_name),
             tr("Give %1 another number; Ctrl and a number from 1 to 9 apply it").arg(m_name));
    m_differs->setText(tr("differs"));
    m_differs->setToolTip(tr("Settings were changed since this profile was applied or saved"));
    const QString applyTip = tr("Apply %1").arg(m_name);
    describe(m_apply, m_name,
             key.isEmpty() ? applyTip : QStringLiteral("%1 (%2)").arg(applyTip, key));
    describe(m_entry, tr("New name of %1").arg(m_name), tr("Return renames, Esc leaves it"));
    describe(m_rename, tr("Rename %1").arg(m_name), tr("Rename %1").arg(m_name));
    describe(m_delete, tr("Delete %1").arg(m_name), tr("Delete %1").arg(m_name));
    showName();
}

void QuickProfileRow::showRecalled(bool isRecalled, bool differs)
{
    m_apply->setProperty("lit", isRecalled);
    m_differs->setVisible(isRecalled && differs);
    fitName();
    m_apply->setAccessibleDescription(!isRecalled ? QString()
                                      : differs   ? m_differs->toolTip()
                                                  : tr("The settings are those of this profile"));
}

void QuickProfileRow::showName()
{
    const QString shown =
        m_apply->fontMetrics().elidedText(m_name, Qt::ElideRight, m_apply->width() - aroundText);
    m_apply->setText(QString(shown).replace(QLatin1Char('&'), QStringLiteral("&&")));
}

void QuickProfileRow::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    fitName();
}

void QuickProfileRow::fitName()
{
    layout()->activate();
    showName();
}

void QuickProfileRow::openEntry()
{
    m_entry->setText(m_name);
    m_apply->hide();
    m_entry->show();
    m_entry->selectAll();
    m_entry->setFocus();
}

void QuickProfileRow::closeEntry()
{
    m_entry->hide();
    m_apply->show();
}

bool QuickProfileRow::eventFilter(QObject* watched, QEvent* event)
{
    const bool isEscape = event->type() == QEvent::KeyPress &&
                          static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
    // Another window, with a question about the name, does not end its entry.
    const bool isLeft = event->type() == QEvent::FocusOut &&
                        static_cast<QFocusEvent*>(event)->reason() != Qt::ActiveWindowFocusReason &&
                        static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason;
    if (isEscape || isLeft)
        closeEntry();
    if (isEscape)
        m_apply->setFocus();
    return isEscape || QWidget::eventFilter(watched, event);
}
