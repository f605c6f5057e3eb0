#include "demo/control/rack.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace
{

std::string contentOf(const std::string& fileName)
{
    std::ifstream file(fileName, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// Written beside the file and renamed, so that a watcher never reads half of it.
void replaceFile(const std::string& fileName, const std::string& text)
{
    const std::string temporary = fileName + ".new";
    std::ofstream file(temporary, std::ios::binary | std::ios::trunc);
    file << text;
    file.close();
    std::error_code error;
    if (file)
        std::filesystem::rename(temporary, fileName, error);
    if (!file || error)
        std::filesystem::remove(temporary, error);
}

// Takes over what the file says about an instrument that stays; its settings are kept.
void update(Instrument& instrument, const InstrumentDescription& description)
{
    const bool isOtherMode = instrument.model.description.massStorage != description.massStorage;
    instrument.model.description = description;
    instrument.model.updateReferenceCondition();
    if (isOtherMode)
        instrument.plug();
}

} // namespace

Rack::Rack()
{
    reset();
}

void Rack::reset()
{
    for (const auto& instrument : m_instruments)
        instrument->unplug();
    m_instruments.clear();
    const char* fileName = std::getenv("KLV_DEMO_FILE");
    m_fileName = fileName == nullptr ? "" : fileName;
    m_fileText.clear();
    m_nextLook = {};
    if (m_fileName.empty())
        setDescriptions({InstrumentDescription()});
    else
        refresh();
}

void Rack::setDescriptions(const std::vector<InstrumentDescription>& descriptions)
{
    std::vector<std::shared_ptr<Instrument>> instruments;
    for (const InstrumentDescription& description : descriptions) {
        if (auto known = find(description.serial); known != nullptr) {
            update(*known, description);
            instruments.push_back(known);
        } else {
            instruments.push_back(std::make_shared<Instrument>(description));
        }
    }
    for (const auto& instrument : m_instruments)
        if (std::find(instruments.begin(), instruments.end(), instrument) == instruments.end())
            instrument->unplug();
    m_instruments = std::move(instruments);
}

void Rack::refresh()
{
    if (m_fileName.empty())
        return;
    const auto now = std::chrono::steady_clock::now();
    if (now < m_nextLook)
        return;
    m_nextLook = now + std::chrono::milliseconds(20);
    readFile();
}

void Rack::settle(Instrument& instrument)
{
    Model& model = instrument.model;
    if (model.leavesBus) {
        instrument.unplug();
        // Read again afterwards: it comes back in the power-on state.
        if (!m_fileName.empty())
            replaceFile(m_fileName, inBootloader(contentOf(m_fileName), model.description.serial));
    }
    if (model.reenumerates && instrument.isPresent())
        instrument.plug();
    if (model.reenumerates && !m_fileName.empty()) {
        const InstrumentDescription& what = model.description;
        m_fileText = withMassStorage(contentOf(m_fileName), what.serial, what.massStorage);
        replaceFile(m_fileName, m_fileText);
    }
    model.leavesBus = false;
    model.reenumerates = false;
}

std::shared_ptr<Instrument> Rack::find(std::string_view serial) const
{
    for (const auto& instrument : m_instruments)
        if (instrument->model.description.serial == serial)
            return instrument;
    return nullptr;
}

std::shared_ptr<Instrument> Rack::first() const
{
    return m_instruments.empty() ? nullptr : m_instruments.front();
}

void Rack::readFile()
{
    // Not detected by its time, which has whole seconds in some runtime libraries.
    const std::string text = contentOf(m_fileName);
    if (text == m_fileText)
        return;
    m_fileText = text;
    const DescribedInstruments described = parseDescriptions(text);
    if (described.fault.empty())
        setDescriptions(described.instruments);
    else
        std::fprintf(stderr, "%s: %s\n", m_fileName.c_str(), described.fault.c_str());
}
