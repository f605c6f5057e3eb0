#include "tests/support/titled_copy.h"

#include "connection/running_copies.h"

struct TitledCopy::Window {
    RunningCopies copies;
};

const bool TitledCopy::areToldByWindows = false;

TitledCopy::TitledCopy(const QString& title) : m_window(new Window)
{
    if (!m_window->copies.claim(title))
        qFatal("the title is taken");
}

TitledCopy::~TitledCopy() = default;
