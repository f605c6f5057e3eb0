// Formatted and buffered messages.
#include "visa_library/api.h"
#include "visa_library/formatted_scan.h"
#include "visa_library/session.h"

#include <algorithm>
#include <cstring>

namespace
{

/// The messages of an instrument, read through the session's read buffer.
class SessionSource final : public ScanSource
{
public:
    explicit SessionSource(IoCall& call) : m_call(call), m_buffer(call.session().readBuffer)
    {
        beginConversion();
    }

    std::string_view available() override
    {
        if (m_buffer.isEmpty() && m_buffer.isEnd) {
            m_buffer.discard();
            m_isEnded = true;
        }
        if (m_buffer.isEmpty() && !m_isEnded && m_status == VI_SUCCESS)
            fetch();
        return std::string_view(m_buffer.bytes).substr(m_buffer.position);
    }
    void consume(size_t count) override { m_buffer.position += count; }
    void beginConversion() override
    {
        m_isEnded = false;
        if (m_buffer.isEmpty())
            m_buffer.discard();
    }
    ViStatus status() const override { return m_status; }

private:
    void fetch()
    {
        m_buffer.position = 0;
        const ViStatus status = m_call.receive(m_call.session().readBufferSize, m_buffer.bytes);
        m_buffer.isEnd = status == VI_SUCCESS;
        m_status = std::min(status, VI_SUCCESS);
    }

    IoCall& m_call;
    ReadBuffer& m_buffer;
    bool m_isEnded = false;
    ViStatus m_status = VI_SUCCESS;
};

/// Text in memory: one message.
class TextSource : public ScanSource
{
public:
    explicit TextSource(const char* text) : m_text(text) {}

    std::string_view available() override { return m_text; }
    void consume(size_t count) override { m_text.remove_prefix(count); }
    void beginConversion() override {}
    ViStatus status() const override { return VI_SUCCESS; }

private:
    std::string_view m_text;
};

ViStatus flushWriteBuffer(IoCall& call, bool end)
{
    std::string bytes;
    bytes.swap(call.session().writeBuffer);
    return bytes.empty() ? VI_SUCCESS : call.send(bytes, end);
}

// A line feed of the format ends a message and sends it; what follows the last one waits for more,
// unless the caller or the buffer's mode wants it sent now.
ViStatus print(IoCall& call, const char* format, Arguments& arguments, bool isFlushed)
{
    Session& session = call.session();
    PrintedText printed;
    ViStatus status = printFormatted(format, arguments, printed);
    size_t start = 0;
    for (size_t i = 0; status == VI_SUCCESS && i < printed.ends.size(); ++i) {
        session.writeBuffer.append(printed.text, start, printed.ends[i] - start);
        start = printed.ends[i];
        status = flushWriteBuffer(call, session.isEndSent);
    }
    if (status != VI_SUCCESS)
        return status;
    session.writeBuffer.append(printed.text, start, std::string::npos);
    if (isFlushed || session.writeBufferMode == VI_FLUSH_ON_ACCESS)
        return flushWriteBuffer(call, session.isEndSent);
    if (session.writeBuffer.size() >= session.writeBufferSize)
        return flushWriteBuffer(call, false);
    return VI_SUCCESS;
}

ViStatus scan(IoCall& call, const char* format, Arguments& arguments)
{
    SessionSource source(call);
    const ViStatus status = scanFormatted(format, arguments, source);
    if (call.session().readBufferMode == VI_FLUSH_ON_ACCESS)
        call.session().readBuffer.discard();
    return status;
}

ViStatus printCall(ViSession session, ViConstString format, Arguments& arguments)
{
    IoCall call(session, Use::Write);
    return call.status() < VI_SUCCESS ? call.status()
                                      : call.outcome(print(call, format, arguments, false));
}

ViStatus scanCall(ViSession session, ViConstString format, Arguments& arguments)
{
    IoCall call(session, Use::ReadReply);
    return call.status() < VI_SUCCESS ? call.status() : call.outcome(scan(call, format, arguments));
}

ViStatus queryCall(ViSession session, ViConstString writeFormat, ViConstString readFormat,
                   Arguments& arguments)
{
    IoCall call(session, Use::ReadReply);
    ViStatus status = call.status();
    if (status >= VI_SUCCESS)
        status = print(call, writeFormat, arguments, true);
    return status < VI_SUCCESS ? status : call.outcome(scan(call, readFormat, arguments));
}

ViStatus printToMemory(ViPBuf buffer, ViConstString format, Arguments& arguments)
{
    const VisaCall call;
    PrintedText printed;
    const ViStatus status = printFormatted(format, arguments, printed);
    if (status == VI_SUCCESS)
        std::memcpy(buffer, printed.text.c_str(), printed.text.size() + 1);
    return status;
}

ViStatus scanMemory(ViConstBuf buffer, ViConstString format, Arguments& arguments)
{
    const VisaCall call;
    TextSource source(reinterpret_cast<const char*>(buffer));
    return scanFormatted(format, arguments, source);
}

} // namespace

// The two ways of passing arguments, for one implementation.
#define WITH_ARGUMENTS(last, expression)                                                           \
    Arguments arguments;                                                                           \
    va_start(arguments.list, last);                                                                \
    const ViStatus status = expression;                                                            \
    va_end(arguments.list);                                                                        \
    return status;
#define WITH_COPIED_ARGUMENTS(expression)                                                          \
    Arguments copied;                                                                              \
    va_copy(copied.list, arguments);                                                               \
    const ViStatus status = expression;                                                            \
    va_end(copied.list);                                                                           \
    return status;

ViStatus KLV_VISA_VARIADIC viPrintf(ViSession session, ViConstString writeFormat, ...){
    WITH_ARGUMENTS(writeFormat, printCall(session, writeFormat, arguments))}

ViStatus KLV_VISA_FIXED viVPrintf(ViSession session, ViConstString writeFormat, ViVAList arguments){
    WITH_COPIED_ARGUMENTS(printCall(session, writeFormat, copied))}

ViStatus KLV_VISA_VARIADIC viSPrintf(ViSession, ViPBuf buffer, ViConstString writeFormat, ...){
    WITH_ARGUMENTS(writeFormat, printToMemory(buffer, writeFormat, arguments))}

ViStatus KLV_VISA_FIXED
    viVSPrintf(ViSession, ViPBuf buffer, ViConstString writeFormat, ViVAList arguments){
        WITH_COPIED_ARGUMENTS(printToMemory(buffer, writeFormat, copied))}

ViStatus KLV_VISA_VARIADIC viScanf(ViSession session, ViConstString readFormat, ...){
    WITH_ARGUMENTS(readFormat, scanCall(session, readFormat, arguments))}

ViStatus KLV_VISA_FIXED viVScanf(ViSession session, ViConstString readFormat, ViVAList arguments){
    WITH_COPIED_ARGUMENTS(scanCall(session, readFormat, copied))}

ViStatus KLV_VISA_VARIADIC viSScanf(ViSession, ViConstBuf buffer, ViConstString readFormat, ...){
    WITH_ARGUMENTS(readFormat, scanMemory(buffer, readFormat, arguments))}

ViStatus KLV_VISA_FIXED
    viVSScanf(ViSession, ViConstBuf buffer, ViConstString readFormat,
              ViVAList arguments){WITH_COPIED_ARGUMENTS(scanMemory(buffer, readFormat, copied))}

ViStatus KLV_VISA_VARIADIC
    viQueryf(ViSession session, ViConstString writeFormat, ViConstString readFormat, ...){
        WITH_ARGUMENTS(readFormat, queryCall(session, writeFormat, readFormat, arguments))}

ViStatus KLV_VISA_FIXED viVQueryf(ViSession session, ViConstString writeFormat,
                                  ViConstString readFormat, ViVAList arguments){
    WITH_COPIED_ARGUMENTS(queryCall(session, writeFormat, readFormat, copied))}

ViStatus KLV_VISA_FIXED
    viBufWrite(ViSession session, ViConstBuf buffer, ViUInt32 count, ViPUInt32 returnCount)
{
    IoCall call(session, Use::Other);
    if (call.status() < VI_SUCCESS)
        return call.status();
    std::string& bytes = call.session().writeBuffer;
    bytes.append(reinterpret_cast<const char*>(buffer), count);
    if (returnCount != nullptr)
        *returnCount = count;
    if (call.session().writeBufferMode == VI_FLUSH_ON_ACCESS)
        return flushWriteBuffer(call, call.session().isEndSent);
    return bytes.size() >= call.session().writeBufferSize ? flushWriteBuffer(call, false)
                                                          : VI_SUCCESS;
}

ViStatus KLV_VISA_FIXED viBufRead(ViSession session, ViPBuf buffer, ViUInt32 count,
                                  ViPUInt32 returnCount)
{
    IoCall call(session, Use::Other);
    if (call.status() < VI_SUCCESS)
        return call.status();
    SessionSource source(call);
    ViUInt32 done = 0;
    while (done < count) {
        const std::string_view bytes = source.available().substr(0, count - done);
        if (bytes.empty())
            break;
        std::memcpy(buffer + done, bytes.data(), bytes.size());
        source.consume(bytes.size());
        done += static_cast<ViUInt32>(bytes.size());
    }
    if (returnCount != nullptr)
        *returnCount = done;
    if (source.status() != VI_SUCCESS)
        return source.status();
    return done == count ? VI_SUCCESS_MAX_CNT : VI_SUCCESS;
}

ViStatus KLV_VISA_FIXED viSetBuf(ViSession session, ViUInt16 mask, ViUInt32 size)
{
    VisaCall call;
    const auto found = call.library.objects.find<Session>(session);
    if (found == nullptr)
        return VI_ERROR_INV_OBJECT;
    if ((mask & ~(VI_READ_BUF | VI_WRITE_BUF | VI_IO_IN_BUF | VI_IO_OUT_BUF)) != 0)
        return VI_ERROR_INV_MASK;
    if ((mask & VI_READ_BUF) != 0)
        found->readBufferSize = std::max<ViUInt32>(size, 1);
    if ((mask & VI_WRITE_BUF) != 0)
        found->writeBufferSize = size;
    return (mask & (VI_IO_IN_BUF | VI_IO_OUT_BUF)) != 0 ? VI_WARN_NSUP_BUF : VI_SUCCESS;
}

ViStatus KLV_VISA_FIXED viFlush(ViSession session, ViUInt16 mask)
{
    IoCall call(session, Use::Other);
    if (call.status() < VI_SUCCESS)
        return call.status();
    ReadBuffer& unread = call.session().readBuffer;
    if ((mask & VI_READ_BUF) != 0 && !unread.isEmpty() && !unread.isEnd)
        call.session().device->discardReply(call); // the rest of that message, by the standard
    if ((mask & (VI_READ_BUF | VI_READ_BUF_DISCARD)) != 0)
        unread.discard();
    if ((mask & VI_WRITE_BUF_DISCARD) != 0)
        call.session().writeBuffer.clear();
    return (mask & VI_WRITE_BUF) != 0 ? flushWriteBuffer(call, call.session().isEndSent)
                                      : VI_SUCCESS;
}
