#pragma once

#include <QPushButton>

#include <array>

/// A checkable button drawn as a switch of two parts, the left one lit while it is unchecked, the
/// right one while it is checked: both what is chosen and what a click will choose are read on it.
/// Its text is that of the lit part.
class TwoPartButton : public QPushButton
{
    Q_OBJECT

public:
    explicit TwoPartButton(const QString& objectName, QWidget* parent = nullptr);

    /// In the current language: what it is set to while unchecked, and while checked.
    void setTexts(const QString& unchecked, const QString& checked);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void showText() { setText(m_texts[isChecked() ? 1 : 0]); }

    std::array<QString, 2> m_texts;
};
