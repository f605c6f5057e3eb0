#include "modulation/fold_box.h"

#include "ui/eliding_label.h"

#include <QBoxLayout>
#include <QEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QToolButton>
#include <QVariant>

namespace
{
constexpr int foldMs = 240;
constexpr int margin = 8;

/// Shows as much of the top of its only child as it is tall.
class Clip : public QWidget
{
public:
    using QWidget::QWidget;

    void setContent(QWidget* content) { m_content = content; }

protected:
    void resizeEvent(QResizeEvent*) override
    {
        m_content->setGeometry(0, 0, width(), m_content->sizeHint().height());
    }

private:
    QWidget* m_content = nullptr;
};
} // namespace

FoldBox::FoldBox(const QString& objectName, const QString& titleName, QWidget* parent)
    : QGroupBox(parent), m_fold(new QToolButton(this)), m_title(new QLabel(this)),
      m_headerArea(new QWidget(this)), m_header(new QHBoxLayout(m_headerArea))
{
    setObjectName(objectName);
    setProperty("section", true);
    m_title->setObjectName(titleName);
    m_title->setProperty("sectionTitle", true);
    m_fold->setObjectName(QStringLiteral("fold_") + objectName);
    m_fold->setAutoRaise(true);
    connect(m_fold, &QToolButton::clicked, this, &FoldBox::headerClicked);

    auto* clip = new Clip(this);
    m_clip = clip;
    m_body = new QWidget(clip);
    clip->setContent(m_body);
    clip->setFixedHeight(0);
    m_body->hide();

    m_header->setContentsMargins(margin / 2, margin / 2, margin / 2, margin / 2);
    m_header->setSpacing(margin);
    m_header->addWidget(m_fold);
    m_header->addWidget(m_title);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_headerArea);
    column->addWidget(m_clip);

    m_move.setDuration(foldMs);
    m_move.setEasingCurve(QEasingCurve::OutCubic);
    connect(&m_move, &QVariantAnimation::valueChanged, this,
            [this](const QVariant& height) { m_clip->setFixedHeight(height.toInt()); });
    connect(&m_move, &QVariantAnimation::finished, this, &FoldBox::finishMove);
    showFoldState();
}

void FoldBox::setHeading(const QString& heading)
{
    m_title->setText(heading);
    setAccessibleName(heading);
    showFoldState();
}

QLabel* FoldBox::addSummary()
{
    auto* summary = new ElidingLabel(this);
    summary->setProperty("sectionSummary", true);
    summary->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    summary->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_header->addWidget(summary, 1);
    return summary;
}

void FoldBox::setLit(bool isLit)
{
    setProperty("lit", isLit);
}

int FoldBox::clipHeight() const
{
    return m_isExpanded ? m_body->sizeHint().height() : 0;
}

int FoldBox::heightWhen(bool isExpanded) const
{
    const QMargins frame = contentsMargins();
    return frame.top() + m_headerArea->sizeHint().height() +
           (isExpanded ? m_body->sizeHint().height() : 0) + frame.bottom();
}

bool FoldBox::isMoving() const
{
    return m_move.state() == QAbstractAnimation::Running;
}

void FoldBox::setExpanded(bool isExpanded, bool isAnimated)
{
    if (m_isExpanded == isExpanded && (isAnimated || !isMoving()))
        return;
    m_isExpanded = isExpanded;
    showFoldState();
    m_move.stop();
    m_body->show();
    m_move.setStartValue(m_clip->height());
    m_move.setEndValue(clipHeight());
    if (isAnimated && isVisible())
        m_move.start();
    else
        finishMove();
}

void FoldBox::finishMove()
{
    m_clip->setFixedHeight(clipHeight());
    m_body->setVisible(m_isExpanded);
    emit settled();
}

void FoldBox::showFoldState()
{
    m_fold->setArrowType(m_isExpanded ? Qt::DownArrow : Qt::RightArrow);
    m_fold->setToolTip(m_isExpanded ? tr("Fold the settings away") : tr("Show the settings"));
    m_fold->setAccessibleName(m_title->text());
    m_fold->setAccessibleDescription(m_fold->toolTip());
}

void FoldBox::mousePressEvent(QMouseEvent* event)
{
    event->setAccepted(event->button() == Qt::LeftButton &&
                       m_headerArea->geometry().contains(event->pos()));
}

void FoldBox::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && m_headerArea->geometry().contains(event->pos()))
        emit headerClicked();
}

void FoldBox::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        showFoldState();
    else if (event->type() == QEvent::FontChange && m_isExpanded && !isMoving())
        m_clip->setFixedHeight(clipHeight());
    QGroupBox::changeEvent(event);
}
