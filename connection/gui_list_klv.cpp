#include "connection/gui_list_klv.h"

#include "ui/describe.h"
#include "ui/dialog_header.h"
#include "ui/instrument_text.h"
#include "ui/named.h"
#include "ui/window_chrome.h"

#include <QCloseEvent>
#include <QFrame>
#include <QGridLayout>
#include <QIcon>
#include <QKeyEvent>
#include <QPixmap>
#include <QPushButton>
#include <QScreen>
#include <QToolButton>

namespace
{
constexpr int gapToWindow = 16;
constexpr int mostHeight = 480;
constexpr int contentMargin = 16;
constexpr int headerHeight = 48;
constexpr int border = 1;
constexpr int contentSpacing = 8;

constexpr char nameProperty[] = "instrumentName";

/// Otherwise an ampersand in a caption would be an access key.
QString captionOf(const QString& name)
{
    QStringList lines = name.split(QLatin1Char('\n'));
    for (QString& line : lines)
        line = instrumentText(line).replace(QLatin1Char('&'), QLatin1String("&&"));
    return lines.join(QLatin1Char('\n'));
}
} // namespace

GuiListKLV::GuiListKLV()
{
    setWindowFlags(Qt::Window | Qt::MSWindowsFixedSizeDialogHint | Qt::WindowMinimizeButtonHint |
                   Qt::WindowStaysOnTopHint | Qt::WindowCloseButtonHint);
    setWindowModality(Qt::ApplicationModal);
    setWindowIcon(QIcon(QStringLiteral(":/images/logotip.png")));
    setObjectName(QStringLiteral("GuiListKLV"));
    new WindowChrome(this);
    build();
    retranslate();
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    reset();
}

/// The surface lies below the viewport, and the header above its top margin.
void GuiListKLV::build()
{
    m_surface = named("dialog_surface", new QFrame(this));
    m_surface->lower();
    m_header = new DialogHeader(this);
    m_close = named("close_chooser", new QToolButton(this));
    m_close->setIcon(QIcon(QStringLiteral(":/images/close.png")));
    m_close->setAutoRaise(true);
    m_header->add(m_close);
    connect(m_close, &QToolButton::clicked, this, &QWidget::close);
    setFrameShape(QFrame::NoFrame);
    viewport()->setAutoFillBackground(false);
    setViewportMargins(border, headerHeight, border, border);
    m_content = new QWidget;
    m_grid = new QGridLayout(m_content);
    m_grid->setContentsMargins(contentMargin, 0, contentMargin, contentMargin);
    m_grid->setSpacing(contentSpacing);
    setWidget(m_content);
    m_content->setAutoFillBackground(false);
}

void GuiListKLV::reset()
{
    if (m_neighbour)
        move(m_neighbour->frameGeometry().topRight() + QPoint(gapToWindow, 0));
    setMaximumHeight(mostHeight);
    // Not deleted at once: a new search may start from within a click on one of the old buttons.
    for (QPushButton* button : qAsConst(m_buttons)) {
        button->hide();
        m_grid->removeWidget(button);
        button->deleteLater();
    }
    m_buttons.clear();
    if (auto* placeholder = findChild<QWidget*>(QStringLiteral("pasteProbel")))
        placeholder->close();
    m_hasChosen = false;
}

void GuiListKLV::createButton(const QString& objectName, const QString& name)
{
    const QPixmap picture(QStringLiteral(":/images/device.png"));
    auto* button = new QPushButton(picture, captionOf(name), m_content);
    button->setProperty(nameProperty, name);
    button->setCheckable(false);
    button->setAutoDefault(false);
    button->setIconSize(picture.size() / picture.devicePixelRatio());
    button->setObjectName(objectName);
    button->setAccessibleName(instrumentText(name));
    button->setToolTip(instrumentText(objectName));
    connect(button, &QPushButton::clicked, this, &GuiListKLV::slotSendAddress);
    connect(button, &QPushButton::clicked, this, &GuiListKLV::close);
    m_grid->addWidget(button, m_buttons.size() / m_columns, m_buttons.size() % m_columns);
    m_buttons << button;
}

void GuiListKLV::chooseOnly()
{
    if (!m_buttons.isEmpty())
        m_buttons.first()->click();
}

void GuiListKLV::slotSendAddress()
{
    const auto* button = qobject_cast<QPushButton*>(sender());
    if (!button)
        return;
    m_hasChosen = true;
    m_chosenName = button->property(nameProperty).toString();
    emit sendAddress(button->objectName());
}

void GuiListKLV::retranslate()
{
    setWindowTitle(tr("All Device"));
    setAccessibleName(windowTitle());
    m_header->setTitle(windowTitle());
    describe(m_close, tr("Close"), tr("Choose none (Esc)"));
}

void GuiListKLV::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QScrollArea::changeEvent(event);
}

void GuiListKLV::closeEvent(QCloseEvent* event)
{
    const bool isGivenUp = isVisible() && !m_hasChosen;
    QScrollArea::closeEvent(event);
    if (isGivenUp)
        emit dismissed();
}

void GuiListKLV::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QScrollArea::keyPressEvent(event);
}

void GuiListKLV::resizeEvent(QResizeEvent* event)
{
    QScrollArea::resizeEvent(event);
    m_surface->setGeometry(rect());
    m_header->setGeometry(contentMargin, 0, width() - 2 * contentMargin, headerHeight);
}

// There may be no room on the screen beside the window, and nothing else can be used while it is
// open.
void GuiListKLV::showEvent(QShowEvent* event)
{
    QScrollArea::showEvent(event);
    m_content->ensurePolished();
    const int leastWidth = m_header->sizeHint().width() + 2 * contentMargin;
    const QSize whole = m_content->sizeHint().expandedTo({leastWidth, 0}) + QSize(0, headerHeight) +
                        2 * QSize(border, border);
    resize(whole.boundedTo({screen()->availableGeometry().width(), mostHeight}));
    if (!m_buttons.isEmpty())
        m_buttons.first()->setFocus();
    const QRect room = screen()->availableGeometry();
    setHorizontalScrollBarPolicy(m_content->sizeHint().width() > room.width()
                                     ? Qt::ScrollBarAsNeeded
                                     : Qt::ScrollBarAlwaysOff);
    const int rightmost = qMax(room.left(), room.right() - frameGeometry().width());
    const int lowest = qMax(room.top(), room.bottom() - frameGeometry().height());
    move(qBound(room.left(), x(), rightmost), qBound(room.top(), y(), lowest));
}
