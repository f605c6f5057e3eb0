#pragma once

#include <QString>

#include <memory>

/// Knows which instruments the running copies of the program hold, by the window title of a
/// connected copy. Holds at most one title itself, and only during its lifetime.
class RunningCopies
{
public:
    RunningCopies();
    ~RunningCopies();

    /// Whether a copy, this one included, holds exactly this title.
    bool isTitleTaken(const QString& title) const;

    /// Takes the title in place of the one held so far. False, and nothing changed, when another
    /// copy holds it. Where copies cannot be distinguished (no writable folder) every title is
    /// free.
    bool claim(const QString& title);

    /// Releases the title held, if any.
    void release();

private:
    struct Claim;
    std::unique_ptr<Claim> m_claim;
};
