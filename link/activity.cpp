#include "link/activity.h"

#include <algorithm>

Activity::Activity(const StatusWords& words, bool blocks)
{
    Activities::global().set(this, words, blocks);
}

Activity::~Activity()
{
    Activities::global().remove(this);
}

void Activity::say(const StatusWords& words)
{
    Activities::global().set(this, words, false);
}

Activities& Activities::global()
{
    static Activities activities;
    return activities;
}

QStringList Activities::texts() const
{
    QStringList texts;
    for (const Entry& entry : m_entries)
        texts << entry.words();
    return texts;
}

void Activities::set(const Activity* activity, const StatusWords& words, bool blocks)
{
    const auto known = std::find_if(m_entries.begin(), m_entries.end(),
                                    [&](const Entry& entry) { return entry.activity == activity; });
    if (known != m_entries.end())
        known->words = words;
    else
        m_entries.push_back({activity, words});
    emit changed(blocks);
}

void Activities::remove(const Activity* activity)
{
    const auto isOver = [&](const Entry& entry) { return entry.activity == activity; };
    m_entries.erase(std::remove_if(m_entries.begin(), m_entries.end(), isOver), m_entries.end());
    emit changed(false);
}
