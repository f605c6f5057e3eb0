#include "connection/running_copies.h"
#include "tests/support/rows.h"

#include <QtTest>

/// Two copies of the program that hold titles; the second copy is this test started again.
class TestRunningCopies : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(m_folder->path()));
    }

    void holdsOneTitle()
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

    void tellsAnyTitlesApart()
    {
        const std::pair<QString, QString> titles[] = {
            {"KLV (a)", "KLV (A)"},
            {"../KLV (1/2)", "../KLV (1_2)"},
            {QString(QChar(0)) + QChar(0xd800) + "\n\x7f",
             QString(QChar(0)) + QChar(0xfffe) + "\n\x7f"},
            {QString(5000, 'x') + '1', QString(5000, 'x') + '2'},
            {"", " ()"},
        };
        const RunningCopies other;
        for (const auto& [title, otherTitle] : titles) {
            RunningCopies copies;
            QVERIFY(copies.claim(title));
            QVERIFY(other.isTitleTaken(title));
            QVERIFY(!other.isTitleTaken(otherTitle));
            QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files).size(), 1);
        }
    }

    void seesAnotherCopy_data() { testNames("end", {"by itself", "killed"}); }

    void seesAnotherCopy()
    {
        QFETCH(QString, end);
        RunningCopies copies;
        QProcess copy;
        startCopy(copy, "held");
        QVERIFY(copies.isTitleTaken(m_title));
        QVERIFY(!copies.claim(m_title));
        QVERIFY(copies.claim("KLV-20G (another)"));

        end == "killed" ? copy.kill() : copy.closeWriteChannel();
        QVERIFY(copy.waitForFinished());
        QVERIFY(!copies.isTitleTaken(m_title));
        QVERIFY(copies.claim(m_title));
        startCopy(copy, "refused");
        copy.kill();
        QVERIFY(copy.waitForFinished());
    }

    void letsTitlesPassWithoutFolder()
    {
        const QByteArray nowhere = QFile::encodeName(m_folder->filePath("none/of/these"));
        const QByteArray temporary = qgetenv("TMPDIR");
        qputenv("XDG_RUNTIME_DIR", nowhere);
        qputenv("TMPDIR", QFile::encodeName(m_folder->path()));
        RunningCopies copies;
        QVERIFY(copies.claim(m_title));
        QProcess copy;
        startCopy(copy, "refused");
        copy.kill();
        QVERIFY(copy.waitForFinished());
        qputenv("TMPDIR", nowhere);
        RunningCopies homeless;
        QVERIFY(!homeless.isTitleTaken(m_title));
        QVERIFY(homeless.claim(m_title));
        qputenv("TMPDIR", temporary);
    }

private:
    void startCopy(QProcess& copy, const QByteArray& answer) const
    {
        copy.start(QCoreApplication::applicationFilePath(), {"--hold", m_title});
        QVERIFY(copy.waitForReadyRead());
        QCOMPARE(copy.readLine().trimmed(), answer);
    }

    const QString m_title = "KLV-20G (1234-5678)";
    std::unique_ptr<QTemporaryDir> m_folder;
};

/// With --hold TITLE, the second copy: holds it until its standard input ends, or it is killed.
int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.value(1) == "--hold") {
        RunningCopies copies;
        QTextStream(stdout) << (copies.claim(arguments.value(2)) ? "held" : "refused") << Qt::endl;
        QTextStream(stdin).readLine();
        return 0;
    }
    TestRunningCopies test;
    return QTest::qExec(&test, argc, argv);
}

#include "running_copies_test.moc"
