#include "sweep/picture/list_plot.h"
#include "sweep/run_picture.h"
#include "tests/support/rows.h"
#include "tests/sweep/sweep_rig.h"

#include <QLabel>

/// The picture beside the run: what it says of the settings and which point it shows.
class RunPictureTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_rig = std::make_unique<SweepRig>(1);
        m_rig->panel.plot().show();
        m_picture = std::make_unique<RunPicture>(m_rig->panel, m_rig->power);
        m_picture->follow(m_rig->sweep, m_rig->triggers);
        m_rig->setSweep({"0", "2 000 000", "1 000 000", "5", "1 000 000"});
    }
    void cleanup()
    {
        m_picture.reset();
        m_rig.reset();
    }

    void followsTheSettings()
    {
        QTRY_COMPARE(words(), QString("Sweep of 5 points: 2 MHz to 1 MHz, 0 dBm, 5 s per pass"));
        m_rig->click("power_toFrom_freq");
        QTRY_VERIFY2(words().contains("dBm to"), qPrintable(words()));
        m_rig->panel.sweep().dwell().clear();
        QTRY_COMPARE(words(), QString("The sweep settings define no points"));
        m_rig->click("List_is_Checked");
        QTRY_COMPARE(words(), QString("The list has no points"));
        m_rig->panel.table().setRowCount(2);
        QTRY_COMPARE(words(), QString("List of 2 points: 1 kHz, \u22127 dBm, 2 ms per pass"));
        m_rig->power.setText("3");
        m_rig->panel.table().setItem(1, PointTable::Frequency, new QTableWidgetItem("2M"));
        QTRY_COMPARE(words(), QString("List of 2 points: 1 kHz to 2 MHz, 3 dBm, 2 ms per pass"));
        m_rig->click("List_is_Checked");
        QTRY_VERIFY(words().startsWith("The sweep"));
        // Nothing is read while nobody sees it.
        m_rig->panel.hide();
        m_rig->panel.sweep().dwell().setText("1 000");
        QTest::qWait(0);
        QVERIFY(words().startsWith("The sweep"));
        m_rig->panel.show();
        QTRY_VERIFY(words().startsWith("Sweep of 5 points"));
    }

    /// Where the instrument is, as far as that is known.
    void followsTheRun()
    {
        const auto row = freshRows(this, [this](const QString& clicks, const QString& shown) {
            // So long that no point passes while a busy computer gets to the clicks.
            const QString point = "1 000 000;-10;9 000 000";
            m_rig->fill({point, point, point, point});
            m_rig->demo("clock stop");
            for (const QString& click : clicks.split(' ')) {
                if (click == "row")
                    m_rig->panel.table().setCurrentCell(2, 0);
                else
                    m_rig->click(click);
            }
            const auto* header = m_rig->get<QLabel>("plot_List_header");
            const QString number = header->text().section(' ', 1, 1);
            QCOMPARE(number.toInt() > 0 ? number : header->text(), shown);
            if (number.toInt() > 0)
                QCOMPARE(m_rig->ask("LIST:POIN:CURR?"), number);
            const bool isList = m_rig->panel.runList().isChecked();
            QCOMPARE(m_rig->panel.table().highlightedPoint(), isList ? number.toInt() : 0);
            if (clicks.contains("right"))
                m_rig->disconnect();
            else
                m_rig->panel.stopRuns();
            QCOMPARE(m_rig->panel.table().highlightedPoint(), 0);
            QVERIFY(header->text().startsWith("Points:"));
        });
        const QString triggered = "Runs by external triggers";
        const QString waits = "Waits for the first step";
        row("free", "button_Sweep", "1");
        row("sweep by hand", "time_select button_Sweep", "1");
        row("up", "time_select button_Sweep right_select right_select", "3");
        row("not below the first", "time_select button_Sweep left_select right_select", "2");
        row("from a free run on", "button_Sweep right_select", "2");
        row("list by hand", "time_select button_List", waits);
        row("by a row", "time_select button_List row", "3");
        row("by an arrow", "time_select button_List row rightButton", "4");
        row("list from a free run on", "button_List rightButton", "2");
        row("free again", "ext_select button_Sweep time_select", "1");
        row("by triggers", "ext_select button_Sweep", triggered);
        row("by triggers from now on", "button_Sweep ext_select", triggered);
        // What only makes ready for steps ends the waiting for triggers, too.
        row("made ready", "ext_select button_List right_select", waits);
    }

private:
    QString words() const { return m_rig->panel.plot().accessibleDescription(); }

    std::unique_ptr<SweepRig> m_rig;
    std::unique_ptr<RunPicture> m_picture;
};

QTEST_MAIN(RunPictureTest)
#include "run_picture_test.moc"
