#include "fields/number_edit.h"
#include "link/instrument_limits.h"
#include "tests/support/panel_test.h"
#include "tests/support/rows.h"
#include "tests/support/titled_copy.h"
#include "ui/error_box.h"

#include <QLabel>
#include <QLineEdit>

namespace
{
const QString title = QStringLiteral("KLV-20G (20215678)");

QStringList limitQueries()
{
    QStringList queries;
    for (const char* head :
         {"FREQ", "POW", "PULM:INT:PER", "PULM:INT:PWID", "AM", "AM:INT:FUNC:FREQ",
          "AM:INT:FUNC:SHAP:SQU:DUTY", "FM", "FM:INT:FUNC:FREQ", "FM:INT:FUNC:SHAP:SQU:DUTY", "PM",
          "PM:INT:FUNC:FREQ", "PM:INT:FUNC:SHAP:SQU:DUTY", "LFO:FUNC:SHAP:SQU:DUTY", "LFO:AMPL",
          "LFO:FUNC:FREQ", "ROSC:EXT:FREQ", "LIST:DWEL:POIN", "SWEEP:DWEL"}) {
        for (const char* which : {"? MAX\\n", "? MIN\\n"})
            queries << QLatin1String(head) + QLatin1String(which);
    }
    return queries;
}

const QString drain = QStringLiteral("SYSTem:ERRor?\\n");

QStringList openingMessages()
{
    return QStringList{"MEM:MSC?\\n", "*RST\\n", "*IDN?\\n", "SERV:SOUR:CDUE?\\n"} + limitQueries();
}
} // namespace

/// From the connect button to a usable instrument and back, with everything that can go wrong.
class ConnectTest : public PanelTest
{
    Q_OBJECT

private slots:
    void connectsTheOnlyInstrument();
    void pushesThePanelAsItIs();
    void disconnectHandsBack();
    void closingHandsBack();
    void closingInAPauseHandsBack();
    void firmwareDecides_data();
    void firmwareDecides();
    void tellsWhyThereIsNoConnection_data();
    void tellsWhyThereIsNoConnection();
    void allowListDecides();
    void massStorageModeIsLeft();
    void heldInstrumentsAreNotListed();
    void userChoosesAmongSeveral();
    void dismissedChooserLeavesAWayOn();
    void clicksWhileSearchingDoNothing();
    void lockedInstrumentStaysUntouched();
    void survivesAFaultAtEveryCall_data();
    void survivesAFaultAtEveryCall();
    void secondInstrumentReplacesTheLimits();
};

void ConnectTest::connectsTheOnlyInstrument()
{
    PanelRig rig;
    QCOMPARE(rig.window().windowTitle(), QString("KLV"));
    QCOMPARE(rig.device(), QString("Disconnected"));
    QCOMPARE(rig.get<QLabel>("device").width(), 131);
    m_demo->takeTranscript();
    rig.connectDevice();

    QVERIFY(rig.isConnected());
    QCOMPARE(rig.device(), QString("KLV-20G 5678"));
    QCOMPARE(rig.get<QLabel>("device").width(), 171);
    QCOMPARE(rig.window().windowTitle(), title);
    QCOMPARE(m_demo->takeSent(),
             openingMessages() +
                 QStringList({"ROSCillator:SOURce INTernal\\n", drain, "OUTPut OFF\\n", drain,
                              "FREQ 1000000000.000000 Hz;FREQ?\\n", drain, "POW 0.000000;POW?\\n",
                              drain, "MEM:DAC?\\n"}));
}

void ConnectTest::pushesThePanelAsItIs()
{
    PanelRig rig;
    rig.click("Output");
    rig.click("ROSC");
    rig.enter("FREQ", "2.5G");
    rig.get<QLineEdit>("POW").setText("-12");
    QVERIFY(m_demo->takeSent().isEmpty());
    rig.connectDevice();
    QCOMPARE(
        m_demo->takeSent().mid(openingMessages().size()),
        QStringList({"ROSCillator:SOURce EXTernal\\n", drain, "OUTPut ON\\n", drain,
                     "FREQ 2500000000.000000 Hz;FREQ?\\n", drain, "POW -12.000000;POW?\\n", drain,
                     "ROSC:EXT:FREQ 10 MHZ\\n", "ROSC:EXT:FREQ?\\n", drain, "MEM:DAC?\\n"}));
}

void ConnectTest::disconnectHandsBack()
{
    PanelRig rig;
    rig.connectDevice();
    m_demo->takeTranscript();
    rig.click("connect");
    QCOMPARE(m_demo->takeTranscript().mid(0, 2), QStringList({"> *RST\\n", "> MEM:MSC ON\\n"}));
    QVERIFY(!rig.isConnected());
    QCOMPARE(rig.device(), QString("Disconnected"));
    QCOMPARE(rig.get<QLabel>("device").width(), 131);
    QCOMPARE(rig.window().windowTitle(), QString("KLV"));
    rig.enter("FREQ", "5M");
    rig.click("Output");
    QVERIFY(m_demo->takeTranscript().isEmpty());
}

void ConnectTest::closingHandsBack()
{
    PanelRig rig;
    rig.connectDevice();
    m_demo->takeTranscript();
    rig.end();
    QCOMPARE(m_demo->takeSent(), QStringList({"*RST\\n", "MEM:MSC ON\\n"}));
}

void ConnectTest::closingInAPauseHandsBack()
{
    PanelRig rig;
    m_demo->takeTranscript();
    // The first event loop turn with the button checked is the pause behind the reset.
    QTimer closer;
    connect(&closer, &QTimer::timeout, &rig.window(), [&] {
        if (rig.isConnected())
            rig.window().close();
    });
    closer.start(0);
    rig.connectDevice();
    QCOMPARE(m_demo->takeSent(),
             QStringList({"MEM:MSC?\\n", "*RST\\n", "*RST\\n", "MEM:MSC ON\\n"}));
    QVERIFY(!rig.isConnected());
}

void ConnectTest::firmwareDecides_data()
{
    testColumns<QString, bool>("version", "isAccepted");
    testRow("one part", "2", true);
    testRow("2.3.0", "2.3.0", false);
    testRow("2.4.0", "2.4.0", true);
    testRow("1.4.0", "1.4.0", true);
    testRow("3.0.1", "3.0.1", false);
    testRow("four parts", "2.10.0.1", true);
    testRow("no number", "a.b.c", false);
}

void ConnectTest::firmwareDecides()
{
    QFETCH(QString, version);
    QFETCH(bool, isAccepted);
    (*m_demo)(QStringLiteral("reply *IDN? -> Veltro,KLV-20G,20215678,%1").arg(version));
    PanelRig rig;
    rig.connectDevice();
    QCOMPARE(rig.isConnected(), isAccepted);
    auto* box = rig.window().findChild<ErrorBox*>();
    QCOMPARE(box != nullptr && box->isVisible(), !isAccepted);
    if (isAccepted)
        return;
    const auto labels = box->findChildren<QLabel*>();
    QVERIFY(std::any_of(labels.begin(), labels.end(), [](const QLabel* label) {
        return label->text() ==
               QLatin1String("Software version is not compatible with this version of KLV "
                             "firmware. \n Please use KLV 2.3 software or lower.");
    }));
    QVERIFY(!m_demo->takeSent().contains("SERV:SOUR:CDUE?\\n"));
    QCOMPARE(rig.device(), QString("Disconnected"));
}

void ConnectTest::tellsWhyThereIsNoConnection_data()
{
    testColumns<QString, QString, QString>("library", "set", "reason");
    const auto row = [](const char* name, const QString& library, const char* set,
                        const char* reason) { testRow(name, library, set, reason); };
    const QString demo = Demo::libraryPath();
    row("no such path", "/no/such/library.so", "", "There is no VISA library /no/such/library.so");
    row("no library", QCoreApplication::applicationDirPath(), "", "cannot be loaded");
    row("another library", KLV_NO_VISA_LIBRARY, "", "does not start");
    row("no instrument", demo, "unplug", "No instrument found");
    row("silent at the opening", demo, "fault 1 status 0xBFFF0015",
        "could not be opened: it does not answer");
    row("not opened", demo, "fault 1 status 0xBFFF003E", "could not be opened: VISA status 0xbff");
    row("not permitted", demo, "fault 1 status 0xBFFF00A8", "This user may not open");
    row("no identity", demo, "reply *IDN? ->", "no access to the device: it does not answer");
    for (const char* identity : {"Veltro", "Veltro,KLV", "?!\\x00\\xFF", "\\n"})
        row(identity, demo, qPrintable(QString("reply *IDN? -> ") + identity),
            "no access to the device: it does not identify itself");
    row("not allowed", demo, "", "serial number 20215678 is not among those allowed");
    row("old firmware", demo, "instruments [1111]\nfirmware=2.3.9", "firmware 2.3.9");
    row("no due date", demo, "reply SERV:SOUR:CDUE? ->", "connection error: ");
}

void ConnectTest::tellsWhyThereIsNoConnection()
{
    QFETCH(QString, library);
    QFETCH(QString, set);
    QFETCH(QString, reason);
    if (!set.isEmpty())
        (*m_demo)(set);
    const bool isOld = set.contains("firmware");
    if (QTest::currentDataTag() == QByteArray("not allowed"))
        m_settings.setValue("/Settings/one", "another");
    StartOptions options = PanelRig::defaultOptions();
    options.visaLibrary = library;
    PanelRig rig(options);
    rig.connectDevice();
    QVERIFY(!rig.isConnected());
    QCOMPARE(rig.device(), QString("Disconnected"));
    QCOMPARE(rig.window().windowTitle(), QString("KLV"));
    QVERIFY2(rig.status().contains(reason), qPrintable(rig.status()));
    QVERIFY(!m_demo->takeSent().contains("FREQ? MAX\\n"));
    auto* box = rig.window().findChild<ErrorBox*>();
    QCOMPARE(box != nullptr, isOld);
    if (box)
        box->close();
    // It stays until the next attempt, which begins by saying so.
    rig.click("connect");
    QVERIFY2(rig.status().startsWith("Searching"), qPrintable(rig.status()));
    QVERIFY(!rig.status().contains(reason));
    QTRY_VERIFY(!QGuiApplication::overrideCursor());
}

void ConnectTest::allowListDecides()
{
    QSettings settings(QStringLiteral("Veltro"), QStringLiteral("KLV"));
    settings.setValue("/Settings/two", "12345678");
    settings.setValue("/Settings/four", "20215678");
    settings.sync();
    PanelRig rig;
    rig.connectDevice();
    QVERIFY(rig.isConnected());
}

void ConnectTest::massStorageModeIsLeft()
{
    (*m_demo)(QStringLiteral("reply MEM:MSC? -> ON"));
    PanelRig rig;
    rig.connectDevice();
    QVERIFY(!rig.isConnected());
    QCOMPARE(m_demo->takeSent(), QStringList({"MEM:MSC?\\n", "MEM:MSC OFF\\n"}));
    QCOMPARE(rig.window().windowTitle(), QString("KLV"));
    (*m_demo)(QStringLiteral("reply MEM:MSC? -> OFF"));
    rig.connectDevice();
    QVERIFY(rig.isConnected());
}

void ConnectTest::heldInstrumentsAreNotListed()
{
    std::optional<TitledCopy> otherCopy(title);
    PanelRig rig;
    rig.connectDevice();
    QVERIFY(!rig.isConnected());
    QVERIFY(m_demo->takeSent().isEmpty());
    QVERIFY(rig.status().contains("Another running copy"));
    otherCopy.reset();
    rig.connectDevice();
    QVERIFY(rig.isConnected());
    QVERIFY(RunningCopies().isTitleTaken(title) || TitledCopy::areToldByWindows);
    rig.click("connect");
    QVERIFY(!RunningCopies().isTitleTaken(title));
}

void ConnectTest::userChoosesAmongSeveral()
{
    (*m_demo)(QStringLiteral(
        "instruments [1111]\nmodel=KLV-6G\n[2222]\nmodel=KLV-20G\nfirmware=2.7.1\n"));
    PanelRig rig;
    rig.connectDevice();
    QVERIFY(!rig.isConnected());
    auto* chooser = qobject_cast<GuiListKLV*>(QApplication::activeModalWidget());
    QVERIFY(chooser);
    QCOMPARE(chooser->windowTitle(), QString("All Device"));
    QStringList captions;
    const auto buttons = chooser->widget()->findChildren<QPushButton*>();
    for (const QPushButton* button : buttons)
        captions << button->text();
    QCOMPARE(captions, QStringList({"KLV-6G\n1111", "KLV-20G\n2222"}));
    QVERIFY(buttons.at(0)->font().pixelSize() > rig.get("status").font().pixelSize());
    m_demo->takeTranscript();
    QTest::mouseClick(buttons.at(1), Qt::LeftButton);
    QVERIFY(rig.isConnected());
    QVERIFY(chooser->isHidden());
    QCOMPARE(rig.device(), QString("KLV-20G 2222"));
}

void ConnectTest::dismissedChooserLeavesAWayOn()
{
    (*m_demo)(QStringLiteral("instruments [1111]\nmodel=KLV-6G\n[2222]\nmodel=KLV-20G\n"));
    PanelRig rig;
    rig.connectDevice();
    QVERIFY(QApplication::activeModalWidget());
    QApplication::activeModalWidget()->close();
    (*m_demo)(QStringLiteral("instruments [2222]\nmodel=KLV-20G\n"));
    rig.connectDevice();
    QVERIFY(rig.isConnected());
}

void ConnectTest::clicksWhileSearchingDoNothing()
{
    (*m_demo)(QStringLiteral("latency 2000"));
    PanelRig rig;
    m_demo->takeTranscript();
    rig.click("connect");
    rig.click("connect");
    rig.click("connect");
    rig.connectDevice();
    QVERIFY(rig.isConnected());
    const QStringList sent = m_demo->takeSent();
    QCOMPARE(sent.count("*IDN?\\n"), 1);
}

void ConnectTest::lockedInstrumentStaysUntouched()
{
    VisaLibrary visa;
    visa.load(Demo::libraryPath().toLocal8Bit().constData());
    ScpiSession other(visa);
    other.openResourceManager();
    QVERIFY(other.open(QStringLiteral("USB0::0x5645::0x0040::20215678::0::INSTR")));
    PanelRig rig;
    m_demo->takeTranscript();
    rig.connectDevice();
    QVERIFY(!rig.isConnected());
    QCOMPARE(rig.status(), QString("Another program holds the instrument"));
    QVERIFY(m_demo->takeSent().isEmpty());
    QCOMPARE(rig.window().windowTitle(), QString("KLV"));
    QVERIFY(!RunningCopies().isTitleTaken(title));
    other.close();
    rig.connectDevice();
    QVERIFY(rig.isConnected());
    QCOMPARE(rig.status(), QString());
}

void ConnectTest::survivesAFaultAtEveryCall_data()
{
    testColumns<QString>("fault");
    testRow("time-out", "status 0xBFFF0015");
    testRow("warning", "status 0x3FFF0085");
    testRow("unplugged", "vanish");
    testRow("rubbish", "reply \\x00\\xFF,%n%s;;\\n");
    testRow("empty reply", "reply \\n");
    testRow("100 kB", "length 100000");
}

/// Each attempt gets as far as its own fault, one call beyond the last one's: whatever that did,
/// all works again.
void ConnectTest::survivesAFaultAtEveryCall()
{
    QFETCH(QString, fault);
    PanelRig rig;
    const int calls = 1 + 2 * 2 + 1 + 1 + 2 * 38 + 4 * 2 + 1;
    for (int call = 1; call <= calls; ++call) {
        (*m_demo)(QStringLiteral("fault %1 %2").arg(call).arg(fault));
        const int before = (*m_demo)(QStringLiteral("calls")).toInt();
        rig.connectDevice();
        QVERIFY2((*m_demo)(QStringLiteral("calls")).toInt() >= before + call,
                 qPrintable(QString::number(call)));
        const bool isConnected = rig.isConnected();
        QCOMPARE(isConnected, rig.device() != QLatin1String("Disconnected"));
        QCOMPARE(isConnected, rig.window().windowTitle() == title);
        QVERIFY(!QGuiApplication::overrideCursor());
        if (isConnected)
            rig.click("connect");
        QVERIFY(!rig.isConnected());
        if (QWidget* box = QApplication::activeModalWidget())
            box->close();
        (*m_demo)(QStringLiteral("reset"));
        (*m_demo)(QStringLiteral("timeouts immediate"));
    }
    rig.connectDevice();
    QVERIFY(rig.isConnected());
    rig.enter("FREQ", "3M");
    QCOMPARE(rig.get<QLineEdit>("FREQ").text(), QString("3 000 000"));
}

void ConnectTest::secondInstrumentReplacesTheLimits()
{
    PanelRig rig;
    rig.connectDevice();
    const Range& range = rig.get<NumberEdit>("FREQ").range();
    const double first = range.max;
    rig.click("connect");
    QCOMPARE(range.max, first);
    (*m_demo)(QStringLiteral("reply FREQ? MAX -> 6000000000"));
    // It was handed back in its mass-storage mode, which takes one attempt to leave.
    rig.connectDevice();
    rig.connectDevice();
    QVERIFY(rig.isConnected());
    rig.enter("FREQ", "19G");
    QVERIFY(m_demo->takeSent().contains("FREQ 6000000000.000000 Hz;FREQ?\\n"));
    QCOMPARE(rig.get<QLineEdit>("FREQ").text(), QString("6 000 000 000"));
}

QTEST_MAIN(ConnectTest)
#include "connect_test.moc"
