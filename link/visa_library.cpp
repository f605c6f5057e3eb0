#include "link/visa_library.h"

#include "link/library_places.h"

#include <QFileInfo>
#include <QLibrary>

namespace
{
/// A plain name, not a path to the library.
bool isPlainName(const QString& name)
{
    return QFileInfo(name).fileName() == name;
}
} // namespace

VisaLibrary::~VisaLibrary()
{
    reset();
}

void VisaLibrary::load(const char* name)
{
    reset();
    if (!name || !*name)
        return;
    m_name = QString::fromLocal8Bit(name);
    m_loadError.clear();
    m_library = new QLibrary;
    if (!isPlainName(m_name))
        m_library->setFileName(m_name);
    if (!(isPlainName(m_name) ? loadFromPlaces(*m_library, m_name) : m_library->load())) {
        m_loadError = m_library->errorString();
        return;
    }
    m_unresolvedCount = 0;
    resolveAll();
}

QString VisaLibrary::fileName() const
{
    return m_unresolvedCount < 0 ? QString() : m_library->fileName();
}

void VisaLibrary::reset()
{
    if (m_library) {
        m_library->unload();
        m_library->deleteLater();
        m_library = nullptr;
    }
    m_unresolvedCount = -1;
#define KLV_VISA_TO_PLACEHOLDER(result, name, parameters)                                          \
    name = visa_placeholder::Placeholder<name##_t>::call;
    KLV_VISA_FUNCTIONS(KLV_VISA_TO_PLACEHOLDER, KLV_VISA_TO_PLACEHOLDER)
#undef KLV_VISA_TO_PLACEHOLDER
}

template <typename Function>
void VisaLibrary::resolve(Function& entry, const char* name)
{
    if (const QFunctionPointer symbol = m_library->resolve(name))
        entry = reinterpret_cast<Function>(symbol);
    else
        ++m_unresolvedCount;
}

void VisaLibrary::resolveAll()
{
#define KLV_VISA_RESOLVE(result, name, parameters) resolve(name, #name);
    KLV_VISA_FUNCTIONS(KLV_VISA_RESOLVE, KLV_VISA_RESOLVE)
#undef KLV_VISA_RESOLVE
}
