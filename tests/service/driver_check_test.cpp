#include "service/driver_check.h"
#include "tests/support/rows.h"

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
    void installsOnlyABrokenDriver_data()
    {
        testColumns<bool, QString, QStringList, bool>("hasService", "answer", "commands",
                                                      "mayConnect");
        const QStringList onlyStatus(status);
        const QStringList both({status, install});
        testRow("no service", false, "Driver is running.", QStringList(install), false);
        testRow("running", true, "Driver is running.\n1 matching device(s) found.", onlyStatus,
                true);
        testRow("problem", true, "The device has the following problem: 28", both, false);
        testRow("problem, but running", true, "problem\nrunning", onlyStatus, true);
        testRow("another case", true, "Problem", onlyStatus, true);
        testRow("running in another case", true, "problem Running", both, false);
        testRow("no device", true, "No matching devices found.", onlyStatus, true);
        testRow("no tool", true, "", onlyStatus, true);
    }

    void installsOnlyABrokenDriver()
    {
        QFETCH(bool, hasService);
        QFETCH(QString, answer);
        QFETCH(QStringList, commands);
        QFETCH(bool, mayConnect);
        FakeSystem system;
        system.hasService = hasService;
        system.answer = answer.toLatin1();
        QCOMPARE(checkDriver(system, QStringLiteral("C:/KLV")), mayConnect);
        QCOMPARE(system.commands, commands);
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
