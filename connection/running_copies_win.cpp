#include "connection/running_copies.h"

#include <windows.h>

/// Nothing to hold: the window's own title, set by its owner, is the claim.
struct RunningCopies::Claim {
};

RunningCopies::RunningCopies() = default;
RunningCopies::~RunningCopies() = default;

bool RunningCopies::isTitleTaken(const QString& title) const
{
    return FindWindowW(nullptr, reinterpret_cast<const wchar_t*>(title.utf16())) != nullptr;
}

bool RunningCopies::claim(const QString& title)
{
    return !isTitleTaken(title);
}

void RunningCopies::release() {}
