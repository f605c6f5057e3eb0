#include "sweep/sweep_group.h"
#include "tests/support/rows.h"
#include "tests/sweep/list_bench.h"

#include <QLabel>

class ListPanelTest : public QObject
{
    Q_OBJECT

private slots:
    void limitsBoundFields_data()
    {
        testColumns<bool, QStringList, QStringList>("isPowerSweep", "typed", "bounded");
        testRow("frequency", false, QStringList{"50", "1", "90000000000", "5000", "1"},
                QStringList{"20", "9 000", "20 000 000 000", "5 000", "50"});
        testRow("power", true, QStringList{"1", "-99", "99", "7", "99000000000"},
                QStringList{"9 000", "-30", "20", "7", "1 000 000"});
    }
    void limitsBoundFields()
    {
        QFETCH(bool, isPowerSweep);
        QFETCH(QStringList, typed);
        QFETCH(QStringList, bounded);
        ListBench bench(false);
        bench.setLimits();
        if (isPowerSweep)
            bench.click("power_toFrom_freq");
        const char* const names[] = {"Freq_Pow", "Start", "Stop", "Step", "Time"};
        for (int i = 0; i < typed.size(); ++i) {
            auto& field = bench.get<QLineEdit>(names[i]);
            field.setText(typed.at(i));
            emit field.editingFinished();
            QCOMPARE(field.text(), bounded.at(i));
            QVERIFY(!field.property("edited").toBool());
        }
    }

    void modesKeepTheirValues()
    {
        ListBench bench(false);
        const auto shown = [&] {
            return QStringList{bench.field("Freq_Pow"), bench.field("Start"), bench.field("Stop")}
                .join('|');
        };
        QStringList heard;
        connect(&bench.panel, &List::sweepChanged, [&] { heard << shown(); });
        bench.click("power_toFrom_freq");
        // The three change at once: nobody sees the values of one mode under the other.
        QCOMPARE(heard, QStringList("1 000 000 000|-10|0"));
        QCOMPARE(bench.panel.sweep().valuesAside().start, QString("25 000 000"));
        bench.panel.sweep().valuesAside().start = "30 000 000";
        bench.get<QLineEdit>("Stop").setText("5");
        bench.click("power_toFrom_freq");
        QCOMPARE(shown(), QString("0|30 000 000|1 000 000 000"));
        bench.click("power_toFrom_freq");
        QCOMPARE(shown(), QString("1 000 000 000|-10|5"));
    }

    /// By the buttons of the trigger group, and by the few beside the table.
    void triggers_data()
    {
        testColumns<QString, QString, QString>("clicks", "checked", "status");
        const auto row = [](const char* clicks, const char* checked, const char* status) {
            testRow(clicks, clicks, checked, status);
        };
        row("time_select", "", "Freq -  Pow");
        row("int_select ext_select", "ext_select", "TRIG POINT");
        row("ext_select time_select", "time_select", "Single");
        row("trigMode", "time_select", "Freq -  Pow");
        row("pushButton_Manual pushButton_Manual", "", "Freq -  Pow");
        row("pushButton_Manual pushButton_Auto", "time_select", "Single");
        row("ext_select pushButton_Auto", "ext_select", "TRIG POINT");
        row("int_select modeFront", "int_select", "Single");
        row("leftButton", "", "Freq -  Pow");
        row("int_select rightButton", "", "Freq -  Pow");
    }
    void triggers()
    {
        QFETCH(QString, clicks);
        ListBench bench;
        for (const QString& name : clicks.split(' '))
            bench.click(name);
        QStringList checked;
        for (const char* name : {"time_select", "int_select", "ext_select", "right_select"}) {
            if (bench.get<QPushButton>(name).isChecked())
                checked << name;
        }
        QTEST(checked.join(' '), "checked");
        QTEST(bench.get<QLabel>("lableStatus").text(), "status");
        const bool isManual = bench.panel.trigger().choice() == TriggerChoice::Manual;
        QCOMPARE(bench.get<QPushButton>("pushButton_Manual").isChecked(), isManual);
        QCOMPARE(bench.get<QPushButton>("pushButton_Auto").isChecked(), !isManual);
    }

    void aTriggerControlIsSeenOnce()
    {
        const ListBench bench(false);
        const auto seen = [&] {
            QStringList names;
            for (const char* name : {"time_select", "left_select", "right_select", "leftButton",
                                     "rightButton", "pushButton_Manual", "pushButton_Auto"}) {
                if (bench.get<QPushButton>(name).isVisible())
                    names << name;
            }
            return names.join(' ');
        };
        QCOMPARE(seen(), QString("time_select left_select right_select"));
        bench.click("List_is_Checked");
        QCOMPARE(seen(), QString("time_select leftButton rightButton pushButton_Manual"));
    }

    void oneRunAndItIsSeen()
    {
        ListBench bench(false);
        const std::pair<const char*, QString> steps[] = {
            {"button_Sweep", "S-s-"},    {"List_is_Checked", "---l"}, {"button_List", "-L-l"},
            {"List_is_Checked", "--s-"}, {"button_List", "-L-l"},     {"button_Sweep", "S-s-"}};
        for (const auto& [button, state] : steps) {
            bench.get<QPushButton>(button).click();
            QCOMPARE(QString("%1%2%3%4")
                         .arg(bench.panel.runSweep().isChecked() ? 'S' : '-')
                         .arg(bench.panel.runList().isChecked() ? 'L' : '-')
                         .arg(bench.get<QGroupBox>("Sweep__").isVisible() ? 's' : '-')
                         .arg(bench.get<QGroupBox>("List__").isVisible() ? 'l' : '-'),
                     state);
        }
        QSignalSpy hide(&bench.panel, &SidePanel::hide_);
        bench.panel.autoOff();
        QVERIFY(!bench.panel.isRunning());
        QCOMPARE(hide.size(), 1);
    }

    void highlight()
    {
        ListBench bench;
        QStringList many;
        for (int row = 0; row < 1000; ++row)
            many << "1,2,3";
        bench.setRows(many);
        const auto picture = [&] { return bench.table().viewport()->grab().toImage(); };
        const QImage plain = picture();
        bench.panel.highlightPoint(2);
        QVERIFY(picture() != plain);

        // The table follows the run, unless the user has scrolled away.
        const auto isInView = [&](int row) {
            return bench.table().viewport()->rect().contains(
                bench.table().visualRect(bench.table().model()->index(row, 0)).center());
        };
        bench.panel.highlightPoint(500);
        QVERIFY(isInView(499));
        bench.table().scrollToTop();
        bench.panel.highlightPoint(501);
        QVERIFY(isInView(0));
    }
};

QTEST_MAIN(ListPanelTest)
#include "list_panel_test.moc"
