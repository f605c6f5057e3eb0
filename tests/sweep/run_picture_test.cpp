#include "sweep/picture/list_plot.h"
#include "sweep/run_picture.h"
#include "tests/sweep/sweep_rig.h"

#include <QLabel>
#include <QTest>

namespace
{
constexpr int transferPauseMs = 1;

/// The panel with its picture over the simulated instrument.
struct PictureRig : SweepRig {
    PictureRig() : SweepRig(transferPauseMs)
    {
        picture.follow(sweep, triggers);
        setSweep(5, 1000000);
    }

    void setSweep(int count, int dwellUs)
    {
        panel.sweep().points().setText(QString::number(count));
        panel.sweep().dwell().setText(QString::number(dwellUs));
    }
    QString words() { return panel.plot().accessibleDescription(); }
    QString header() { return panel.findChild<QLabel*>("plot_List_header")->text(); }
    /// The point that the header names, 0 for none.
    int shownPoint() { return header().section(' ', 1, 1).toInt(); }
    int instrumentPoint() { return ask("LIST:POIN:CURR?").toInt(); }

    RunPicture picture{panel, power};
};
} // namespace

class RunPictureTest : public QObject
{
    Q_OBJECT

private slots:
    void followsTheFields();
    void followsTheTable();
    void readsNothingWhileHidden();
    void followsASweepSteppedByHand();
    void followsAListSteppedByHand();
    void followsTheTrigger();
    void forgetsARunThatIsLost();
};

void RunPictureTest::followsTheFields()
{
    PictureRig rig;
    rig.panel.sweep().start().setText("2 000 000");
    rig.panel.sweep().stop().setText("1 000 000");
    rig.setSweep(11, 2000);
    QTRY_COMPARE(rig.words(), QString("Sweep of 11 points: 2 MHz to 1 MHz, 0 dBm, 22 ms per pass"));
    rig.click("power_toFrom_freq");
    QTRY_VERIFY2(rig.words().contains("dBm to"), qPrintable(rig.words()));
    rig.panel.sweep().dwell().clear();
    QTRY_COMPARE(rig.words(), QString("The sweep settings define no points"));
}

void RunPictureTest::followsTheTable()
{
    PictureRig rig;
    rig.click("List_is_Checked");
    QTRY_COMPARE(rig.words(), QString("The list has no points"));
    rig.panel.table().setRowCount(2);
    QTRY_COMPARE(rig.words(), QString("List of 2 points: 1 kHz, \u22127 dBm, 2 ms per pass"));
    rig.power.setText("3");
    rig.panel.table().setItem(1, PointTable::Frequency, new QTableWidgetItem("2M"));
    QTRY_COMPARE(rig.words(), QString("List of 2 points: 1 kHz to 2 MHz, 3 dBm, 2 ms per pass"));
    rig.click("List_is_Checked");
    QTRY_VERIFY(rig.words().startsWith("Sweep"));
}

void RunPictureTest::readsNothingWhileHidden()
{
    PictureRig rig;
    QTRY_VERIFY(rig.words().startsWith("Sweep of 5 points"));
    rig.panel.hide();
    rig.setSweep(9, 1000);
    QTest::qWait(0);
    QVERIFY(rig.words().startsWith("Sweep of 5 points"));
    rig.panel.show();
    QTRY_VERIFY(rig.words().startsWith("Sweep of 9 points"));
}

void RunPictureTest::followsASweepSteppedByHand()
{
    PictureRig rig;
    rig.click("time_select"); // off: by hand
    rig.click("button_Sweep");
    QCOMPARE(rig.shownPoint(), 1);
    QCOMPARE(rig.instrumentPoint(), 1);
    for (const QString step : {"right_select", "right_select", "left_select", "left_select",
                               "left_select", "right_select"}) {
        rig.click(step);
        QCOMPARE(rig.shownPoint(), rig.instrumentPoint());
    }
    QCOMPARE(rig.shownPoint(), 2);

    // A step out of a free run goes on from where that is.
    rig.click("time_select");
    rig.click("right_select");
    QCOMPARE(rig.instrumentPoint(), 3);
    QCOMPARE(rig.shownPoint(), 3);
}

void RunPictureTest::followsAListSteppedByHand()
{
    PictureRig rig;
    rig.click("List_is_Checked time_select");
    rig.fillRows(4);
    rig.click("button_List");
    QCOMPARE(rig.header(), QString("Waits for the first step"));
    rig.panel.table().setCurrentCell(2, 0);
    QCOMPARE(rig.instrumentPoint(), 3);
    QCOMPARE(rig.shownPoint(), 3);
    QCOMPARE(rig.panel.table().highlightedPoint(), 3);
    rig.click("rightButton");
    QCOMPARE(rig.shownPoint(), 4);
    QCOMPARE(rig.instrumentPoint(), 4);
    rig.click("button_List");
    QCOMPARE(rig.panel.table().highlightedPoint(), 0);

    // What only makes ready for steps ends the waiting for triggers, too.
    rig.click("ext_select button_List");
    QCOMPARE(rig.header(), QString("Runs by external triggers"));
    rig.click("right_select");
    QCOMPARE(rig.header(), QString("Waits for the first step"));
}

void RunPictureTest::followsTheTrigger()
{
    PictureRig rig;
    rig.click("button_Sweep");
    QCOMPARE(rig.shownPoint(), 1);
    rig.click("ext_select");
    QCOMPARE(rig.header(), QString("Runs by external triggers"));
    rig.click("time_select");
    QCOMPARE(rig.shownPoint(), 1);
    rig.click("button_Sweep ext_select button_Sweep");
    QCOMPARE(rig.header(), QString("Runs by external triggers"));
}

void RunPictureTest::forgetsARunThatIsLost()
{
    PictureRig rig;
    rig.click("List_is_Checked");
    rig.fillRows(4);
    rig.click("button_List");
    QVERIFY(rig.panel.table().highlightedPoint() > 0);
    rig.disconnect();
    QCOMPARE(rig.panel.table().highlightedPoint(), 0);
    QVERIFY(rig.header().startsWith("Points:"));
}

QTEST_MAIN(RunPictureTest)
#include "run_picture_test.moc"
