#pragma once

#include <QGroupBox>
#include <QVariantAnimation>

class QHBoxLayout;
class QLabel;
class QToolButton;

/// A group box of one header line and a body that folds away. A click on the header requests it;
/// whether it folds is the owner's decision.
class FoldBox : public QGroupBox
{
    Q_OBJECT

public:
    /// `titleName` is the object name of the title label.
    FoldBox(const QString& objectName, const QString& titleName, QWidget* parent);

    /// To the right of the title.
    QHBoxLayout* header() const { return m_header; }
    QWidget* body() const { return m_body; }
    void setHeading(const QString& heading);
    /// A label between the title and what the owner adds to the header, for a line in few words.
    QLabel* addSummary();
    /// Marks the box as one whose function is switched on.
    void setLit(bool isLit);

    bool isExpanded() const { return m_isExpanded; }
    /// Animated only while the box is on the screen. A folded body takes no focus.
    void setExpanded(bool isExpanded, bool isAnimated = true);
    bool isMoving() const;

    /// How tall the box is once it is expanded or folded, whatever it is now.
    int heightWhen(bool isExpanded) const;

signals:
    void headerClicked();
    /// The animation is over.
    void settled();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    int clipHeight() const;
    void finishMove();
    void showFoldState();

    QToolButton* m_fold;
    QLabel* m_title;
    QWidget* m_headerArea;
    QHBoxLayout* m_header;
    QWidget* m_clip;
    QWidget* m_body;
    QVariantAnimation m_move;
    bool m_isExpanded = false;
};
