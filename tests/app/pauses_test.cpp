#include "link/instrument_limits.h"
#include "tests/support/panel_test.h"
#include "tests/support/rows.h"
#include "tests/support/wire_rig.h"

#include <QLabel>
#include <QTableWidget>

#include <functional>

namespace
{
const QString closing = QStringLiteral("closeWindow");
const QString disconnecting = QStringLiteral("connect");
const QString unplugging = QStringLiteral("unplug");
const QStringList endings = {closing, disconnecting, unplugging};
const QStringList handBack = {"*RST\\n", "MEM:MSC ON\\n"};

constexpr int longestRunMs = 20000;
} // namespace

/// What may happen to the window while a sequence pauses: it is closed, the user disconnects, the
/// cable is pulled.
class PausesTest : public PanelTest
{
    Q_OBJECT

private slots:
    void init();

    void endsInAPause_data();
    void endsInAPause();
    void endsWhileConnecting_data();
    void endsWhileConnecting();

private:
    QPushButton& button(const QString& name);
    void setOffline(const QString& names);
    static bool runAsProgram(const std::function<void()>& start);
    void endOnceSent(const QString& text, const QString& ending);
    void checkEnded(const QString& ending);
    QString panelState();
    QString indicatorState();

    QStringList m_sent; ///< so far, by a sequence that has been interrupted
    QString m_calls;    ///< of the library, up to the end of the interruption
    bool m_isInterrupted = false;
};

void PausesTest::init()
{
    PanelTest::init();
    m_rig = std::make_unique<PanelRig>();
    // Two blocks with a pause between them, and a rest.
    m_rig->get<QTableWidget>("table_List").setRowCount(70);
    m_sent.clear();
    m_isInterrupted = false;
}

QPushButton& PausesTest::button(const QString& name)
{
    return m_rig->get<QPushButton>(qPrintable(name));
}

/// Without an instrument a click takes no time.
void PausesTest::setOffline(const QString& names)
{
    for (const QString& name : names.split(' ', Qt::SkipEmptyParts))
        button(name).click();
}

/// Within the program's own event loop, which the last window ends. False when it does not end.
bool PausesTest::runAsProgram(const std::function<void()>& start)
{
    constexpr int tooLong = 1;
    QTimer watchdog;
    connect(&watchdog, &QTimer::timeout, [] { QCoreApplication::exit(tooLong); });
    watchdog.start(longestRunMs);
    QTimer::singleShot(0, start);
    return QCoreApplication::exec() != tooLong;
}

void PausesTest::endOnceSent(const QString& text, const QString& ending)
{
    whenSent(m_rig->window(), *m_demo, text, [=] {
        m_sent = m_demo->takeSent();
        m_isInterrupted = true;
        if (ending == unplugging)
            (*m_demo)(unplugging);
        else
            m_rig->click(qPrintable(ending));
        m_calls = (*m_demo)(QStringLiteral("calls"));
    });
}

void PausesTest::checkEnded(const QString& ending)
{
    QVERIFY(m_isInterrupted);
    // Once handed back, the library is not called any more.
    if (ending != unplugging)
        QCOMPARE((*m_demo)(QStringLiteral("calls")), m_calls);
    QCOMPARE(m_demo->takeSent(), ending == unplugging ? QStringList() : handBack);
    QVERIFY(!m_rig->isConnected());
    QCOMPARE(m_rig->device(), QString("Disconnected"));
    QCOMPARE(m_rig->window().isVisible(), ending != closing);
    QVERIFY(!QApplication::activeModalWidget());
    QVERIFY(!QGuiApplication::overrideCursor());
    QCOMPARE(m_rig->get("List").cursor().shape(), Qt::ArrowCursor);
    QVERIFY(!m_rig->window().findChild<QWidget*>("progressBarForTable"));
    for (const char* run : {"button_Sweep", "button_List"})
        QVERIFY(!button(run).isChecked());
    for (const char* field : {"FREQ", "POW", "key_FREQ", "key_POW"})
        QVERIFY(m_rig->get(field).isEnabled());
    if (ending != closing)
        QCOMPARE(indicatorState(), panelState());
    m_rig->end();
    QCOMPARE(m_demo->takeSent(), QStringList());
}

void PausesTest::endsInAPause_data()
{
    testColumns<QString, QString, QString, QString>("before", "clicked", "seen", "ending");
    const struct {
        const char* tag;
        const char* before;
        const char* clicked;
        const char* seen;
    } rows[] = {
        {"before on", "", "AM", ""},
        {"before the set-up", "", "AM", "AM:STATe ON"},
        {"before the other's off", "AM", "FM", ""},
        {"between off and on", "AM", "FM", "AM:STATe OFF"},
        {"back to internal", "IntExt_PM PM", "IntExt_PM", ""},
        {"before the pulse's values", "", "Pulse", "PULM:SOUR INT"},
        {"before LF's shape", "", "sine_select", "LFO:STAT ON"},
        {"before LF's direction", "", "sawPos_select", "SHAP RAMP\\n"},
        {"behind LF's direction", "", "sawPos_select", "RAMP POS"},
        {"before AM's off for LF", "AM Pulse", "sine_select", ""},
        {"behind AM's off for LF", "AM Pulse", "sine_select", "AM:STATe OFF"},
        {"before AM's off for a sweep", "AM Pulse", "button_Sweep", ""},
        {"amid the frequencies of a list", "List_is_Checked", "button_List", "LIST:FREQ:ADD"},
        {"amid the powers of a list", "List_is_Checked", "button_List", "LIST:POW:ADD"},
    };
    for (const auto& row : rows) {
        for (const QString& ending : endings)
            QTest::addRow("%s: %s", row.tag, qPrintable(ending))
                << row.before << row.clicked << row.seen << ending;
    }
}

void PausesTest::endsInAPause()
{
    QFETCH(QString, before);
    QFETCH(QString, clicked);
    QFETCH(QString, seen);
    QFETCH(QString, ending);
    setOffline(before);
    m_rig->connectDevice();
    m_rig->openPanelOf(clicked);
    m_demo->takeTranscript();
    QVERIFY(runAsProgram([&] {
        endOnceSent(seen, ending);
        m_rig->click(qPrintable(clicked));
        QCoreApplication::exit();
    }));
    checkEnded(ending);
}

void PausesTest::endsWhileConnecting_data()
{
    testColumns<QString, QString, QString>("before", "seen", "ending");
    for (const QString& ending : endings) {
        QTest::addRow("LF ramp: %s", qPrintable(ending)) << "sawNeg_select"
                                                         << "SHAP RAMP\\n"
                                                         << ending;
        QTest::addRow("pulse: %s", qPrintable(ending)) << "Pulse"
                                                       << "PULM:SOUR INT" << ending;
    }
}

void PausesTest::endsWhileConnecting()
{
    QFETCH(QString, before);
    QFETCH(QString, seen);
    QFETCH(QString, ending);
    setOffline(before);
    m_demo->takeTranscript();
    QVERIFY(runAsProgram([&] {
        endOnceSent(seen, ending);
        m_rig->connectDevice();
        QCoreApplication::exit();
    }));
    checkEnded(ending);
}

QString PausesTest::panelState()
{
    QStringList on;
    for (const char* name : {"AM", "FM", "PM"}) {
        if (button(name).isChecked())
            on << name;
    }
    if (button("Pulse").isChecked())
        on << "PULM";
    const auto shapes = m_rig->get("generator").findChildren<QPushButton*>();
    if (std::any_of(shapes.begin(), shapes.end(), [](auto* shape) { return shape->isChecked(); }))
        on << "LFO";
    return on.join(' ');
}

QString PausesTest::indicatorState()
{
    const auto picture = [this](const char* name) {
        return m_rig->get<QLabel>(name).pixmap(Qt::ReturnByValue).toImage();
    };
    QStringList on;
    for (const char* name : {"AM", "FM", "PM"}) {
        const QPixmap icon = button(name).icon().pixmap(button(name).iconSize());
        if (picture("label_AmPmFm") == icon.toImage())
            on << name;
    }
    if (!picture("label_PULM").isNull())
        on << "PULM";
    if (!picture("label_Gener").isNull())
        on << "LFO";
    return on.join(' ');
}

QTEST_MAIN(PausesTest)
#include "pauses_test.moc"
