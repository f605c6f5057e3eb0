#include "link/notices.h"

int Notices::say(const StatusWords& words, Notice::About about)
{
    return tell(words, about, false);
}

int Notices::sayDone(const StatusWords& words, Notice::About about)
{
    return tell(words, about, true);
}

int Notices::tell(const StatusWords& words, Notice::About about, bool isDone)
{
    emit said({++m_last, words, about, isDone});
    return m_last;
}
