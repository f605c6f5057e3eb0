#pragma once

#include "visa_library/resource_name.h"

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

class VisaCall;

/// What a client's call is about to do: send a message, read a reply (to a message that it may send
/// first), or neither.
enum class Use { Write, ReadReply, Other };

/// An instrument on the bus, as far as it is known without opening it.
struct Resource {
    ResourceName name;
    std::string maker;
    std::string model;
};

/// The lock by which the holder of an instrument keeps out the sessions of every process. It never
/// waits.
class DeviceLock
{
public:
    virtual ~DeviceLock() = default;
    /// Takes the lock, or changes the one held; on failure none is held.
    virtual bool lock(bool isExclusive) = 0;
    virtual void unlock() = 0;
    /// A note that the holders of the lock share.
    virtual std::string note() const = 0;
    virtual void setNote(const std::string& text) = 0;
};

/// An instrument as one session has it open, until the session ends. It transfers bytes and knows
/// no rules of VISA. Anything that takes time uses the call's time-out and its ways to wait, so
/// that others can use the library in the meantime.
class Device
{
public:
    virtual ~Device() = default;
    virtual Resource resource() const = 0;
    virtual DeviceLock& lock() = 0;
    /// Whether it was unplugged since it was opened; it stays lost when plugged in again.
    virtual bool isLost() const = 0;

    /// Called once, after the lock that viOpen asks for has been taken; not while another session
    /// has the instrument locked. A warning is what viOpen returns, an error ends it.
    virtual ViStatus start(VisaCall&) { return VI_SUCCESS; }
    /// Called at the start of every call for the session, before the locks are checked.
    /// An error ends the call; a warning is returned where the call succeeds.
    virtual ViStatus begin(VisaCall& call, Use use) = 0;
    /// Sends bytes at once; end marks the end of the message.
    virtual ViStatus write(VisaCall& call, std::string_view bytes, bool end) = 0;
    /// Reads at most count bytes, up to and with the stop character where it is 0 to 255.
    /// VI_SUCCESS with the end of the message, VI_SUCCESS_TERM_CHAR, VI_SUCCESS_MAX_CNT, or errors.
    virtual ViStatus read(VisaCall& call, size_t count, int stopCharacter, std::string& bytes) = 0;
    /// Drops the rest of the reply that is being read.
    virtual void discardReply(VisaCall& call) = 0;
    /// Drops all that is on its way; what was set stays.
    virtual ViStatus clear(VisaCall& call) = 0;
    virtual ViStatus trigger(VisaCall& call) = 0;
    virtual ViStatus readStatusByte(VisaCall& call, ViUInt16& status) = 0;
    /// Remote and local operation, by the modes of viGpibControlREN.
    virtual ViStatus controlRemote(VisaCall&, ViUInt16) { return VI_ERROR_NSUP_OPER; }
    /// Whether the instrument can ask for service.
    virtual bool canAskForService() const { return true; }
    /// Whether it has done so since it was last looked, where that is only known after a message.
    virtual bool takeServiceRequest() { return false; }
    /// Where it may do so at any time: calls from a thread, with the library unlocked, whenever it
    /// does, until the device is closed. Called again it changes nothing.
    virtual void watchService(const std::function<void()>& /*onRequest*/) {}
};

/// A text attribute as it is answered.
struct AttributeReply {
    ViStatus status = VI_SUCCESS;
    std::string text;
};

/// Where the library finds its instruments. Called with the library locked.
class Bus
{
public:
    virtual ~Bus() = default;
    /// What is plugged in. Opens nothing and waits for nothing.
    virtual std::vector<Resource> resources() const = 0;
    /// Opens an instrument, whoever has locked it: VI_SUCCESS or a warning with the device, else
    /// VI_ERROR_RSRC_NFOUND or another error.
    virtual ViStatus open(VisaCall& call, const ResourceName& name,
                          std::unique_ptr<Device>& device) = 0;
    /// Whether a lock is waited for as long as VISA says, or refused at once.
    virtual bool waitsForLocks() const { return true; }

    /// A client has called a function of the library, with whatever handle.
    virtual void callBegins(Use) {}
    /// Events other than messages, for a record: "find", with the expression, "open", "close".
    virtual void note(std::string_view /*what*/, std::string_view /*detail*/) {}
    /// What find lists answer for this attribute in place of the resource's own; null: nothing.
    virtual const AttributeReply* replacedAttribute(ViAttr) const { return nullptr; }
};

/// Gives this library its bus, which outlives all sessions. Each shared library has one constant of
/// this type in a namespace, so that the bus is known once the library has been loaded.
struct LibraryBus {
    explicit LibraryBus(Bus& (*bus)());
};
