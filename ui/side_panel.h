#pragma once

#include <QFrame>

class QLabel;
class QToolButton;
class QVBoxLayout;

/// The base of every side panel: a title, a close button and room for its controls. It neither
/// moves nor hides itself; it requests to be closed.
class SidePanel : public QFrame
{
    Q_OBJECT

public:
    explicit SidePanel(const QString& objectName, QWidget* parent = nullptr);

    void setTitle(const QString& title);

signals:
    /// The panel requests to be closed.
    void hide_();

protected:
    /// Where a panel puts its controls, below the title.
    QVBoxLayout* content() const { return m_content; }
    /// Gives the controls the whole height of the panel; otherwise they stay at its top.
    void growContent();
    QLabel* title() const { return m_title; }
    void changeEvent(QEvent* event) override;
    /// Sets the texts of the panel's own controls, at first and after a change of language.
    virtual void retranslate();

private:
    QLabel* m_title;
    QToolButton* m_close;
    QVBoxLayout* m_content;
};
