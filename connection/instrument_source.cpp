#include "connection/instrument_source.h"

#include "connection/demo_mode.h"
#include "connection/demo_plug_watch.h"
#include "link/library_places.h"
#include "link/scpi_session.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace
{
const QString visaLibraryName = QStringLiteral("VeVISA32");

QString translated(const char* text)
{
    return QCoreApplication::translate("InstrumentSource", text);
}
} // namespace

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
    loadLibrary();
    m_session.openResourceManager();
}

void InstrumentSource::loadLibrary()
{
    m_visa.load(libraryName().toLocal8Bit().constData());
    const QString own = ownLibraryPath();
    if (isFreeToChoose() && m_visa.unresolvedCount() < 0 && !own.isEmpty())
        m_visa.load(own.toLocal8Bit().constData());
    // It may have been named, too. One that the system has found may be known by its name alone.
    const QFileInfo loaded(m_visa.fileName());
    m_isOwnLibrary = !own.isEmpty() && loaded.isAbsolute() && loaded.canonicalFilePath() == own;
}

StatusWords InstrumentSource::libraryWords() const
{
    const QString file = QDir::toNativeSeparators(m_visa.fileName());
    const char* text = m_isOwnLibrary ? QT_TRANSLATE_NOOP("InstrumentSource",
                                                          "VISA library: the program's own (%1)")
                                      : QT_TRANSLATE_NOOP("InstrumentSource", "VISA library: %1");
    return [file, text] {
        return file.isEmpty()
                   ? translated(QT_TRANSLATE_NOOP("InstrumentSource", "VISA library: none"))
                   : translated(text).arg(file);
    };
}

StatusWords InstrumentSource::ownLibraryWords() const
{
    return m_isOwnLibrary ? libraryWords() : StatusWords();
}

std::optional<DeviceNode> InstrumentSource::node() const
{
    if (m_demo)
        return std::nullopt;
    return m_isOwnLibrary ? DeviceNode::UsbTmc : DeviceNode::Usb;
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
