#include "demo/instrument/model.h"

#include <algorithm>
#include <cmath>

CalibrationTable::CalibrationTable(double maximumHz)
{
    const double stepHz = 1e9;
    const int count = static_cast<int>(maximumHz / stepHz);
    for (int i = 1; i <= count; ++i)
        m_stored.emplace_back(i * stepHz, i * 7 % 23 - 11);
    m_working = m_stored;
}

void CalibrationTable::add(double frequencyHz, double value)
{
    if (!m_isWriting)
        m_working.clear();
    m_isWriting = true;
    const auto same = std::find_if(m_working.begin(), m_working.end(), [=](const Point& point) {
        return std::abs(point.first - frequencyHz) < 0.5;
    });
    if (same != m_working.end())
        same->second = value;
    else
        m_working.emplace_back(frequencyHz, value);
}

void CalibrationTable::save()
{
    m_stored = m_working;
    m_isWriting = false;
}

void CalibrationTable::reload()
{
    m_working = m_stored;
    m_isWriting = false;
}

Model::Model(InstrumentDescription what)
    : description(std::move(what)), settings(resetSettings(description.limits)),
      calibration(description.limits[Quantity::Frequency].maximum)
{
}

void Model::reset()
{
    const double dac = settings.number(Quantity::Dac);
    settings = resetSettings(description.limits);
    settings.number(Quantity::Dac) = dac;
    run.abort();
    calibration.reload();
    updateReferenceCondition();
}

void Model::raise(ScpiError error)
{
    if (error != ScpiError::None)
        raise(static_cast<int>(error));
}

void Model::raise(int code, const std::string& text)
{
    errors.push(code, text);
    eventStatus = static_cast<unsigned char>(eventStatus | eventStatusBit(code));
}

void Model::updateReferenceCondition()
{
    const bool isWanted = settings.choice(Choice::ReferenceSource) == 1;
    errors.setCondition(static_cast<int>(ScpiError::ReferenceUnlocked),
                        isWanted && !description.referencePresent);
}

unsigned Model::statusByte() const
{
    unsigned status = errors.size() > 0 ? 0x04 : 0;
    status |= (eventStatus & eventEnable) != 0 ? 0x20 : 0;
    return status;
}
