#pragma once

#include <QKeySequence>
#include <QPixmap>
#include <QPushButton>
#include <QVariantAnimation>

class QShortcut;

/// A button that keeps its shortcuts when its caption changes and which, when checkable, has a
/// caption for each state and fades from one look to the other on a click. Its only state is
/// QAbstractButton's checked one, and it decides nothing about it.
class StateButton : public QPushButton
{
    Q_OBJECT
    Q_PROPERTY(QString textOff READ textOff WRITE setTextOff)
    Q_PROPERTY(QString textOn READ textOn WRITE setTextOn)
    Q_PROPERTY(QKeySequence keys READ keys WRITE setKeys)

public:
    explicit StateButton(QWidget* parent = nullptr);

    /// Captions of the two states; while both are empty the caption is the owner's.
    QString textOff() const { return m_textOff; }
    QString textOn() const { return m_textOn; }
    void setTextOff(const QString& text);
    void setTextOn(const QString& text);

    /// Keys that click the button; setting a text takes away QAbstractButton's own shortcut.
    QKeySequence keys() const;
    void setKeys(const QKeySequence& keys);

protected:
    void nextCheckState() override;
    void paintEvent(QPaintEvent* event) override;

private:
    void showCaption();

    QString m_textOff;
    QString m_textOn;
    QShortcut* m_shortcut;
    QPixmap m_lookBefore;
    QVariantAnimation m_fade;
};
