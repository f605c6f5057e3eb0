#include "visa_library/objects.h"

ViObject ObjectTable::add(std::shared_ptr<Object> object)
{
    m_objects.emplace(++m_lastHandle, std::move(object));
    return m_lastHandle;
}

bool ObjectTable::remove(ViObject handle)
{
    if (m_objects.erase(handle) == 0)
        return false;
    std::vector<ViObject> owned;
    for (const auto& [other, object] : m_objects)
        if (object->owner == handle)
            owned.push_back(other);
    for (const ViObject other : owned)
        remove(other);
    return true;
}

ViObject ObjectTable::handleOf(const Object& object) const
{
    for (const auto& [handle, other] : m_objects)
        if (other.get() == &object)
            return handle;
    return VI_NULL;
}
