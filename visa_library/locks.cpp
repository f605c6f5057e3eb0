// Locks that a session takes after it was opened.
#include "visa_library/api.h"
#include "visa_library/session.h"
#include "visa_library/text.h"

ViStatus KLV_VISA_FIXED viLock(ViSession session, ViAccessMode lockType, ViUInt32 timeoutMs,
                               ViConstKeyId requestedKey, ViChar* accessKey)
{
    VisaCall call;
    const auto found = call.library.objects.find<Session>(session);
    if (found == nullptr)
        return VI_ERROR_INV_OBJECT;
    if (lockType != VI_EXCLUSIVE_LOCK && lockType != VI_SHARED_LOCK)
        return VI_ERROR_INV_LOCK_TYPE;
    if (found->device->isLost())
        return VI_ERROR_CONN_LOST;
    const std::string key = requestedKey == nullptr ? "" : requestedKey;
    if (key.size() >= VI_FIND_BUFLEN)
        return VI_ERROR_INV_ACCESS_KEY;
    const ViStatus status = found->waitForLock(call, lockType, timeoutMs, key);
    if (status == VI_ERROR_RSRC_LOCKED && timeoutMs != VI_TMO_IMMEDIATE)
        return VI_ERROR_TMO;
    if (status >= VI_SUCCESS && lockType == VI_SHARED_LOCK)
        copyText(accessKey, found->lock.key());
    return status;
}

ViStatus KLV_VISA_FIXED viUnlock(ViSession session)
{
    VisaCall call;
    const auto found = call.library.objects.find<Session>(session);
    return found == nullptr ? VI_ERROR_INV_OBJECT : found->lock.unlock();
}
