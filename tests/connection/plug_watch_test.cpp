#include "connection/demo_plug_watch.h"
#include "connection/usb_instance_id.h"
#include "tests/support/rows.h"

#include <QSaveFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

/// The matching of Windows device IDs, and the watch over a file of simulated instruments.
class TestHotPlug : public QObject
{
    Q_OBJECT

private slots:
    void listsSerialsPairByPair()
    {
        // Those of others have the digits of ours in their serials.
        const QStringList parentIds{
            R"(USB\VID_5645&PID_0045\E)",        R"(USB\VID_5645&PID_0040\wrong side)",
            R"(USB\VID_5645&PID_0041\A)",        R"(usb\vid_5645&pid_0041\a2)",
            R"(USB\VID_5645&PID_0041\A3\extra)", R"(USB\VID_5645&PID_0043\C)",
            R"(USB\VID_5645&PID_0046\0041)",     R"(USB\VID_1D50&PID_0041\5645)",
            R"(USB\VID_5645&PID_0041)",          R"(USB\ROOT_HUB30\4&1&0)",
        };
        const QStringList ownIds{R"(USB\VID_5645&PID_0044\F)", R"(USB\VID_5645&PID_0042\D)",
                                 R"(USB\VID_5645&PID_0041\wrong side)",
                                 R"(USB\VID_5645&PID_0040\B)"};
        QCOMPARE(serialsInInstanceIds(parentIds, ownIds).join(' '), QString("A a2 A3 B C D E F"));
        QCOMPARE(serialsInInstanceIds({}, {}), QStringList());
    }

    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        m_path = m_folder->filePath("instruments.ini");
        write("[1001]\n[1002]\n");
        m_watch = std::make_unique<DemoPlugWatch>(m_path);
        m_changes = std::make_unique<QSignalSpy>(m_watch.get(), &HotPlugWatch::devicesChanged);
    }

    void followsFile_data()
    {
        testColumns<QString>("way");
        testRow("rewritten", "rewritten");
        testRow("replaced", "replaced");
        // Not allowed on Windows.
        if (QSysInfo::productType() != "windows")
            testRow("replaced while held open", "replaced");
    }

    void followsFile()
    {
        QFETCH(QString, way);
        QFile reader(m_path);
        if (QByteArray(QTest::currentDataTag()).endsWith("open"))
            QVERIFY(reader.open(QIODevice::ReadOnly));
        const struct {
            QString way;
            QByteArray content;
            QStringList serials;
        } changes[] = {
            {way, "[1001]\n[1002]\n[1003]\n", {"1001", "1002", "1003"}},
            {way, "[1002]\n", {"1002"}},
            {"removed", "", {}},
            {way, "[1003]\n", {"1003"}},
            {"rewritten", "[1004]\n", {"1004"}},
        };
        for (const auto& change : changes) {
            put(change.way, change.content);
            QVERIFY(m_changes->wait());
            QCOMPARE(m_watch->presentSerials(), change.serials);
        }
        QCOMPARE(m_changes->count(), 5);
    }

    void staysSilentWhileContentIsTheSame()
    {
        put("rewritten", "[1001]\n[1002]\n");
        put("replaced", "[1001]\n[1002]\n");
        QFile(m_folder->filePath("another.ini")).open(QIODevice::WriteOnly);
        QVERIFY(!m_changes->wait(2 * DemoPlugWatch::QuietMs));
    }

    /// An editor empties the file, then fills it: that does not count as unplugging, unless a
    /// connection was lost by it.
    void waitsUntilWritingIsOver_data()
    {
        testColumns<bool>("isLost");
        testRow("connected", false);
        testRow("connection lost", true);
    }

    void waitsUntilWritingIsOver()
    {
        QFETCH(bool, isLost);
        if (QSysInfo::kernelType() == QLatin1String("winnt") && !isLost)
            QSKIP("Windows reports a rewritten file like a replaced one");
        write("");
        QVERIFY(!m_changes->wait(DemoPlugWatch::QuietMs / 3));
        if (isLost)
            m_watch->noteLoss();
        write("[1001]\n[1002]\n");
        QCOMPARE(m_changes->wait(isLost ? 5000 : 2 * DemoPlugWatch::QuietMs), isLost);
    }

    void noticesOutAndIn_data()
    {
        testColumns<QString, QByteArray>("way", "out");
        testRow("replaced", "replaced", QByteArray("[1002]\n"));
        testRow("replaced by nothing", "replaced", QByteArray());
        testRow("rewritten", "rewritten", QByteArray("[1002]\n"));
        testRow("removed", "removed", QByteArray());
    }

    /// Faster than the file is read: listeners see it removed and added.
    void noticesOutAndIn()
    {
        QFETCH(QString, way);
        QFETCH(QByteArray, out);
        QVector<bool> seen;
        connect(m_watch.get(), &HotPlugWatch::devicesChanged, this,
                [&] { seen << m_watch->presentSerials().contains("1001"); });
        put(way, out);
        QTest::qWait(50);
        write("[1001]\n[1002]\n");
        QTRY_COMPARE(seen, QVector<bool>({false, true}));
        QVERIFY(m_watch->presentSerials().contains("1001"));
    }

    void readsSections_data()
    {
        testColumns<QByteArray, QStringList>("content", "serials");
        testRow("comments", QByteArray("; [1]\n# [2]\n[3]\nmodel=[4]\n"), QStringList("3"));
        testRow("line ends of Windows, blanks", QByteArray("[1]\r\nlatency=1\r\n  [ 2 ]\r\n"),
                QStringList({"1", "2"}));
        testRow("twice", QByteArray("[1]\n[1]\n"), QStringList("1"));
        testRow("damaged", QByteArray("[]\n[1\n\x00\xff[2]\n"), QStringList());
    }

    void readsSections()
    {
        QFETCH(QByteArray, content);
        QFETCH(QStringList, serials);
        write(content);
        QCOMPARE(m_watch->presentSerials(), serials);
        QCOMPARE(DemoPlugWatch(QString()).presentSerials(), QStringList());
    }

private:
    void write(const QByteArray& content) const { put("rewritten", content); }

    void put(const QString& way, const QByteArray& content) const
    {
        QFile file(m_path);
        QSaveFile other(m_path);
        QFileDevice* device = way == "replaced" ? &other : static_cast<QFileDevice*>(&file);
        if (way == "removed") {
            QVERIFY(file.remove());
            return;
        }
        QVERIFY(device->open(QIODevice::WriteOnly));
        QCOMPARE(device->write(content), content.size());
        if (way == "replaced")
            QVERIFY(other.commit());
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_path;
    std::unique_ptr<DemoPlugWatch> m_watch;
    std::unique_ptr<QSignalSpy> m_changes;
};

QTEST_GUILESS_MAIN(TestHotPlug)
#include "plug_watch_test.moc"
