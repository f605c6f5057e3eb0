// Messages as they are: read, write, status byte, trigger, clear, remote and local, and related
// functions.
#include "visa_library/api.h"
#include "visa_library/session.h"

#include <algorithm>
#include <fstream>
#include <iterator>

namespace
{

void tell(ViPUInt32 returnCount, size_t count)
{
    if (returnCount != nullptr)
        *returnCount = static_cast<ViUInt32>(count);
}

ViStatus read(IoCall& call, ViPBuf buffer, ViUInt32 count, ViPUInt32 returnCount)
{
    std::string bytes;
    const ViStatus status = call.receive(count, bytes);
    std::copy(bytes.begin(), bytes.end(), buffer);
    tell(returnCount, bytes.size());
    return status;
}

ViStatus write(IoCall& call, ViConstBuf buffer, ViUInt32 count, ViPUInt32 returnCount)
{
    const std::string_view bytes(reinterpret_cast<const char*>(buffer), count);
    tell(returnCount, count);
    return call.send(bytes, call.session().isEndSent);
}

// Asynchronous jobs are done at once; their event reports the result.
ViStatus finishJob(IoCall& call, ViStatus status, ViUInt32 count, ViBuf buffer, ViPJobId job)
{
    auto event = std::make_shared<EventContext>();
    event->type = VI_EVENT_IO_COMPLETION;
    event->status = status;
    event->count = count;
    event->buffer = buffer;
    event->job = ++call.session().lastJob;
    if (job != nullptr)
        *job = event->job;
    call.session().post(call, event);
    return VI_SUCCESS_SYNC;
}

} // namespace

ViStatus KLV_VISA_FIXED viRead(ViSession session, ViPBuf buffer, ViUInt32 count,
                               ViPUInt32 returnCount)
{
    IoCall call(session, Use::ReadReply);
    tell(returnCount, 0);
    return call.status() < VI_SUCCESS ? call.status()
                                      : call.outcome(read(call, buffer, count, returnCount));
}

ViStatus KLV_VISA_FIXED viReadAsync(ViSession session, ViPBuf buffer, ViUInt32 count, ViPJobId job)
{
    IoCall call(session, Use::ReadReply);
    if (call.status() < VI_SUCCESS)
        return call.status();
    ViUInt32 done = 0;
    const ViStatus status = read(call, buffer, count, &done);
    return finishJob(call, status, done, buffer, job);
}

ViStatus KLV_VISA_FIXED viReadToFile(ViSession session, ViConstString fileName, ViUInt32 count,
                                     ViPUInt32 returnCount)
{
    IoCall call(session, Use::ReadReply);
    tell(returnCount, 0);
    if (call.status() < VI_SUCCESS)
        return call.status();
    const auto mode = call.session().isFileAppended ? std::ios::app : std::ios::trunc;
    std::ofstream file(fileName, std::ios::binary | mode);
    if (!file)
        return VI_ERROR_FILE_ACCESS;
    std::string bytes;
    const ViStatus status = call.receive(count, bytes);
    file << bytes;
    file.close();
    tell(returnCount, bytes.size());
    return file ? status : VI_ERROR_FILE_IO;
}

ViStatus KLV_VISA_FIXED viWrite(ViSession session, ViConstBuf buffer, ViUInt32 count,
                                ViPUInt32 returnCount)
{
    IoCall call(session, Use::Write);
    tell(returnCount, 0);
    return call.status() < VI_SUCCESS ? call.status()
                                      : call.outcome(write(call, buffer, count, returnCount));
}

ViStatus KLV_VISA_FIXED viWriteAsync(ViSession session, ViConstBuf buffer, ViUInt32 count,
                                     ViPJobId job)
{
    IoCall call(session, Use::Write);
    if (call.status() < VI_SUCCESS)
        return call.status();
    ViUInt32 done = 0;
    const ViStatus status = write(call, buffer, count, &done);
    return finishJob(call, status, done, nullptr, job);
}

ViStatus KLV_VISA_FIXED viWriteFromFile(ViSession session, ViConstString fileName, ViUInt32 count,
                                        ViPUInt32 returnCount)
{
    IoCall call(session, Use::Write);
    tell(returnCount, 0);
    if (call.status() < VI_SUCCESS)
        return call.status();
    std::ifstream file(fileName, std::ios::binary);
    if (!file)
        return VI_ERROR_FILE_ACCESS;
    std::string bytes{std::istreambuf_iterator<char>(file), {}};
    bytes.resize(std::min<size_t>(bytes.size(), count));
    tell(returnCount, bytes.size());
    return call.send(bytes, call.session().isEndSent);
}

ViStatus KLV_VISA_FIXED viAssertTrigger(ViSession session, ViUInt16 protocol)
{
    IoCall call(session, Use::Other);
    if (call.status() < VI_SUCCESS)
        return call.status();
    if (protocol != VI_TRIG_PROT_DEFAULT)
        return VI_ERROR_INV_PROT;
    return call.session().device->trigger(call);
}

ViStatus KLV_VISA_FIXED viReadSTB(ViSession session, ViPUInt16 status)
{
    IoCall call(session, Use::Other);
    if (call.status() < VI_SUCCESS || status == nullptr)
        return call.status();
    return call.session().device->readStatusByte(call, *status);
}

ViStatus KLV_VISA_FIXED viClear(ViSession session)
{
    IoCall call(session, Use::Other);
    if (call.status() < VI_SUCCESS)
        return call.status();
    call.session().writeBuffer.clear();
    call.session().readBuffer.discard();
    return call.session().device->clear(call);
}

ViStatus KLV_VISA_FIXED viGpibControlREN(ViSession session, ViUInt16 mode)
{
    IoCall call(session, Use::Other);
    return call.status() < VI_SUCCESS ? call.status()
                                      : call.session().device->controlRemote(call, mode);
}

ViStatus KLV_VISA_FIXED viTerminate(ViObject object, ViUInt16 degree, ViJobId job)
{
    VisaCall call;
    const auto session = call.library.objects.find<Session>(object);
    if (session == nullptr)
        return VI_ERROR_INV_OBJECT;
    if (degree != VI_NULL)
        return VI_ERROR_INV_DEGREE;
    return job <= session->lastJob ? VI_SUCCESS : VI_ERROR_INV_JOB_ID;
}
