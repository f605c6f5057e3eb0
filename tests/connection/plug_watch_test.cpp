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
    void readsSerialOfInstanceId_data();
    void readsSerialOfInstanceId();
    void listsSerialsPairByPair();

    void init();
    void followsFile_data();
    void followsFile();
    void staysSilentWhileContentIsTheSame();
    void waitsUntilWritingIsOver();
    void noticesOutAndIn_data();
    void noticesOutAndIn();
    void noticesAReturnAfterALoss();
    void readsSections_data();
    void readsSections();

private:
    void write(const QByteArray& content, const QString& path) const;
    void replace(const QByteArray& content) const;

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_path;
};

void TestHotPlug::readsSerialOfInstanceId_data()
{
    testColumns<QString, QString>("instanceId", "serial");
    testRow("own", R"(USB\VID_5645&PID_0041\1234-5678)", "1234-5678");
    testRow("lower case", R"(usb\vid_5645&pid_0041\ab12)", "ab12");
    testRow("more parts", R"(USB\VID_5645&PID_0041\1234\extra)", "1234");
    testRow("another product", R"(USB\VID_5645&PID_0040\1234)", "");
    testRow("another vendor", R"(USB\VID_1D50&PID_0041\1234)", "");
    testRow("IDs in the serial only", R"(USB\VID_1D50&PID_6018\56450041)", "");
    testRow("two parts", R"(USB\VID_5645&PID_0041)", "");
    testRow("none", "", "");
}

void TestHotPlug::readsSerialOfInstanceId()
{
    QFETCH(QString, instanceId);
    QFETCH(QString, serial);
    QCOMPARE(serialsInInstanceIds({instanceId}, {}, false).join(' '), serial);
}

void TestHotPlug::listsSerialsPairByPair()
{
    const QStringList parentIds{R"(USB\VID_5645&PID_0045\E)", R"(USB\VID_5645&PID_0040\wrong side)",
                                R"(USB\VID_5645&PID_0041\A)", R"(USB\VID_5645&PID_0043\C)",
                                R"(USB\ROOT_HUB30\4&1&0)"};
    const QStringList ownIds{R"(USB\VID_5645&PID_0044\F)", R"(USB\VID_5645&PID_0042\D)",
                             R"(USB\VID_5645&PID_0041\wrong side)", R"(USB\VID_5645&PID_0040\B)"};
    QCOMPARE(serialsInInstanceIds(parentIds, ownIds, false),
             QStringList({"A", "B", "C", "D", "E", "F"}));
    QCOMPARE(serialsInInstanceIds(parentIds, ownIds, true), QStringList("A"));
    QCOMPARE(serialsInInstanceIds({}, ownIds, true), QStringList("B"));
    QCOMPARE(serialsInInstanceIds({}, {}, true), QStringList());
}

void TestHotPlug::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    m_path = m_folder->filePath("instruments.ini");
}

void TestHotPlug::write(const QByteArray& content, const QString& path) const
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), content.size());
}

void TestHotPlug::replace(const QByteArray& content) const
{
    QSaveFile file(m_path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), content.size());
    QVERIFY(file.commit());
}

void TestHotPlug::followsFile_data()
{
    testColumns<QString>("way");
    for (const char* way : {"rewritten", "replaced", "replaced while held open"}) {
        if (QSysInfo::productType() == "windows" && qstrcmp(way, "replaced while held open") == 0)
            continue; // not allowed there
        QTest::newRow(way) << way;
    }
}

void TestHotPlug::followsFile()
{
    QFETCH(QString, way);
    write("[1001]\nmodel = KLV-20G\n", m_path);
    DemoPlugWatch watch(m_path);
    QSignalSpy changes(&watch, &HotPlugWatch::devicesChanged);
    QFile reader(m_path);
    if (way == "replaced while held open")
        QVERIFY(reader.open(QIODevice::ReadOnly));
    const auto put = [&](const QByteArray& content) {
        way == "rewritten" ? write(content, m_path) : replace(content);
    };
    QCOMPARE(watch.presentSerials(false), QStringList("1001"));

    put("[1001]\n[1002]\n");
    QVERIFY(changes.wait());
    QCOMPARE(watch.presentSerials(false), QStringList({"1001", "1002"}));
    put("[1002]\n");
    QVERIFY(changes.wait());
    QCOMPARE(watch.presentSerials(false), QStringList("1002"));
    QVERIFY(QFile::remove(m_path));
    QVERIFY(changes.wait());
    QCOMPARE(watch.presentSerials(false), QStringList());
    put("[1003]\n");
    QVERIFY(changes.wait());
    QCOMPARE(watch.presentSerials(false), QStringList("1003"));
    write("[1004]\n", m_path);
    QVERIFY(changes.wait());
    QCOMPARE(watch.presentSerials(true), QStringList("1004"));
    QCOMPARE(changes.count(), 5);
}

void TestHotPlug::staysSilentWhileContentIsTheSame()
{
    write("[1001]\n", m_path);
    DemoPlugWatch watch(m_path);
    QSignalSpy changes(&watch, &HotPlugWatch::devicesChanged);
    write("[1001]\n", m_path);
    replace("[1001]\n");
    write("[9999]\n", m_folder->filePath("another.ini"));
    QVERIFY(!changes.wait(2 * DemoPlugWatch::QuietMs));
}

void TestHotPlug::waitsUntilWritingIsOver()
{
    if (QSysInfo::kernelType() == QLatin1String("winnt"))
        QSKIP("Windows reports a rewritten file like a replaced one");
    write("[1001]\n", m_path);
    DemoPlugWatch watch(m_path);
    QSignalSpy changes(&watch, &HotPlugWatch::devicesChanged);
    // An editor empties the file, then fills it: the cable was not pulled in between.
    write("", m_path);
    QVERIFY(!changes.wait(100));
    write("[1001]\n", m_path);
    QVERIFY(!changes.wait(2 * DemoPlugWatch::QuietMs));
}

void TestHotPlug::noticesOutAndIn_data()
{
    testColumns<QString, QByteArray>("way", "out");
    testRow("replaced", "replaced", QByteArray("[1002]\n"));
    testRow("replaced by nothing", "replaced", QByteArray());
    testRow("rewritten", "rewritten", QByteArray("[1002]\n"));
    testRow("removed", "removed", QByteArray());
}

/// Faster than the file is read: listeners see it removed and added.
void TestHotPlug::noticesOutAndIn()
{
    QFETCH(QString, way);
    QFETCH(QByteArray, out);
    write("[1001]\n[1002]\n", m_path);
    DemoPlugWatch watch(m_path);
    QVector<bool> seen;
    connect(&watch, &HotPlugWatch::devicesChanged, this,
            [&] { seen << watch.presentSerials(false).contains("1001"); });
    if (way == "removed")
        QVERIFY(QFile::remove(m_path));
    else
        way == "rewritten" ? write(out, m_path) : replace(out);
    QTest::qWait(50);
    write("[1001]\n[1002]\n", m_path);
    QTRY_COMPARE(seen, QVector<bool>({false, true}));
    QVERIFY(watch.presentSerials(false).contains("1001"));
}

/// A file emptied for a moment does not count as unplugging, unless a connection was lost by it.
void TestHotPlug::noticesAReturnAfterALoss()
{
    write("[1001]\n", m_path);
    DemoPlugWatch watch(m_path);
    QSignalSpy changes(&watch, &HotPlugWatch::devicesChanged);
    write("", m_path);
    QTest::qWait(50);
    watch.noteLoss();
    write("[1001]\n", m_path);
    QVERIFY(changes.wait());
}

void TestHotPlug::readsSections_data()
{
    testColumns<QByteArray, QStringList>("content", "serials");
    testRow("comments", QByteArray("; [1]\n# [2]\n[3]\nmodel=[4]\n"), QStringList("3"));
    testRow("line ends of Windows, blanks", QByteArray("[1]\r\nlatency=1\r\n  [ 2 ]\r\n"),
            QStringList({"1", "2"}));
    testRow("twice", QByteArray("[1]\n[1]\n"), QStringList("1"));
    testRow("damaged", QByteArray("[]\n[1\n\x00\xff[2]\n"), QStringList());
}

void TestHotPlug::readsSections()
{
    QFETCH(QByteArray, content);
    QFETCH(QStringList, serials);
    write(content, m_path);
    const DemoPlugWatch watch(m_path);
    QCOMPARE(watch.presentSerials(false), serials);
    QCOMPARE(watch.presentSerials(true), serials.mid(0, 1));
    QCOMPARE(DemoPlugWatch(QString()).presentSerials(false), QStringList());
}

QTEST_GUILESS_MAIN(TestHotPlug)
#include "plug_watch_test.moc"
