#include "service/driver_check.h"

#include <QtTest>

namespace
{
const QString id = QStringLiteral("\"USB\\VID_5645&PID_0040&MI_00\"");
const QString status = QStringLiteral("C:\\KLV\\Drivers\\devcon64.exe status ") + id;
const QString install =
    QStringLiteral("C:\\KLV\\Drivers\\devcon64.exe update C:\\KLV\\Drivers\\ausbtmc.inf ") + id;

/// A system that gives set answers and records what is run.
struct FakeSystem : DriverSystem {
    bool hasUsbTmcService() const override { return hasService; }
    bool is64Bit() const override { return is64; }
    QByteArray run(const DriverCommand& command) override
    {
        commands << command.program + command.arguments;
        return answer;
    }

    bool hasService = true;
    bool is64 = true;
    QByteArray answer;
    QStringList commands;
};
} // namespace

/// What is decided about the instrument's driver, on every platform.
class DriverCheckTest : public QObject
{
    Q_OBJECT

private slots:
    void installsOnlyABrokenDriver()
    {
        const auto check = [](bool hasService, const char* answer, const QStringList& commands,
                              bool mayConnect) {
            FakeSystem system;
            system.hasService = hasService;
            system.answer = answer;
            QCOMPARE(checkDriver(system, QStringLiteral("C:/KLV")), mayConnect);
            QCOMPARE(system.commands, commands);
        };
        check(false, "Driver is running.", {install}, false);
        check(true, "Driver is running.\n1 matching device(s) found.", {status}, true);
        check(true, "The device has the following problem: 28", {status, install}, false);
        check(true, "problem\nrunning", {status}, true);
        check(true, "Problem", {status}, true);
        check(true, "problem Running", {status, install}, false);
        check(true, "No matching devices found.", {status}, true);
        // No tool.
        check(true, "", {status}, true);
    }

    void theToolFitsSystemAndFolder()
    {
        FakeSystem system;
        system.is64 = false;
        checkDriver(system, QStringLiteral("D:\\a/b"));
        QCOMPARE(system.commands, QStringList("D:\\a\\b\\Drivers\\devcon32.exe status " + id));
        const QString folder = driversFolder(QStringLiteral("C:/Program Files/KLV"));
        QCOMPARE(installCommand(folder, driverTool(true)).arguments,
                 " update \"C:\\Program Files\\KLV\\Drivers\\ausbtmc.inf\" " + id);
    }
};

QTEST_GUILESS_MAIN(DriverCheckTest)
#include "driver_check_test.moc"
