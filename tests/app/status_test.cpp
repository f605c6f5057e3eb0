#include "connection/gui_list_klv.h"
#include "fields/number_edit.h"
#include "link/activity.h"
#include "link/instrument_limits.h"
#include "link/library_places.h"
#include "link/pause.h"
#include "sweep/list_panel.h"
#include "tests/support/panel_test.h"
#include "ui/error_box.h"

#include "app/side_panels.h"
#include "tests/support/rows.h"

#include <QAction>
#include <QDesktopServices>
#include <QLabel>
#include <QLineEdit>
#include <QTableWidget>
#include <QTextDocument>

#include <functional>

namespace
{
const QString noSuchLibrary = QStringLiteral("NoSuchVisa");

/// Whatever was said to go on since this was made.
class Said
{
public:
    Said()
    {
        m_connection = QObject::connect(&Activities::global(), &Activities::changed, [this] {
            const QString now = Activities::global().texts().join(" / ");
            if (!now.isEmpty() && (m_texts.isEmpty() || m_texts.last() != now))
                m_texts << now;
        });
    }
    ~Said() { QObject::disconnect(m_connection); }

    const QStringList& texts() const { return m_texts; }

private:
    QStringList m_texts;
    QMetaObject::Connection m_connection;
};

/// The texts with which a label was painted since this was made.
class Painted : public QObject
{
public:
    explicit Painted(QLabel& label) : m_label(label) { label.installEventFilter(this); }

    const QStringList& texts() const { return m_texts; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            m_texts << m_label.text();
        return QObject::eventFilter(watched, event);
    }

private:
    QLabel& m_label;
    QStringList m_texts;
};
} // namespace

/// What the status line tells: what goes on, and why there is no connection.
class StatusTest : public PanelTest
{
    Q_OBJECT

private slots:
    void tellsWhereTheLibraryWasLookedFor();
    void aLossIsNotHidden();
    void aLossIsSaidBesideTheNextSearch();
    void whatIsGoneIsNotSpokenOf_data();
    void whatIsGoneIsNotSpokenOf();
    void instrumentTextsArePlain_data();
    void instrumentTextsArePlain();
    void helpOpensThePageOfThePanel_data();
    void helpOpensThePageOfThePanel();
    void tellsWhatGoesOn_data();
    void tellsWhatGoesOn();
    void tellsOfASlowInstrument();
    void followsTheLanguage();

public slots:
    void takeUrl(const QUrl& url) { m_opened = url; }

private:
    void start(const QString& library = Demo::libraryPath());
    void chooseRussian();

    QUrl m_opened;
};

void StatusTest::start(const QString& library)
{
    pauses().messageShare = 0.1;
    StartOptions options = PanelRig::defaultOptions();
    options.visaLibrary = library;
    options.isClean = true;
    m_rig = std::make_unique<PanelRig>(options);
}

void StatusTest::chooseRussian()
{
    const auto actions = m_rig->window().findChildren<QAction*>();
    for (QAction* action : actions) {
        if (action->data().toString() == "ru")
            action->trigger();
    }
    QCoreApplication::processEvents();
}

void StatusTest::tellsWhereTheLibraryWasLookedFor()
{
    qputenv("LD_LIBRARY_PATH", "/first:/second");
    start(noSuchLibrary);
    m_rig->connectDevice();
    const LibraryPlaces places = libraryPlaces(noSuchLibrary);
    const QStringList all = places.fileNames + places.folders;
    QVERIFY(all.size() >= 2);
    for (const QString& place : all)
        QVERIFY2(m_rig->status().contains(place), qPrintable(place));
    qunsetenv("LD_LIBRARY_PATH");
}

void StatusTest::aLossIsNotHidden()
{
    start();
    m_rig->connectDevice();
    (*m_demo)(QStringLiteral("unplug"));
    m_rig->enter("FREQ", "5M");
    QVERIFY(!m_rig->isConnected());
    const QString loss = "connection error: the instrument was switched off or unplugged";
    QCOMPARE(m_rig->status(), loss);
    m_rig->get<NumberEdit>("FREQ").context().notices.say([] { return QString("in passing"); });
    QCOMPARE(m_rig->status(), loss);
    // Once it has been read, the message has its turn, and then the loss is back.
    QTRY_COMPARE(m_rig->status(), QString("in passing"));
    QTRY_COMPARE(m_rig->status(), loss);
}

void StatusTest::aLossIsSaidBesideTheNextSearch()
{
    start();
    m_rig->connectDevice();
    (*m_demo)(QStringLiteral("unplug"));
    m_rig->enter("FREQ", "5M");
    (*m_demo)(QStringLiteral("plug"));
    m_rig->click("connect");
    QVERIFY(m_rig->status().startsWith("Searching"));
    QVERIFY(m_rig->status().contains("connection error"));
    QTRY_VERIFY(m_rig->isConnected());
    QTRY_COMPARE(m_rig->status(), QString());
}

void StatusTest::whatIsGoneIsNotSpokenOf_data()
{
    testColumns<QString, QString>("set", "status");
    testRow("reference", "condition 328 on", "The external reference is not locked");
    testRow("error", "error -222", "-222, Data out of range after FREQ 5000000.000000 Hz;FREQ?");
}

void StatusTest::whatIsGoneIsNotSpokenOf()
{
    QFETCH(QString, set);
    start();
    m_rig->connectDevice();
    m_rig->click("ROSC");
    (*m_demo)(set);
    m_rig->enter("FREQ", "5M");
    QTEST(m_rig->status(), "status");
    (*m_demo)(QStringLiteral("unplug"));
    m_rig->enter("FREQ", "6M");
    const QString loss = "connection error: the instrument was switched off or unplugged";
    QCOMPARE(m_rig->status(), loss);
    // For as long as a message would wait for its turn, and a little more.
    QVERIFY(!QTest::qWaitFor([&] { return m_rig->status() != loss; }, 650));
}

void StatusTest::instrumentTextsArePlain_data()
{
    testColumns<QString>("text");
    for (const char* text : {"<b>bold</b>", "<img src=x>", "&lt;b&gt;", "<!DOCTYPE", "a\\x01b"})
        testRow(text, QString(text));
    testRow("long", QString(3000, 'x'));
    testRow("long and rich", QString("<u>").repeated(1000));
}

void StatusTest::instrumentTextsArePlain()
{
    QFETCH(QString, text);
    start();
    m_rig->connectDevice();
    (*m_demo)("error 329 " + text);
    m_rig->enter("FREQ", "5M");
    QString hint = m_rig->get("label_329").toolTip();
    QVERIFY(m_rig->get("label_329").isVisible());
    QVERIFY(hint.startsWith("329"));
    const auto isFit = [](const QString& shown) {
        return !Qt::mightBeRichText(shown) && shown.size() <= 220;
    };
    QVERIFY2(isFit(hint), qPrintable(hint));
    hint.remove(QChar(0x2060));
    if (text.startsWith("<b>"))
        QVERIFY2(hint.contains(text), qPrintable(hint));
    // The pattern of the identity reply leaves room in its last field.
    m_rig->click("connect");
    (*m_demo)("reply *IDN? -> Veltro,KLV-20G,1234,2.7 " + text);
    (*m_demo)("reply MEM:MSC? -> OFF");
    (*m_demo)("reply SERV:SOUR:CDUE? -> " + text);
    m_rig->connectDevice();
    QVERIFY(m_rig->isConnected());
    int shown = 0;
    const auto labels = m_rig->window().findChildren<QLabel*>();
    for (const QLabel* label : labels) {
        if (!label->text().contains("2.7 ") && label->objectName() != "lbl_CalibrateData")
            continue;
        ++shown;
        QVERIFY2(isFit(label->text()), qPrintable(label->text()));
    }
    QVERIFY(shown >= 3);
    (*m_demo)("reply *IDN? ->");
}

void StatusTest::helpOpensThePageOfThePanel_data()
{
    testColumns<QString, QString>("button", "page");
    testRow("none", "", "index");
    testRow("modulation", "open_mod", "modulation");
    testRow("sweep", "open_list", "sweep");
    testRow("LF generator", "open_gener", "lf-generator");
    testRow("profiles", "profiles", "profiles");
    testRow("service", "service", "service");
}

void StatusTest::helpOpensThePageOfThePanel()
{
    QFETCH(QString, button);
    QFETCH(QString, page);
    start();
    if (!button.isEmpty())
        m_rig->click(qPrintable(button));
    QTRY_VERIFY(!SidePanels::moving());
    const QString folder = QCoreApplication::applicationDirPath() + "/manual";
    const QString file = folder + "/en/" + page + ".html";
    const auto pressHelp = [this] {
        QTest::keyClick(m_rig->window().windowHandle(), Qt::Key_F1);
        return m_rig->status();
    };
    QVERIFY2(pressHelp().startsWith("There is no help file"), qPrintable(m_rig->status()));
    QVERIFY(
        m_rig->status().contains(QDir::toNativeSeparators(QCoreApplication::applicationDirPath())));
    // The page of the panel, and the contents where there is no such page.
    for (const QString& name : {QFileInfo(file).fileName(), QStringLiteral("index.html")}) {
        QVERIFY(QDir().mkpath(folder + "/en"));
        QFile written(folder + "/en/" + name);
        QVERIFY(written.open(QIODevice::WriteOnly));
        written.close();
        if (QSysInfo::productType() != "windows") {
            QDesktopServices::setUrlHandler("file", this, "takeUrl");
            pressHelp();
            QDesktopServices::unsetUrlHandler("file");
            QCOMPARE(m_opened.toLocalFile(), written.fileName());
            // Nothing opens anything on the offscreen platform.
            QVERIFY2(pressHelp().contains(written.fileName()), qPrintable(m_rig->status()));
            QVERIFY(m_rig->status().startsWith("No program"));
        }
        QVERIFY(QDir(folder).removeRecursively());
    }
}

void StatusTest::tellsWhatGoesOn_data()
{
    testColumns<QString, QString>("clicked", "text");
    testRow("modulation", "AM", "Setting the modulation");
    testRow("pulses", "Pulse", "Setting the modulation");
    testRow("LF", "sine_select", "Setting the LF generator");
    testRow("sweep", "button_Sweep", "Starting the sweep");
    testRow("list", "button_List", "Starting the list / Transferring the table: list 2");
    testRow("calibration", "applyCalibrate", "Writing the calibration table: row 2 of");
    testRow("service", "service", "Reading the calibration table");
    testRow("profile", "quick_1", "Applying the profile... / Setting the modulation");
}

void StatusTest::tellsWhatGoesOn()
{
    QFETCH(QString, clicked);
    QFETCH(QString, text);
    start();
    m_rig->get<QTableWidget>("table_List").setRowCount(70);
    if (clicked == "quick_1") {
        m_rig->get<QPushButton>("AM").click();
        m_rig->click("profiles");
        m_rig->get<QLineEdit>("profile_name").setText("one");
        m_rig->click("save_quick");
        m_rig->get<QPushButton>("AM").click();
    } else if (clicked == "button_List") {
        m_rig->get<QPushButton>("List_is_Checked").click();
    }
    m_rig->connectDevice();
    if (clicked == "applyCalibrate") {
        m_rig->click("service");
        QTRY_VERIFY(!SidePanels::moving());
    }
    m_rig->openPanelOf(clicked);
    const Said said;
    m_rig->click(qPrintable(clicked));
    QTRY_VERIFY(!said.texts().filter(text).isEmpty());
    QTRY_VERIFY(Activities::global().texts().isEmpty());
    QVERIFY(m_rig->isConnected());
}

void StatusTest::tellsOfASlowInstrument()
{
    start();
    m_rig->connectDevice();
    const Said said;
    m_rig->enter("FREQ", "5M");
    QVERIFY(said.texts().isEmpty());
    (*m_demo)(QStringLiteral("latency 320000"));
    m_rig->enter("FREQ", "6M");
    const QString waiting = "waiting for the instrument to answer";
    QCOMPARE(said.texts(), QStringList(waiting));
    // To be seen, however soon it follows another text.
    const Painted painted(m_rig->get<QLabel>("status"));
    {
        const Activity step([] { return QStringLiteral("step"); });
        m_rig->enter("FREQ", "7M");
    }
    QVERIFY(!painted.texts().filter(waiting).isEmpty());
    (*m_demo)(QStringLiteral("latency 0"));
    QCOMPARE(m_rig->status(), QString());
}

void StatusTest::followsTheLanguage()
{
    start();
    (*m_demo)(QStringLiteral("unplug"));
    m_rig->connectDevice();
    const QString english = m_rig->status();
    const QRegularExpression cyrillic(QStringLiteral("[\u0430-\u044f]{4}"));
    {
        const Activity activity([] { return Connection::tr("Choose an instrument"); });
        QVERIFY(!m_rig->status().contains(cyrillic));
        chooseRussian();
        QVERIFY2(m_rig->status().contains(cyrillic), qPrintable(m_rig->status()));
    }
    QVERIFY(!english.contains(cyrillic));
    QVERIFY2(m_rig->status().contains(cyrillic), qPrintable(m_rig->status()));
}

QTEST_MAIN(StatusTest)
#include "status_test.moc"
