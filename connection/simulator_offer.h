#pragma once

#include <QPushButton>

/// Offers the simulated instrument when no real one was found: a button beside the status line,
/// shown only then. A click requests it; nothing is changed here.
class SimulatorOffer : public QPushButton
{
    Q_OBJECT

public:
    explicit SimulatorOffer(QWidget* parent);

protected:
    void changeEvent(QEvent* event) override;

private:
    void retranslate();
};
