#pragma once

#include "demo/control/description_file.h"
#include "demo/instrument/instrument.h"

#include <memory>

/// The bus: which instruments there are and which are plugged in. They come from the file named by
/// KLV_DEMO_FILE, from a text, or are the one default instrument. It also does on the bus what a
/// command asked for (coming back in another mode, leaving).
class Rack
{
public:
    Rack();
    /// Back to the start: the file if the environment names one, else the default instrument.
    void reset();
    void setDescriptions(const std::vector<InstrumentDescription>& descriptions);
    /// Looks at the file again, at most every 20 ms.
    void refresh();
    /// To be called after the instrument has executed something.
    void settle(Instrument& instrument);

    const std::vector<std::shared_ptr<Instrument>>& instruments() const { return m_instruments; }
    /// Null when no instrument, plugged in or not, has the serial.
    std::shared_ptr<Instrument> find(std::string_view serial) const;
    /// The first instrument, which a test uses that names none; may be null.
    std::shared_ptr<Instrument> first() const;

private:
    void readFile();

    std::vector<std::shared_ptr<Instrument>> m_instruments;
    std::string m_fileName;
    std::string m_fileText;
    std::chrono::steady_clock::time_point m_nextLook;
};
