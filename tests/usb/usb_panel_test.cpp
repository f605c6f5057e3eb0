#include "connection/gui_list_klv.h"
#include "tests/support/panel_test.h"
#include "tests/support/rows.h"
#include "tests/usb/gadget.h"

#include <QLineEdit>
#include <QProcess>
#include <QTableWidget>

#include <csignal>
#include <grp.h>
#include <unistd.h>

namespace
{
constexpr int longestMs = 200000; // the machine may be a slow one

/// Of a transcript, what was sent and answered.
QStringList exchanged(const QStringList& transcript)
{
    return transcript.filter(QRegularExpression(QStringLiteral("^[<>] ")));
}
} // namespace

/// The panel on the driver of a real kernel, whose instrument is the model of the simulated one.
class UsbPanelTest : public PanelTest
{
    Q_OBJECT

private slots:
    void cleanupTestCase() { m_other("plug"); }

    void init()
    {
        PanelTest::init();
        m_other.unplug();
        m_gadget.plugInAnew();
    }

    void sendsWhatTheSimulatedOneIsSent()
    {
        const QStringList simulated = operated(Demo::libraryPath());
        QVERIFY(simulated.size() > 100);
        const QStringList real = operated(QStringLiteral(KLV_USB_LIBRARY));
        for (int i = 0; i < std::min(real.size(), simulated.size()); ++i)
            QCOMPARE(real.at(i), simulated.at(i));
        QCOMPARE(real.size(), simulated.size());
    }

    void theProgramFindsItsInstrument()
    {
        const QStringList simulated = ofProgram({"--demo"});
        QVERIFY(simulated.size() > 50);
        QCOMPARE(ofProgram({}), simulated);
    }

    void survivesPullingTheCable_data()
    {
        testColumns<int>("place");
        for (int place = 0; place < 10; ++place)
            testRow(QStringLiteral("connecting, %1/10").arg(place), place);
    }

    void survivesPullingTheCable()
    {
        QFETCH(int, place);
        static const int messages = [this] {
            beginOverUsb();
            return static_cast<int>(taken().filter(QRegularExpression("^> ")).size());
        }();
        QVERIFY(messages > 50);
        begin(overUsb());
        taken();
        m_gadget("vanish " + QByteArray::number(1 + place * messages / 10));
        m_rig->click("connect");
        QTRY_VERIFY_WITH_TIMEOUT(isGone(), longestMs);
        comesBack();
    }

    void survivesPullingTheCableInAList()
    {
        beginOverUsb();
        fillList(300);
        m_gadget("vanish 12");
        m_rig->clickAll("List_is_Checked button_List");
        QTRY_VERIFY_WITH_TIMEOUT(isGone(), longestMs);
        QVERIFY(!m_rig->isChecked("button_List"));
        comesBack();
    }

    void tellsWhyTheInstrumentCannotBeOpened()
    {
        begin(overUsb());
        constexpr id_t nobody = 65534;
        QVERIFY(setgroups(0, nullptr) == 0 && setresgid(nobody, nobody, 0) == 0 &&
                setresuid(nobody, nobody, 0) == 0);
        m_rig->connectDevice();
        QVERIFY(setresuid(0, 0, 0) == 0 && setresgid(0, 0, 0) == 0);
        QVERIFY2(m_rig->status().contains("/dev/usbtmc0: install the udev rule 70-klv.rules"),
                 qPrintable(m_rig->status()));
        connectTo();
    }

    void userChoosesAmongTwo()
    {
        m_other.plugInAnew();
        begin(overUsb());
        m_rig->connectDevice();
        auto* chooser = qobject_cast<GuiListKLV*>(QApplication::activeModalWidget());
        QVERIFY(chooser);
        const auto buttons = chooser->widget()->findChildren<QPushButton*>();
        QCOMPARE(buttons.at(0)->text(), QString("KLV-20G\n20215678"));
        QTest::mouseClick(buttons.at(1), Qt::LeftButton);
        QTRY_VERIFY_WITH_TIMEOUT(isReady(), longestMs);
        QCOMPARE(m_rig->device(), QString("KLV-6G 1111"));
        QCOMPARE(taken(), QStringList());
    }

private:
    static StartOptions overUsb()
    {
        StartOptions options = PanelRig::defaultOptions();
        options.visaLibrary = QStringLiteral(KLV_USB_LIBRARY);
        return options;
    }

    bool isReady() { return m_rig->isConnected() && !QGuiApplication::overrideCursor(); }
    bool isGone() { return !m_rig->isConnected() && !QGuiApplication::overrideCursor(); }

    void connectTo()
    {
        m_rig->click("connect");
        QTRY_VERIFY_WITH_TIMEOUT(isReady(), longestMs);
    }

    void beginOverUsb()
    {
        begin(overUsb());
        connectTo();
    }

    /// By itself, once it is plugged in; then it can be set, and is handed back.
    void comesBack()
    {
        m_gadget("plug");
        QTRY_VERIFY_WITH_TIMEOUT(isReady(), longestMs);
        m_rig->enter("FREQ", "2.5G");
        QCOMPARE(m_gadget("ask FREQ?"), QByteArray("2500000000"));
        m_rig->end();
        QCOMPARE(m_gadget("ask MEM:MSC?"), QByteArray("ON"));
    }

    void fillList(int rows)
    {
        auto& table = m_rig->get<QTableWidget>("table_List");
        table.setRowCount(rows);
        for (int row = 0; row < rows; ++row) {
            const QString cells[] = {QString::number(1000000 + row), QStringLiteral("-1"),
                                     QStringLiteral("9 000 000")};
            for (int column = 0; column < 3; ++column)
                table.setItem(row, column, new QTableWidgetItem(cells[column]));
        }
    }

    /// What went to and fro while an instrument was connected, set, ran a list and was handed back.
    QStringList operated(const QString& library)
    {
        const bool isUsb = library != Demo::libraryPath();
        StartOptions options = overUsb();
        options.visaLibrary = library;
        m_settings.clear();
        begin(options);
        taken();
        m_demo->takeTranscript();
        connectTo();
        m_rig->enter("FREQ", "2.5G");
        m_rig->enter("POW", "-7");
        m_rig->click("Output");
        fillList(100);
        m_rig->clickAll("List_is_Checked button_List");
        m_rig->clickAll("button_List");
        m_rig->clickAll("AM");
        m_rig->end();
        return exchanged(isUsb ? taken() : m_demo->takeTranscript());
    }

    /// What went to and fro while the program ran, up to its end by a signal.
    QStringList ofProgram(const QStringList& arguments)
    {
        QProcess program;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("KLV_DEMO_TRACE"), QStringLiteral("1"));
        program.setProcessEnvironment(environment);
        QStringList trace;
        QByteArray errors;
        const bool isUsb = arguments.isEmpty();
        const auto look = [&] {
            errors += program.readAllStandardError();
            const QString text =
                isUsb ? QString::fromLatin1(m_gadget("transcript")) : QString::fromLatin1(errors);
            trace = text.split('\n', Qt::SkipEmptyParts);
        };
        taken();
        program.start(QStringLiteral(KLV_PROGRAM),
                      QStringList({"--clean", "--language", "en"}) + arguments);
        // The last question of connecting is answered: nothing more is sent by itself.
        const auto isConnected = [&] {
            look();
            return trace.size() > 1 && trace.at(trace.size() - 2).contains("MEM:DAC?");
        };
        if (!QTest::qWaitFor(isConnected, longestMs))
            qFatal("no connection: %s", qPrintable(trace.join('\n') + errors));
        ::kill(static_cast<pid_t>(program.processId()), SIGTERM);
        program.waitForFinished(longestMs);
        look();
        // Both in the form of the trace.
        QStringList lines;
        for (QString line : trace) {
            if (isUsb && line.startsWith('>'))
                line.replace(0, 1, QStringLiteral("KLV-20G <-"));
            else if (isUsb && line.startsWith('<'))
                line.replace(0, 1, QStringLiteral("KLV-20G ->"));
            if (line.endsWith(QLatin1String("\\n")))
                line.chop(2);
            if (line.startsWith(QLatin1String("KLV-20G ")))
                lines << line;
        }
        return lines;
    }

    QStringList taken()
    {
        QStringList lines;
        for (const QByteArray& line : m_gadget.takeTranscript())
            lines << QString::fromLatin1(line);
        return lines;
    }

    const Gadget m_gadget{0};
    const Gadget m_other{1};
};

QTEST_MAIN(UsbPanelTest)
#include "usb_panel_test.moc"
