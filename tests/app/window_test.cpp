#include "app/side_panels.h"
#include "fields/keypad/keypad.h"
#include "link/instrument_limits.h"
#include "service/about_box.h"
#include "tests/support/files.h"
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

    /// Until the words are those of a window that was made in it; numbers stay.
    void languageSwitchesWhileRunning()
    {
        for (const bool isConnected : {false, true}) {
            QStringList shown[2];
            for (QStringList& words : shown) {
                (*m_demo)("reply MEM:MSC? -> OFF");
                StartOptions options = PanelRig::defaultOptions();
                options.language = &words == shown ? "ru" : "en";
                begin(options);
                m_rig->enter("FREQ", "5M");
                m_rig->enter("POW", "-3");
                if (isConnected)
                    m_rig->connectDevice();
                if (&words != shown)
                    m_rig->choose("ru");
                words = wordsOfTheWindow();
            }
            QCOMPARE(shown[0].size(), shown[1].size());
            for (int i = 0; i < shown[0].size(); ++i)
                QCOMPARE(shown[1].at(i), shown[0].at(i));
        }
    }

    /// Until they are those of a window that was made in it.
    void thePicturesFollowTheTheme()
    {
        for (const char* panel : {"open_list", "open_mod"}) {
            const auto picture = [&] { return m_rig->get("pictures").grab().toImage(); };
            begin();
            m_rig->choose("dark");
            begin();
            m_rig->openPanel(panel);
            QCoreApplication::processEvents();
            const QImage dark = picture();
            m_rig->choose("light");
            begin();
            m_rig->openPanel(panel);
            m_rig->choose("dark");
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

    void calibrationDateIsColoured()
    {
        const auto row = namedRows([](const QString& date, const QString& colour) {
            Form about;
            about.setCalibrationDue(date);
            QCOMPARE(about.findChild<QLabel*>("lbl_CalibrateData")->styleSheet(),
                     QStringLiteral("QLabel { color: %1; }").arg(colour));
        });
        const QString format = QStringLiteral("dd.MM.yyyy");
        row("today", QDate::currentDate().toString(format), "red");
        row("tomorrow", QDate::currentDate().addDays(1).toString(format), "black");
        row("empty", "", "black");
        row("no such date", "31.02.2020", "red");
        row("another format", "2099-01-01", "red");
    }

    void unreadableSettingsAreSaid()
    {
        const QString path = m_settings.fileName();
        if (path.contains("HKEY_"))
            QSKIP("The registry keeps them, which no text can damage.");
        writeFile(path, "[Settings\nFreq_Step=@Rubbish(\x01\x02\nlanguage=\xFF\xFE\n");
        begin();
        QVERIFY(m_rig->status().contains("settings"));
        m_rig->connectDevice();
        QVERIFY(m_rig->isConnected());
        m_rig.reset();
        QFile::remove(path);
    }

    void escapeClosesWhatOpenedLast()
    {
        const auto row = freshRows(this, [this](const QString& order, const QStringList& left) {
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
        });
        row("panel, prompt", "panel prompt", QStringList({"panel", ""}));
        row("prompt, panel", "prompt panel", QStringList({"prompt", ""}));
        row("prompt, panel, keypad", "prompt panel keypad",
            QStringList({"panel prompt", "prompt", ""}));
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

    void menuIsReachedByKeys()
    {
        const auto row = freshRows(this, [this](const QString& language, int aboutKey) {
            beginActive();
            m_rig->choose(language);
            auto& menu = m_rig->get<QMenu>("menu");
            QTimer::singleShot(0, &m_rig->window(), [&] {
                QTRY_VERIFY(menu.isVisible());
                QKeyEvent press(QEvent::KeyPress, aboutKey, Qt::NoModifier,
                                QString(QChar(aboutKey)));
                QCoreApplication::sendEvent(&menu, &press);
                menu.close();
            });
            QTest::keyClick(m_rig->window().windowHandle(), Qt::Key_F10);
            auto* about = m_rig->window().findChild<Form*>();
            QTRY_VERIFY(about->isVisible());
            about->close();
        });
        row("English", "en", int(Qt::Key_A));
        row("Russian", "ru", 0x041E);
    }

    /// That of the open panel, else of what is on; and nothing that is there moves for it.
    void thePictureIsOfWhatVaries()
    {
        const auto row = freshCases(this, [this](const QString& clicks, const QString& words) {
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
        });
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

private:
    void beginActive()
    {
        begin();
        QVERIFY(QTest::qWaitForWindowActive(&m_rig->window()));
    }

    /// What the widgets show, tell and are called.
    QStringList wordsOfTheWindow()
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
