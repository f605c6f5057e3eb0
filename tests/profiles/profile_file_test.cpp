#include "tests/profiles/profile_rig.h"

#include "profiles/profile_folder.h"
#include "tests/support/rows.h"

namespace
{
QByteArray document(const QByteArray& inside)
{
    return "<!DOCTYPE KLV>\n<KLV>\n <QUICK_Profile_KLV>it</QUICK_Profile_KLV>\n" + inside +
           "</KLV>\n";
}

QByteArray ofPanel(const QByteArray& inside)
{
    return document(" <Modulat>\n  " + inside + "\n </Modulat>\n");
}
} // namespace

/// Profile files: what is written, what of a file is replayed and how, and what becomes of files
/// that are no profile.
class ProfileFileTest : public QObject
{
    Q_OBJECT

private slots:
    void writesEveryControlOfEveryPanel()
    {
        ProfileRig rig;
        const QString path = rig.path("whole.xml");
        QVERIFY(rig.profiles().save(path, "my <first>"));
        const QByteArray expected = "<!DOCTYPE KLV>\n"
                                    "<KLV>\n"
                                    " <QUICK_Profile_KLV>my &lt;first></QUICK_Profile_KLV>\n"
                                    " <MainWindow>\n"
                                    "  <ROSC>ON</ROSC>\n"
                                    "  <FREQ>25 000 000 0</FREQ>\n"
                                    " </MainWindow>\n"
                                    " <Modulat>\n"
                                    "  <AM>OFF</AM>\n"
                                    "  <FM>OFF</FM>\n"
                                    "  <check>OFF</check>\n"
                                    "  <FREQ>1 000 0</FREQ>\n"
                                    "  <empty> 0</empty>\n"
                                    "  <box>5 1</box>\n"
                                    " </Modulat>\n"
                                    " <shared_variable>\n"
                                    "  <Text_Name>abc 0</Text_Name>\n"
                                    "  <Pow_Step>1.23457e+06 1</Pow_Step>\n"
                                    "  <Point_Step>-5 2</Point_Step>\n"
                                    "  <Freq_Step>12345678901234 3</Freq_Step>\n"
                                    " </shared_variable>\n"
                                    "</KLV>\n";
        QCOMPARE(bytesOf(path), expected);
        QCOMPARE(rig.takeLog(), QStringList());
    }

    void bringsBackWhatItHasWritten()
    {
        ProfileRig rig;
        const QString path = rig.path("saved.xml");
        rig.get<QPushButton>("AM")->setChecked(true);
        rig.get<QComboBox>("box")->setCurrentText("10");
        QVERIFY(rig.profiles().save(path, "saved"));
        const QByteArray bytes = bytesOf(path);

        rig.get<QPushButton>("ROSC")->click();
        rig.get<QPushButton>("AM")->click();
        rig.get<QPushButton>("FM")->click();
        rig.get<QLineEdit>("FREQ")->setText("7");
        rig.get<QComboBox>("box")->setCurrentText("5");
        for (auto& [name, value] : rig.variables)
            value = 0;
        rig.takeLog();
        QVERIFY(rig.profiles().open(path));
        QCOMPARE(rig.takeLog(),
                 QStringList({"busy", "settle", "ROSC on", "FREQ = 25 000 000", "AM on", "wait 450",
                              "FM off", "FREQ = 1 000", "box = 10", "refresh", "free",
                              "message: Profile applied: saved"}));
        QVERIFY(rig.profiles().save(path, "saved"));
        QCOMPARE(bytesOf(path), bytes);
        // Nothing waits at the start of the program.
        rig.profiles().applyAtStart(rig.fileOf(ofPanel("<AM>OFF</AM>")));
        QCOMPARE(rig.takeLog(), QStringList({"settle", "AM off", "refresh"}));
    }

    void keepsTheFileReadable()
    {
        ProfileRig rig;
        const QString kept = QString::fromUtf8("Ø \xF0\x9D\x84\x9E & \"<\">]]>");
        rig.variables["Text_Name"] = kept + QChar(1) + QChar(0xD800) + QChar(0xFFFF);
        QVERIFY(rig.profiles().save(rig.path("odd.xml"), "odd"));
        rig.variables["Text_Name"].clear();
        QVERIFY(rig.profiles().open(rig.path("odd.xml")));
        QCOMPARE(rig.variables["Text_Name"].toString(), kept);
    }

    void replays()
    {
        const auto replay = [](const QByteArray& inside, const QStringList& expected) {
            ProfileRig rig;
            const auto variables = rig.variables;
            QVERIFY(rig.profiles().open(rig.fileOf(inside)));
            QStringList log = rig.takeLog();
            QCOMPARE(log.mid(0, 2), QStringList({"busy", "settle"}));
            QCOMPARE(log.mid(log.size() - 3, 2), QStringList({"refresh", "free"}));
            log = log.mid(2, log.size() - 5);
            if (rig.get<QComboBox>("box")->count() != 3)
                log << QString("%1 items").arg(rig.get<QComboBox>("box")->count());
            for (const auto& [name, value] : rig.variables) {
                if (value != variables.at(name))
                    log << value.toString();
            }
            QVERIFY2(log == expected, inside.constData());
        };
        const auto replayPanel = [&](const QByteArray& inside, const QStringList& expected) {
            replay(ofPanel(inside), expected);
        };
        const QStringList nothing;
        replayPanel("<AM>ON</AM>", {"AM on", "wait 450"});
        replayPanel("<AM>OFF</AM>", nothing);
        replayPanel("<FM>ON</FM>", {"FM on"});
        replayPanel("<FM>on</FM><AM>TRUE</AM>", nothing);
        replayPanel("<check>ON</check>", {"check on"});
        replayPanel("<FREQ>25 000 000 0</FREQ>", {"FREQ = 25 000 000"});
        replayPanel("<FREQ>-1.50 0</FREQ>", {"FREQ = -1.50"});
        replayPanel("<FREQ> 0</FREQ>", nothing);
        replayPanel("<FREQ>abc 0</FREQ>", nothing);
        replayPanel("<FREQ>250</FREQ>", nothing);
        replayPanel("<FREQ>5 2</FREQ><box>5 2</box>", nothing);
        replayPanel("<FREQ>5 3</FREQ>", nothing);
        replayPanel("<box>10 0</box>", nothing);
        replayPanel("<box>10 1</box>", {"box = 10"});
        replayPanel("<box>11 1</box>", {"box = 11", "1 items"});
        replayPanel("<box>a &lt; b 1</box>", nothing);
        replayPanel("<Output>ON</Output>", nothing);
        replayPanel("<closeWindow>ON</closeWindow>", nothing);
        replayPanel("<ROSC>OFF</ROSC>", nothing);
        replayPanel("<nobody>ON</nobody><nothing>5 0</nothing><x>5 1</x>", nothing);
        replayPanel("<new><AM>ON</AM></new><FM>ON</FM>", {"AM on", "wait 450", "FM on"});
        replayPanel("<FM>ON</FM><FM>OFF</FM><FREQ>1 0</FREQ><FREQ>2 0</FREQ>",
                    {"FM on", "FM off", "FREQ = 1", "FREQ = 2"});
        replayPanel("<FREQ>1 0</FREQ><FM>ON</FM>", {"FREQ = 1", "FM on"});
        replayPanel("<FREQ>1<![CDATA[ 0]]></FREQ><FM>O<![CDATA[N]]></FM>", {"FREQ = 1", "FM on"});
        replay(document("<AM>ON</AM><Modulat/>"), nothing);
        replay("<KLV><Modulat><FM>ON</FM></Modulat></KLV>", QStringList("FM on"));
        replay(document("<shared_variable><Text_Name>x y 0</Text_Name><Pow_Step>"
                        "2.5 1</Pow_Step><Point_Step>7 2</Point_Step><Freq_Step>"
                        "9000000000 3</Freq_Step></shared_variable>"),
               QStringList({"9000000000", "7", "2.5", "x y"}));
        replay(document("<shared_variable><Pow_Step>much 1</Pow_Step><Point_Step>7.5 2</Point_Step>"
                        "<Freq_Step>3</Freq_Step><Other>5 1</Other></shared_variable>"),
               nothing);
        replay(document("<shared_variable><FREQ>5 0</FREQ></shared_variable>"), nothing);
        replay(document("<Modulat><FREQ>2 0</FREQ></Modulat><MainWindow><AM>ON</AM>"
                        "<REF_OSC>5 0</REF_OSC><FREQ>1 0</FREQ></MainWindow><service_panel>"
                        "<REF_OSC>6 0</REF_OSC></service_panel>"),
               QStringList({"FREQ = 2", "FREQ = 1"}));
    }

    void leavesUnsoundFilesAlone()
    {
        const auto row = namedRows(
            [](const QByteArray& bytes, const QString& reason = "The profile is damaged") {
                ProfileRig rig;
                const QString path = rig.fileOf(bytes);
                QVERIFY(!rig.profiles().open(path));
                QCOMPARE(rig.takeLog(),
                         QStringList("message: " + reason + ", nothing applied: given.xml"));
            });
        const QByteArray sound = ofPanel("<FM>ON</FM>");
        row("cut in half", sound.left(sound.size() - 20));
        row("cut behind the panel", sound.left(sound.indexOf("</KLV>")));
        row("not XML", "FM ON");
        row("empty", "");
        row("rubbish behind", sound + "<");
        row("binary", sound + QByteArray(64, '\0'));
        row("not UTF-8", QByteArray(sound).replace(">it<", ">\xC3\x28<"));
        QByteArray entities = "<!DOCTYPE KLV [<!ENTITY a0 \"x\">";
        for (int i = 1; i < 30; ++i) {
            const QByteArray inner = "&a" + QByteArray::number(i - 1) + ";";
            entities += "<!ENTITY a" + QByteArray::number(i) + " \"" + inner + inner + "\">";
        }
        row("nested entities", entities +
                                   "]><KLV><Modulat><FM>ON</FM><FREQ>&a29; 0</FREQ></Modulat>"
                                   "</KLV>");
        row("unknown entity", ofPanel("<FM>ON</FM><FREQ>&x; 0</FREQ>"));
        row("too deep", ofPanel("<FM>ON</FM>" + QByteArray("<x>").repeated(100000)));
        row("too many", ofPanel("<FM>ON</FM>" + QByteArray("<x/>").repeated(5000)));
        row("of something else", QByteArray("<svg><g><FM>ON</FM></g></svg>"), "Not a profile");
        row("too large", ofPanel("<FM>ON</FM>" + QByteArray(100 * 1024 * 1024, ' ')),
            "Too large for a profile");
    }

    void refusesWhatItCannotWrite()
    {
        const auto row = namedRows([](int length, const QString& there, const QString& expected) {
            ProfileRig rig;
            const QDir inner = rig.path(QString(80, 'd'));
            const QString path = (inner.path() + '/').leftJustified(length - 4, 'n') + ".xml";
            if (there.contains("folder"))
                QVERIFY(QDir().mkpath(inner.path()));
            if (there.contains("path"))
                QVERIFY(QDir().mkpath(path + "/inside"));
            QCOMPARE(rig.profiles().save(path, "x"), expected.isEmpty());
            QCOMPARE(rig.takeLog().join('|'), expected);
            // No unfinished file is left, and nothing is replaced by one.
            QCOMPARE(inner.entryList(QDir::Files).size(), expected.isEmpty() ? 1 : 0);
            QCOMPARE(QFileInfo(path + "/inside").isDir(), there.contains("path"));
        });
        const QString failed = "error: Error saving file";
        row("longest", 259, "folder", "");
        row("too long", 260, "folder", "error: File name is too long");
        row("no such folder", 200, "", failed);
        row("a folder of that name", 200, "folder and path", failed);
    }

    void endsBetweenTwoClicks()
    {
        // By a stop, or the program's end.
        for (const bool isProgramEnding : {false, true}) {
            ProfileRig rig;
            rig.inPause = [&] {
                // A second replay does not begin within the first.
                QVERIFY(!rig.profiles().open(rig.path("given.xml")));
                rig.isEnding = isProgramEnding;
                if (!isProgramEnding)
                    rig.profiles().stop();
            };
            const QByteArray bytes = ofPanel("<AM>ON</AM><FM>ON</FM><FREQ>5 0</FREQ>");
            QVERIFY(!rig.profiles().open(rig.fileOf(bytes)));
            QCOMPARE(rig.takeLog(),
                     QStringList({"busy", "settle", "AM on", "wait 450", "refresh", "free",
                                  "message: Profile only partly applied: it"}));
            // The next one is not stopped any more.
            rig.inPause = nullptr;
            rig.isEnding = false;
            QVERIFY(rig.profiles().open(rig.path("given.xml")));
            QCOMPARE(rig.takeLog().mid(2, 2), QStringList({"FM on", "FREQ = 5"}));
            rig.refusal = "not now";
            QVERIFY(!rig.profiles().open(rig.path("given.xml")));
            QCOMPARE(rig.takeLog(), QStringList("message: not now"));
        }
    }

    void namesAnew()
    {
        ProfileRig rig;
        rig.variables["Text_Name"] = " two  blanks";
        for (const char* name : {" one ", "two", "9"})
            rig.profiles().saveQuickProfile(name);
        rig.takeLog();
        const QString folder = rig.profiles().folder();
        const QString path = quickProfilePath(folder, "one");
        const QByteArray bytes = bytesOf(path);
        for (const char* refused : {"two", "LAST", "", "one", "a/b"})
            QVERIFY(!rig.profiles().renameQuickProfile(path, refused));
        QCOMPARE(rig.takeLog().size(), 3);
        QVERIFY(rig.profiles().renameQuickProfile(path, "10 & more"));
        QVERIFY(!QFile::exists(path));
        const QString newPath = quickProfilePath(folder, "10 & more");
        QCOMPARE(bytesOf(newPath), QByteArray(bytes).replace(">one<", ">10 &amp; more<"));
        QCOMPARE(rig.profiles().nameOf(newPath), QString("10 & more"));
        QCOMPARE(quickProfilePaths(folder), QStringList({quickProfilePath(folder, "9"), newPath,
                                                         quickProfilePath(folder, "two")}));
        // What the file says of its encoding is not so.
        const QByteArray declared = "<?xml version=\"1.0\" encoding=\"UTF-16\"?>";
        const QString foreign = quickProfilePath(folder, "foreign");
        QVERIFY(QFile::rename(rig.fileOf(declared + ofPanel("<FM>ON</FM>")), foreign));
        QVERIFY(rig.profiles().renameQuickProfile(foreign, "own"));
        QVERIFY(!QFile::exists(foreign));
        QVERIFY(rig.profiles().open(quickProfilePath(folder, "own")));
        QVERIFY(rig.takeLog().contains("FM on"));
    }
};

QTEST_MAIN(ProfileFileTest)
#include "profile_file_test.moc"
