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
class FakeSystem : public DriverSystem
{
public:
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
    void installsOnlyABrokenDriver_data();
    void installsOnlyABrokenDriver();
    void theToolFitsTheSystem();
    void foldersMayHaveBlanks();
};

void DriverCheckTest::installsOnlyABrokenDriver_data()
{
    testColumns<bool, QByteArray, QStringList, bool>("hasService", "answer", "commands",
                                                     "mayConnect");
    const QStringList onlyStatus(status);
    const QStringList both({status, install});
    const auto row = [](const char* name, bool hasService, const char* answer,
                        const QStringList& commands, bool mayConnect) {
        testRow(name, hasService, QByteArray(answer), commands, mayConnect);
    };
    row("no service", false, "Driver is running.", QStringList(install), false);
    row("running", true, "Driver is running.\n1 matching device(s) found.", onlyStatus, true);
    row("problem", true, "The device has the following problem: 28", both, false);
    row("problem, but running", true, "problem\nrunning", onlyStatus, true);
    row("another case", true, "Problem", onlyStatus, true);
    row("running in another case", true, "problem Running", both, false);
    row("no device", true, "No matching devices found.", onlyStatus, true);
    row("no tool", true, "", onlyStatus, true);
}

void DriverCheckTest::installsOnlyABrokenDriver()
{
    QFETCH(bool, hasService);
    QFETCH(QByteArray, answer);
    QFETCH(QStringList, commands);
    QFETCH(bool, mayConnect);
    FakeSystem system;
    system.hasService = hasService;
    system.answer = answer;
    QCOMPARE(checkDriver(system, QStringLiteral("C:/KLV")), mayConnect);
    QCOMPARE(system.commands, commands);
}

void DriverCheckTest::theToolFitsTheSystem()
{
    FakeSystem system;
    system.is64 = false;
    checkDriver(system, QStringLiteral("D:\\a/b"));
    QCOMPARE(system.commands, QStringList("D:\\a\\b\\Drivers\\devcon32.exe status " + id));
}

void DriverCheckTest::foldersMayHaveBlanks()
{
    const QString folder = driversFolder(QStringLiteral("C:/Program Files/KLV"));
    QCOMPARE(folder, QString("C:\\Program Files\\KLV\\Drivers\\"));
    QCOMPARE(installCommand(folder, driverTool(true)).arguments,
             " update \"C:\\Program Files\\KLV\\Drivers\\ausbtmc.inf\" " + id);
}

QTEST_GUILESS_MAIN(DriverCheckTest)
#include "driver_check_test.moc"
