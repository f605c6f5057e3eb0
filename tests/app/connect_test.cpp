#include "link/library_places.h"
#include "link/pause.h"
#include "tests/support/panel_test.h"
#include "tests/support/rows.h"
#include "tests/support/titled_copy.h"
#include "ui/error_box.h"

#include <QLineEdit>

namespace
{
const QString title = QStringLiteral("KLV-20G (20215678)");

const QStringList opening = [] {
    QStringList messages{"MEM:MSC?", "*RST", "*IDN?", "SERV:SOUR:CDUE?"};
    for (const char* head :
         {"FREQ", "POW", "PULM:INT:PER", "PULM:INT:PWID", "AM", "AM:INT:FUNC:FREQ",
          "AM:INT:FUNC:SHAP:SQU:DUTY", "FM", "FM:INT:FUNC:FREQ", "FM:INT:FUNC:SHAP:SQU:DUTY", "PM",
          "PM:INT:FUNC:FREQ", "PM:INT:FUNC:SHAP:SQU:DUTY", "LFO:FUNC:SHAP:SQU:DUTY", "LFO:AMPL",
          "LFO:FUNC:FREQ", "ROSC:EXT:FREQ", "LIST:DWEL:POIN", "SWEEP:DWEL"}) {
        for (const char* which : {"? MAX", "? MIN"})
            messages << QLatin1String(head) + QLatin1String(which);
    }
    return messages;
}();
const QStringList handBack = {"*RST", "MEM:MSC ON"};
} // namespace

/// From the connect button to a usable instrument and back, with everything that can go wrong.
class ConnectTest : public PanelTest
{
    Q_OBJECT

private slots:
    /// And hands it back, by the button and by its end.
    void pushesThePanelAsItIs()
    {
        PanelRig rig;
        m_demo->takeTranscript();
        rig.connectDevice();
        QVERIFY(rig.isConnected());
        QCOMPARE(rig.device(), QString("KLV-20G 5678"));
        QCOMPARE(rig.window().windowTitle(), title);
        QCOMPARE(m_demo->takeCommands(),
                 opening + QStringList({"ROSCillator:SOURce INTernal!", "OUTPut OFF!",
                                        "FREQ 1000000000.000000 Hz;FREQ?!", "POW 0.000000;POW?!",
                                        "MEM:DAC?"}));
        rig.click("connect");
        QCOMPARE(m_demo->takeCommands(), handBack);
        QCOMPARE(rig.device(), QString("Disconnected"));
        QCOMPARE(rig.window().windowTitle(), QString("KLV"));

        rig.click("Output");
        rig.click("open_ROSC_FREQ");
        rig.enter("ROSC_FREQ", "33");
        rig.click("ROSC");
        rig.enter("FREQ", "50G");
        QCOMPARE(rig.text("FREQ"), QString("20 000 000 000"));
        rig.get<QLineEdit>("POW").setText("-12");
        QVERIFY(m_demo->takeSent().isEmpty());
        (*m_demo)(QStringLiteral("reply MEM:MSC? -> OFF"));
        rig.connectDevice();
        QCOMPARE(m_demo->takeCommands(),
                 opening + QStringList({"ROSCillator:SOURce EXTernal!", "OUTPut ON!",
                                        "FREQ 20000000000.000000 Hz;FREQ?!", "POW -12.000000;POW?!",
                                        "ROSC:EXT:FREQ 33 MHZ", "ROSC:EXT:FREQ?!", "MEM:DAC?"}));
        rig.end();
        QCOMPARE(m_demo->takeCommands(), handBack);
    }

    void firmwareDecides()
    {
        const auto row = freshRows(this, [this](const QString& version, bool isAccepted) {
            (*m_demo)(QStringLiteral("reply *IDN? -> Veltro,KLV-20G,20215678,%1").arg(version));
            PanelRig rig;
            rig.connectDevice();
            QCOMPARE(rig.isConnected(), isAccepted);
            auto* box = rig.window().findChild<ErrorBox*>();
            QCOMPARE(box != nullptr && box->isVisible(), !isAccepted);
            QCOMPARE(rig.status().contains("firmware " + version), !isAccepted);
            QCOMPARE(m_demo->takeCommands().contains("SERV:SOUR:CDUE?"), isAccepted);
        });
        row("one part", "2", true);
        row("2.3.0", "2.3.0", false);
        row("2.4.0", "2.4.0", true);
        row("1.4.0", "1.4.0", true);
        row("3.0.1", "3.0.1", false);
        row("four parts", "2.10.0.1", true);
        row("no number", "a.b.c", false);
    }

    void tellsWhyThereIsNoConnection()
    {
        const auto row = freshRows(
            this, [this](const QString& library, const QString& set, const QString& reason) {
                if (set == "another one allowed")
                    m_settings.setValue("/Settings/one", "another");
                else if (!set.isEmpty())
                    (*m_demo)(set);
                StartOptions options = PanelRig::defaultOptions();
                options.visaLibrary = library;
                PanelRig rig(options);
                rig.connectDevice();
                QVERIFY(!rig.isConnected());
                QCOMPARE(rig.device(), QString("Disconnected"));
                QCOMPARE(rig.window().windowTitle(), QString("KLV"));
                QVERIFY2(rig.status().contains(reason), qPrintable(rig.status()));
                QVERIFY(!m_demo->takeCommands().contains("FREQ? MAX"));
                QVERIFY(!rig.window().findChild<ErrorBox*>());
                // It stays until the next attempt, which begins by saying so.
                rig.click("connect");
                QVERIFY2(rig.status().startsWith("Searching"), qPrintable(rig.status()));
                QVERIFY(!rig.status().contains(reason));
                QTRY_VERIFY(!QGuiApplication::overrideCursor());
            });
        const QString demo = Demo::libraryPath();
        row("no such path", "/no/such/library.so", "",
            "There is no VISA library /no/such/library.so");
        const QString places = libraryPlaces("NoSuchVisa").folders.join(", ");
        QVERIFY(!places.isEmpty());
        row("in no place", "NoSuchVisa", "", " in: " + places);
        row("no library", QCoreApplication::applicationDirPath(), "", "cannot be loaded");
        row("another library", KLV_NO_VISA_LIBRARY, "", "does not start");
        row("no instrument", demo, "unplug", "No instrument found");
        row("silent at the opening", demo, "fault 1 status 0xBFFF0015",
            "could not be opened: it does not answer");
        row("not opened", demo, "fault 1 status 0xBFFF003E",
            "could not be opened: VISA status 0xbff");
        row("not permitted", demo, "fault 1 status 0xBFFF00A8", "This user may not open");
        row("no identity", demo, "reply *IDN? ->", "no access to the device: it does not answer");
        for (const char* identity : {"Veltro", "Veltro,KLV", "?!\\x00\\xFF", "\\n"})
            row(identity, demo, qPrintable(QString("reply *IDN? -> ") + identity),
                "no access to the device: it does not identify itself");
        row("not allowed", demo, "another one allowed",
            "serial number 20215678 is not among those allowed");
        row("no due date", demo, "reply SERV:SOUR:CDUE? ->", "connection error: ");
    }

    void allowListDecides()
    {
        m_settings.setValue("/Settings/two", "12345678");
        m_settings.setValue("/Settings/four", "20215678");
        m_settings.sync();
        PanelRig rig;
        rig.connectDevice();
        QVERIFY(rig.isConnected());
    }

    void heldInstrumentsAreNotListed()
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

    void userChoosesAmongSeveral()
    {
        (*m_demo)("instruments [1111]\nmodel=KLV-6G\n[2222]\nmodel=KLV-20G\nfirmware=2.7.1\n");
        PanelRig rig;
        // Dismissed, it leaves a way on.
        rig.connectDevice();
        QVERIFY(QApplication::activeModalWidget());
        QApplication::activeModalWidget()->close();
        QCOMPARE(rig.status(), QString());
        rig.connectDevice();
        QVERIFY(!rig.isConnected());
        auto* chooser = qobject_cast<GuiListKLV*>(QApplication::activeModalWidget());
        QVERIFY(chooser);
        const auto buttons = chooser->widget()->findChildren<QPushButton*>();
        QCOMPARE(buttons.at(0)->text(), QString("KLV-6G\n1111"));
        QTest::mouseClick(buttons.at(1), Qt::LeftButton);
        QVERIFY(chooser->isHidden());
        QCOMPARE(rig.device(), QString("KLV-20G 2222"));
    }

    void clicksWhileSearchingDoNothing()
    {
        (*m_demo)(QStringLiteral("latency 2000"));
        PanelRig rig;
        m_demo->takeTranscript();
        rig.click("connect");
        rig.click("connect");
        rig.click("connect");
        rig.connectDevice();
        QVERIFY(rig.isConnected());
        QCOMPARE(m_demo->takeCommands().count("*IDN?"), 1);
    }

    void lockedInstrumentStaysUntouched()
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

    /// Identified all the same, but with what was on before.
    void unsentResetIsSaid()
    {
        (*m_demo)("fault 4 status 0xBFFF003E");
        PanelRig rig;
        rig.connectDevice();
        QVERIFY(rig.isConnected());
        QVERIFY(!m_demo->takeSent().contains("*RST\\n"));
        QVERIFY2(rig.status().startsWith("The reset could not be sent"), qPrintable(rig.status()));
    }

    void survivesAFaultAtEveryCall_data()
    {
        testColumns<QString>("fault");
        testRow("time-out", "status 0xBFFF0015");
        testRow("warning", "status 0x3FFF0085");
        testRow("unplugged", "vanish");
        testRow("rubbish", "reply \\x00\\xFF,%n%s;;\\n");
        testRow("empty reply", "reply \\n");
        testRow("100 kB", "length 100000");
    }

    /// Each attempt gets as far as its own fault, one call beyond the last one's: whatever that
    /// did, all works again.
    void survivesAFaultAtEveryCall()
    {
        QFETCH(QString, fault);
        pauses().share = 0;
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
        QCOMPARE(rig.text("FREQ"), QString("3 000 000"));
    }
};

QTEST_MAIN(ConnectTest)
#include "connect_test.moc"
