#pragma once

#include <QPushButton>

/// The button that runs a sweep or a list while it is checked. Its caption says what a press does
/// now, and it is as wide as the wider of its two captions.
class RunButton : public QPushButton
{
    Q_OBJECT

public:
    RunButton(const QString& objectName, QWidget* parent);

    /// In the current language: the full names of its two states, and a hint for both.
    void setTexts(const QString& runName, const QString& stopName, const QString& toolTip);

private:
    void showCaption();

    QString m_runName;
    QString m_stopName;
};
