#include "app/side_panels.h"
#include "fields/keypad/keypad.h"
#include "link/instrument_limits.h"
#include "service/about_box.h"
#include "tests/support/panel_test.h"
#include "tests/support/rows.h"
#include "tests/support/wire_rig.h"

#include <QAction>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QStackedWidget>
#include <QTableWidget>
#include <QWindow>

namespace
{
QStringList warnings;

void collectWarnings(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    if (type != QtInfoMsg && type != QtDebugMsg)
        warnings << message;
}
} // namespace

/// What the window itself does: wiring, language, settings, keys, start and end, and what happens
/// to it while the service panel works.
class WindowTest : public PanelTest
{
    Q_OBJECT

private slots:
    void everySlotFindsItsControl()
    {
        const QtMessageHandler before = qInstallMessageHandler(collectWarnings);
        begin();
        qInstallMessageHandler(before);
        const QStringList unmatched = warnings.filter("QMetaObject");
        QVERIFY2(unmatched.isEmpty(), qPrintable(unmatched.join('\n')));
    }

    void languageSwitchesWhileRunning()
    {
        begin();
        m_rig->enter("FREQ", "5M");
        m_rig->enter("POW", "-3");
        const QString english = m_rig->device();
        m_rig->chooseLanguage("ru");
        QVERIFY(m_rig->device() != english);
        QCOMPARE(m_rig->text("FREQ"), QString("5 000 000"));
        QCOMPARE(m_rig->text("POW"), QString("-3"));
        m_rig->connectDevice();
        m_rig->chooseLanguage("en");
        QCOMPARE(m_rig->device(), QString("KLV-20G 5678"));
        QCOMPARE(m_rig->text("ROSC"), QString("10 MHz"));
        m_rig->click("connect");
        QCOMPARE(m_rig->device(), english);
    }

    void noWordKeepsTheOldLanguage()
    {
        StartOptions russian = PanelRig::defaultOptions();
        russian.language = "ru";
        begin(russian);
        const QStringList expected = words();
        begin();
        m_rig->chooseLanguage("ru");
        const QStringList found = words();
        QCOMPARE(found.size(), expected.size());
        for (int i = 0; i < found.size(); ++i)
            QCOMPARE(found.at(i), expected.at(i));
    }

    /// Until they are those of a window that was made in it.
    void thePicturesFollowTheTheme()
    {
        const auto choose = [this](const char* theme) {
            const auto actions = m_rig->get<QMenu>("menu").findChildren<QAction*>();
            for (QAction* action : actions) {
                if (action->data() == theme)
                    action->trigger();
            }
        };
        for (const char* panel : {"open_list", "open_mod"}) {
            const auto picture = [&] { return m_rig->get("pictures").grab().toImage(); };
            begin();
            choose("dark");
            begin();
            m_rig->openPanel(panel);
            QCoreApplication::processEvents();
            const QImage dark = picture();
            choose("light");
            begin();
            m_rig->openPanel(panel);
            choose("dark");
            QTRY_VERIFY2(picture() == dark, panel);
        }
    }

    void aboutShowsTheInstrument()
    {
        beginConnected();
        QStringList texts;
        auto& about = m_rig->get<Form>("Form");
        about.showAbout();
        about.hide();
        QCOMPARE(m_rig->text("lbl_Library"),
                 "VISA library: " + QDir::toNativeSeparators(Demo::libraryPath()));
        const auto labels = about.findChildren<QLabel*>();
        for (const QLabel* label : labels)
            texts << label->text();
        for (const char* text : {"Software revision: 2.7.4", "Firmware revision:2.7.1",
                                 "Serial: 20215678", "Calibration due date:", "15.03.2027"})
            QVERIFY2(texts.contains(text), text);
        m_rig->click("connect");
        QVERIFY(!m_rig->text("lbl_CalibrateData").contains("2027"));
    }

    void calibrationDateIsColoured_data()
    {
        testColumns<QString, QString>("date", "colour");
        const QString format = QStringLiteral("dd.MM.yyyy");
        testRow("today", QDate::currentDate().toString(format), "red");
        testRow("tomorrow", QDate::currentDate().addDays(1).toString(format), "black");
        testRow("empty", "", "black");
        testRow("no such date", "31.02.2020", "red");
        testRow("another format", "2099-01-01", "red");
    }

    void calibrationDateIsColoured()
    {
        QFETCH(QString, date);
        QFETCH(QString, colour);
        Form about;
        about.setCalibrationDue(date);
        QCOMPARE(about.findChild<QLabel*>("lbl_CalibrateData")->styleSheet(),
                 QStringLiteral("QLabel { color: %1; }").arg(colour));
    }

    void unreadableSettingsAreSaid()
    {
        const QString path = m_settings.fileName();
        if (path.contains("HKEY_"))
            QSKIP("The registry keeps them, which no text can damage.");
        QVERIFY(QDir().mkpath(QFileInfo(path).path()));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write("[Settings\nFreq_Step=@Rubbish(\x01\x02\nlanguage=\xFF\xFE\n");
        file.close();
        begin();
        QVERIFY(m_rig->status().contains("settings"));
        m_rig->connectDevice();
        QVERIFY(m_rig->isConnected());
        m_rig.reset();
        QFile::remove(path);
    }

    void closeButtonEndsTheSearchToo()
    {
        (*m_demo)("latency 1000");
        begin();
        m_rig->click("connect");
        m_rig->click("closeWindow");
        QVERIFY(!m_rig->window().isVisible());
        QCoreApplication::processEvents();
        QVERIFY(!m_rig->isConnected());
        QVERIFY(!QGuiApplication::overrideCursor());
    }

    void escapeClosesWhatOpenedLast_data()
    {
        testColumns<QString, QStringList>("order", "left"); // after each Escape
        testRow("panel, prompt", "panel prompt", QStringList({"panel", ""}));
        testRow("prompt, panel", "prompt panel", QStringList({"prompt", ""}));
        testRow("prompt, panel, keypad", "prompt panel keypad",
                QStringList({"panel prompt", "prompt", ""}));
    }

    void escapeClosesWhatOpenedLast()
    {
        QFETCH(QString, order);
        QFETCH(QStringList, left);
        beginActive();
        for (const QString& name : order.split(' ')) {
            // A click into the window makes it the active one, as its user's would.
            if (name != "prompt") {
                m_rig->window().activateWindow();
                QVERIFY(QTest::qWaitForWindowActive(&m_rig->window()));
            }
            if (name == "panel")
                m_rig->openPanel("open_mod");
            else
                m_rig->click(name == "prompt" ? "butSetModePow" : "key_FREQ");
        }
        for (const QString& open : left) {
            press(Qt::Key_Escape);
            QCOMPARE(opened(), open);
        }
        // With nothing open it does nothing.
        press(Qt::Key_Escape);
        QVERIFY(m_rig->window().isVisible());
    }

    void escapeFirstRestoresTheField()
    {
        beginActive();
        m_rig->connectDevice();
        m_rig->enter("FREQ", "5M");
        m_rig->openPanel("open_mod");
        auto& field = m_rig->get<QLineEdit>("FREQ");
        field.setFocus();
        QTest::keyClicks(&field, "7");
        m_demo->takeSent();
        press(Qt::Key_Escape);
        QCOMPARE(field.text(), QString("5 000 000"));
        QCOMPARE(opened(), QString("panel"));
        press(Qt::Key_Escape);
        QCOMPARE(opened(), QString());
        QCOMPARE(m_demo->takeSent(), QStringList());
    }

    void menuIsReachedByKeys_data()
    {
        testColumns<QString, int>("language", "aboutKey");
        testRow("English", "en", int(Qt::Key_A));
        testRow("Russian", "ru", 0x041E);
    }

    void menuIsReachedByKeys()
    {
        QFETCH(QString, language);
        QFETCH(int, aboutKey);
        beginActive();
        m_rig->chooseLanguage(language);
        auto& menu = m_rig->get<QMenu>("menu");
        QTimer::singleShot(0, &m_rig->window(), [&] {
            QTRY_VERIFY(menu.isVisible());
            QKeyEvent press(QEvent::KeyPress, aboutKey, Qt::NoModifier, QString(QChar(aboutKey)));
            QCoreApplication::sendEvent(&menu, &press);
            menu.close();
        });
        QTest::keyClick(m_rig->window().windowHandle(), Qt::Key_F10);
        auto* about = m_rig->window().findChild<Form*>();
        QTRY_VERIFY(about->isVisible());
        about->close();
    }

    void quits()
    {
        beginActive();
        press(Qt::Key_Q, Qt::ControlModifier);
        QVERIFY(!m_rig->window().isVisible());
    }

    void thePictureIsOfWhatVaries_data()
    {
        testColumns<QString, QString>("clicks", "words"); // how they begin
        const auto row = [](const char* clicks, const char* words) {
            testRow(clicks, clicks, words);
        };
        row("", "");
        row("open_mod", "Pulses");
        row("open_mod AM", "Sine, 1 kHz");
        row("open_mod AM open_mod", "Sine, 1 kHz");
        row("open_mod AM profiles", "Sine, 1 kHz");
        row("open_mod AM open_gener", "Sine, 10 kHz"); // a press on what has the focus
        row("open_mod AM AM open_mod", "");
        row("open_mod AM Pulse open_mod", "Pulses");
        row("open_mod AM Pulse Pulse open_mod", "Sine, 1 kHz");
        row("open_gener sine_select open_gener", "Sine, 10 kHz");
        row("open_list service", "");
        row("open_list button_Sweep service", "Sweep of 100 points");
        row("open_list button_Sweep open_mod", "Pulses");
        row("open_list button_Sweep open_list stop_run", "");
    }

    /// That of the open panel, else of what is on; and nothing that is there moves for it.
    void thePictureIsOfWhatVaries()
    {
        QFETCH(QString, clicks);
        QFETCH(QString, words);
        beginConnected();
        const QMap<QString, QPoint> places = placesOfControls();
        for (const QString& name : clicks.split(' ', Qt::SkipEmptyParts)) {
            m_rig->openPanel(qPrintable(name));
            const QMap<QString, QPoint> now = placesOfControls();
            for (const QString& control : places.keys())
                QVERIFY2(now.value(control) == places[control], qPrintable(control));
        }
        const auto& pictures = m_rig->get<QStackedWidget>("pictures");
        QCOMPARE(pictures.isVisible(), !words.isEmpty());
        QTRY_VERIFY2(words.isEmpty() ||
                         pictures.currentWidget()->accessibleDescription().startsWith(words),
                     qPrintable(pictures.currentWidget()->accessibleDescription()));
    }

    /// In a larger window the picture and the list's table have more room, the controls have not.
    void aLargerWindowShowsMore()
    {
        begin();
        m_rig->openPanel("open_list");
        m_rig->clickAll("List_is_Checked");
        QWidget& window = m_rig->window();
        const auto& table = m_rig->get<QTableWidget>("table_List");
        const auto& picture = m_rig->get("plot_List");
        QCoreApplication::processEvents();
        const QMap<QString, QPoint> places = placesOfControls();
        const QSize pictureBefore = picture.size();
        const int tableBefore = table.height();
        const QSize size = window.size() + QSize(100, 80);
        window.windowHandle()->resize(size);
        QTRY_COMPARE(window.size(), size);
        QTRY_COMPARE(picture.size(), pictureBefore + QSize(100, 80));
        QTRY_COMPARE(table.height(), tableBefore + 80);
        QCOMPARE(placesOfControls(), places);
    }

    void aClosedPanelEndsWriting_data() { testNames("button", {"service", "open_mod"}); }

    void aClosedPanelEndsWriting()
    {
        QFETCH(QString, button);
        const QString firstRow = "MEM:TABLE:ADD 1000000000 -4";
        openService();
        whenSent(m_rig->window(), *m_demo, firstRow, [&] { m_rig->click(qPrintable(button)); });
        m_rig->click("applyCalibrate");
        QCOMPARE(m_demo->takeCommands(), QStringList(firstRow));
        QCOMPARE(m_rig->text("applyCalibrate"), QString("Write"));
        QVERIFY(m_rig->get("table").isEnabledTo(&m_rig->window()));
        QVERIFY(!m_rig->window().findChild<QWidget*>("progressBarForTable"));
        QVERIFY(!QGuiApplication::overrideCursor());
    }

    void temperatureIsPolledWhileOpen()
    {
        beginConnected();
        auto* connection = m_rig->window().findChild<Connection*>();
        emit connection->pollDue();
        QCOMPARE(m_demo->takeSent(), QStringList());
        m_rig->openPanel("service");
        m_demo->takeSent();
        emit connection->pollDue();
        QCOMPARE(m_demo->takeCommands(), QStringList("TEMP?"));
        (*m_demo)("reply TEMP? ->");
        const QString shown = m_rig->text("text_temp");
        emit connection->pollDue();
        QCOMPARE(m_rig->status(), QString("error getting temperature"));
        QCOMPARE(m_rig->text("text_temp"), shown);
    }

    /// And another instrument is never given its table.
    void anInstrumentFillsAnOpenPanel()
    {
        begin();
        m_rig->openPanel("service");
        QCOMPARE(m_demo->takeSent(), QStringList());
        (*m_demo)("reply MEM:MSC? -> OFF");
        m_rig->connectDevice();
        QCOMPARE(m_demo->takeCommands().last(), QString("TEMP?"));
        QCOMPARE(m_rig->get<QTableWidget>("table").rowCount(), 20);
        QCOMPARE(m_rig->text("serias"), QString("20215678"));
        QCOMPARE(m_rig->text("label_firmware"), QString("2.7.1"));
        m_rig->click("connect");
        QCOMPARE(m_rig->get<QTableWidget>("table").rowCount(), 0);
    }

    void theKeypadTunesTheReference()
    {
        openService();
        m_rig->click("key_REF_OSC");
        auto& keypad = m_rig->get("keypad");
        QVERIFY(keypad.isVisible());
        QTest::keyClicks(keypad.focusWidget(), "500");
        QTest::keyClick(keypad.focusWidget(), Qt::Key_Return);
        QCOMPARE(m_demo->takeCommands(), QStringList("MEM:DAC 500!"));
        QCOMPARE(m_rig->text("REF_OSC"), QString("500"));
    }

private:
    void beginActive()
    {
        begin();
        QVERIFY(QTest::qWaitForWindowActive(&m_rig->window()));
    }

    /// What the widgets show, tell and are called.
    QStringList words()
    {
        QStringList words;
        const auto widgets = m_rig->window().findChildren<QWidget*>();
        for (const QWidget* widget : widgets)
            words << QStringList{widget->objectName(),
                                 widget->property("text").toString(),
                                 widget->windowTitle(),
                                 widget->accessibleName(),
                                 widget->accessibleDescription(),
                                 widget->toolTip()}
                         .join('|');
        return words;
    }

    /// In the window, of the buttons and fields beside the panels.
    QMap<QString, QPoint> placesOfControls()
    {
        QMap<QString, QPoint> places;
        const auto controls = m_rig->get("controls").findChildren<QWidget*>();
        for (const QWidget* control : controls) {
            const bool isPressed = qobject_cast<const QAbstractButton*>(control) != nullptr;
            if (control->isVisible() && (isPressed || qobject_cast<const QLineEdit*>(control)))
                places[control->objectName()] = control->mapTo(&m_rig->window(), QPoint());
        }
        return places;
    }

    QString opened()
    {
        QStringList names;
        const std::pair<const char*, const char*> widgets[] = {
            {"panel", "Modulat"}, {"prompt", "WgtModePow"}, {"keypad", "keypad"}};
        for (const auto& [name, widget] : widgets) {
            if (m_rig->get(widget).isVisible())
                names << name;
        }
        return names.join(' ');
    }

    /// As the system would: to whichever window has the focus.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        // The platform of the tests gives the focus back to nobody.
        QWindow* window = QGuiApplication::focusWindow();
        if (!window || !window->isVisible()) {
            m_rig->window().activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(&m_rig->window()));
            window = m_rig->window().windowHandle();
        }
        QTest::keyClick(window, key, modifiers);
        QTRY_VERIFY(!SidePanels::moving());
    }

    void openService()
    {
        beginConnected();
        m_rig->openPanel("service");
        m_demo->takeSent();
    }
};

QTEST_MAIN(WindowTest)
#include "window_test.moc"
