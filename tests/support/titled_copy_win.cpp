#include "tests/support/titled_copy.h"

#include <windows.h>

struct TitledCopy::Window {
    HWND handle = nullptr;
};

const bool TitledCopy::areToldByWindows = true;

TitledCopy::TitledCopy(const QString& title) : m_window(new Window)
{
    m_window->handle =
        CreateWindowW(L"STATIC", reinterpret_cast<const wchar_t*>(title.utf16()),
                      WS_OVERLAPPEDWINDOW, 0, 0, 100, 100, nullptr, nullptr, nullptr, nullptr);
    if (!m_window->handle)
        qFatal("no window");
}

TitledCopy::~TitledCopy()
{
    DestroyWindow(m_window->handle);
}
