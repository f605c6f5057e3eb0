#include "demo/control/simulated_device.h"

#include "visa_library/library.h"

namespace
{

std::string fileNameOf(const std::string& serial)
{
    std::string name = serial;
    for (char& character : name)
        if (std::string("/\\:*?\"<>|").find(character) != std::string::npos)
            character = '_';
    return name;
}

} // namespace

SimulatedDevice::SimulatedDevice(Simulation& simulation, std::shared_ptr<Instrument> instrument)
    : m_simulation(simulation), m_instrument(std::move(instrument)),
      m_plugNumber(m_instrument->plugNumber()),
      m_lock(fileNameOf(m_instrument->model.description.serial))
{
}

bool SimulatedDevice::isLost() const
{
    return !m_instrument->isPresent() || m_instrument->plugNumber() != m_plugNumber;
}

ViStatus SimulatedDevice::begin(VisaCall& call, Use use)
{
    auto fault = std::exchange(m_simulation.dueFault, std::nullopt);
    const unsigned latencyUs =
        m_simulation.faults.latencyUs + m_instrument->model.description.latencyUs;
    if (latencyUs > 0)
        call.sleep(std::chrono::microseconds(latencyUs));
    m_fault = std::move(fault);
    if (m_fault && m_fault->kind == Fault::Kind::Vanish)
        m_instrument->unplug();
    if (!m_fault || isLost())
        return VI_SUCCESS;
    if (m_fault->status != VI_ERROR_TMO)
        return m_fault->status;
    return use == Use::Write ? timeOut(call) : VI_SUCCESS;
}

ViStatus SimulatedDevice::write(VisaCall&, std::string_view bytes, bool end)
{
    m_unlogged += bytes;
    if (end || (!bytes.empty() && bytes.back() == '\n')) {
        m_simulation.wire.sent(model(), m_unlogged);
        m_unlogged.clear();
    }
    m_instrument->receive(bytes, end, m_simulation.faults.replies);
    m_simulation.rack.settle(*m_instrument);
    applyReplyFault();
    return VI_SUCCESS;
}

ViStatus SimulatedDevice::read(VisaCall& call, size_t count, int stopCharacter, std::string& bytes)
{
    applyReplyFault();
    if (m_fault && m_fault->status == VI_ERROR_TMO)
        return timeOut(call);
    const ViStatus status = awaitOutput(call);
    if (status != VI_SUCCESS)
        return status;
    OutputQueue& output = m_instrument->output;
    if (output.isUntouched())
        m_simulation.wire.received(model(), output.rest());
    bytes = output.take(count, stopCharacter);
    if (output.isEmpty())
        return VI_SUCCESS;
    const bool isStopped =
        !bytes.empty() && static_cast<unsigned char>(bytes.back()) == stopCharacter;
    return isStopped ? VI_SUCCESS_TERM_CHAR : VI_SUCCESS_MAX_CNT;
}

ViStatus SimulatedDevice::clear(VisaCall&)
{
    m_unlogged.clear();
    m_instrument->clearInterface();
    return VI_SUCCESS;
}

ViStatus SimulatedDevice::trigger(VisaCall&)
{
    m_instrument->triggerFromBus();
    return VI_SUCCESS;
}

ViStatus SimulatedDevice::readStatusByte(VisaCall&, ViUInt16& status)
{
    status = static_cast<ViUInt16>(m_instrument->statusByte());
    return VI_SUCCESS;
}

bool SimulatedDevice::takeServiceRequest()
{
    const bool wasRequested = m_isServiceRequested;
    m_isServiceRequested = (m_instrument->statusByte() & 0x40) != 0;
    return m_isServiceRequested && !wasRequested;
}

ViStatus SimulatedDevice::awaitOutput(VisaCall& call)
{
    const auto deadline = deadlineAfter(call.timeoutMs);
    while (m_instrument->output.isEmpty()) {
        if (isLost())
            return VI_ERROR_CONN_LOST;
        const bool isOver = std::chrono::steady_clock::now() >= deadline;
        if (isOver || !m_simulation.faults.waitsForTimeouts) {
            m_simulation.wire.event("timeout");
            m_instrument->readWithoutQuery();
            return VI_ERROR_TMO;
        }
        call.wait(deadline);
        m_simulation.rack.refresh();
    }
    return VI_SUCCESS;
}

// Once: a call that sends and reads, or reads in pieces, gets here several times.
void SimulatedDevice::applyReplyFault()
{
    if (!m_fault)
        return;
    OutputQueue& output = m_instrument->output;
    if (m_fault->kind == Fault::Kind::Reply)
        output.set(m_fault->reply);
    else if (m_fault->kind == Fault::Kind::Endless)
        output.setEndless();
    else
        return;
    m_fault.reset();
}

// The message got through, its reply is lost on the way.
ViStatus SimulatedDevice::timeOut(VisaCall& call)
{
    m_instrument->output.clear();
    m_simulation.wire.event("timeout");
    if (m_fault->isSlow)
        call.sleep(std::chrono::milliseconds(call.timeoutMs));
    return VI_ERROR_TMO;
}
