#include "tests/support/panel_test.h"
#include "tests/support/rows.h"
#include "tests/support/wire_rig.h"

#include <QAction>
#include <QClipboard>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QTableWidget>

/// What is asked before the level rises, and the highest level of the user's own.
class PowerGuardTest : public PanelTest
{
    Q_OBJECT

private slots:
    void initTestCase() { QApplication::setQuitOnLastWindowClosed(false); }

    void init()
    {
        PanelTest::init();
        (*m_demo)("instruments [1]\nmodel=KLV-20G\npowerMinDbm=-130\npowerMaxDbm=20\n");
    }

    void asks()
    {
        const auto row =
            freshRows(this, [this](const QString& way, const QString& situation, int from, int to,
                                   const QString& asked, const QString& sent) {
                if (situation.startsWith("jump"))
                    m_settings.setValue("Safety/jump", situation.mid(5));
                beginConnected();
                prepare(way, to);
                m_rig->enter("POW", QString::number(from));
                if (situation == "offline")
                    m_rig->click("connect");
                if (situation != "RF off" && !m_rig->isChecked("Output"))
                    m_rig->click("Output");
                m_demo->takeCommands();
                if (!asked.isEmpty()) {
                    // A refused run leaves the modulation alone.
                    answerWith("cancel");
                    act(way, to);
                    QTRY_COMPARE(m_asked, asked);
                    QTRY_VERIFY(!question() && !QGuiApplication::overrideCursor());
                    const QStringList all = m_sentBefore + m_demo->takeCommands();
                    QVERIFY2(all.filter("POW").isEmpty(), qPrintable(all.join(' ')));
                    QVERIFY2(way == "profile" || all.isEmpty(), qPrintable(all.join(' ')));
                    QCOMPARE(m_rig->text("POW"), QString::number(from));
                    QVERIFY(m_rig->get("POW").isEnabled());
                    for (const char* run : {"button_Sweep", "button_List"})
                        QVERIFY(!m_rig->isChecked(run));
                    if (way == "profile")
                        QCOMPARE(m_rig->status(), QString("Profile only partly applied: loud"));
                    QVERIFY(QTest::qWaitForWindowActive(&m_rig->window()));
                    answerWith("raise");
                }
                act(way, to);
                if (!asked.isEmpty())
                    QTRY_COMPARE(m_asked, asked);
                QTRY_VERIFY(!question() && !QGuiApplication::overrideCursor());
                const QStringList all = m_demo->takeCommands();
                QVERIFY2(sent.isEmpty() ? all.isEmpty() : all.count(sent) == 1,
                         qPrintable(all.join(' ')));
            });
        const QString large = "Power from -40 to +10 dBm with RF on?";
        const QString set = "POW 10.000000;POW?!";
        row("typed", "typed", "", -40, 10, large, set);
        row("keypad", "keypad", "", -40, 10, large, set);
        row("profile", "profile", "", -40, 10, large, set);
        row("fixed power", "sweep", "", -40, 10, large, "POW 10!");
        row("sweep over power", "power sweep", "", -40, 10, large, "POW:START 10!");
        row("list", "list", "", -40, 10, large, "LIST:POW -40,10~!");
        const QString twenty = "POW -20.000000;POW?!";
        row("just the limit", "typed", "", -40, -20, "", twenty);
        row("own limit", "typed", "jump 10", -31, -20, "Power from -31 to -20 dBm with RF on?",
            twenty);
        row("never", "typed", "jump 0", -40, 10, "", set);
        row("down", "typed", "", 10, -120, "", "POW -120.000000;POW?!");
        row("RF off", "typed", "RF off", -40, 10, "", set);
        row("offline", "typed", "offline", -40, 10, "", "");
    }

    /// In the pauses in which a start switches the modulation off, the run can still be changed.
    void asksForWhatAStartBecomes()
    {
        const auto row = freshRows(
            this, [this](const QString& way, const QString& changedTo, const QString& asked) {
                beginConnected();
                prepare(way, -40);
                m_rig->enter("POW", "-40");
                m_rig->clickAll("Output AM");
                m_demo->takeSent();
                whenSent(m_rig->window(), *m_demo, "AM:STATe OFF", [&] {
                    m_rig->get<QLineEdit>("Freq_Pow").setText(changedTo);
                    if (way == "list")
                        m_rig->get<QTableWidget>("table_List").item(1, 1)->setText(changedTo);
                });
                answerWith("cancel");
                act(way, 10);
                QTRY_VERIFY(Activities::global().texts().isEmpty());
                QTRY_COMPARE(m_asked, asked);
                QTRY_VERIFY(!question());
                const QStringList all = m_sentBefore + m_demo->takeCommands();
                QVERIFY2(all.filter("POW").isEmpty(), qPrintable(all.join(' ')));
                QVERIFY(m_rig->get("POW").isEnabled());
            });
        row("sweep", "sweep", "10", "Power from -40 to +10 dBm with RF on?");
        row("list", "list", "10", "Power from -40 to +10 dBm with RF on?");
        row("no number", "sweep", "", "");
    }

    void isAnsweredWithNo()
    {
        const auto row = freshRows(this, [this](const QString& way, const QString& answer) {
            beginConnected();
            m_rig->enter("POW", "-40");
            prepare(way, 10);
            m_rig->click("Output");
            act(way, 10);
            QDialog* dialog = question();
            QVERIFY(dialog && QTest::qWaitForWindowActive(dialog));
            m_demo->takeCommands();
            if (answer == "Escape" || answer == "Return")
                QTest::keyPress(dialog->windowHandle(),
                                answer == "Escape" ? Qt::Key_Escape : Qt::Key_Return);
            else if (answer == "closed")
                dialog->close();
            else if (answer == "RF off")
                QTest::keyPress(dialog->windowHandle(), Qt::Key_R, Qt::ControlModifier);
            else if (answer == "window closed")
                m_rig->window().close();
            else if (answer == "unchecked" && way == "list")
                m_rig->clickAll("button_List");
            else if (answer == "unchecked")
                m_rig->enter("POW", "-41");
            else
                (*m_demo)("unplug"), m_rig->click("connect");
            QTRY_VERIFY(!question());
            const QStringList all = m_demo->takeCommands();
            QVERIFY2(all.filter("10").isEmpty() && all.filter("ABORt").isEmpty(),
                     qPrintable(all.join(' ')));
            QCOMPARE(m_rig->text("POW"),
                     QString(answer == "unchecked" && way == "typed" ? "-41" : "-40"));
            QVERIFY(!m_rig->isChecked("button_List"));
            QVERIFY(m_rig->get("POW").isEnabled());
        });
        for (const char* way : {"typed", "list"}) {
            for (const char* answer : {"Escape", "Return", "closed", "RF off", "unplugged",
                                       "window closed", "unchecked"})
                row(QString("%1, %2").arg(way, answer), way, answer);
        }
    }

    void countsStepsAsOneRise()
    {
        beginConnected();
        m_rig->enter("POW", "-40");
        m_rig->click("Output");
        m_demo->takeCommands();
        auto& field = m_rig->get<QLineEdit>("POW");
        field.setFocus();
        // A step back in between begins no new rise.
        for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_Up})
            QTest::keyClick(&field, key);
        int steps = 0;
        while (!question() && ++steps < 100)
            QTest::keyClick(&field, Qt::Key_Up);
        QCOMPARE(m_demo->takeCommands().filter("POW").last(), QString("POW -20.000000;POW?!"));
        QCOMPARE(question()->findChild<QLabel*>("message")->text(),
                 QString("Power from -40 to -19 dBm with RF on?"));
        QTest::mouseClick(question()->findChild<QPushButton*>("raise"), Qt::LeftButton);
        QCOMPARE(m_rig->text("POW"), QString("-19"));
        // Asked once: it goes on from there.
        QTest::keyClick(&field, Qt::Key_Up);
        QTRY_VERIFY(!question());
        QCOMPARE(m_rig->text("POW"), QString("-18"));
        // A rest ends a rise.
        for (int step = 0; step < 15; ++step)
            QTest::keyClick(&field, Qt::Key_Up);
        QTest::qWait(1100);
        for (int step = 0; step < 15; ++step)
            QTest::keyClick(&field, Qt::Key_Up);
        QVERIFY(!question());
        QCOMPARE(m_rig->text("POW"), QString("12"));
    }

    void isChosenInTheMenu()
    {
        begin();
        QVERIFY(m_rig->get<QAction>("action_jump_20").isChecked());
        m_rig->get<QAction>("action_jump_10").trigger();
        begin();
        QVERIFY(m_rig->get<QAction>("action_jump_10").isChecked());
        QVERIFY(!m_rig->get<QAction>("action_jump_20").isChecked());
    }

    void ceilingBoundsFields_data() { testNames("name", {"POW", "Freq_Pow", "Start", "Stop"}); }

    void ceilingBoundsFields()
    {
        QFETCH(QString, name);
        m_settings.setValue("Safety/ceiling", "-7");
        begin();
        QCOMPARE(m_rig->text("POW"), QString("-7"));
        QCOMPARE(m_rig->text("Freq_Pow"), QString("-7"));
        // Half typed, and pushed.
        m_rig->get<QLineEdit>("POW").setText("5");
        m_rig->connectDevice();
        QVERIFY(m_demo->takeCommands().contains("POW -7.000000;POW?!"));
        if (name.startsWith("St"))
            m_rig->clickAll("power_toFrom_freq");
        if (name != "POW")
            m_rig->openPanel("open_list");
        m_rig->enter(qPrintable(name), "-6");
        QCOMPARE(m_rig->text(qPrintable(name)), QString("-7"));
        m_rig->enter(qPrintable(name), "-8");
        QCOMPARE(m_rig->text(qPrintable(name)), QString("-8"));
        m_rig->click(qPrintable("key_" + name));
        QVERIFY(m_rig->text("keypad_limits").contains("-7 dBm"));
    }

    void ceilingHoldsWhatIsThere()
    {
        beginConnected();
        m_rig->enter("POW", "5");
        m_rig->enter("POW", "3");
        m_demo->takeCommands();
        m_rig->openPanel("open_list");
        m_rig->clickAll("button_Sweep");
        m_demo->takeCommands();
        const auto setCeiling = [this](const QString& power) {
            m_rig->get<QAction>("action_ceiling").trigger();
            m_rig->enter("line_ceiling", power);
            QTRY_VERIFY(!m_rig->window().findChild<QDialog*>("PowerCeiling"));
        };
        setCeiling("4");
        QVERIFY(m_demo->takeCommands().isEmpty());
        // The run goes on above it: it ends, and the display's power comes back bounded.
        setCeiling("-2");
        QVERIFY(!m_rig->isChecked("button_Sweep"));
        QStringList all = m_demo->takeCommands();
        QCOMPARE(all.first(), QString("INIT:CONT OFF!"));
        QCOMPARE(all.filter("POW "), QStringList("POW -2.000000;POW?!"));
        QCOMPARE(m_rig->text("Freq_Pow"), QString("-2"));
        setCeiling("-3");
        QCOMPARE(m_demo->takeCommands().first(), QString("POW -3.000000;POW?!"));
        // An emptied cell is no power above it.
        auto& table = m_rig->get<QTableWidget>("table_List");
        table.setRowCount(1);
        table.setItem(0, 1, new QTableWidgetItem("-9"));
        table.item(0, 1)->setText(QString());
        QCOMPARE(table.item(0, 1)->text(), QString());
        setCeiling("");
        QVERIFY(m_demo->takeCommands().isEmpty());
        QCOMPARE(m_settings.value("Safety/ceiling").toString(), QString());
    }

    void ceilingHoldsLists()
    {
        m_settings.setValue("Safety/ceiling", "0");
        beginConnected();
        prepare("list", -5);
        auto& table = m_rig->get<QTableWidget>("table_List");
        // Typed: bounded. Pasted: as it stands, and marked.
        table.item(1, 1)->setText("7");
        QCOMPARE(table.item(1, 1)->text(), QString("0"));
        QGuiApplication::clipboard()->setText("-3\n0.5");
        table.setCurrentCell(0, 1);
        m_rig->click("paste_List");
        QCOMPARE(table.item(1, 1)->text(), QString("0.5"));
        QVERIFY(table.item(0, 1)->icon().isNull());
        QVERIFY(!table.item(1, 1)->icon().isNull());
        m_demo->takeCommands();
        m_rig->click("button_List");
        QVERIFY(m_demo->takeCommands().isEmpty());
        QVERIFY(!m_rig->isChecked("button_List"));
        QCOMPARE(m_rig->status(),
                 QString("List not run: row 2 is above the highest power of 0 dBm"));
        QCOMPARE(table.currentRow(), 1);
    }

    void ceilingIsEntered()
    {
        begin();
        auto& action = m_rig->get<QAction>("action_ceiling");
        for (const char* typed : {"--5", "-", "-12"}) {
            action.trigger();
            m_rig->enter("line_ceiling", typed);
            auto* dialog = m_rig->window().findChild<QDialog*>("PowerCeiling");
            const bool isTaken = !dialog || !dialog->isVisible();
            QCOMPARE(isTaken, QByteArray(typed) == "-12");
            if (!isTaken)
                dialog->close();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
        QVERIFY(action.text().contains("-12 dBm"));
        QCOMPARE(m_settings.value("Safety/ceiling").toString(), QString("-12"));
    }

    void sweepFollowsTheDisplay()
    {
        begin();
        const auto shown = [this] { return m_rig->text("Freq_Pow") + ", " + m_rig->text("Start"); };
        QCOMPARE(shown(), QString("0, 25 000 000"));
        m_rig->connectDevice();
        m_demo->takeCommands();
        m_rig->enter("POW", "-40");
        m_rig->enter("FREQ", "2G");
        QCOMPARE(shown(), QString("-40, 2 000 000 000"));
        QVERIFY(!m_rig->get("Freq_Pow").property("edited").toBool());
        // Not what is half typed; and beside a sweep over power just so.
        m_rig->get("POW").setFocus();
        QTest::keyClicks(&m_rig->get("POW"), "-3");
        m_rig->clickAll("power_toFrom_freq");
        m_rig->enter("POW", "-30");
        m_rig->clickAll("power_toFrom_freq");
        QCOMPARE(shown(), QString("-30, 2 000 000 000"));
        // A profile that says the same leaves it at that; one that says another is heeded.
        m_rig->saveProfile("loud");
        m_rig->enter("POW", "-20");
        m_rig->clickAll("quick_1");
        QTRY_VERIFY(m_rig->status().contains("applied"));
        m_rig->enter("POW", "-21");
        QCOMPARE(shown(), QString("-21, 2 000 000 000"));
        m_rig->openPanel("open_list");
        m_rig->enter("Freq_Pow", "-5");
        m_rig->enter("Start", "3G");
        m_rig->enter("POW", "-22");
        m_rig->enter("FREQ", "4G");
        QCOMPARE(shown(), QString("-5, 3 000 000 000"));
        // A display that comes to show the same is not followed again.
        begin();
        m_rig->openPanel("open_list");
        m_rig->enter("Freq_Pow", "-30");
        m_rig->enter("POW", "-30");
        m_rig->enter("POW", "-10");
        QCOMPARE(m_rig->text("Freq_Pow"), QString("-30"));
    }

private:
    /// While nothing is asked yet, the output being off.
    void prepare(const QString& way, int power)
    {
        const QString text = QString::number(power);
        if (way == "profile") {
            m_rig->enter("POW", text);
            m_rig->saveProfile("loud");
            return;
        }
        if (way == "power sweep")
            m_rig->clickAll("power_toFrom_freq");
        if (way.endsWith("sweep")) {
            m_rig->openPanel("open_list");
            m_rig->enter(way == "sweep" ? "Freq_Pow" : "Start", text);
        }
        if (way == "list") {
            auto& table = m_rig->get<QTableWidget>("table_List");
            table.setRowCount(2);
            table.setItem(1, 1, new QTableWidgetItem(text));
            m_rig->clickAll("List_is_Checked");
            m_rig->openPanel("open_list");
        }
    }

    void act(const QString& way, int power)
    {
        if (way == "typed") {
            m_rig->enter("POW", QString::number(power));
        } else if (way == "keypad") {
            m_rig->click("key_POW");
            QTest::keyClicks(&m_rig->get("keypad_entry"), QString::number(power));
            m_rig->click("keypad_enter");
        } else if (way == "profile") {
            m_rig->clickAll("quick_1");
        } else {
            m_rig->clickAll(way == "list" ? "button_List" : "button_Sweep");
        }
    }

    QDialog* question() { return m_rig->window().findChild<QDialog*>("PowerQuestion"); }
    /// Clicks a button of the question once there is one; notes what it was and what was sent.
    void answerWith(const char* button)
    {
        m_asked.clear();
        m_sentBefore.clear();
        const auto isAsked = [this] { return question() && question()->isVisible(); };
        when(m_rig->window(), isAsked, [this, button] {
            QDialog* dialog = question();
            m_asked = dialog->findChild<QLabel*>("message")->text();
            m_sentBefore = m_demo->takeCommands();
            const auto* target = dialog->findChild<QWidget*>(button);
            QTest::mouseClick(dialog->windowHandle(), Qt::LeftButton, {},
                              target->mapTo(dialog, target->rect().center()));
        });
    }

    QString m_asked;
    QStringList m_sentBefore;
};

QTEST_MAIN(PowerGuardTest)
#include "power_guard_test.moc"
