#include "link/instrument_limits.h"
#include "service/about_box.h"
#include "tests/support/panel_test.h"
#include "tests/support/rows.h"
#include "ui/language.h"

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
class WindowTest : public PanelTest
{
    Q_OBJECT

private slots:
    void everySlotFindsItsControl();
    void languageSwitchesWhileRunning();
    void aboutShowsTheInstrument();
    void calibrationDateIsColoured_data();
    void calibrationDateIsColoured();
    void unreadableSettingsAreSaid();
    void closeButtonEndsTheSearchToo();
};

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
    testColumns<QString, QString>("date", "colour");
    const QString format = QStringLiteral("dd.MM.yyyy");
    testRow("today", QDate::currentDate().toString(format), "red");
    testRow("tomorrow", QDate::currentDate().addDays(1).toString(format), "black");
    testRow("empty", "", "black");
    testRow("no such date", "31.02.2020", "red");
    testRow("another format", "2099-01-01", "red");
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

void WindowTest::unreadableSettingsAreSaid()
{
    const QString path = m_settings.fileName();
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
