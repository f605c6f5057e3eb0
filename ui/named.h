#pragma once

#include <QString>

/// The object, made under this name: the style sheet, profiles and tests find it by it.
template <typename Object>
Object* named(const char* name, Object* object)
{
    object->setObjectName(QLatin1String(name));
    return object;
}
