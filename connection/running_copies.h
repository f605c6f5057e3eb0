#pragma once

#include <QString>

#include <memory>

/// Tells which instruments the running copies of the program hold, by the window title that a
/// connected copy carries. Holds one title itself at most, and only while it lives.
class RunningCopies
{
public:
    RunningCopies();
    ~RunningCopies();

    /// Whether a copy, this one included, holds exactly this title.
    bool isTitleTaken(const QString& title) const;

    /// Takes the title in place of the one held so far. False, and nothing changed, when it is
    /// taken. Where copies cannot be told apart (no writable folder) every title is free.
    bool claim(const QString& title);

    /// Gives the title held, if any, free.
    void release();

private:
    struct Claim;
    std::unique_ptr<Claim> m_claim;
};
