// Attributes of sessions, find lists, resource managers and events.
#include "visa_library/api.h"
#include "visa_library/session.h"
#include "visa_library/text.h"

#include <algorithm>
#include <cstring>

namespace
{

/// The value of an attribute: a text or a number.
struct State {
    State(const std::string& what) : text(what) {}
    State(std::uintptr_t what) : number(what) {}

    std::string text;
    std::uintptr_t number = 0;
};

enum class Width { Text, Bits8, Bits16, Bits32, Address };

template <typename Kind>
struct AttributeRow {
    ViAttr attribute;
    Width width;
    State (*get)(Kind& object);
    ViStatus (*set)(Kind& object, std::uintptr_t state) = nullptr; // none: read-only
};

Resource resourceOf(const Session& session)
{
    return session.device->resource();
}

const Resource& resourceOf(const FindList& list)
{
    return list.resources[list.current];
}

std::string interfaceName(const ResourceName& name)
{
    return "USB" + std::to_string(name.board) + " (" + name.text() + ")";
}

std::uintptr_t lockState(Session& session)
{
    if (session.lock.isExclusive() || session.lock.isLockedElsewhere())
        return VI_EXCLUSIVE_LOCK;
    return session.lock.isShared() ? VI_SHARED_LOCK : VI_NO_LOCK;
}

template <typename Member>
ViStatus assign(Member& member, std::uintptr_t state)
{
    member = static_cast<Member>(state);
    return VI_SUCCESS;
}

ViStatus assignFlag(bool& member, std::uintptr_t state)
{
    const auto flag = static_cast<ViBoolean>(state);
    if (flag > VI_TRUE)
        return VI_ERROR_NSUP_ATTR_STATE;
    member = flag == VI_TRUE;
    return VI_SUCCESS;
}

ViStatus assignMode(ViUInt16& member, std::uintptr_t state, std::initializer_list<ViUInt16> modes)
{
    const auto mode = static_cast<ViUInt16>(state);
    if (std::find(modes.begin(), modes.end(), mode) == modes.end())
        return VI_ERROR_NSUP_ATTR_STATE;
    member = mode;
    return VI_SUCCESS;
}

#define TEXT(expression) [](auto& o) -> State { return State(std::string(expression)); }
#define NUMBER(expression) [](auto& o) -> State { return State(std::uintptr_t(expression)); }
#define SET(expression) [](auto& o, std::uintptr_t state) -> ViStatus { return expression; }

// clang-format off
const AttributeRow<Object> commonRows[] = {
    {VI_ATTR_USER_DATA, Width::Address, NUMBER(o.userData), SET(assign(o.userData, state))},
    {VI_ATTR_RSRC_SPEC_VERSION, Width::Bits32, [](Object&) -> State { return State(0x00700200); }},
    {VI_ATTR_RSRC_IMPL_VERSION, Width::Bits32, [](Object&) -> State { return State(0x00100000); }},
    {VI_ATTR_RSRC_MANF_NAME, Width::Text, [](Object&) -> State { return State(std::string("Veltro")); }},
    {VI_ATTR_RSRC_MANF_ID, Width::Bits16, [](Object&) -> State { return State(0x5645); }},
};

const AttributeRow<Session> sessionRows[] = {
    {VI_ATTR_TMO_VALUE, Width::Bits32, NUMBER(o.timeoutMs), SET(assign(o.timeoutMs, state))},
    {VI_ATTR_MANF_NAME, Width::Text, TEXT(resourceOf(o).maker)},
    {VI_ATTR_MODEL_NAME, Width::Text, TEXT(resourceOf(o).model)},
    {VI_ATTR_USB_SERIAL_NUM, Width::Text, TEXT(resourceOf(o).name.serial)},
    {VI_ATTR_RSRC_NAME, Width::Text, TEXT(resourceOf(o).name.text())},
    {VI_ATTR_RSRC_CLASS, Width::Text, [](Session&) -> State { return State(std::string("INSTR")); }},
    {VI_ATTR_INTF_INST_NAME, Width::Text, TEXT(interfaceName(resourceOf(o).name))},
    {VI_ATTR_INTF_TYPE, Width::Bits16, [](Session&) -> State { return State(VI_INTF_USB); }},
    {VI_ATTR_INTF_NUM, Width::Bits16, NUMBER(resourceOf(o).name.board)},
    {VI_ATTR_MANF_ID, Width::Bits16, NUMBER(resourceOf(o).name.vendor)},
    {VI_ATTR_MODEL_CODE, Width::Bits16, NUMBER(resourceOf(o).name.product)},
    {VI_ATTR_4882_COMPLIANT, Width::Bits16, [](Session&) -> State { return State(VI_TRUE); }},
    {VI_ATTR_USB_INTFC_NUM, Width::Bits16, NUMBER(resourceOf(o).name.interfaceNumber)},
    {VI_ATTR_USB_PROTOCOL, Width::Bits16, [](Session&) -> State { return State(1); }},
    {VI_ATTR_USB_MAX_INTR_SIZE, Width::Bits16, [](Session&) -> State { return State(2); }},
    {VI_ATTR_RM_SESSION, Width::Bits32, NUMBER(o.owner)},
    {VI_ATTR_RSRC_LOCK_STATE, Width::Bits32, NUMBER(lockState(o))},
    {VI_ATTR_MAX_QUEUE_LENGTH, Width::Bits32, NUMBER(o.events.capacity), SET(assign(o.events.capacity, state))},
    {VI_ATTR_SEND_END_EN, Width::Bits16, NUMBER(o.isEndSent), SET(assignFlag(o.isEndSent, state))},
    {VI_ATTR_SUPPRESS_END_EN, Width::Bits16, NUMBER(o.isEndSuppressed), SET(assignFlag(o.isEndSuppressed, state))},
    {VI_ATTR_TERMCHAR, Width::Bits8, NUMBER(o.termChar), SET(assign(o.termChar, state))},
    {VI_ATTR_TERMCHAR_EN, Width::Bits16, NUMBER(o.isTermCharEnabled), SET(assignFlag(o.isTermCharEnabled, state))},
    {VI_ATTR_FILE_APPEND_EN, Width::Bits16, NUMBER(o.isFileAppended), SET(assignFlag(o.isFileAppended, state))},
    {VI_ATTR_IO_PROT, Width::Bits16, NUMBER(o.ioProtocol), SET(assignMode(o.ioProtocol, state, {VI_PROT_NORMAL, VI_PROT_USBTMC_VENDOR}))},
    {VI_ATTR_RD_BUF_OPER_MODE, Width::Bits16, NUMBER(o.readBufferMode), SET(assignMode(o.readBufferMode, state, {VI_FLUSH_ON_ACCESS, VI_FLUSH_DISABLE}))},
    {VI_ATTR_WR_BUF_OPER_MODE, Width::Bits16, NUMBER(o.writeBufferMode), SET(assignMode(o.writeBufferMode, state, {VI_FLUSH_ON_ACCESS, VI_FLUSH_WHEN_FULL}))},
    {VI_ATTR_RD_BUF_SIZE, Width::Bits32, NUMBER(o.readBufferSize)},
    {VI_ATTR_WR_BUF_SIZE, Width::Bits32, NUMBER(o.writeBufferSize)},
};

const AttributeRow<FindList> findListRows[] = {
    {VI_ATTR_MANF_NAME, Width::Text, TEXT(resourceOf(o).maker)},
    {VI_ATTR_MODEL_NAME, Width::Text, TEXT(resourceOf(o).model)},
    {VI_ATTR_USB_SERIAL_NUM, Width::Text, TEXT(resourceOf(o).name.serial)},
    {VI_ATTR_RSRC_NAME, Width::Text, TEXT(resourceOf(o).name.text())},
};

const AttributeRow<EventContext> eventRows[] = {
    {VI_ATTR_EVENT_TYPE, Width::Bits32, NUMBER(o.type)},
    {VI_ATTR_STATUS, Width::Bits32, NUMBER(static_cast<ViUInt32>(o.status))},
    {VI_ATTR_JOB_ID, Width::Bits32, NUMBER(o.job)},
    {VI_ATTR_RET_COUNT, Width::Address, NUMBER(o.count)},
    {VI_ATTR_BUFFER, Width::Address, [](EventContext& o) -> State { return State(reinterpret_cast<std::uintptr_t>(o.buffer)); }},
};
// clang-format on

#undef TEXT
#undef NUMBER
#undef SET

void store(void* target, Width width, const State& state)
{
    const auto number8 = static_cast<ViUInt8>(state.number);
    const auto number16 = static_cast<ViUInt16>(state.number);
    const auto number32 = static_cast<ViUInt32>(state.number);
    switch (width) {
    case Width::Text:
        copyText(static_cast<ViChar*>(target), state.text);
        break;
    case Width::Bits8:
        std::memcpy(target, &number8, sizeof number8);
        break;
    case Width::Bits16:
        std::memcpy(target, &number16, sizeof number16);
        break;
    case Width::Bits32:
        std::memcpy(target, &number32, sizeof number32);
        break;
    case Width::Address:
        std::memcpy(target, &state.number, sizeof state.number);
        break;
    }
}

template <typename Kind, size_t Count>
const AttributeRow<Kind>* rowOf(const AttributeRow<Kind> (&rows)[Count], ViAttr attribute)
{
    const auto row = std::find_if(rows, rows + Count, [attribute](const AttributeRow<Kind>& each) {
        return each.attribute == attribute;
    });
    return row == rows + Count ? nullptr : row;
}

/// Reads or writes the attribute where the object is of the kind and the kind has it.
template <typename Kind, size_t Count, typename Action>
bool withRow(VisaCall& call, ViObject handle, const AttributeRow<Kind> (&rows)[Count],
             ViAttr attribute, Action action)
{
    const auto object = call.library.objects.find<Kind>(handle);
    const auto* row = object == nullptr ? nullptr : rowOf(rows, attribute);
    if (row != nullptr)
        action(*object, *row);
    return row != nullptr;
}

template <typename Action>
ViStatus withAttribute(VisaCall& call, ViObject handle, ViAttr attribute, Action action)
{
    if (call.library.objects.find<Object>(handle) == nullptr)
        return VI_ERROR_INV_OBJECT;
    ViStatus status = VI_SUCCESS;
    const auto act = [&](auto& object, const auto& row) { status = action(object, row); };
    const bool isKnown = withRow(call, handle, sessionRows, attribute, act) ||
                         withRow(call, handle, findListRows, attribute, act) ||
                         withRow(call, handle, eventRows, attribute, act) ||
                         withRow(call, handle, commonRows, attribute, act);
    return isKnown ? status : VI_ERROR_NSUP_ATTR;
}

} // namespace

ViStatus KLV_VISA_FIXED viGetAttribute(ViObject object, ViAttr attribute, void* state)
{
    VisaCall call;
    if (state == nullptr)
        return VI_ERROR_USER_BUF;
    const AttributeReply* replaced = call.library.bus.replacedAttribute(attribute);
    if (replaced != nullptr && call.library.objects.find<FindList>(object) != nullptr) {
        if (replaced->status == VI_SUCCESS)
            copyText(static_cast<ViChar*>(state), replaced->text);
        return replaced->status;
    }
    return withAttribute(call, object, attribute, [state](auto& target, const auto& row) {
        store(state, row.width, row.get(target));
        return VI_SUCCESS;
    });
}

ViStatus KLV_VISA_FIXED viSetAttribute(ViObject object, ViAttr attribute, ViAttrState state)
{
    VisaCall call;
    return withAttribute(call, object, attribute, [state](auto& target, const auto& row) {
        return row.set == nullptr ? VI_ERROR_ATTR_READONLY : row.set(target, state);
    });
}
