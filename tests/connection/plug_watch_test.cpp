#include "connection/demo_plug_watch.h"
#include "connection/usb_instance_id.h"
#include "tests/support/rows.h"

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

    void followsFile()
    {
        const auto row = freshRows(this, [this](const QString& way, bool isHeldOpen) {
            QFile reader(m_path);
            if (isHeldOpen)
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
        });
        row("rewritten", "rewritten", false);
        row("replaced", "replaced", false);
        // Not allowed on Windows.
        if (QSysInfo::productType() != "windows")
            row("replaced while held open", "replaced", true);
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
    void waitsUntilWritingIsOver_data() { testNames("connection", {"there", "lost"}); }

    void waitsUntilWritingIsOver()
    {
        QFETCH(QString, connection);
        const bool isLost = connection == "lost";
        if (QSysInfo::kernelType() == QLatin1String("winnt") && !isLost)
            QSKIP("Windows reports a rewritten file like a replaced one");
        write("");
        QVERIFY(!m_changes->wait(DemoPlugWatch::QuietMs / 3));
        if (isLost)
            m_watch->noteLoss();
        write("[1001]\n[1002]\n");
        QCOMPARE(m_changes->wait(isLost ? 5000 : 2 * DemoPlugWatch::QuietMs), isLost);
    }

    /// Faster than the file is read: listeners see it removed and added.
    void noticesOutAndIn()
    {
        const auto row = freshRows(this, [this](const QString& way, const QByteArray& out) {
            QVector<bool> seen;
            connect(m_watch.get(), &HotPlugWatch::devicesChanged, this,
                    [&] { seen << m_watch->presentSerials().contains("1001"); });
            put(way, out);
            QTest::qWait(50);
            write("[1001]\n[1002]\n");
            QTRY_COMPARE(seen, QVector<bool>({false, true}));
            QVERIFY(m_watch->presentSerials().contains("1001"));
        });
        row("replaced", "replaced", QByteArray("[1002]\n"));
        row("replaced by nothing", "replaced", QByteArray());
        row("rewritten", "rewritten", QByteArray("[1002]\n"));
        row("removed", "removed", QByteArray());
    }

    void readsSections()
    {
        const std::pair<QByteArray, QStringList> files[] = {
            {"; [1]\n# [2]\n[3]\nmodel=[4]\n", {"3"}},
            {"[1]\r\nlatency=1\r\n  [ 2 ]\r\n", {"1", "2"}},
            {"[1]\n[1]\n", {"1"}},
            {QByteArray("[]\n[1\n\x00\xff[2]\n", 12), {}},
        };
        for (const auto& [content, serials] : files) {
            write(content);
            QCOMPARE(m_watch->presentSerials(), serials);
        }
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
