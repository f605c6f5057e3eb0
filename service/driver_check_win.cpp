#include "service/windows_system.h"

#include <QCoreApplication>
#include <QProcess>

#include <windows.h>

namespace
{
constexpr int longestMs = 30000;

/// A key of the local machine, open during its lifetime.
class MachineKey
{
public:
    explicit MachineKey(const wchar_t* path)
    {
        m_isOpen = RegOpenKeyW(HKEY_LOCAL_MACHINE, path, &m_key) == ERROR_SUCCESS;
    }
    ~MachineKey()
    {
        if (m_isOpen)
            RegCloseKey(m_key);
    }
    MachineKey(const MachineKey&) = delete;
    MachineKey& operator=(const MachineKey&) = delete;

    bool isOpen() const { return m_isOpen; }

private:
    HKEY m_key = nullptr;
    bool m_isOpen = false;
};

class WindowsSystem : public DriverSystem
{
public:
    bool hasUsbTmcService() const override { return m_service.isOpen(); }

    bool is64Bit() const override { return MachineKey(L"SOFTWARE\\Wow6432Node").isOpen(); }

    QByteArray run(const DriverCommand& command) override
    {
        QProcess process;
        process.setProgram(command.program);
        // As one native text: QProcess would escape the quotes of an argument once more.
        process.setNativeArguments(command.arguments.trimmed());
        process.start(QIODevice::ReadWrite);
        return process.waitForFinished(longestMs) ? process.readAllStandardOutput() : QByteArray();
    }

private:
    MachineKey m_service{L"SYSTEM\\CurrentControlSet\\services\\Usbtmc"};
};
} // namespace

std::unique_ptr<DriverSystem> windowsSystem()
{
    return std::make_unique<WindowsSystem>();
}

bool checkDriver()
{
    return checkDriver(*windowsSystem(), QCoreApplication::applicationDirPath());
}
