#include "connection/instrument_source.h"

#include "connection/demo_mode.h"
#include "connection/demo_plug_watch.h"
#include "link/scpi_session.h"

namespace
{
const QString visaLibraryName = QStringLiteral("VeVISA32");
}

InstrumentSource::InstrumentSource(bool isSimulated, const QString& library, VisaLibrary& visa,
                                   ScpiSession& session)
    : m_isStartedSimulated(isSimulated), m_namedLibrary(library), m_visa(visa), m_session(session)
{
    choose(isSimulated);
}

InstrumentSource::~InstrumentSource() = default;

void InstrumentSource::choose(bool isSimulated)
{
    // Mode first: the library looks for the mode's file when it is loaded.
    m_demo = isSimulated ? std::make_unique<DemoMode>() : nullptr;
    if (m_demo)
        m_watch.use(std::make_unique<DemoPlugWatch>(m_demo->instrumentsFile()));
    else
        m_watch.use(createBusWatch());
}

QString InstrumentSource::libraryName() const
{
    // A library named together with the simulated mode is the one to be tried with it.
    if (!m_namedLibrary.isEmpty() && (!m_demo || m_isStartedSimulated))
        return m_namedLibrary;
    return m_demo ? DemoMode::libraryPath() : visaLibraryName;
}

void InstrumentSource::open()
{
    m_visa.load(libraryName().toLocal8Bit().constData());
    m_session.openResourceManager();
}

void InstrumentSource::simulate(bool isSimulated)
{
    if (isSimulated == this->isSimulated())
        return;
    m_session.closeResourceManager();
    m_visa.reset();
    choose(isSimulated);
    open();
}

void InstrumentSource::endBootloaderSoon()
{
    if (m_demo)
        m_demo->endBootloaderSoon();
}
