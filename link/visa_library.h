#pragma once

#include "visa/visa.h"
#include "visa/visa_functions.h"

#include <QString>

#include <type_traits>

class QLibrary;

namespace visa_placeholder
{
template <typename Result>
Result answer()
{
    if constexpr (!std::is_void_v<Result>)
        return VI_ERROR_LIBRARY_NFOUND;
}

/// Returns VI_ERROR_LIBRARY_NFOUND, with the signature and calling convention of a VISA function.
template <typename Function>
struct Placeholder;

template <typename Result, typename... Arguments>
struct Placeholder<Result(KLV_VISA_FIXED*)(Arguments...)> {
    static Result KLV_VISA_FIXED call(Arguments...) { return answer<Result>(); }
};

template <typename Result, typename... Arguments>
struct Placeholder<Result(KLV_VISA_VARIADIC*)(Arguments..., ...)> {
    static Result KLV_VISA_VARIADIC call(Arguments..., ...) { return answer<Result>(); }
};
} // namespace visa_placeholder

/// The VISA functions, bound at run time. Owns the loaded library; a function that could not be
/// bound answers VI_ERROR_LIBRARY_NFOUND, so no caller ever tests an entry for null.
///
/// Filled on the GUI thread and only read afterwards; the device search reads it from its thread.
class VisaLibrary
{
public:
    VisaLibrary() = default;
    ~VisaLibrary();
    VisaLibrary(const VisaLibrary&) = delete;
    VisaLibrary& operator=(const VisaLibrary&) = delete;

    /// Unloads what is loaded, then loads `name` (local 8-bit; a path, or a name that the platform
    /// looks up on its library search path with its own prefix and suffix). Null, empty or not
    /// loadable: nothing is loaded and every entry is a placeholder.
    void load(const char* name);

    /// Unloads the library; the loader object is deleted by the event loop.
    void reset();

    /// -1 while no library is loaded, else the number of functions it lacks.
    int unresolvedCount() const { return m_unresolvedCount; }

    /// The file that is loaded, as far as it is known; empty while none is.
    QString fileName() const;

    /// The library last asked for, and the system's message when it could not be loaded.
    const QString& name() const { return m_name; }
    const QString& loadError() const { return m_loadError; }

    // NOLINTBEGIN(bugprone-macro-parentheses): a type takes none
#define KLV_VISA_ENTRY(result, convention, name, parameters)                                       \
    using name##_t = result(convention*) parameters;                                               \
    name##_t name = visa_placeholder::Placeholder<name##_t>::call;
#define KLV_VISA_FIXED_ENTRY(result, name, parameters)                                             \
    KLV_VISA_ENTRY(result, KLV_VISA_FIXED, name, parameters)
#define KLV_VISA_VARIADIC_ENTRY(result, name, parameters)                                          \
    KLV_VISA_ENTRY(result, KLV_VISA_VARIADIC, name, parameters)
    KLV_VISA_FUNCTIONS(KLV_VISA_FIXED_ENTRY, KLV_VISA_VARIADIC_ENTRY)
#undef KLV_VISA_VARIADIC_ENTRY
#undef KLV_VISA_FIXED_ENTRY
#undef KLV_VISA_ENTRY
    // NOLINTEND(bugprone-macro-parentheses)

private:
    void resolveAll();
    template <typename Function>
    void resolve(Function& entry, const char* name);

    QLibrary* m_library = nullptr;
    int m_unresolvedCount = -1;
    QString m_name;
    QString m_loadError;
};
