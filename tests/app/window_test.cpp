#include "link/instrument_limits.h"
#include "service/about_box.h"
#include "tests/support/panel_test.h"
#include "tests/support/rows.h"

#include <QLabel>

namespace
{
QStringList warnings;

void collectWarnings(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    if (type != QtInfoMsg && type != QtDebugMsg)
        warnings << message;
}
} // namespace

/// What the window itself does: wiring, language, settings, start and end.
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

    void aboutShowsTheInstrument()
    {
        beginConnected();
        QStringList texts;
        const auto labels = m_rig->get<Form>("Form").findChildren<QLabel*>();
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
};

QTEST_MAIN(WindowTest)
#include "window_test.moc"
