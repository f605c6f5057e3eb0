#include "visa_library/objects.h"

ViObject ObjectTable::add(std::shared_ptr<Object> object)
{
    m_objects.emplace(++m_lastHandle, std::move(object));
    return m_lastHandle;
}

std::vector<std::shared_ptr<Object>> ObjectTable::remove(ViObject handle)
{
    std::vector<std::shared_ptr<Object>> removed;
    const auto found = m_objects.find(handle);
    if (found == m_objects.end())
        return removed;
    removed.push_back(std::move(found->second));
    m_objects.erase(found);
    std::vector<ViObject> owned;
    for (const auto& [other, object] : m_objects)
        if (object->owner == handle)
            owned.push_back(other);
    for (const ViObject other : owned)
        for (auto& object : remove(other))
            removed.push_back(std::move(object));
    return removed;
}

ViObject ObjectTable::handleOf(const Object& object) const
{
    for (const auto& [handle, other] : m_objects)
        if (other.get() == &object)
            return handle;
    return VI_NULL;
}
