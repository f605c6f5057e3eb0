#include "service/open_document.h"
#include "service/windows_system.h"
#include "tests/support/installed_driver.h"
#include "tests/support/rows.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

#include <optional>

namespace
{
const QString services = QStringLiteral("HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\services");

void write(const QString& path, const QByteArray& contents)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(contents), contents.size());
}
} // namespace

/// What the driver check and the About box ask of the system itself.
class WindowsSystemTest : public QObject
{
    Q_OBJECT

private slots:
    void theToolIsOfTheSystemsKind()
    {
        QCOMPARE(windowsSystem()->is64Bit(), QSysInfo::currentCpuArchitecture() == "x86_64");
    }

    void runsTheToolInAFolderWithBlanks_data()
    {
        testColumns<bool, QByteArray, QStringList, bool>("hasService", "answer", "commands",
                                                         "mayConnect");
        testRow("no service", false, QByteArray("running"), QStringList("update"), false);
        testRow("running", true, QByteArray("Driver is running."), QStringList("status"), true);
        testRow("problem", true, QByteArray("The device has the following problem: 28"),
                QStringList({"status", "update"}), false);
        testRow("long", true, QByteArray(200000, '.') + "problem",
                QStringList({"status", "update"}), false);
    }

    void runsTheToolInAFolderWithBlanks()
    {
        QFETCH(bool, hasService);
        QFETCH(QByteArray, answer);
        QFETCH(QStringList, commands);
        QFETCH(bool, mayConnect);
        QTemporaryDir folder(QDir::tempPath() + "/two blanks here XXXXXX");
        const QString program = folder.path();
        QVERIFY(QDir().mkpath(program + "/Drivers"));
        const QString drivers = driversFolder(program);
        std::optional<InstalledDriver> driver;
        if (hasService)
            driver.emplace();
        const auto system = windowsSystem();
        QCOMPARE(system->hasUsbTmcService(), hasService);
        QVERIFY(QFile::copy(KLV_STAND_IN_DEVCON, drivers + driverTool(system->is64Bit())));
        write(drivers + "answer.txt", answer);

        QCOMPARE(checkDriver(*system, program), mayConnect);
        const QString id = R"(USB\VID_5645&PID_0040&MI_00)";
        QByteArray calls;
        for (const QString& command : commands) {
            calls += command.toUtf8() + '|';
            if (command == "update")
                calls += drivers.toUtf8() + "ausbtmc.inf|";
            calls += id.toUtf8() + "\r\n";
        }
        QFile file(drivers + "calls.txt");
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), calls);
    }

    void aMissingToolIsAWorkingDriver()
    {
        const InstalledDriver driver;
        const auto system = windowsSystem();
        QTemporaryDir folder;
        QVERIFY(checkDriver(*system, folder.path()));
    }

    void documentsOpenByTheInterpreter_data()
    {
        testColumns<QString>("name");
        for (const char* name : {"two blanks here", "Programs (x86)", "this & md that",
                                 "50%, 60% and %no%", "^caret", "bang!", "a;b,c=d", "@home"})
            testRow(name, QString(name));
    }

    void documentsOpenByTheInterpreter()
    {
        QFETCH(QString, name);
        // A script is the document whose opening leaves a trace.
        QTemporaryDir folder(QDir::tempPath() + "/" + name + " XXXXXX");
        const QString document = folder.filePath("license text.cmd");
        // In a folder of plain characters: the script has rules of its own.
        QTemporaryDir traces;
        const QString trace = traces.filePath("opened.txt");
        write(document, "@echo opened> \"" + QDir::toNativeSeparators(trace).toUtf8() + "\"\r\n");
        QVERIFY(openDocument(document));
        QTRY_VERIFY(QFileInfo::exists(trace));
    }
};

QTEST_GUILESS_MAIN(WindowsSystemTest)
#include "windows_system_test.moc"
