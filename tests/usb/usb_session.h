#pragma once

#include "link/visa_library.h"
#include "tests/usb/gadget.h"

#include <QtTest>

/// The library for instruments on USB as a client has it, with one session at most.
class UsbSession
{
public:
    UsbSession()
    {
        visa.load(KLV_USB_LIBRARY);
        if (visa.unresolvedCount() != 0)
            qFatal("%s", qUtf8Printable(visa.loadError()));
        visa.viOpenDefaultRM(&manager);
    }
    ~UsbSession() { visa.viClose(manager); }
    UsbSession(const UsbSession&) = delete;
    UsbSession& operator=(const UsbSession&) = delete;

    ViStatus open(const QByteArray& address, ViAccessMode mode = VI_EXCLUSIVE_LOCK,
                  ViUInt32 waitMs = 0)
    {
        return visa.viOpen(manager, address.constData(), mode, waitMs, &session);
    }
    void close() { visa.viClose(std::exchange(session, VI_NULL)); }

    ViStatus write(const QByteArray& message)
    {
        ViUInt32 count = 0;
        const ViStatus written =
            visa.viWrite(session, reinterpret_cast<ViConstBuf>(message.constData()),
                         static_cast<ViUInt32>(message.size()), &count);
        return written == VI_SUCCESS && count != static_cast<ViUInt32>(message.size())
                   ? VI_ERROR_SYSTEM_ERROR
                   : written;
    }
    /// Whole replies, in calls for so many bytes; status is that of the last call.
    QByteArray read(ViUInt32 piece = 1 << 21)
    {
        QByteArray reply;
        do {
            QByteArray buffer(static_cast<int>(piece), '\0');
            ViUInt32 count = 0;
            status = visa.viRead(session, reinterpret_cast<ViPBuf>(buffer.data()), piece, &count);
            reply += buffer.left(static_cast<int>(count));
        } while (status == VI_SUCCESS_MAX_CNT);
        return reply;
    }
    /// The reply; a failure shows in status.
    QByteArray query(const QByteArray& message)
    {
        status = write(message + '\n');
        return status < VI_SUCCESS ? QByteArray() : read();
    }
    void setTimeout(ViUInt32 ms) { visa.viSetAttribute(session, VI_ATTR_TMO_VALUE, ms); }

    QList<QByteArray> find(const char* expression = "USB?*INSTR")
    {
        ViFindList list = VI_NULL;
        ViUInt32 count = 0;
        char address[VI_FIND_BUFLEN] = {};
        QList<QByteArray> found;
        if (visa.viFindRsrc(manager, expression, &list, &count, address) < VI_SUCCESS)
            return found;
        do
            found << address;
        while (visa.viFindNext(list, address) == VI_SUCCESS);
        visa.viClose(list);
        return found;
    }

    VisaLibrary visa;
    ViSession manager = VI_NULL;
    ViSession session = VI_NULL;
    ViStatus status = VI_SUCCESS;
};
