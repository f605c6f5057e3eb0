#include "tests/support/panel_test.h"
#include "tests/support/rows.h"
#include "tests/support/wire_rig.h"

#include <QTableWidget>

namespace
{
const QString closing = QStringLiteral("closeWindow");
const QString unplugging = QStringLiteral("unplug");
const QString rfOff = QStringLiteral("RF off");
const QStringList events = {closing, QStringLiteral("connect"), unplugging, rfOff};

constexpr int longestRunMs = 20000;
} // namespace

/// What may happen to the window while a sequence pauses: it is closed, the user disconnects or
/// switches RF off, the cable is pulled.
class PausesTest : public PanelTest
{
    Q_OBJECT

private slots:
    void init()
    {
        PanelTest::init();
        begin();
        // Two blocks with a pause between them, and a rest.
        m_rig->get<QTableWidget>("table_List").setRowCount(70);
        m_sent.clear();
        m_isInterrupted = false;
    }

    void somethingHappens_data()
    {
        testColumns<QString, QString, QString, QString>("before", "clicked", "seen", "event");
        const auto rows = [](const QString& tag, const QString& before, const QString& clicked,
                             const QString& seen) {
            for (const QString& event : events) {
                // It has not been on yet behind the reset.
                if (event != rfOff || seen != "*RST")
                    testRow(tag + ": " + event, before, clicked, seen, event);
            }
        };
        rows("before on", "", "AM", "");
        rows("before the set-up", "", "AM", "AM:STATe ON");
        rows("before the other's off", "AM", "FM", "");
        rows("between off and on", "AM", "FM", "AM:STATe OFF");
        rows("back to internal", "IntExt_PM PM", "IntExt_PM", "");
        rows("before the pulse's values", "", "Pulse", "PULM:SOUR INT");
        rows("before LF's shape", "", "sine_select", "LFO:STAT ON");
        rows("before LF's direction", "", "sawPos_select", "SHAP RAMP\\n");
        rows("behind LF's direction", "", "sawPos_select", "RAMP POS");
        rows("before AM's off for LF", "AM Pulse", "sine_select", "");
        rows("behind AM's off for LF", "AM Pulse", "sine_select", "AM:STATe OFF");
        rows("before AM's off for a sweep", "AM Pulse", "button_Sweep", "");
        rows("amid the frequencies of a list", "List_is_Checked", "button_List", "LIST:FREQ:ADD");
        rows("amid the powers of a list", "List_is_Checked", "button_List", "LIST:POW:ADD");
        rows("amid a calibration", "", "applyCalibrate", "MEM:TABLE:ADD");
        rows("connecting, behind the reset", "", "connect", "*RST");
        rows("connecting, LF ramp", "sawNeg_select", "connect", "SHAP RAMP\\n");
        rows("connecting, pulse", "Pulse", "connect", "PULM:SOUR INT");
    }

    void somethingHappens()
    {
        QFETCH(QString, before);
        QFETCH(QString, clicked);
        QFETCH(QString, seen);
        QFETCH(QString, event);
        // Without an instrument a click takes no time.
        m_rig->clickAll(before + " Output");
        const bool isConnecting = clicked == "connect";
        if (!isConnecting)
            m_rig->connectDevice();
        if (clicked == "applyCalibrate")
            m_rig->openPanel("service");
        m_demo->takeTranscript();
        QVERIFY(runAsProgram([&] {
            doOnceSent(seen, event);
            if (isConnecting)
                m_rig->connectDevice();
            else
                m_rig->clickAll(clicked);
            QCoreApplication::exit();
        }));
        QVERIFY(m_isInterrupted);
        QVERIFY(!QApplication::activeModalWidget());
        QVERIFY(!QGuiApplication::overrideCursor());
        QVERIFY(!m_rig->isChecked("Output"));
        if (event == rfOff)
            checkSwitchedOff();
        else
            checkEnded(event);
    }

private:
    /// Within the program's own event loop, which the last window ends. False when it does not
    /// end.
    static bool runAsProgram(const std::function<void()>& start)
    {
        constexpr int tooLong = 1;
        QTimer watchdog;
        connect(&watchdog, &QTimer::timeout, [] { QCoreApplication::exit(tooLong); });
        watchdog.start(longestRunMs);
        QTimer::singleShot(0, start);
        return QCoreApplication::exec() != tooLong;
    }

    void doOnceSent(const QString& text, const QString& event)
    {
        whenSent(m_rig->window(), *m_demo, text, [=] {
            m_demo->takeSent();
            m_isInterrupted = true;
            if (event == unplugging)
                (*m_demo)(unplugging);
            else if (event == rfOff)
                QTest::keyClick(m_rig->window().windowHandle(), Qt::Key_R, Qt::ControlModifier);
            else
                m_rig->click(qPrintable(event));
            m_calls = (*m_demo)("calls");
            if (event == rfOff)
                m_sent = m_demo->takeCommands();
        });
    }

    void checkSwitchedOff()
    {
        QCOMPARE(m_sent.size(), 1);
        // What the sequence has put into the error queue is read along with it.
        QVERIFY2(m_sent.first().startsWith("OUTPut OFF!"), qPrintable(m_sent.first()));
        QVERIFY(m_rig->isConnected());
        QCOMPARE(m_demo->takeSent().filter("OUTPut"), QStringList());
    }

    void checkEnded(const QString& event)
    {
        // Once handed back, the library is not called any more.
        if (event != unplugging)
            QCOMPARE((*m_demo)("calls"), m_calls);
        QCOMPARE(m_demo->takeCommands(),
                 event == unplugging ? QStringList() : QStringList({"*RST", "MEM:MSC ON"}));
        QVERIFY(!m_rig->isConnected());
        QCOMPARE(m_rig->device(), QString("Disconnected"));
        QCOMPARE(m_rig->window().isVisible(), event != closing);
        QCOMPARE(m_rig->get("List").cursor().shape(), Qt::ArrowCursor);
        QVERIFY(!m_rig->window().findChild<QWidget*>("progressBarForTable"));
        for (const char* run : {"button_Sweep", "button_List"})
            QVERIFY(!m_rig->isChecked(run));
        for (const char* field : {"FREQ", "POW", "key_FREQ", "key_POW"})
            QVERIFY(m_rig->get(field).isEnabled());
        if (event != closing)
            QCOMPARE(m_rig->indicators(), switchedOn());
        m_rig->end();
        QCOMPARE(m_demo->takeSent(), QStringList());
    }

    /// What the panels say is on, as the indicators would.
    QString switchedOn()
    {
        const auto shapes = m_rig->get("generator").findChildren<QPushButton*>();
        const bool isLfOn = std::any_of(shapes.begin(), shapes.end(),
                                        [](auto* shape) { return shape->isChecked(); });
        QString on;
        for (const char* name : {"AM", "FM", "PM"})
            on += m_rig->isChecked(name) ? name : "";
        return on + (m_rig->isChecked("Pulse") ? " PULM" : "") + (isLfOn ? " LF" : "");
    }

    QStringList m_sent; ///< by the event
    QString m_calls;    ///< of the library, up to its end
    bool m_isInterrupted = false;
};

QTEST_MAIN(PausesTest)
#include "pauses_test.moc"
