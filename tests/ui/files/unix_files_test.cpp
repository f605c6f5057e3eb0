#include "profiles/profile_folder.h"
#include "sweep/list/list_file.h"
#include "tests/profiles/profile_rig.h"
#include "tests/support/documents_folder.h"
#include "tests/sweep/list_bench.h"
#include "ui/files/file_questions.h"
#include "ui/files/whole_file.h"

#include <QMessageBox>

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>

namespace
{
/// No file can grow, as on a full disk, for as long as this lives.
class FullDisk
{
public:
    FullDisk()
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit nothing{0, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &nothing);
    }
    ~FullDisk() { setrlimit(RLIMIT_FSIZE, &m_before); }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit m_before{};
};
} // namespace

/// What a full disk and pipes do to the program's files.
class UnixFilesTest : public QObject
{
    Q_OBJECT

private slots:
    void aFullDiskLeavesTheOldProfile()
    {
        ProfileRig rig;
        QVERIFY(rig.profiles().saveQuickProfile("a"));
        QVERIFY(rig.profiles().saveLast());
        const QString quick = quickProfilePath(rig.profiles().folder(), "a");
        const QString last = lastProfilePath(rig.profiles().folder());
        const QByteArray before = bytesOf(quick) + bytesOf(last);
        rig.takeLog();
        {
            const FullDisk full;
            QVERIFY(!rig.profiles().saveQuickProfile("a"));
            QVERIFY(!rig.profiles().renameQuickProfile(quick, "b"));
            QVERIFY(!rig.profiles().saveLast());
        }
        const QString said = "error: Error saving file";
        QCOMPARE(rig.takeLog(), QStringList({said, said}));
        QCOMPARE(bytesOf(quick) + bytesOf(last), before);
    }

    void aFullDiskLeavesTheOldList()
    {
        const QTemporaryDir home;
        const DocumentsFolder documents(home.path());
        const QString path = documents.path() + "/Veltro KLV/a.csv";
        ListBench bench;
        bench.setRows({"1,2,3"});
        const auto save = [&bench] {
            bench.answer<QFileDialog>("save_List", [](QFileDialog& dialog) {
                dialog.setOption(QFileDialog::DontConfirmOverwrite);
                dialog.findChild<QLineEdit*>("fileNameEdit")->setText("a.csv");
                static_cast<QDialog&>(dialog).accept();
            });
        };
        save();
        bench.setRows({"4,5,6"});
        {
            const FullDisk full;
            save();
        }
        QCOMPARE(bytesOf(path), QByteArray("1,2,3\n"));
        QCOMPARE(bench.said.size(), 2);
        const QString failure = "error: The list could not be saved as a.csv: ";
        QVERIFY2(bench.said.last().startsWith(failure), qPrintable(bench.said.last()));
        QVERIFY(bench.said.last().size() > failure.size());
    }

    /// A pipe without a writer blocks its reader for ever.
    void pipesAndDevicesAreRefused()
    {
        ProfileRig rig;
        const QString pipe = rig.path("pipe");
        QVERIFY(mkfifo(QFile::encodeName(pipe).constData(), 0600) == 0);
        for (const QString& path : {pipe, QString("/dev/zero"), QString("/")}) {
            QVERIFY2(!rig.profiles().open(path), qPrintable(path));
            QCOMPARE(rig.takeLog().filter("The profile cannot be read, nothing applied").size(), 1);
            QVERIFY2(!rig.profiles().save(path, "x"), qPrintable(path));
            rig.profiles().applyAtStart(path);
            QCOMPARE(readListFile(path).error, ListFileError::NotOpened);
            QCOMPARE(writeWholeFile(path, "1").fault, FileFault::NotRegular);
            rig.takeLog();
        }
    }

    /// Closed while its own question waits, in a loop above that of the question: a connection set
    /// up meanwhile has one.
    void aDialogOutlivesItsQuestion()
    {
        const QTemporaryDir folder;
        QVERIFY(writeWholeFile(folder.filePath("a.txt"), "1").fault == FileFault::None);
        QWidget window;
        window.show();
        askFileToSave(&window, {"Save", folder.path(), "Text (*.txt)", "a.txt"},
                      [](const QString&) {});
        const QPointer<QFileDialog> dialog = window.findChild<QFileDialog*>();
        bool isThere = false;
        QTimer::singleShot(0, &window, [&] {
            QEventLoop loop;
            QTimer::singleShot(0, &loop, [&] {
                dialog->findChild<QMessageBox*>()->reject();
                dialog->reject();
            });
            QTimer::singleShot(50, &loop, &QEventLoop::quit);
            loop.exec();
            isThere = !dialog.isNull();
        });
        QTest::keyClick(dialog->findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return);
        QVERIFY(isThere);
        QTRY_VERIFY(dialog.isNull());
    }
};

QTEST_MAIN(UnixFilesTest)
#include "unix_files_test.moc"
