#pragma once

#include <QPushButton>

#include <functional>

/// Offers something beside the status line: a button that is shown only while it makes sense.
class StatusOffer : public QPushButton
{
    Q_OBJECT

public:
    using Words = std::function<QString()>;

    StatusOffer(const char* name, const Words& caption, const Words& toolTip, QWidget* parent);

protected:
    void changeEvent(QEvent* event) override;

private:
    void retranslate();

    Words m_caption;
    Words m_toolTip;
};
