// Types, status codes and attributes of the VISA C interface, by the public VISA standard.
// Only what this project uses or answers with is listed; values are the standard's own.
#pragma once

#include <stdarg.h>
#include <stdint.h>

// The standard's calling conventions. They differ from the compiler's own only on 32-bit Windows.
#if defined(_WIN32) && !defined(_WIN64)
#define KLV_VISA_FIXED __stdcall
#define KLV_VISA_VARIADIC __cdecl
#else
#define KLV_VISA_FIXED
#define KLV_VISA_VARIADIC
#endif

using ViInt16 = int16_t;
using ViInt32 = int32_t;
using ViUInt8 = uint8_t;
using ViUInt16 = uint16_t;
using ViUInt32 = uint32_t;
using ViUInt64 = uint64_t;
using ViPUInt8 = ViUInt8*;
using ViPUInt16 = ViUInt16*;
using ViPUInt32 = ViUInt32*;
using ViAUInt8 = ViUInt8*;
using ViAUInt16 = ViUInt16*;
using ViAUInt32 = ViUInt32*;

using ViBoolean = ViUInt16;
using ViChar = char;
using ViByte = unsigned char;
using ViAddr = void*;
using ViPAddr = ViAddr*;
using ViString = char*;
using ViConstString = const char*;
using ViRsrc = char*;
using ViConstRsrc = const char*;
using ViBuf = ViByte*;
using ViPBuf = ViByte*;
using ViConstBuf = const ViByte*;
using ViKeyId = char*;
using ViConstKeyId = const char*;
using ViVAList = va_list;

using ViStatus = ViInt32;
using ViObject = ViUInt32;
using ViSession = ViObject;
using ViPSession = ViSession*;
using ViFindList = ViObject;
using ViPFindList = ViFindList*;
using ViEvent = ViObject;
using ViPEvent = ViEvent*;
using ViEventType = ViUInt32;
using ViPEventType = ViEventType*;
using ViEventFilter = ViUInt32;
using ViAccessMode = ViUInt32;
using ViVersion = ViUInt32;
using ViJobId = ViUInt32;
using ViPJobId = ViJobId*;
using ViAttr = ViUInt32;
using ViAttrState = uintptr_t; // as wide as an address, by the standard
using ViBusAddress = uintptr_t;
using ViPBusAddress = ViBusAddress*;
using ViBusSize = uintptr_t;

using ViHndlr = ViStatus(KLV_VISA_FIXED*)(ViSession session, ViEventType eventType, ViEvent context,
                                          ViAddr userHandle);

constexpr ViObject VI_NULL = 0;
constexpr ViBoolean VI_TRUE = 1;
constexpr ViBoolean VI_FALSE = 0;
constexpr ViUInt32 VI_FIND_BUFLEN = 256; // bytes of every description and resource name

constexpr ViStatus viCompletion(ViUInt32 code)
{
    return static_cast<ViStatus>(0x3FFF0000U + code);
}

constexpr ViStatus viError(ViUInt32 code)
{
    return static_cast<ViStatus>(static_cast<int64_t>(0xBFFF0000U + code) - 0x100000000LL);
}

constexpr ViStatus VI_SUCCESS = 0;
constexpr ViStatus VI_SUCCESS_EVENT_EN = viCompletion(0x0002);
constexpr ViStatus VI_SUCCESS_EVENT_DIS = viCompletion(0x0003);
constexpr ViStatus VI_SUCCESS_QUEUE_EMPTY = viCompletion(0x0004);
constexpr ViStatus VI_SUCCESS_TERM_CHAR = viCompletion(0x0005);
constexpr ViStatus VI_SUCCESS_MAX_CNT = viCompletion(0x0006);
constexpr ViStatus VI_SUCCESS_DEV_NPRESENT = viCompletion(0x007D);
constexpr ViStatus VI_SUCCESS_QUEUE_NEMPTY = viCompletion(0x0080);
constexpr ViStatus VI_SUCCESS_NESTED_SHARED = viCompletion(0x0099);
constexpr ViStatus VI_SUCCESS_NESTED_EXCLUSIVE = viCompletion(0x009A);
constexpr ViStatus VI_SUCCESS_SYNC = viCompletion(0x009B);
constexpr ViStatus VI_WARN_NULL_OBJECT = viCompletion(0x0082);
constexpr ViStatus VI_WARN_NSUP_ATTR_STATE = viCompletion(0x0084);
constexpr ViStatus VI_WARN_UNKNOWN_STATUS = viCompletion(0x0085);
constexpr ViStatus VI_WARN_NSUP_BUF = viCompletion(0x0088);

constexpr ViStatus VI_ERROR_SYSTEM_ERROR = viError(0x0000);
constexpr ViStatus VI_ERROR_INV_OBJECT = viError(0x000E);
constexpr ViStatus VI_ERROR_RSRC_LOCKED = viError(0x000F);
constexpr ViStatus VI_ERROR_INV_EXPR = viError(0x0010);
constexpr ViStatus VI_ERROR_RSRC_NFOUND = viError(0x0011);
constexpr ViStatus VI_ERROR_INV_RSRC_NAME = viError(0x0012);
constexpr ViStatus VI_ERROR_INV_ACC_MODE = viError(0x0013);
constexpr ViStatus VI_ERROR_TMO = viError(0x0015);
constexpr ViStatus VI_ERROR_CLOSING_FAILED = viError(0x0016);
constexpr ViStatus VI_ERROR_INV_DEGREE = viError(0x001B);
constexpr ViStatus VI_ERROR_INV_JOB_ID = viError(0x001C);
constexpr ViStatus VI_ERROR_NSUP_ATTR = viError(0x001D);
constexpr ViStatus VI_ERROR_NSUP_ATTR_STATE = viError(0x001E);
constexpr ViStatus VI_ERROR_ATTR_READONLY = viError(0x001F);
constexpr ViStatus VI_ERROR_INV_LOCK_TYPE = viError(0x0020);
constexpr ViStatus VI_ERROR_INV_ACCESS_KEY = viError(0x0021);
constexpr ViStatus VI_ERROR_INV_EVENT = viError(0x0026);
constexpr ViStatus VI_ERROR_INV_MECH = viError(0x0027);
constexpr ViStatus VI_ERROR_HNDLR_NINSTALLED = viError(0x0028);
constexpr ViStatus VI_ERROR_INV_HNDLR_REF = viError(0x0029);
constexpr ViStatus VI_ERROR_INV_CONTEXT = viError(0x002A);
constexpr ViStatus VI_ERROR_QUEUE_OVERFLOW = viError(0x002D);
constexpr ViStatus VI_ERROR_NENABLED = viError(0x002F);
constexpr ViStatus VI_ERROR_ABORT = viError(0x0030);
constexpr ViStatus VI_ERROR_RAW_WR_PROT_VIOL = viError(0x0034);
constexpr ViStatus VI_ERROR_RAW_RD_PROT_VIOL = viError(0x0035);
constexpr ViStatus VI_ERROR_OUTP_PROT_VIOL = viError(0x0036);
constexpr ViStatus VI_ERROR_INP_PROT_VIOL = viError(0x0037);
constexpr ViStatus VI_ERROR_BERR = viError(0x0038);
constexpr ViStatus VI_ERROR_IN_PROGRESS = viError(0x0039);
constexpr ViStatus VI_ERROR_INV_SETUP = viError(0x003A);
constexpr ViStatus VI_ERROR_QUEUE_ERROR = viError(0x003B);
constexpr ViStatus VI_ERROR_ALLOC = viError(0x003C);
constexpr ViStatus VI_ERROR_INV_MASK = viError(0x003D);
constexpr ViStatus VI_ERROR_IO = viError(0x003E);
constexpr ViStatus VI_ERROR_INV_FMT = viError(0x003F);
constexpr ViStatus VI_ERROR_NSUP_FMT = viError(0x0041);
constexpr ViStatus VI_ERROR_NSUP_OPER = viError(0x0067);
constexpr ViStatus VI_ERROR_USER_BUF = viError(0x0071);
constexpr ViStatus VI_ERROR_RSRC_BUSY = viError(0x0072);
constexpr ViStatus VI_ERROR_INV_PARAMETER = viError(0x0078);
constexpr ViStatus VI_ERROR_INV_PROT = viError(0x0079);
constexpr ViStatus VI_ERROR_NIMPL_OPER = viError(0x0081);
constexpr ViStatus VI_ERROR_INV_MODE = viError(0x0091);
constexpr ViStatus VI_ERROR_SESN_NLOCKED = viError(0x009C);
constexpr ViStatus VI_ERROR_LIBRARY_NFOUND = viError(0x009E);
constexpr ViStatus VI_ERROR_FILE_ACCESS = viError(0x00A1);
constexpr ViStatus VI_ERROR_FILE_IO = viError(0x00A2);
constexpr ViStatus VI_ERROR_NSUP_MECH = viError(0x00A4);
constexpr ViStatus VI_ERROR_CONN_LOST = viError(0x00A6);
constexpr ViStatus VI_ERROR_NPERMISSION = viError(0x00A8);

constexpr ViAttr VI_ATTR_RSRC_CLASS = 0xBFFF0001U;
constexpr ViAttr VI_ATTR_RSRC_NAME = 0xBFFF0002U;
constexpr ViAttr VI_ATTR_RSRC_IMPL_VERSION = 0x3FFF0003U;
constexpr ViAttr VI_ATTR_RSRC_LOCK_STATE = 0x3FFF0004U;
constexpr ViAttr VI_ATTR_MAX_QUEUE_LENGTH = 0x3FFF0005U;
constexpr ViAttr VI_ATTR_USER_DATA = sizeof(void*) == 8 ? 0x3FFF000AU : 0x3FFF0007U;
constexpr ViAttr VI_ATTR_SEND_END_EN = 0x3FFF0016U;
constexpr ViAttr VI_ATTR_TERMCHAR = 0x3FFF0018U;
constexpr ViAttr VI_ATTR_TMO_VALUE = 0x3FFF001AU; // milliseconds
constexpr ViAttr VI_ATTR_IO_PROT = 0x3FFF001CU;
constexpr ViAttr VI_ATTR_RD_BUF_OPER_MODE = 0x3FFF002AU;
constexpr ViAttr VI_ATTR_RD_BUF_SIZE = 0x3FFF002BU;
constexpr ViAttr VI_ATTR_WR_BUF_OPER_MODE = 0x3FFF002DU;
constexpr ViAttr VI_ATTR_WR_BUF_SIZE = 0x3FFF002EU;
constexpr ViAttr VI_ATTR_SUPPRESS_END_EN = 0x3FFF0036U;
constexpr ViAttr VI_ATTR_TERMCHAR_EN = 0x3FFF0038U;
constexpr ViAttr VI_ATTR_MANF_NAME = 0xBFFF0072U;
constexpr ViAttr VI_ATTR_MODEL_NAME = 0xBFFF0077U;
constexpr ViAttr VI_ATTR_RM_SESSION = 0x3FFF00C4U;
constexpr ViAttr VI_ATTR_MANF_ID = 0x3FFF00D9U;
constexpr ViAttr VI_ATTR_MODEL_CODE = 0x3FFF00DFU;
constexpr ViAttr VI_ATTR_INTF_INST_NAME = 0xBFFF00E9U;
constexpr ViAttr VI_ATTR_RSRC_SPEC_VERSION = 0x3FFF0170U;
constexpr ViAttr VI_ATTR_INTF_TYPE = 0x3FFF0171U;
constexpr ViAttr VI_ATTR_RSRC_MANF_NAME = 0xBFFF0174U;
constexpr ViAttr VI_ATTR_RSRC_MANF_ID = 0x3FFF0175U;
constexpr ViAttr VI_ATTR_INTF_NUM = 0x3FFF0176U;
constexpr ViAttr VI_ATTR_FILE_APPEND_EN = 0x3FFF0192U;
constexpr ViAttr VI_ATTR_4882_COMPLIANT = 0x3FFF019FU;
constexpr ViAttr VI_ATTR_USB_SERIAL_NUM = 0xBFFF01A0U;
constexpr ViAttr VI_ATTR_USB_INTFC_NUM = 0x3FFF01A1U;
constexpr ViAttr VI_ATTR_USB_PROTOCOL = 0x3FFF01A7U;
constexpr ViAttr VI_ATTR_USB_MAX_INTR_SIZE = 0x3FFF01AFU;
constexpr ViAttr VI_ATTR_JOB_ID = 0x3FFF4006U;
constexpr ViAttr VI_ATTR_EVENT_TYPE = 0x3FFF4010U;
constexpr ViAttr VI_ATTR_STATUS = 0x3FFF4025U;
constexpr ViAttr VI_ATTR_RET_COUNT = sizeof(ViBusSize) == 8 ? 0x3FFF4028U : 0x3FFF4026U;
constexpr ViAttr VI_ATTR_BUFFER = 0x3FFF4027U;

constexpr ViAccessMode VI_NO_LOCK = 0;
constexpr ViAccessMode VI_EXCLUSIVE_LOCK = 1;
constexpr ViAccessMode VI_SHARED_LOCK = 2;
constexpr ViAccessMode VI_LOAD_CONFIG = 4;

constexpr ViUInt32 VI_TMO_IMMEDIATE = 0;
constexpr ViUInt32 VI_TMO_INFINITE = 0xFFFFFFFFU;

constexpr ViEventType VI_EVENT_IO_COMPLETION = 0x3FFF2009U;
constexpr ViEventType VI_EVENT_SERVICE_REQ = 0x3FFF200BU;
constexpr ViEventType VI_EVENT_EXCEPTION = 0xBFFF200EU;
constexpr ViEventType VI_EVENT_USB_INTR = 0x3FFF2037U;
constexpr ViEventType VI_ALL_ENABLED_EVENTS = 0x3FFF7FFFU;

constexpr ViUInt16 VI_QUEUE = 1;
constexpr ViUInt16 VI_HNDLR = 2;
constexpr ViUInt16 VI_SUSPEND_HNDLR = 4;
constexpr ViUInt16 VI_ALL_MECH = 0xFFFF;

constexpr ViUInt16 VI_INTF_USB = 7;
constexpr ViUInt16 VI_PROT_NORMAL = 1;
constexpr ViUInt16 VI_PROT_USBTMC_VENDOR = 5;
constexpr ViUInt16 VI_TRIG_PROT_DEFAULT = 0;
constexpr ViUInt16 VI_FLUSH_ON_ACCESS = 1;
constexpr ViUInt16 VI_FLUSH_WHEN_FULL = 2;
constexpr ViUInt16 VI_FLUSH_DISABLE = 3;

constexpr ViUInt16 VI_GPIB_REN_DEASSERT = 0;
constexpr ViUInt16 VI_GPIB_REN_ASSERT = 1;
constexpr ViUInt16 VI_GPIB_REN_DEASSERT_GTL = 2;
constexpr ViUInt16 VI_GPIB_REN_ASSERT_ADDRESS = 3;
constexpr ViUInt16 VI_GPIB_REN_ASSERT_LLO = 4;
constexpr ViUInt16 VI_GPIB_REN_ASSERT_ADDRESS_LLO = 5;
constexpr ViUInt16 VI_GPIB_REN_ADDRESS_GTL = 6;

constexpr ViUInt16 VI_READ_BUF = 1;
constexpr ViUInt16 VI_WRITE_BUF = 2;
constexpr ViUInt16 VI_READ_BUF_DISCARD = 4;
constexpr ViUInt16 VI_WRITE_BUF_DISCARD = 8;
constexpr ViUInt16 VI_IO_IN_BUF = 16;
constexpr ViUInt16 VI_IO_OUT_BUF = 32;
constexpr ViUInt16 VI_IO_IN_BUF_DISCARD = 64;
constexpr ViUInt16 VI_IO_OUT_BUF_DISCARD = 128;
