#include "connection/running_copies.h"
#include "tests/support/rows.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

/// Two copies of the program that hold titles; the second copy is this test started again.
class TestRunningCopies : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void holdsOneTitle();
    void tellsAnyTitlesApart_data();
    void tellsAnyTitlesApart();
    void seesAnotherCopy_data();
    void seesAnotherCopy();
    void letsTitlesPassWithoutFolder();

private:
    std::unique_ptr<QTemporaryDir> m_folder;
};

namespace
{
constexpr char Title[] = "KLV-20G (1234-5678)";

/// The second copy: holds `title` until its standard input ends, or it is killed.
int hold(const QString& title)
{
    RunningCopies copies;
    QTextStream(stdout) << (copies.claim(title) ? "held" : "refused") << Qt::endl;
    QTextStream(stdin).readLine();
    return 0;
}

void startCopy(QProcess& copy, const QByteArray& answer)
{
    copy.start(QCoreApplication::applicationFilePath(), {"--hold", Title});
    QVERIFY(copy.waitForReadyRead());
    QCOMPARE(copy.readLine().trimmed(), answer);
}
} // namespace

void TestRunningCopies::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(m_folder->path()));
}

void TestRunningCopies::holdsOneTitle()
{
    const RunningCopies other;
    {
        RunningCopies copies;
        QVERIFY(!copies.isTitleTaken("A"));
        QVERIFY(copies.claim("A"));
        QVERIFY(copies.isTitleTaken("A"));
        QVERIFY(other.isTitleTaken("A"));
        QVERIFY(!copies.claim("A"));
        QVERIFY(copies.claim("B"));
        QVERIFY(!other.isTitleTaken("A"));
        QVERIFY(other.isTitleTaken("B"));
        RunningCopies third;
        QVERIFY(third.claim("C"));
        QVERIFY(!copies.claim("C"));
        QVERIFY(other.isTitleTaken("B"));
        copies.release();
        QVERIFY(!other.isTitleTaken("B"));
        QVERIFY(copies.claim("B"));
    }
    QVERIFY(!other.isTitleTaken("B"));
    QVERIFY(!other.isTitleTaken("C"));
}

void TestRunningCopies::tellsAnyTitlesApart_data()
{
    testColumns<QString, QString>("title", "otherTitle");
    testRow("case", "KLV (a)", "KLV (A)");
    testRow("folders", "../KLV (1/2)", "../KLV (1_2)");
    testRow("rubbish", QString(QChar(0)) + QChar(0xd800) + "\n\x7f",
            QString(QChar(0)) + QChar(0xfffe) + "\n\x7f");
    testRow("long", QString(5000, 'x') + '1', QString(5000, 'x') + '2');
    testRow("empty", "", " ()");
}

void TestRunningCopies::tellsAnyTitlesApart()
{
    QFETCH(QString, title);
    QFETCH(QString, otherTitle);
    RunningCopies copies;
    const RunningCopies other;
    QVERIFY(copies.claim(title));
    QVERIFY(other.isTitleTaken(title));
    QVERIFY(!other.isTitleTaken(otherTitle));
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files).size(), 1);
}

void TestRunningCopies::seesAnotherCopy_data()
{
    testColumns<bool>("isKilled");
    testRow("ends by itself", false);
    testRow("is killed", true);
}

void TestRunningCopies::seesAnotherCopy()
{
    QFETCH(bool, isKilled);
    RunningCopies copies;
    QProcess copy;
    startCopy(copy, "held");
    QVERIFY(copies.isTitleTaken(Title));
    QVERIFY(!copies.claim(Title));
    QVERIFY(copies.claim("KLV-20G (another)"));

    isKilled ? copy.kill() : copy.closeWriteChannel();
    QVERIFY(copy.waitForFinished());
    QCOMPARE(copy.exitStatus(), isKilled ? QProcess::CrashExit : QProcess::NormalExit);
    QVERIFY(!copies.isTitleTaken(Title));
    QVERIFY(copies.claim(Title));
    QProcess second;
    startCopy(second, "refused");
    second.closeWriteChannel();
    QVERIFY(second.waitForFinished());
}

void TestRunningCopies::letsTitlesPassWithoutFolder()
{
    const QByteArray nowhere = QFile::encodeName(m_folder->filePath("none/of/these"));
    const QByteArray temporary = qgetenv("TMPDIR");
    qputenv("XDG_RUNTIME_DIR", nowhere);
    qputenv("TMPDIR", QFile::encodeName(m_folder->path()));
    {
        RunningCopies copies;
        QVERIFY(copies.claim(Title));
        QProcess copy;
        startCopy(copy, "refused");
        copy.kill();
        QVERIFY(copy.waitForFinished());
    }
    qputenv("TMPDIR", nowhere);
    RunningCopies copies;
    QVERIFY(!copies.isTitleTaken(Title));
    QVERIFY(copies.claim(Title));
    qputenv("TMPDIR", temporary);
}

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.value(1) == "--hold")
        return hold(arguments.value(2));
    TestRunningCopies test;
    return QTest::qExec(&test, argc, argv);
}

#include "running_copies_test.moc"
