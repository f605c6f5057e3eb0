#include "link/notices.h"

int Notices::say(const StatusWords& words, Notice::About about)
{
    emit said({++m_last, words, about});
    return m_last;
}
