#pragma once

#include "visa_library/bus.h"

#include <unordered_map>

/// Anything that a VISA handle stands for.
struct Object {
    virtual ~Object() = default;

    ViSession owner = VI_NULL; ///< the session that it is closed with; none for a resource manager
    std::uintptr_t userData = 0;
};

struct ResourceManager : Object {
};

/// What one search found. Attributes read through it are those of the resource last handed out.
struct FindList : Object {
    std::vector<Resource> resources;
    size_t current = 0;
};

/// An event that happened, with what can be asked about it.
struct EventContext : Object {
    ViEventType type = 0;
    ViStatus status = VI_SUCCESS;
    ViJobId job = VI_NULL;
    ViUInt32 count = 0;
    ViBuf buffer = nullptr;
};

/// All handles that are open. Handles are never used again.
class ObjectTable
{
public:
    ViObject add(std::shared_ptr<Object> object);
    /// Takes out the object and all that it owns; nothing when there is none.
    std::vector<std::shared_ptr<Object>> remove(ViObject handle);
    /// VI_NULL when the object is not in the table.
    ViObject handleOf(const Object& object) const;
    /// Null when the handle is unknown or stands for something else.
    template <typename Kind>
    std::shared_ptr<Kind> find(ViObject handle) const
    {
        const auto found = m_objects.find(handle);
        return found == m_objects.end() ? nullptr : std::dynamic_pointer_cast<Kind>(found->second);
    }
    template <typename Kind>
    std::vector<std::shared_ptr<Kind>> all() const
    {
        std::vector<std::shared_ptr<Kind>> result;
        for (const auto& [handle, object] : m_objects)
            if (auto kind = std::dynamic_pointer_cast<Kind>(object))
                result.push_back(kind);
        return result;
    }

private:
    std::unordered_map<ViObject, std::shared_ptr<Object>> m_objects;
    ViObject m_lastHandle = 0;
};
