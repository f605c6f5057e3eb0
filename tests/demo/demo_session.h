#pragma once

#include "demo/control/control.h"
#include "visa/visa_functions.h"

#include <QtTest>

#define DECLARE_FIXED(result, name, parameters) extern "C" result KLV_VISA_FIXED name parameters;
#define DECLARE_VARIADIC(result, name, parameters)                                                 \
    extern "C" result KLV_VISA_VARIADIC name parameters;
KLV_VISA_FUNCTIONS(DECLARE_FIXED, DECLARE_VARIADIC)
#undef DECLARE_FIXED
#undef DECLARE_VARIADIC

/// One command of the control interface, and its answer.
inline QByteArray demo(const QByteArray& command)
{
    return klvDemo(command.constData());
}

/// A status in hexadecimal.
inline QByteArray describe(ViStatus status)
{
    return QByteArray::number(static_cast<ViUInt32>(status), 16);
}

/// A session with an instrument as at power-on; a reply that will not come is not waited for.
class DemoSession
{
public:
    static constexpr const char* address = "USB0::0x5645::0x0040::20215678::0::INSTR";

    explicit DemoSession(ViAccessMode mode = VI_EXCLUSIVE_LOCK, const char* instruments = nullptr)
    {
        demo("reset");
        demo("timeouts immediate");
        if (instruments != nullptr)
            demo(instruments);
        viOpenDefaultRM(&resourceManager);
        open(mode);
        demo("clear");
    }
    ~DemoSession() { viClose(resourceManager); }
    DemoSession(const DemoSession&) = delete;
    DemoSession& operator=(const DemoSession&) = delete;

    /// Another session; the one before is closed with the resource manager.
    ViStatus open(ViAccessMode mode = VI_EXCLUSIVE_LOCK, const char* name = address,
                  ViUInt32 waitMs = 0)
    {
        return viOpen(resourceManager, name, mode, waitMs, &session);
    }

    ViStatus write(const QByteArray& message)
    {
        QByteArray escaped = message + '\n';
        return viPrintf(session, escaped.replace('%', "%%").constData());
    }
    /// The reply without its line feed, or "VISA" and the status in hexadecimal.
    QByteArray read()
    {
        QByteArray buffer(65536, '\0');
        const ViStatus status = viScanf(session, "%65535T", buffer.data());
        if (status != VI_SUCCESS)
            return "VISA " + describe(status);
        buffer.truncate(static_cast<int>(qstrlen(buffer.constData())));
        return buffer.endsWith('\n') ? buffer.chopped(1) : buffer;
    }
    QByteArray query(const QByteArray& message)
    {
        write(message);
        return read();
    }
    /// The codes in the error queue, which is empty afterwards: "-113 -222".
    QByteArray errors()
    {
        QList<QByteArray> codes;
        while (codes.size() < 100) {
            const QByteArray code = query("SYST:ERR?").split(',').first();
            if (code == "0")
                break;
            codes += code;
        }
        return codes.join(' ');
    }

    ViSession resourceManager = VI_NULL;
    ViSession session = VI_NULL;
};
