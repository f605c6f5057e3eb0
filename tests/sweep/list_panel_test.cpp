#include "sweep/sweep_group.h"
#include "tests/support/rows.h"
#include "tests/sweep/list_bench.h"

#include <QLabel>

class ListPanelTest : public QObject
{
    Q_OBJECT

private slots:
    void limitsBoundFields()
    {
        ListBench bench(false);
        bench.setLimits();
        const auto check = [&bench](const QString& entries) {
            for (const QString& entry : entries.split(", ")) {
                auto& field = bench.get<QLineEdit>(entry.section('=', 0, 0));
                field.setText(entry.section('=', 1, 1));
                emit field.editingFinished();
                QCOMPARE(field.text(), entry.section('=', 2));
                QVERIFY(!field.property("edited").toBool());
            }
        };
        check("Freq_Pow=50=20, Start=1=9 000, Stop=90000000000=20 000 000 000, Step=5000=5 000, "
              "Time=1=50, Time=99000000000=1 000 000");
        bench.click("power_toFrom_freq");
        check("Freq_Pow=1=9 000, Start=-99=-30, Stop=99=20, Step=7=7");
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
    void triggers()
    {
        const auto check = [](const QString& clicks, const QString& checked,
                              const QString& status) {
            ListBench bench;
            for (const QString& name : clicks.split(' '))
                bench.click(name);
            QStringList found;
            for (const char* name : {"time_select", "int_select", "ext_select", "right_select"}) {
                if (bench.get<QPushButton>(name).isChecked())
                    found << name;
            }
            QCOMPARE(found.join(' '), checked);
            QCOMPARE(bench.get<QLabel>("lableStatus").text(), status);
            const bool isManual = bench.panel.trigger().choice() == TriggerChoice::Manual;
            QCOMPARE(bench.get<QPushButton>("pushButton_Manual").isChecked(), isManual);
            QCOMPARE(bench.get<QPushButton>("pushButton_Auto").isChecked(), !isManual);
        };
        check("time_select", "", "Freq -  Pow");
        check("int_select ext_select", "ext_select", "TRIG POINT");
        check("ext_select time_select", "time_select", "Single");
        check("trigMode", "time_select", "Freq -  Pow");
        check("pushButton_Manual pushButton_Manual", "", "Freq -  Pow");
        check("pushButton_Manual pushButton_Auto", "time_select", "Single");
        check("ext_select pushButton_Auto", "ext_select", "TRIG POINT");
        check("int_select modeFront", "int_select", "Single");
        check("leftButton", "", "Freq -  Pow");
        check("int_select rightButton", "", "Freq -  Pow");
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
        bench.setRows(QVector<QString>(1000, "1,2,3").toList());
        // A row is cut off below.
        bench.panel.resize(bench.panel.width(), bench.panel.height() - 10);
        const auto picture = [&] { return bench.table().viewport()->grab().toImage(); };
        const QImage plain = picture();
        bench.panel.highlightPoint(2);
        QVERIFY(picture() != plain);

        // The table follows the run, unless the user has scrolled away.
        const auto isInView = [&](int row) {
            return bench.table().viewport()->rect().contains(
                bench.table().visualRect(bench.table().model()->index(row, 0)));
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
