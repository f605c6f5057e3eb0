#pragma once

#include <QString>

#include <memory>

/// Another running copy of the program that holds the instrument of this window title.
class TitledCopy
{
public:
    explicit TitledCopy(const QString& title);
    ~TitledCopy();

    /// Copies are detected by windows on the screen, which the offscreen platform does not create.
    static const bool areToldByWindows;

private:
    struct Window;

    std::unique_ptr<Window> m_window;
};
