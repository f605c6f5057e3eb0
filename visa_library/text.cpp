#include "visa_library/text.h"

#include "visa_library/api.h"
#include "visa_library/library.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <string>

namespace
{

struct StatusText {
    ViStatus status;
    const char* text;
};

const StatusText statusTexts[] = {
    {VI_SUCCESS, "Operation completed successfully."},
    {VI_SUCCESS_EVENT_EN, "The event is already enabled."},
    {VI_SUCCESS_EVENT_DIS, "The event is already disabled."},
    {VI_SUCCESS_QUEUE_EMPTY, "The event queue was already empty."},
    {VI_SUCCESS_TERM_CHAR, "The termination character was read."},
    {VI_SUCCESS_MAX_CNT, "The requested number of bytes was read."},
    {VI_SUCCESS_DEV_NPRESENT, "The session was opened, but the device does not respond."},
    {VI_SUCCESS_QUEUE_NEMPTY, "More events are available in the queue."},
    {VI_SUCCESS_NESTED_SHARED, "The lock is held, with nested shared locks."},
    {VI_SUCCESS_NESTED_EXCLUSIVE, "The lock is held, with nested exclusive locks."},
    {VI_SUCCESS_SYNC, "The operation was carried out synchronously."},
    {VI_WARN_NULL_OBJECT, "The object reference is not initialised."},
    {VI_WARN_NSUP_ATTR_STATE, "The attribute state is valid but not supported."},
    {VI_WARN_UNKNOWN_STATUS, "The status code is unknown."},
    {VI_WARN_NSUP_BUF, "The buffer is not supported."},
    {VI_ERROR_SYSTEM_ERROR, "Unknown system error."},
    {VI_ERROR_INV_OBJECT, "The session or object reference is invalid."},
    {VI_ERROR_RSRC_LOCKED, "The resource is locked by another session."},
    {VI_ERROR_INV_EXPR, "The search expression is invalid."},
    {VI_ERROR_RSRC_NFOUND, "No such resource is present in the system."},
    {VI_ERROR_INV_RSRC_NAME, "The resource name is invalid."},
    {VI_ERROR_INV_ACC_MODE, "The access mode is invalid."},
    {VI_ERROR_TMO, "The time-out expired before the operation completed."},
    {VI_ERROR_INV_DEGREE, "The degree is invalid."},
    {VI_ERROR_INV_JOB_ID, "The job identifier is invalid."},
    {VI_ERROR_NSUP_ATTR, "The attribute is not supported by the object."},
    {VI_ERROR_NSUP_ATTR_STATE, "The attribute state is not supported."},
    {VI_ERROR_ATTR_READONLY, "The attribute is read-only."},
    {VI_ERROR_INV_LOCK_TYPE, "The lock type is not supported."},
    {VI_ERROR_INV_ACCESS_KEY, "The access key is invalid."},
    {VI_ERROR_INV_EVENT, "The event type is not supported."},
    {VI_ERROR_INV_MECH, "The event mechanism is invalid."},
    {VI_ERROR_HNDLR_NINSTALLED, "No handler is installed for the event."},
    {VI_ERROR_INV_HNDLR_REF, "The handler reference is invalid."},
    {VI_ERROR_INV_CONTEXT, "The event context is invalid."},
    {VI_ERROR_NENABLED, "The session is not enabled for the event."},
    {VI_ERROR_INV_MASK, "The buffer mask is invalid."},
    {VI_ERROR_IO, "An I/O error occurred."},
    {VI_ERROR_INV_FMT, "A format specifier is invalid or does not fit the data."},
    {VI_ERROR_NSUP_FMT, "A format specifier is not supported."},
    {VI_ERROR_NSUP_OPER, "The operation is not supported by the session."},
    {VI_ERROR_USER_BUF, "A buffer is not valid."},
    {VI_ERROR_RSRC_BUSY, "The resource is in use."},
    {VI_ERROR_INV_PROT, "The protocol is invalid."},
    {VI_ERROR_INV_MODE, "The mode is invalid."},
    {VI_ERROR_SESN_NLOCKED, "The session holds no lock."},
    {VI_ERROR_LIBRARY_NFOUND, "The library could not be found or loaded."},
    {VI_ERROR_FILE_ACCESS, "The file could not be opened."},
    {VI_ERROR_FILE_IO, "The file could not be read or written."},
    {VI_ERROR_CONN_LOST, "The connection to the device has been lost."},
    {VI_ERROR_NPERMISSION, "This user may not open the device."},
};

} // namespace

void copyText(ViChar* target, std::string_view text)
{
    if (target == nullptr)
        return;
    const size_t count = std::min<size_t>(text.size(), VI_FIND_BUFLEN - 1);
    std::memcpy(target, text.data(), count);
    target[count] = '\0';
}

const char* statusText(ViStatus status)
{
    const auto row =
        std::find_if(std::begin(statusTexts), std::end(statusTexts),
                     [status](const StatusText& known) { return known.status == status; });
    return row == std::end(statusTexts) ? nullptr : row->text;
}

ViStatus KLV_VISA_FIXED viStatusDesc(ViObject, ViStatus status, ViChar* description)
{
    const VisaCall call;
    const char* text = statusText(status);
    copyText(description, text != nullptr ? text : "Unknown status code.");
    return text != nullptr ? VI_SUCCESS : VI_WARN_UNKNOWN_STATUS;
}
