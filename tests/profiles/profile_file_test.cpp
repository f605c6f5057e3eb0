#include "tests/profiles/profile_rig.h"

#include "profiles/profile_folder.h"
#include "tests/support/rows.h"

#include <QMetaMethod>

Q_DECLARE_METATYPE(std::function<void(ProfileRig&)>)

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
    void writesEveryControlOfEveryPanel();
    void bringsBackWhatItHasWritten();
    void keepsTheFileReadable();
    void replays_data();
    void replays();
    void panelsDoNotShareControls();
    void leavesUnsoundFilesAlone_data();
    void leavesUnsoundFilesAlone();
    void refusesWhatItCannotWrite_data();
    void refusesWhatItCannotWrite();
    void anUnfinishedFileReplacesNothing();
    void endsBetweenTwoClicks_data();
    void endsBetweenTwoClicks();
    void takesNoInputMeanwhile();
    void keepsTheLastState();
    void startsWithoutTheLastState();
    void namesAnew();
};

void ProfileFileTest::writesEveryControlOfEveryPanel()
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
    QCOMPARE(rig.bytesOf(path), expected);
    QCOMPARE(rig.takeLog(), QStringList());
}

void ProfileFileTest::bringsBackWhatItHasWritten()
{
    ProfileRig rig;
    const QString path = rig.path("saved.xml");
    rig.get<QPushButton>("AM")->setChecked(true);
    rig.get<QComboBox>("box")->setCurrentText("10");
    QVERIFY(rig.profiles().save(path, "saved"));
    const QByteArray bytes = rig.bytesOf(path);

    rig.get<QPushButton>("ROSC")->click();
    rig.get<QPushButton>("AM")->click();
    rig.get<QPushButton>("FM")->click();
    rig.get<QLineEdit>("FREQ")->setText("7");
    rig.get<QComboBox>("box")->setCurrentText("5");
    rig.text = "other";
    rig.number = rig.whole = 0;
    rig.big = 0;
    rig.takeLog();
    QVERIFY(rig.profiles().open(path));
    QCOMPARE(rig.takeLog(), QStringList({"busy", "settle", "ROSC on", "FREQ = 25 000 000", "AM on",
                                         "wait 450", "FM off", "FREQ = 1 000", "box = 10",
                                         "refresh", "free", "message: Profile applied: saved"}));
    QVERIFY(rig.profiles().save(path, "saved"));
    QCOMPARE(rig.bytesOf(path), bytes);
}

void ProfileFileTest::keepsTheFileReadable()
{
    ProfileRig rig;
    const QString kept = QString::fromUtf8("Ø \xF0\x9D\x84\x9E & \"<\">]]>");
    rig.text = kept + QChar(1) + QChar(0xD800) + QChar(0xFFFF);
    QVERIFY(rig.profiles().save(rig.path("odd.xml"), "odd"));
    rig.text.clear();
    QVERIFY(rig.profiles().open(rig.path("odd.xml")));
    QCOMPARE(rig.text, kept);
}

void ProfileFileTest::replays_data()
{
    testColumns<QByteArray, QStringList>("inside", "expected");
    const QStringList nothing;
    const auto row = [](const char* name, const QByteArray& inside, const QStringList& expected) {
        testRow(name, ofPanel(inside), expected);
    };
    row("click and wait", "<AM>ON</AM>", {"AM on", "wait 450"});
    row("as it is", "<AM>OFF</AM>", nothing);
    row("no wait", "<FM>ON</FM>", {"FM on"});
    row("neither state", "<FM>on</FM><AM>TRUE</AM>", nothing);
    row("check box", "<check>ON</check>", {"check on"});
    row("field", "<FREQ>25 000 000 0</FREQ>", {"FREQ = 25 000 000"});
    row("negative", "<FREQ>-1.50 0</FREQ>", {"FREQ = -1.50"});
    row("empty field", "<FREQ> 0</FREQ>", nothing);
    row("text field", "<FREQ>abc 0</FREQ>", nothing);
    row("no code", "<FREQ>250</FREQ>", nothing);
    row("code of an integer", "<FREQ>5 2</FREQ><box>5 2</box>", nothing);
    row("code of a big integer", "<FREQ>5 3</FREQ>", nothing);
    row("field's code on a box", "<box>10 0</box>", nothing);
    row("box", "<box>10 1</box>", {"box = 10"});
    row("box without it", "<box>11 1</box>", {"box = 11", "1 items"});
    row("box with text", "<box>a &lt; b 1</box>", nothing);
    row("excluded", "<Output>ON</Output>", nothing);
    row("never clicked", "<closeWindow>ON</closeWindow>", nothing);
    row("of the window", "<ROSC>OFF</ROSC>", nothing);
    row("unknown", "<nobody>ON</nobody><nothing>5 0</nothing><x>5 1</x>", nothing);
    row("nested", "<new><AM>ON</AM></new><FM>ON</FM>", {"AM on", "wait 450", "FM on"});
    row("the last one holds", "<FM>ON</FM><FM>OFF</FM><FREQ>1 0</FREQ><FREQ>2 0</FREQ>",
        {"FM on", "FM off", "FREQ = 1", "FREQ = 2"});
    row("in the file's order", "<FREQ>1 0</FREQ><FM>ON</FM>", {"FREQ = 1", "FM on"});
    row("split text", "<FREQ>1<![CDATA[ 0]]></FREQ><FM>O<![CDATA[N]]></FM>", {"FREQ = 1", "FM on"});
    testRow("before any panel", document("<AM>ON</AM><Modulat/>"), nothing);
    testRow("without white space", QByteArray("<KLV><Modulat><FM>ON</FM></Modulat></KLV>"),
            QStringList("FM on"));
    testRow("variables",
            document("<shared_variable><Text_Name>x y 0</Text_Name><Pow_Step>"
                     "2.5 1</Pow_Step><Point_Step>7 2</Point_Step><Freq_Step>"
                     "9000000000 3</Freq_Step></shared_variable>"),
            QStringList("x y 2.5 7 9000000000"));
    testRow("no such values",
            document("<shared_variable><Pow_Step>much 1</Pow_Step><Point_Step>7.5 2</Point_Step>"
                     "<Freq_Step>3</Freq_Step><Other>5 1</Other></shared_variable>"),
            nothing);
    testRow("a variable is no control",
            document("<shared_variable><FREQ>5 0</FREQ></shared_variable>"), nothing);
}

void ProfileFileTest::replays()
{
    QFETCH(QByteArray, inside);
    QFETCH(QStringList, expected);
    ProfileRig rig;
    QVERIFY(rig.profiles().open(rig.fileOf(inside)));
    QStringList log = rig.takeLog();
    QCOMPARE(log.mid(0, 2), QStringList({"busy", "settle"}));
    QCOMPARE(log.mid(log.size() - 3, 2), QStringList({"refresh", "free"}));
    log = log.mid(2, log.size() - 5);
    if (rig.get<QComboBox>("box")->count() != 3)
        log << QString("%1 items").arg(rig.get<QComboBox>("box")->count());
    if (rig.text != "abc" || rig.number != 1234567.0 || rig.whole != -5)
        log << QString("%1 %2 %3 %4").arg(rig.text).arg(rig.number).arg(rig.whole).arg(rig.big);
    QCOMPARE(log, expected);
}

void ProfileFileTest::panelsDoNotShareControls()
{
    ProfileRig rig;
    const QByteArray bytes =
        document("<Modulat><FREQ>2 0</FREQ></Modulat><MainWindow><AM>ON</AM><REF_OSC>5 0</REF_OSC>"
                 "<FREQ>1 0</FREQ></MainWindow><service_panel><REF_OSC>6 0</REF_OSC>"
                 "</service_panel>");
    QVERIFY(rig.profiles().open(rig.fileOf(bytes)));
    const QStringList log = rig.takeLog();
    QCOMPARE(log.mid(2, log.size() - 5), QStringList({"FREQ = 2", "FREQ = 1"}));
    QCOMPARE(rig.get<QWidget>("Modulat")->findChild<QLineEdit*>("FREQ")->text(), QString("2"));
}

void ProfileFileTest::leavesUnsoundFilesAlone_data()
{
    testColumns<QByteArray, QString>("bytes", "reason");
    const QByteArray sound = ofPanel("<FM>ON</FM>");
    const QString damaged = "The profile is damaged, nothing applied: given.xml";
    const auto row = [&](const char* name, const QByteArray& bytes) {
        testRow(name, bytes, damaged);
    };
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
    row("nested entities", entities + "]><KLV><Modulat><FM>ON</FM><FREQ>&a29; 0</FREQ></Modulat>"
                                      "</KLV>");
    row("unknown entity", ofPanel("<FM>ON</FM><FREQ>&x; 0</FREQ>"));
    row("too deep", ofPanel("<FM>ON</FM>" + QByteArray("<x>").repeated(100000)));
    row("too many", ofPanel("<FM>ON</FM>" + [] {
            QByteArray many;
            for (int i = 0; i < 5000; ++i)
                many += "<x" + QByteArray::number(i) + "/>";
            return many;
        }()));
    testRow("of something else", QByteArray("<svg><g><FM>ON</FM></g></svg>"),
            "Not a profile, nothing applied: given.xml");
    testRow("too large", ofPanel("<FM>ON</FM>" + QByteArray(100 * 1024 * 1024, ' ')),
            "Too large for a profile, nothing applied: given.xml");
}

void ProfileFileTest::leavesUnsoundFilesAlone()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, reason);
    ProfileRig rig;
    const QString path = rig.fileOf(bytes);
    QVERIFY(!rig.profiles().open(path));
    QCOMPARE(rig.takeLog(), QStringList("message: " + reason));
}

void ProfileFileTest::refusesWhatItCannotWrite_data()
{
    testColumns<int, bool, QStringList>("length", "isFolderThere", "expected");
    testRow("longest", 259, true, QStringList());
    testRow("too long", 260, true, QStringList("error: File name is too long"));
    testRow("no such folder", 200, false, QStringList("error: Error saving file"));
}

void ProfileFileTest::refusesWhatItCannotWrite()
{
    QFETCH(int, length);
    QFETCH(bool, isFolderThere);
    QFETCH(QStringList, expected);
    ProfileRig rig;
    const QString inner = rig.path(QString(80, 'd'));
    if (isFolderThere)
        QVERIFY(QDir().mkpath(inner));
    const QString path = (inner + '/').leftJustified(length - 4, 'n') + ".xml";
    QCOMPARE(path.size(), length);
    QCOMPARE(rig.profiles().save(path, "x"), expected.isEmpty());
    QCOMPARE(rig.takeLog(), expected);
    QCOMPARE(QFileInfo::exists(path), expected.isEmpty());
}

void ProfileFileTest::anUnfinishedFileReplacesNothing()
{
    ProfileRig rig;
    const QString path = rig.path("taken.xml");
    QVERIFY(QDir().mkpath(path + "/inside"));
    QVERIFY(!rig.profiles().save(path, "x"));
    QCOMPARE(rig.takeLog().last(), QString("error: Error saving file"));
    QVERIFY(QFileInfo(path + "/inside").isDir());
    // No file is left beside it.
    QCOMPARE(QDir(rig.folder().path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList("taken.xml"));
}

void ProfileFileTest::endsBetweenTwoClicks_data()
{
    testColumns<std::function<void(ProfileRig&)>>("happening");
    using Happening = std::function<void(ProfileRig&)>;
    testRow("stopped", Happening([](ProfileRig& rig) { rig.profiles().stop(); }));
    testRow("program ends", Happening([](ProfileRig& rig) { rig.isEnding = true; }));
}

void ProfileFileTest::endsBetweenTwoClicks()
{
    QFETCH(std::function<void(ProfileRig&)>, happening);
    ProfileRig rig;
    rig.inPause = [&] {
        // A second replay does not begin within the first.
        QVERIFY(!rig.profiles().open(rig.path("given.xml")));
        happening(rig);
    };
    QVERIFY(!rig.profiles().open(rig.fileOf(ofPanel("<AM>ON</AM><FM>ON</FM><FREQ>5 0</FREQ>"))));
    QCOMPARE(rig.takeLog(), QStringList({"busy", "settle", "AM on", "wait 450", "refresh", "free",
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

void ProfileFileTest::takesNoInputMeanwhile()
{
    ProfileRig rig;
    QVERIFY(QTest::qWaitForWindowExposed(&rig.window()));
    auto* exempt = rig.get<QPushButton>("closeWindow");
    exempt->setFocusPolicy(Qt::NoFocus);
    auto* field = rig.get<QLineEdit>("FREQ");
    const auto click = [&rig](QWidget* widget) {
        const QPoint position = widget->mapTo(&rig.window(), widget->rect().center());
        QTest::mouseClick(rig.window().windowHandle(), Qt::LeftButton, {}, position);
    };
    const auto act = [&] {
        click(rig.get("FM"));
        QTest::keyClicks(field, "7");
        QTest::keyClick(field, Qt::Key_Return);
        click(exempt);
    };
    field->clear();
    {
        const InputBlock block([&](const QWidget* widget) { return widget == exempt; });
        act();
        QCOMPARE(rig.takeLog(), QStringList("closeWindow off"));
        QCOMPARE(field->text(), QString());
        rig.get<QPushButton>("FM")->click();
        QCOMPARE(rig.takeLog(), QStringList("FM on"));
    }
    act();
    QCOMPARE(rig.takeLog(), QStringList({"FREQ = ", "FM off", "FREQ = 7", "closeWindow off"}));
}

void ProfileFileTest::keepsTheLastState()
{
    const QByteArray older = ofPanel("<FM>ON</FM>");
    ProfileRig rig;
    rig.get<QPushButton>("AM")->setChecked(true);
    QVERIFY(rig.profiles().saveLast());
    QVERIFY(QFile::exists(rig.path("Veltro KLV/QUICK_Profile_last.xml")));
    rig.get<QPushButton>("AM")->setChecked(false);
    rig.takeLog();
    rig.profiles().applyAtStart();
    QStringList log = rig.takeLog();
    QVERIFY(log.contains("AM on"));
    QVERIFY(log.filter(QRegularExpression("wait|busy|message")).isEmpty());
    QVERIFY(quickProfilePaths(rig.profiles().folder()).isEmpty());

    rig.profiles().applyAtStart(rig.fileOf(older));
    QCOMPARE(rig.takeLog(), QStringList({"settle", "FM on", "refresh"}));
    rig.profiles().applyAtStart(rig.path("nowhere.xml"));
    QCOMPARE(rig.takeLog(), QStringList("message: There is no profile nowhere.xml"));
}

void ProfileFileTest::startsWithoutTheLastState()
{
    ProfileRig rig;
    rig.profiles().applyAtStart();
    QCOMPARE(rig.takeLog(), QStringList());
    QVERIFY(rig.profiles().saveLast());
    rig.takeLog();
    QFile file(rig.path("Veltro KLV/QUICK_Profile_last.xml"));
    QVERIFY(file.resize(file.size() / 2));
    rig.profiles().applyAtStart();
    QCOMPARE(rig.takeLog(),
             QStringList("message: The settings of the last run are damaged: defaults are used"));
}

void ProfileFileTest::namesAnew()
{
    ProfileRig rig;
    rig.text = " two  blanks";
    rig.profiles().saveQuickProfile(" one ");
    rig.profiles().saveQuickProfile("two");
    rig.takeLog();
    const QString folder = rig.profiles().folder();
    const QString path = quickProfilePath(folder, "one");
    const QByteArray bytes = rig.bytesOf(path);
    for (const char* refused : {"two", "LAST", "", "one", "a/b"})
        QVERIFY(!rig.profiles().renameQuickProfile(path, refused));
    QCOMPARE(rig.takeLog().size(), 3);
    QVERIFY(rig.profiles().renameQuickProfile(path, "10 & more"));
    QVERIFY(!QFile::exists(path));
    const QString newPath = quickProfilePath(folder, "10 & more");
    QCOMPARE(rig.bytesOf(newPath), QByteArray(bytes).replace(">one<", ">10 &amp; more<"));
    QCOMPARE(rig.profiles().nameOf(newPath), QString("10 & more"));
    // What the file says of its encoding is not so.
    const QString foreign = quickProfilePath(folder, "foreign");
    QVERIFY(QFile::rename(
        rig.fileOf("<?xml version=\"1.0\" encoding=\"UTF-16\"?>" + ofPanel("<FM>ON</FM>")),
        foreign));
    QVERIFY(rig.profiles().renameQuickProfile(foreign, "own"));
    const QString own = quickProfilePath(folder, "own");
    rig.takeLog();
    QVERIFY(rig.profiles().open(own));
    QVERIFY(rig.takeLog().contains("FM on"));
    QVERIFY(!QFile::exists(foreign) && QFile::remove(own));

    rig.profiles().saveQuickProfile("9");
    QCOMPARE(quickProfilePaths(folder), QStringList({quickProfilePath(folder, "9"), newPath,
                                                     quickProfilePath(folder, "two")}));
}

QTEST_MAIN(ProfileFileTest)
#include "profile_file_test.moc"
