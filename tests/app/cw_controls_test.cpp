#include "tests/support/panel_test.h"
#include "tests/support/rows.h"

#include <QLineEdit>

#include <functional>

/// The continuous-wave controls by keys and clicks, against what reaches the wire.
class CwControlsTest : public PanelTest
{
    Q_OBJECT

private slots:
    void init()
    {
        PanelTest::init();
        beginConnected();
    }

    void numbersAreCommitted()
    {
        const auto row = freshRows(this, [this](const QString& name, const QString& typed,
                                                const QString& sent, const QString& shown) {
            const bool isReference = name == "ROSC_FREQ";
            if (isReference) {
                m_rig->click("ROSC");
                m_rig->click("open_ROSC_FREQ");
                m_demo->takeSent();
            }
            m_rig->enter(qPrintable(name), typed);
            QCOMPARE(m_demo->takeCommands().join(", "), sent);
            QCOMPARE(m_rig->text(isReference ? "ROSC" : qPrintable(name)), shown);
            QVERIFY(!field("ROSC_FREQ").isVisible());
            QVERIFY(isReference || !field(qPrintable(name)).property("edited").toBool());
        });
        const auto frequency = [&row](const char* tag, const QString& typed, const char* hertz,
                                      const char* shown) {
            row(tag, "FREQ", typed, QString("FREQ %1.000000 Hz;FREQ?!").arg(hertz), shown);
        };
        frequency("giga", "2.5G", "2500000000", "2 500 000 000");
        frequency("comma, kilo", "1500,25k", "1500250", "1 500 250");
        frequency("above MAX", "99G", "20000000000", "20 000 000 000");
        frequency("below MIN", "1", "100000", "100 000");
        frequency("fraction", "1000000.6", "1000001", "1 000 001");
        frequency("huge", QString(60, '9'), "20000000000", "20 000 000 000");
        row("negative", "POW", "-17", "POW -17.000000;POW?!", "-17");
        row("fraction is refused", "POW", "-5.5", "POW -5.000000;POW?!", "-5");
        row("left to the instrument", "POW", "123", "POW 123.000000;POW?!!", "0");
        const auto reference = [&row](const char* tag, const char* typed, const char* sent) {
            row(tag, "ROSC_FREQ", typed, QString("ROSC:EXT:FREQ %1 MHZ, ROSC:EXT:FREQ?!").arg(sent),
                QString("%1 MHz").arg(sent));
        };
        reference("reference", "25", "25");
        reference("reference above MAX", "5000", "100");
        reference("reference below MIN", "0", "1");
        reference("reference overflow", "99999999999999", "100");
    }

    /// On Return, on a step, on leaving the field, and when the output is switched on from within
    /// it.
    void noNumberSendsNothing()
    {
        const auto row = freshRows(this, [this](const QString& name, const QString& typed) {
            QLineEdit& edit = field(qPrintable(name));
            m_rig->enter("POW", "-10");
            const QString accepted = edit.text();
            m_demo->takeSent();
            const std::function<void()> ends[] = {
                [&] { QTest::keyClick(&edit, Qt::Key_Return); },
                [&] { QTest::keyClick(&edit, Qt::Key_Up); },
                [&] { QTest::keyClick(&edit, Qt::Key_Tab); },
                [&] { m_rig->click("Output"); },
                [&] {
                    m_rig->click("Output");
                    edit.setFocus();
                    edit.clear();
                    m_rig->clickAll("Output");
                },
            };
            for (const auto& end : ends) {
                edit.setFocus();
                edit.selectAll();
                QTest::keyClick(&edit, Qt::Key_Delete);
                QTest::keyClicks(&edit, typed);
                end();
                QCOMPARE(edit.text(), accepted);
                QVERIFY2(m_rig->status().endsWith(": not a number, nothing is sent"),
                         qPrintable(m_rig->status()));
            }
            QCOMPARE(m_demo->takeCommands(),
                     QStringList({"OUTPut ON!", "OUTPut OFF!", "OUTPut ON!"}));
        });
        for (const char* typed : {"", "-", "--5", "5-3"})
            row(QString("power \"%1\"").arg(typed), "POW", typed);
        row("frequency empty", "FREQ", "");
        row("frequency point", "FREQ", ".");
    }

    /// Nothing for the instrument that comes while a field is being typed into; what was accepted
    /// there comes back, marked as not sent.
    void noNumberIsPushed()
    {
        m_rig->enter("POW", "-10");
        m_rig->click("connect");
        field("POW").setText("-");
        field("FREQ").clear();
        (*m_demo)("reply MEM:MSC? -> OFF");
        m_demo->takeSent();
        m_rig->connectDevice();
        const QStringList sent = m_demo->takeSent();
        QCOMPARE(sent.filter(";POW?") + sent.filter(";FREQ?"), QStringList());
        QCOMPARE(m_rig->text("POW"), QString("-10"));
        QVERIFY(field("POW").property("edited").toBool());
        QVERIFY2(m_rig->status().endsWith(": not a number, nothing is sent"),
                 qPrintable(m_rig->status()));
    }

    void refusedKeySaysWhy()
    {
        m_rig->enter("POW", "-10.5");
        QCOMPARE(m_rig->status(), QString("Power: whole dBm"));
        m_rig->click("key_POW");
        QTest::keyClicks(&field("keypad_entry"), "1,5");
        QTest::keyClick(&field("keypad_entry"), Qt::Key_Return);
        QCOMPARE(m_demo->takeCommands().filter("POW").last(), QString("POW 1.000000;POW?!"));
    }

    void aLeftReferenceSendsNothing()
    {
        m_rig->click("open_ROSC_FREQ");
        QTest::keyClicks(&field("ROSC_FREQ"), "77");
        QTest::keyClick(&field("ROSC_FREQ"), Qt::Key_Escape);
        QVERIFY(field("ROSC_FREQ").isHidden());
        QVERIFY(m_rig->get("ROSC").hasFocus());
        m_rig->click("open_ROSC_FREQ");
        field("FREQ").setFocus();
        QVERIFY(field("ROSC_FREQ").isHidden());
        m_rig->click("open_ROSC_FREQ");
        m_rig->enter("ROSC_FREQ", "");
        QCOMPARE(m_rig->text("ROSC"), QString("10 MHz"));
        QVERIFY(m_demo->takeSent().isEmpty());
        // Neither does leaving it once it has been sent.
        m_rig->click("open_ROSC_FREQ");
        m_rig->enter("ROSC_FREQ", "20");
        field("FREQ").setFocus();
        QCOMPARE(m_demo->takeCommands().count("ROSC:EXT:FREQ 20 MHZ"), 1);
    }

    void fieldShowsWhatTheInstrumentTook()
    {
        (*m_demo)("fault 1 reply 1.25 GHZ\\n");
        m_rig->enter("FREQ", "2G");
        QCOMPARE(m_rig->text("FREQ"), QString("1 250 000 000"));
        (*m_demo)("fault 1 reply -9.6\\n");
        m_rig->enter("POW", "-9");
        QCOMPARE(m_rig->text("POW"), QString("-10"));
    }

    void outputAndReferenceSwitch()
    {
        for (const auto& [name, lamp] :
             {std::pair("Output", "label_RF"), {"ROSC", "label_ExtRef"}}) {
            for (const bool isOn : {true, false}) {
                m_rig->click(name);
                QCOMPARE(m_rig->get(lamp).isEnabled(), isOn);
            }
        }
        QCOMPARE(m_demo->takeCommands(),
                 QStringList({"OUTPut ON!", "OUTPut OFF!", "ROSCillator:SOURce EXTernal!",
                              "ROSC:EXT:FREQ 10 MHZ", "ROSC:EXT:FREQ?!",
                              "ROSCillator:SOURce INTernal!"}));
    }

    void indicatorsShowAndGo()
    {
        (*m_demo)("error 328");
        m_rig->click("Output");
        QVERIFY(m_rig->get("label_328").isVisible());
        QCOMPARE(m_rig->text("ROSC"), QString());
        m_rig->click("Output");
        QVERIFY(!m_rig->get("label_328").isVisible());
        QCOMPARE(m_rig->text("ROSC"), QString("10 MHz"));

        // With the external source selected the lamp is left as it is.
        (*m_demo)("reference absent");
        m_rig->click("ROSC");
        QVERIFY(!m_rig->get("label_328").isVisible());
        QVERIFY(!m_rig->status().isEmpty());
        QVERIFY(m_rig->isConnected());
        QVERIFY(m_rig->get("label_ExtRef").property("unlocked").toBool());
        (*m_demo)("reference present");
        m_rig->click("Output");
        QVERIFY(!m_rig->get("label_ExtRef").property("unlocked").toBool());

        (*m_demo)("error 329 Reverse power");
        m_rig->click("Output");
        QVERIFY(m_rig->get("label_329").isVisible());
        QVERIFY(m_rig->get("label_329").toolTip().contains("Reverse power"));
        m_rig->click("connect");
        QVERIFY(!m_rig->get("label_329").isVisible());
    }

    void failureEmptiesTheFieldAndDisconnects_data()
    {
        testNames("fault", {"fault 1 status 0xBFFF0015", "unplug"});
    }

    void failureEmptiesTheFieldAndDisconnects()
    {
        QFETCH(QString, fault);
        (*m_demo)(fault);
        m_rig->enter("FREQ", "3G");
        QCOMPARE(m_rig->text("FREQ"), QString());
        QVERIFY(!m_rig->isConnected());
        QCOMPARE(m_rig->device(), QString("Disconnected"));
        QVERIFY(!QApplication::activeModalWidget());
        QVERIFY(field("FREQ").isEnabled());
        // What was accepted comes back when the field is left, and the next instrument is given it.
        (*m_demo)("plug");
        m_rig->connectDevice();
        QCOMPARE(m_rig->text("FREQ"), QString("3 000 000 000"));
        QCOMPARE((*m_demo)("ask FREQ?").toDouble(), 3e9);
    }

    // It reads as 0, marked: the instrument has what was sent, which comes back.
    void rubbishIsNoValue()
    {
        const auto row = freshRows(this, [this](const QString& reply, const QString& name,
                                                const QString& typed, const QString& shown) {
            QLineEdit& entry = field(qPrintable(name));
            const auto enterDoubted = [&] {
                (*m_demo)("fault 1 " + reply);
                m_rig->enter(qPrintable(name), typed);
                QCOMPARE(entry.text(), QString("0"));
                QVERIFY(entry.property("edited").toBool() && m_rig->isConnected());
            };
            enterDoubted();
            const QString asked = "ask " + name + '?';
            const QString atInstrument = (*m_demo)(asked);
            (*m_demo)("clear");
            entry.clearFocus();
            QCOMPARE(entry.text(), shown);
            QVERIFY(!entry.property("edited").toBool());
            QCOMPARE((*m_demo)(asked), atInstrument);

            enterDoubted();
            QTest::keyClick(&entry, Qt::Key_Return);
            QCOMPARE(entry.text(), shown);
            QCOMPARE((*m_demo)(asked), atInstrument);
        });
        for (const char* reply : {"reply rubbish\\n", "reply 12abc\\n", "length 70000"}) {
            row("frequency", reply, "FREQ", "3G", "3 000 000 000");
            row("power", reply, "POW", "-20", "-20");
        }
    }

private:
    QLineEdit& field(const char* name) { return m_rig->get<QLineEdit>(name); }
};

QTEST_MAIN(CwControlsTest)
#include "cw_controls_test.moc"
