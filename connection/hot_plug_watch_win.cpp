#include "connection/hot_plug_watch.h"
#include "connection/usb_instance_id.h"

#include <QAbstractNativeEventFilter>
#include <QCoreApplication>
#include <QTimer>

#include <windows.h>

#include <cfgmgr32.h>
#include <dbt.h>
#include <setupapi.h>

namespace
{
/// The device-interface class of the instrument's driver.
constexpr GUID InterfaceClass = {
    0xA9FDBB24, 0x128A, 0x11D5, {0x99, 0x61, 0x00, 0x10, 0x83, 0x35, 0xE3, 0x61}};

/// Every window of the program receives the message, and one plug sends several.
constexpr int BurstMs = 50;

/// The watch over Windows' device-change message and its device tree.
class DeviceTreeWatch : public HotPlugWatch, public QAbstractNativeEventFilter
{
public:
    DeviceTreeWatch();
    QStringList presentSerials() const override;
    bool nativeEventFilter(const QByteArray& eventType, void* message, long* result) override;

private:
    QTimer m_burst;
};

QString parentId(DEVINST device)
{
    DEVINST parent = 0;
    wchar_t buffer[MAX_DEVICE_ID_LEN + 1] = {};
    if (CM_Get_Parent(&parent, device, 0) != CR_SUCCESS ||
        CM_Get_Device_IDW(parent, buffer, MAX_DEVICE_ID_LEN, 0) != CR_SUCCESS)
        return {};
    return QString::fromWCharArray(buffer);
}

QString ownId(HDEVINFO devices, SP_DEVINFO_DATA* device)
{
    wchar_t buffer[MAX_DEVICE_ID_LEN + 1] = {};
    if (!SetupDiGetDeviceInstanceIdW(devices, device, buffer, MAX_DEVICE_ID_LEN, nullptr))
        return {};
    return QString::fromWCharArray(buffer);
}

DeviceTreeWatch::DeviceTreeWatch()
{
    m_burst.setSingleShot(true);
    m_burst.setInterval(BurstMs);
    connect(&m_burst, &QTimer::timeout, this, &HotPlugWatch::devicesChanged);
    QCoreApplication::instance()->installNativeEventFilter(this);
}

bool DeviceTreeWatch::nativeEventFilter(const QByteArray& eventType, void* message, long*)
{
    if (eventType == "windows_generic_MSG") {
        const MSG* event = static_cast<const MSG*>(message);
        if (event->message == WM_DEVICECHANGE && event->wParam == DBT_DEVNODES_CHANGED &&
            !m_burst.isActive())
            m_burst.start();
    }
    return false;
}

QStringList DeviceTreeWatch::presentSerials() const
{
    const HDEVINFO devices = SetupDiGetClassDevsW(&InterfaceClass, nullptr, nullptr,
                                                  DIGCF_PRESENT | DIGCF_DEVICEINTERFACE);
    if (devices == INVALID_HANDLE_VALUE)
        return {};
    QStringList parentIds;
    QStringList ownIds;
    SP_DEVINFO_DATA device = {};
    device.cbSize = sizeof device;
    for (DWORD index = 0; SetupDiEnumDeviceInfo(devices, index, &device); ++index) {
        parentIds += parentId(device.DevInst);
        ownIds += ownId(devices, &device);
    }
    SetupDiDestroyDeviceInfoList(devices);
    return serialsInInstanceIds(parentIds, ownIds);
}
} // namespace

std::unique_ptr<HotPlugWatch> createBusWatch()
{
    return std::make_unique<DeviceTreeWatch>();
}
