#include "app/side_panels.h"
#include "link/instrument_limits.h"
#include "service/about_box.h"
#include "tests/support/panel_rig.h"
#include "ui/language.h"
#include "ui/side_panel.h"

#include <QLabel>
#include <QLineEdit>
#include <QMenu>

namespace
{
QStringList warnings;

void collectWarnings(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    if (type != QtInfoMsg && type != QtDebugMsg)
        warnings << message;
}
} // namespace

/// What the window itself does: wiring, panels, language, hot plug, start and end.
class WindowTest : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void everySlotFindsItsControl();
    void panelsOpenOneAtATime();
    void languageSwitchesWhileRunning();
    void listFitsItsPanel_data();
    void listFitsItsPanel();
    void aboutShowsTheInstrument();
    void calibrationDateIsColoured_data();
    void calibrationDateIsColoured();
    void servicePanelReadsItsValues();
    void unreadableSettingsAreSaid();
    void closeButtonEndsTheSearchToo();

private:
    std::unique_ptr<Demo> m_demo;
};

void WindowTest::init()
{
    m_demo = std::make_unique<Demo>();
    QSettings(QStringLiteral("Veltro"), QStringLiteral("KLV")).clear();
}

void WindowTest::everySlotFindsItsControl()
{
    warnings.clear();
    const QtMessageHandler before = qInstallMessageHandler(collectWarnings);
    {
        PanelRig rig;
    }
    qInstallMessageHandler(before);
    const QStringList unmatched = warnings.filter("QMetaObject");
    QVERIFY2(unmatched.isEmpty(), qPrintable(unmatched.join('\n')));
}

void WindowTest::panelsOpenOneAtATime()
{
    struct Row {
        const char* toggle;
        const char* panel;
    };
    const Row rows[] = {{"open_mod", "Modulat"},
                        {"open_list", "List"},
                        {"open_gener", "generator"},
                        {"profiles", "openSaveProfile"},
                        {"service", "service_panel"}};
    PanelRig rig;
    for (const Row& row : rows) {
        rig.click(row.toggle);
        // A second click while panels move is ignored.
        rig.click(row.toggle);
        QTRY_VERIFY(!SidePanels::moving());
        for (const Row& other : rows) {
            const bool isThis = other.toggle == row.toggle;
            QCOMPARE(rig.get(other.panel).isVisible(), isThis);
            QCOMPARE(rig.get<QPushButton>(other.toggle).isChecked(), isThis);
        }
    }
    auto* panel = rig.window().findChild<SidePanel*>("service_panel");
    emit panel->hide_();
    QTRY_VERIFY(!SidePanels::moving());
    QVERIFY(!panel->isVisible());
    QVERIFY(!rig.get<QPushButton>("service").isChecked());

    rig.window().not_move();
    rig.click("open_mod");
    QVERIFY(!SidePanels::moving() || !rig.get("Modulat").isVisible());
    rig.window().allow_move();
}

void WindowTest::languageSwitchesWhileRunning()
{
    PanelRig rig;
    rig.enter("FREQ", "5M");
    rig.enter("POW", "-3");
    const QString english = rig.device();
    const auto actions = rig.window().findChildren<QAction*>();
    const auto choose = [&](const QString& code) {
        for (QAction* action : actions) {
            if (action->data().toString() == code)
                action->trigger();
        }
    };
    choose("ru");
    QVERIFY(Language::isRussian());
    QTRY_VERIFY(rig.device() != english);
    QCOMPARE(rig.get<QLineEdit>("FREQ").text(), QString("5 000 000"));
    QCOMPARE(rig.get<QLineEdit>("POW").text(), QString("-3"));
    rig.connectDevice();
    QCOMPARE(rig.device(), QString("KLV-20G 5678"));
    choose("en");
    QCoreApplication::processEvents();
    QCOMPARE(rig.device(), QString("KLV-20G 5678"));
    QCOMPARE(rig.get<QPushButton>("ROSC").text(), QString("10 MHz"));
    rig.click("connect");
    QCOMPARE(rig.device(), english);
}

void WindowTest::listFitsItsPanel_data()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("English") << "en";
    QTest::newRow("Russian") << "ru";
}

/// The groups scroll up and down only: what is wider than the panel could not be seen.
void WindowTest::listFitsItsPanel()
{
    QFETCH(QString, language);
    StartOptions options = PanelRig::defaultOptions();
    options.language = language;
    PanelRig rig(options);
    const QWidget& groups = rig.get("list_groups");
    for (const char* choice : {"time_select", "int_select", "ext_select", "left_select"}) {
        rig.openPanelOf(choice);
        for (int group = 0; group < 2; ++group) {
            rig.click(choice);
            QVERIFY2(groups.minimumSizeHint().width() <= groups.parentWidget()->width(), choice);
            rig.click("List_is_Checked");
        }
    }
}

void WindowTest::aboutShowsTheInstrument()
{
    PanelRig rig;
    rig.connectDevice();
    auto* about = rig.window().findChild<Form*>();
    about->showAbout();
    QStringList texts;
    const auto labels = about->findChildren<QLabel*>();
    for (const QLabel* label : labels)
        texts << label->text();
    for (const char* text :
         {"KLV Client", "Software revision: 2.7.4", "This product uses  QT v 5.9.3",
          "Firmware revision:2.7.1", "Serial: 20215678", "Calibration due date:", "15.03.2027"})
        QVERIFY2(texts.contains(text), text);
    about->close();
    rig.click("connect");
    QVERIFY(!rig.get<QLabel>("lbl_CalibrateData").text().contains("2027"));
}

void WindowTest::calibrationDateIsColoured_data()
{
    QTest::addColumn<QString>("date");
    QTest::addColumn<QString>("colour");
    const QString format = QStringLiteral("dd.MM.yyyy");
    QTest::newRow("today") << QDate::currentDate().toString(format) << "red";
    QTest::newRow("tomorrow") << QDate::currentDate().addDays(1).toString(format) << "black";
    QTest::newRow("empty") << ""
                           << "black";
    QTest::newRow("no such date") << "31.02.2020"
                                  << "red";
    QTest::newRow("another format") << "2099-01-01"
                                    << "red";
}

void WindowTest::calibrationDateIsColoured()
{
    QFETCH(QString, date);
    QFETCH(QString, colour);
    Form about;
    about.setCalibrationDue(date);
    QCOMPARE(about.findChild<QLabel*>("lbl_CalibrateData")->styleSheet(),
             QStringLiteral("QLabel { color: %1; }").arg(colour));
}

void WindowTest::servicePanelReadsItsValues()
{
    PanelRig rig;
    rig.connectDevice();
    QVERIFY(!rig.get<QLineEdit>("REF_OSC").text().isEmpty());
    rig.click("service");
    QTRY_VERIFY(!rig.get<QLabel>("text_temp").text().isEmpty());
    m_demo->takeSent();
    rig.enter("REF_OSC", "123");
    QCOMPARE(m_demo->takeSent(), QStringList({"MEM:DAC 123\\n", "SYSTem:ERRor?\\n"}));
}

void WindowTest::unreadableSettingsAreSaid()
{
    const QString path = QSettings(QStringLiteral("Veltro"), QStringLiteral("KLV")).fileName();
    if (path.contains("HKEY_"))
        QSKIP("The registry keeps them, which no text can damage.");
    QVERIFY(QDir().mkpath(QFileInfo(path).path()));
    QFile::remove(path);
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[Settings\nFreq_Step=@Rubbish(\x01\x02\nlanguage=\xFF\xFE\n");
    file.close();
    PanelRig rig;
    QVERIFY(rig.status().contains("settings"));
    rig.connectDevice();
    QVERIFY(rig.isConnected());
    rig.end();
    QFile::remove(path);
}

void WindowTest::closeButtonEndsTheSearchToo()
{
    (*m_demo)(QStringLiteral("latency 1000"));
    PanelRig rig;
    rig.click("connect");
    rig.click("closeWindow");
    QVERIFY(!rig.window().isVisible());
    QCoreApplication::processEvents();
    QVERIFY(!rig.isConnected());
    QVERIFY(!QGuiApplication::overrideCursor());
    rig.end();
}

QTEST_MAIN(WindowTest)
#include "window_test.moc"
