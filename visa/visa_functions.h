// The functions of the VISA C interface, once: result, name, parameters, in the order in which a
// library is resolved. FIXED rows use KLV_VISA_FIXED, VARIADIC rows KLV_VISA_VARIADIC.
//
//   #define DECLARE_FIXED(result, name, parameters) result KLV_VISA_FIXED name parameters;
//   #define DECLARE_VARIADIC(result, name, parameters) result KLV_VISA_VARIADIC name parameters;
//   KLV_VISA_FUNCTIONS(DECLARE_FIXED, DECLARE_VARIADIC)
#pragma once

#include "visa/visa.h"

// clang-format off

// Resources, sessions, messages: what a USB instrument can do.
#define KLV_VISA_MESSAGE_FUNCTIONS(FIXED, VARIADIC) \
    FIXED(ViStatus, viOpenDefaultRM, (ViPSession resourceManager)) \
    FIXED(ViStatus, viParseRsrcEx, (ViSession resourceManager, ViConstRsrc name, ViPUInt16 interfaceType, ViPUInt16 interfaceNumber, ViChar* resourceClass, ViChar* expandedName, ViChar* alias)) \
    FIXED(ViStatus, viOpen, (ViSession resourceManager, ViConstRsrc name, ViAccessMode mode, ViUInt32 timeoutMs, ViPSession session)) \
    FIXED(ViStatus, viFindRsrc, (ViSession resourceManager, ViConstString expression, ViPFindList findList, ViPUInt32 count, ViChar* description)) \
    FIXED(ViStatus, viFindNext, (ViFindList findList, ViChar* description)) \
    FIXED(ViStatus, viParseRsrc, (ViSession resourceManager, ViConstRsrc name, ViPUInt16 interfaceType, ViPUInt16 interfaceNumber)) \
    FIXED(ViStatus, viClose, (ViObject object)) \
    FIXED(ViStatus, viSetAttribute, (ViObject object, ViAttr attribute, ViAttrState state)) \
    FIXED(ViStatus, viGetAttribute, (ViObject object, ViAttr attribute, void* state)) \
    FIXED(ViStatus, viStatusDesc, (ViObject object, ViStatus status, ViChar* description)) \
    FIXED(ViStatus, viTerminate, (ViObject object, ViUInt16 degree, ViJobId job)) \
    FIXED(ViStatus, viLock, (ViSession session, ViAccessMode lockType, ViUInt32 timeoutMs, ViConstKeyId requestedKey, ViChar* accessKey)) \
    FIXED(ViStatus, viUnlock, (ViSession session)) \
    FIXED(ViStatus, viEnableEvent, (ViSession session, ViEventType eventType, ViUInt16 mechanism, ViEventFilter context)) \
    FIXED(ViStatus, viDisableEvent, (ViSession session, ViEventType eventType, ViUInt16 mechanism)) \
    FIXED(ViStatus, viDiscardEvents, (ViSession session, ViEventType eventType, ViUInt16 mechanism)) \
    FIXED(ViStatus, viWaitOnEvent, (ViSession session, ViEventType eventType, ViUInt32 timeoutMs, ViPEventType receivedType, ViPEvent context)) \
    FIXED(ViStatus, viInstallHandler, (ViSession session, ViEventType eventType, ViHndlr handler, ViAddr userHandle)) \
    FIXED(ViStatus, viUninstallHandler, (ViSession session, ViEventType eventType, ViHndlr handler, ViAddr userHandle)) \
    FIXED(ViStatus, viRead, (ViSession session, ViPBuf buffer, ViUInt32 count, ViPUInt32 returnCount)) \
    FIXED(ViStatus, viReadAsync, (ViSession session, ViPBuf buffer, ViUInt32 count, ViPJobId job)) \
    FIXED(ViStatus, viReadToFile, (ViSession session, ViConstString fileName, ViUInt32 count, ViPUInt32 returnCount)) \
    FIXED(ViStatus, viWrite, (ViSession session, ViConstBuf buffer, ViUInt32 count, ViPUInt32 returnCount)) \
    FIXED(ViStatus, viWriteAsync, (ViSession session, ViConstBuf buffer, ViUInt32 count, ViPJobId job)) \
    FIXED(ViStatus, viWriteFromFile, (ViSession session, ViConstString fileName, ViUInt32 count, ViPUInt32 returnCount)) \
    FIXED(ViStatus, viAssertTrigger, (ViSession session, ViUInt16 protocol)) \
    FIXED(ViStatus, viReadSTB, (ViSession session, ViPUInt16 status)) \
    FIXED(ViStatus, viClear, (ViSession session)) \
    FIXED(ViStatus, viSetBuf, (ViSession session, ViUInt16 mask, ViUInt32 size)) \
    FIXED(ViStatus, viFlush, (ViSession session, ViUInt16 mask)) \
    FIXED(ViStatus, viBufWrite, (ViSession session, ViConstBuf buffer, ViUInt32 count, ViPUInt32 returnCount)) \
    FIXED(ViStatus, viBufRead, (ViSession session, ViPBuf buffer, ViUInt32 count, ViPUInt32 returnCount)) \
    VARIADIC(ViStatus, viPrintf, (ViSession session, ViConstString writeFormat, ...)) \
    FIXED(ViStatus, viVPrintf, (ViSession session, ViConstString writeFormat, ViVAList arguments)) \
    VARIADIC(ViStatus, viSPrintf, (ViSession session, ViPBuf buffer, ViConstString writeFormat, ...)) \
    FIXED(ViStatus, viVSPrintf, (ViSession session, ViPBuf buffer, ViConstString writeFormat, ViVAList arguments)) \
    VARIADIC(ViStatus, viScanf, (ViSession session, ViConstString readFormat, ...)) \
    FIXED(ViStatus, viVScanf, (ViSession session, ViConstString readFormat, ViVAList arguments)) \
    VARIADIC(ViStatus, viSScanf, (ViSession session, ViConstBuf buffer, ViConstString readFormat, ...)) \
    FIXED(ViStatus, viVSScanf, (ViSession session, ViConstBuf buffer, ViConstString readFormat, ViVAList arguments)) \
    VARIADIC(ViStatus, viQueryf, (ViSession session, ViConstString writeFormat, ViConstString readFormat, ...)) \
    FIXED(ViStatus, viVQueryf, (ViSession session, ViConstString writeFormat, ViConstString readFormat, ViVAList arguments))

// Registers and memory.
#define KLV_VISA_REGISTER_FUNCTIONS(FIXED, VARIADIC) \
    FIXED(ViStatus, viIn8, (ViSession session, ViUInt16 space, ViBusAddress offset, ViPUInt8 value)) \
    FIXED(ViStatus, viOut8, (ViSession session, ViUInt16 space, ViBusAddress offset, ViUInt8 value)) \
    FIXED(ViStatus, viIn16, (ViSession session, ViUInt16 space, ViBusAddress offset, ViPUInt16 value)) \
    FIXED(ViStatus, viOut16, (ViSession session, ViUInt16 space, ViBusAddress offset, ViUInt16 value)) \
    FIXED(ViStatus, viIn32, (ViSession session, ViUInt16 space, ViBusAddress offset, ViPUInt32 value)) \
    FIXED(ViStatus, viOut32, (ViSession session, ViUInt16 space, ViBusAddress offset, ViUInt32 value)) \
    FIXED(ViStatus, viMoveIn8, (ViSession session, ViUInt16 space, ViBusAddress offset, ViBusSize length, ViAUInt8 buffer)) \
    FIXED(ViStatus, viMoveOut8, (ViSession session, ViUInt16 space, ViBusAddress offset, ViBusSize length, ViAUInt8 buffer)) \
    FIXED(ViStatus, viMoveIn16, (ViSession session, ViUInt16 space, ViBusAddress offset, ViBusSize length, ViAUInt16 buffer)) \
    FIXED(ViStatus, viMoveOut16, (ViSession session, ViUInt16 space, ViBusAddress offset, ViBusSize length, ViAUInt16 buffer)) \
    FIXED(ViStatus, viMoveIn32, (ViSession session, ViUInt16 space, ViBusAddress offset, ViBusSize length, ViAUInt32 buffer)) \
    FIXED(ViStatus, viMoveOut32, (ViSession session, ViUInt16 space, ViBusAddress offset, ViBusSize length, ViAUInt32 buffer)) \
    FIXED(ViStatus, viMove, (ViSession session, ViUInt16 sourceSpace, ViBusAddress sourceOffset, ViUInt16 sourceWidth, ViUInt16 targetSpace, ViBusAddress targetOffset, ViUInt16 targetWidth, ViBusSize length)) \
    FIXED(ViStatus, viMoveAsync, (ViSession session, ViUInt16 sourceSpace, ViBusAddress sourceOffset, ViUInt16 sourceWidth, ViUInt16 targetSpace, ViBusAddress targetOffset, ViUInt16 targetWidth, ViBusSize length, ViPJobId job)) \
    FIXED(ViStatus, viMapAddress, (ViSession session, ViUInt16 space, ViBusAddress offset, ViBusSize size, ViBoolean access, ViAddr suggested, ViPAddr address)) \
    FIXED(ViStatus, viUnmapAddress, (ViSession session)) \
    FIXED(void, viPeek8, (ViSession session, ViAddr address, ViPUInt8 value)) \
    FIXED(void, viPoke8, (ViSession session, ViAddr address, ViUInt8 value)) \
    FIXED(void, viPeek16, (ViSession session, ViAddr address, ViPUInt16 value)) \
    FIXED(void, viPoke16, (ViSession session, ViAddr address, ViUInt16 value)) \
    FIXED(void, viPeek32, (ViSession session, ViAddr address, ViPUInt32 value)) \
    FIXED(void, viPoke32, (ViSession session, ViAddr address, ViUInt32 value)) \
    FIXED(ViStatus, viMemAlloc, (ViSession session, ViBusSize size, ViPBusAddress offset)) \
    FIXED(ViStatus, viMemFree, (ViSession session, ViBusAddress offset))

// Remote and local operation, which USB instruments have, too.
#define KLV_VISA_REMOTE_FUNCTIONS(FIXED, VARIADIC) \
    FIXED(ViStatus, viGpibControlREN, (ViSession session, ViUInt16 mode))

// The lines of other buses.
#define KLV_VISA_LINE_FUNCTIONS(FIXED, VARIADIC) \
    FIXED(ViStatus, viGpibControlATN, (ViSession session, ViUInt16 mode)) \
    FIXED(ViStatus, viGpibSendIFC, (ViSession session)) \
    FIXED(ViStatus, viGpibCommand, (ViSession session, ViConstBuf buffer, ViUInt32 count, ViPUInt32 returnCount)) \
    FIXED(ViStatus, viGpibPassControl, (ViSession session, ViUInt16 primaryAddress, ViUInt16 secondaryAddress)) \
    FIXED(ViStatus, viVxiCommandQuery, (ViSession session, ViUInt16 mode, ViUInt32 command, ViPUInt32 response)) \
    FIXED(ViStatus, viAssertUtilSignal, (ViSession session, ViUInt16 line)) \
    FIXED(ViStatus, viAssertIntrSignal, (ViSession session, ViInt16 mode, ViUInt32 statusId)) \
    FIXED(ViStatus, viMapTrigger, (ViSession session, ViInt16 source, ViInt16 destination, ViUInt16 mode)) \
    FIXED(ViStatus, viUnmapTrigger, (ViSession session, ViInt16 source, ViInt16 destination)) \
    FIXED(ViStatus, viUsbControlOut, (ViSession session, ViInt16 requestType, ViInt16 request, ViUInt16 value, ViUInt16 index, ViUInt16 length, ViConstBuf buffer)) \
    FIXED(ViStatus, viUsbControlIn, (ViSession session, ViInt16 requestType, ViInt16 request, ViUInt16 value, ViUInt16 index, ViUInt16 length, ViBuf buffer, ViPUInt16 returnCount))

#define KLV_VISA_FUNCTIONS(FIXED, VARIADIC) \
    KLV_VISA_MESSAGE_FUNCTIONS(FIXED, VARIADIC) \
    KLV_VISA_REGISTER_FUNCTIONS(FIXED, VARIADIC) \
    KLV_VISA_REMOTE_FUNCTIONS(FIXED, VARIADIC) \
    KLV_VISA_LINE_FUNCTIONS(FIXED, VARIADIC)
// clang-format on
