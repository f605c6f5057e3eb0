// Resource manager, search, opening and closing.
#include "visa_library/api.h"
#include "visa_library/resource_filter.h"
#include "visa_library/resource_name.h"
#include "visa_library/session.h"
#include "visa_library/text.h"

namespace
{

ViStatus parse(ViSession resourceManager, ViConstRsrc name, ViPUInt16 interfaceType,
               ViPUInt16 interfaceNumber, ResourceName& parsed)
{
    VisaCall call;
    if (call.library.objects.find<ResourceManager>(resourceManager) == nullptr)
        return VI_ERROR_INV_OBJECT;
    if (name == nullptr || !parseResourceName(name, parsed))
        return VI_ERROR_INV_RSRC_NAME;
    if (interfaceType != nullptr)
        *interfaceType = VI_INTF_USB;
    if (interfaceNumber != nullptr)
        *interfaceNumber = parsed.board;
    return VI_SUCCESS;
}

// Takes the lock that is asked for; a session that needs none starts where no other one forbids it
// to talk.
ViStatus start(VisaCall& call, Session& session, ViAccessMode lock, ViUInt32 timeoutMs)
{
    if (lock == VI_NO_LOCK && session.lock.isLockedElsewhere())
        return VI_SUCCESS;
    const ViStatus locked =
        lock == VI_NO_LOCK ? VI_SUCCESS : session.waitForLock(call, lock, timeoutMs, {});
    if (locked != VI_SUCCESS)
        return locked;
    call.timeoutMs = session.timeoutMs;
    return session.device->start(call);
}

ViStatus open(VisaCall& call, ViSession resourceManager, const ResourceName& name,
              ViAccessMode mode, ViUInt32 timeoutMs, ViPSession result)
{
    Library& library = call.library;
    std::unique_ptr<Device> device;
    const ViStatus opened = library.bus.open(call, name, device);
    if (opened < VI_SUCCESS)
        return opened;
    auto session = std::make_shared<Session>(std::move(device));
    const ViStatus started = start(call, *session, mode & ~VI_LOAD_CONFIG, timeoutMs);
    if (started < VI_SUCCESS) {
        call.closeUnlocked(std::move(session));
        return started;
    }
    session->owner = resourceManager;
    library.bus.note("open", session->device->resource().name.text());
    *result = library.objects.add(std::move(session));
    return opened == VI_SUCCESS ? started : opened;
}

} // namespace

ViStatus KLV_VISA_FIXED viOpenDefaultRM(ViPSession resourceManager)
{
    VisaCall call;
    if (resourceManager == nullptr)
        return VI_ERROR_USER_BUF;
    *resourceManager = call.library.objects.add(std::make_shared<ResourceManager>());
    return VI_SUCCESS;
}

ViStatus KLV_VISA_FIXED viParseRsrc(ViSession resourceManager, ViConstRsrc name,
                                    ViPUInt16 interfaceType, ViPUInt16 interfaceNumber)
{
    ResourceName parsed;
    return parse(resourceManager, name, interfaceType, interfaceNumber, parsed);
}

ViStatus KLV_VISA_FIXED viParseRsrcEx(ViSession resourceManager, ViConstRsrc name,
                                      ViPUInt16 interfaceType, ViPUInt16 interfaceNumber,
                                      ViChar* resourceClass, ViChar* expandedName, ViChar* alias)
{
    ResourceName parsed;
    const ViStatus status = parse(resourceManager, name, interfaceType, interfaceNumber, parsed);
    if (status != VI_SUCCESS)
        return status;
    copyText(resourceClass, "INSTR");
    copyText(expandedName, parsed.text());
    copyText(alias, "");
    return VI_SUCCESS;
}

ViStatus KLV_VISA_FIXED viFindRsrc(ViSession resourceManager, ViConstString expression,
                                   ViPFindList findList, ViPUInt32 count, ViChar* description)
{
    VisaCall call;
    Library& library = call.library;
    if (library.objects.find<ResourceManager>(resourceManager) == nullptr)
        return VI_ERROR_INV_OBJECT;
    const std::string_view wanted = expression == nullptr ? "" : expression;
    library.bus.note("find", wanted);
    const auto filter = ResourceFilter::from(wanted);
    if (!filter)
        return VI_ERROR_INV_EXPR;
    auto found = std::make_shared<FindList>();
    for (Resource& resource : library.bus.resources())
        if (filter->matches(resource))
            found->resources.push_back(std::move(resource));
    if (count != nullptr)
        *count = static_cast<ViUInt32>(found->resources.size());
    if (found->resources.empty())
        return VI_ERROR_RSRC_NFOUND;
    copyText(description, found->resources.front().name.text());
    if (findList != nullptr) {
        found->owner = resourceManager;
        *findList = library.objects.add(std::move(found));
    }
    return VI_SUCCESS;
}

ViStatus KLV_VISA_FIXED viFindNext(ViFindList findList, ViChar* description)
{
    VisaCall call;
    const auto list = call.library.objects.find<FindList>(findList);
    if (list == nullptr)
        return VI_ERROR_INV_OBJECT;
    if (list->current + 1 >= list->resources.size())
        return VI_ERROR_RSRC_NFOUND;
    ++list->current;
    copyText(description, list->resources[list->current].name.text());
    return VI_SUCCESS;
}

ViStatus KLV_VISA_FIXED viOpen(ViSession resourceManager, ViConstRsrc name, ViAccessMode mode,
                               ViUInt32 timeoutMs, ViPSession session)
{
    VisaCall call;
    if (session == nullptr)
        return VI_ERROR_USER_BUF;
    *session = VI_NULL;
    if (call.library.objects.find<ResourceManager>(resourceManager) == nullptr)
        return VI_ERROR_INV_OBJECT;
    ResourceName parsed;
    if (name == nullptr || !parseResourceName(name, parsed))
        return VI_ERROR_INV_RSRC_NAME;
    const ViAccessMode known = VI_EXCLUSIVE_LOCK | VI_SHARED_LOCK | VI_LOAD_CONFIG;
    if ((mode & ~known) != 0 || (mode & known & ~VI_LOAD_CONFIG) == 3)
        return VI_ERROR_INV_ACC_MODE;
    return open(call, resourceManager, parsed, mode, timeoutMs, session);
}

ViStatus KLV_VISA_FIXED viClose(ViObject object)
{
    VisaCall call;
    if (object == VI_NULL)
        return VI_WARN_NULL_OBJECT;
    if (call.library.objects.find<Session>(object) != nullptr)
        call.library.bus.note("close", {});
    auto removed = call.library.objects.remove(object);
    const bool wasKnown = !removed.empty();
    for (auto& each : removed)
        call.closeUnlocked(std::move(each));
    return wasKnown ? VI_SUCCESS : VI_ERROR_INV_OBJECT;
}
