#include "link/pause.h"
#include "service/calibration_table.h"
#include "service/service_commands.h"
#include "service/service_panel.h"
#include "tests/support/documents_folder.h"
#include "tests/support/files.h"
#include "tests/support/rows.h"
#include "tests/support/wire_rig.h"
#include "ui/progress_bar_for_table.h"
#include "ui/resources.h"

#include <QApplication>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QtTest>

namespace
{
const QStringList opening = {"MEM:TABLE:POIN?\\n", "MEM:TABLE:POINt:ALL?\\n", "MEM:DAC?\\n",
                             "TEMP?\\n"};
const QStringList adding = {"MEM:TABLE:ADD 1000000000 -4\\n", "MEM:TABLE:ADD 2000000000 3\\n",
                            "MEM:TABLE:ADD 3000000000 10\\n"};
const QStringList saving = {"MEM:TABLE:SAVE\\n", "SYSTem:ERRor?\\n"};

/// The service panel and its commands over the simulated instrument, which has three points.
class Bench : public WireRig
{
public:
    Bench()
    {
        loadUiResources();
        QObject::connect(&session, &ScpiSession::connectionFailed, [this] {
            session.close();
            commands.stopWriting();
        });
        demo(QStringLiteral("reply MEM:TABLE:POIN? -> 3"));
        demo(QStringLiteral("reply MEM:TABLE:POINt:ALL? -> 1e9 -4 2e9 3 3e9 10"));
        panel.showInstrument("2021/5678", "2.7.1");
        panel.resize(440, 480);
        panel.show();
        if (!QTest::qWaitForWindowExposed(&panel))
            qFatal("not shown");
        demo.takeTranscript();
    }

    void fill()
    {
        commands.initial_service();
        demo.takeTranscript();
    }
    /// Clicks the button of the table; what that has sent.
    QStringList write()
    {
        QTest::mouseClick(&button(), Qt::LeftButton);
        return demo.takeSent();
    }
    QPushButton& button() { return panel.applyCalibrate(); }
    progressBarForTable* bar() { return panel.findChild<progressBarForTable*>(); }
    QString cells()
    {
        QStringList texts;
        for (int row = 0; row < panel.table().rowCount(); ++row)
            texts << panel.table().item(row, 0)->text() + ' ' + panel.table().item(row, 1)->text();
        return texts.join('|');
    }
    QString messages() { return fields.takeSaid().filter(QRegularExpression(".")).join('|'); }

    /// Opens the cell's editor, types and commits.
    void type(int row, int column, const QString& text)
    {
        CalibrationTable& table = panel.table();
        table.setCurrentCell(row, column);
        table.edit(table.currentIndex());
        QWidget* editor = table.viewport()->findChild<QLineEdit*>();
        if (!editor)
            qFatal("no editor");
        QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(editor, text);
        QTest::keyClick(editor, Qt::Key_Return);
        // The view takes the text later, and lets the editor go later still.
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void click(const char* name)
    {
        QTest::mouseClick(panel.findChild<QWidget*>(name), Qt::LeftButton);
    }
    QString folder() const { return documents.path() + "/Veltro KLV"; }
    QStringList backups() const
    {
        return QDir(folder()).entryList(QDir::Files, QDir::Time | QDir::Reversed);
    }
    /// The rows that are marked as changed, by the texts of their heads.
    QString marks()
    {
        QStringList texts;
        for (int row = 0; row < panel.table().rowCount(); ++row) {
            if (const auto* head = panel.table().verticalHeaderItem(row))
                texts << head->text() + head->toolTip().section(':', 1);
        }
        return texts.join('|');
    }
    void openBackup(const QString& fileName)
    {
        when(
            panel, [] { return qobject_cast<QFileDialog*>(QApplication::activeModalWidget()); },
            [fileName] {
                QWidget* dialog = QApplication::activeModalWidget();
                dialog->findChild<QLineEdit*>("fileNameEdit")->setText(fileName);
                static_cast<QDialog*>(dialog)->accept();
            });
        click("open_backup");
        QTRY_VERIFY(panel.findChild<QFileDialog*>());
        QTRY_VERIFY(!panel.findChild<QFileDialog*>());
        QCoreApplication::processEvents();
    }
    bool isReady()
    {
        return panel.table().isEnabled() && button().isEnabled() && button().text() == "Write" &&
               !button().icon().isNull() && !bar() && !QGuiApplication::overrideCursor();
    }

    QTemporaryDir home;
    DocumentsFolder documents{home.path()};
    service panel{fields.context};
    ServiceCommands commands{session, panel, fields.notices};
    QSignalSpy errors{&commands, &ServiceCommands::errorMessage};
};

struct FilledBench : Bench {
    FilledBench() { fill(); }
};
} // namespace

class ServiceCommandsTest : public QObject
{
    Q_OBJECT

private slots:
    void openingReadsInOrder()
    {
        Bench bench;
        bench.demo("reply MEM:DAC? -> 1 234");
        bench.demo("reply TEMP? -> 36.62");
        const auto* label = bench.panel.findChild<QLabel*>("label_loading");
        bool wasSeen = false;
        QTimer::singleShot(0, &bench.panel, [&] {
            wasSeen = label->isVisible() && !bench.panel.table().isEnabled() &&
                      !bench.button().isEnabled() && !bench.panel.referenceDac().isEnabled();
            // Events in between start nothing of their own.
            bench.commands.initial_service();
            bench.commands.commandCalibrate();
        });
        bench.commands.initial_service();
        QVERIFY(wasSeen && !label->isVisible());
        QCOMPARE(bench.demo.takeSent(), opening);
        QCOMPARE(bench.cells(), QString("1000000000 -4|2000000000 3|3000000000 10"));
        QCOMPARE(bench.panel.referenceDac().text(), QString("1234"));
        QCOMPARE(bench.panel.findChild<QLabel*>("text_temp")->text(), QString("36.6 °C"));
        QCOMPARE(bench.messages(), QString());
        QVERIFY(bench.isReady());
    }

    void failedQueriesLeaveWhatWasShown()
    {
        const auto row =
            namedRows([](const QString& reply, const QString& message, int sentOfTable) {
                FilledBench bench;
                const QString cells = bench.cells();
                const QString dac = bench.panel.referenceDac().text();
                for (const QString& one : reply.split('\n'))
                    bench.demo("reply " + one);
                bench.commands.initial_service();
                QCOMPARE(bench.messages(), message);
                QCOMPARE(bench.demo.takeSent(), opening.mid(0, sentOfTable) + opening.mid(2));
                QCOMPARE(bench.cells(), cells);
                QCOMPARE(bench.panel.referenceDac().text(), dac);
                QVERIFY(bench.panel.findChild<QLabel*>("text_temp")->text().endsWith("°C"));
                QVERIFY(bench.isReady());
            });
        const QString table = "error get calibrate";
        row("count", "MEM:TABLE:POIN? ->", table, 1);
        row("count is none", "MEM:TABLE:POIN? -> many", table, 1);
        row("count is negative", "MEM:TABLE:POIN? -> -1", table, 1);
        row("count is absurd", "MEM:TABLE:POIN? -> 2000000000", table, 1);
        row("points", "MEM:TABLE:POINt:ALL? ->", table, 2);
        row("DAC", "MEM:DAC? ->", "error getting dac", 2);
        row("no number for the DAC", "MEM:DAC? -> none", "error getting dac", 2);
        row("temperature", "TEMP? ->", "error getting temperature", 2);
        row("all", "MEM:TABLE:POIN? ->\nMEM:DAC? ->\nTEMP? ->",
            table + "; error getting dac; error getting temperature", 1);
    }

    void countAndPointsMayDisagree()
    {
        const auto check = [](const char* count, const QString& cells, const char* word) {
            Bench bench;
            bench.demo(QString("reply MEM:TABLE:POIN? -> ") + count);
            bench.commands.initial_service();
            QCOMPARE(bench.cells(), cells);
            QVERIFY(bench.messages().contains(word));
            bench.demo.takeSent();
            // Without a row the table is only saved.
            if (cells.isEmpty())
                QCOMPARE(bench.write(), saving);
        };
        check("2", "1000000000 -4|2000000000 3", "more");
        check("4", "1000000000 -4|2000000000 3|3000000000 10| ", "fewer");
        check("0", "", "more");
    }

    void rubbishIsRefusedBeforeAnythingIsSent()
    {
        const auto check = [](int column, const QString& typed, const QString& message) {
            FilledBench bench;
            bench.type(2, column, typed);
            QCOMPARE(bench.messages(), message);
            QVERIFY(!bench.panel.table().item(2, column)->icon().isNull());
            bench.panel.table().setCurrentCell(0, 0);
            QCOMPARE(bench.write(), QStringList());
            QCOMPARE(bench.messages(), message);
            QCOMPARE(bench.panel.table().currentRow(), 2);
            QCOMPARE(bench.panel.table().currentColumn(), column);
            bench.type(2, column, "5");
            QVERIFY(bench.panel.table().item(2, column)->icon().isNull());
        };
        check(0, "abc", "Row 3, Freq [Hz]: \"abc\" is not a frequency");
        check(1, "1.5", "Row 3, Attenuation at  0 dBm: \"1.5\" is not a whole number");
        check(0, "%1%n", "Row 3, Freq [Hz]: \"%1%n\" is not a frequency");
    }

    void writingSendsEveryRowAndSaves()
    {
        FilledBench bench;
        QStringList seen;
        bench.whenSent("3000000000", [&] {
            seen << bench.button().text() << QString::number(bench.bar()->maximum())
                 << QString::number(bench.bar()->value());
            if (bench.button().icon().isNull() && !bench.panel.table().isEnabled() &&
                QGuiApplication::overrideCursor()->shape() == Qt::WaitCursor)
                seen << "busy";
        });
        pauses().totalMs = 0;
        QTest::mouseClick(&bench.button(), Qt::LeftButton);
        QVERIFY(pauses().totalMs >= 500);
        QCOMPARE(seen.join(' '), QString("Cancel 3 2 busy"));
        QCOMPARE(bench.demo.takeSent(), adding + saving);
        QVERIFY(bench.isReady());
        QVERIFY(bench.messages().contains("stored"));
    }

    void aWriteCanBeTakenBack()
    {
        FilledBench bench;
        QCOMPARE(bench.marks(), QString());
        bench.type(1, CalibrationTable::Frequency, "2.25 GHZ");
        bench.type(1, CalibrationTable::Value, "- 7");
        QCOMPARE(bench.cells(), QString("1000000000 -4|2250000000 -7|3000000000 10"));
        QCOMPARE(bench.marks(), QString("2 * 2 000 000 000 Hz, 3"));
        QCOMPARE(bench.panel.findChild<QLabel*>("label_2")->text(),
                 QString("Points: 3, changed: 1"));
        const QStringList changed = {adding[0], "MEM:TABLE:ADD 2250000000 -7\\n", adding[2]};
        // The table that was read is saved once.
        for (int i = 0; i < 2; ++i) {
            QCOMPARE(bench.write(), changed + saving);
            QCOMPARE(bench.backups().size(), 1);
        }
        const QString name = bench.backups().first();
        const QRegularExpression form(
            "^calibration 2021_5678 \\d{4}(-\\d\\d){2} \\d\\d(-\\d\\d){2}\\.csv$");
        QVERIFY2(form.match(name).hasMatch(), qPrintable(name));
        QVERIFY(bench.messages().contains(name));
        QCOMPARE(bytesOf(bench.folder() + '/' + name),
                 QByteArray("1000000000,-4\n2000000000,3\n3000000000,10\n"));

        bench.demo("reply MEM:TABLE:POINt:ALL? -> 1e9 -4 2.25e9 -7 3e9 10");
        bench.click("reload_table");
        QCOMPARE(bench.demo.takeSent(), opening.mid(0, 2));
        QCOMPARE(bench.cells(), QString("1000000000 -4|2250000000 -7|3000000000 10"));
        QCOMPARE(bench.marks(), QString());
        bench.openBackup(name);
        QCOMPARE(bench.marks(), QString("2 * 2 250 000 000 Hz, -7"));
        QVERIFY(bench.messages().startsWith(name));
        QCOMPARE(bench.demo.takeSent(), QStringList());
        QCOMPARE(bench.write(), adding + saving);
        QCOMPARE(bench.backups().size(), 2);
        QVERIFY(bench.isReady());
        // A failed reading leaves rows and marks.
        bench.demo("reply MEM:TABLE:POINt:ALL? ->");
        bench.click("reload_table");
        QCOMPARE(bench.messages().section('|', -1), QString("error get calibrate"));
        QCOMPARE(bench.marks(), QString("2 * 2 250 000 000 Hz, -7"));
    }

    void whatCannotBeKeptIsNotWrittenOver()
    {
        FilledBench bench;
        const QString inTheWay = writeFile(bench.folder());
        QCOMPARE(bench.write(), QStringList());
        QCOMPARE(bench.errors.size(), 1);
        QVERIFY(bench.errors.first().first().toString().startsWith("Nothing was written: "));
        QVERIFY(bench.isReady());
        QVERIFY(QFile::remove(inTheWay));
        QCOMPARE(bench.write(), adding + saving);
    }

    void onlyTablesAreTakenForBackups()
    {
        const auto row =
            namedRows([](const QByteArray& contents, const QString& said, const QString& cells) {
                FilledBench bench;
                writeFile(bench.folder() + "/given.csv", contents);
                bench.openBackup("given.csv");
                QCOMPARE(bench.cells(), cells);
                for (const QList<QVariant>& error : qAsConst(bench.errors))
                    bench.fields.said << error.first().toString();
                const QString told = bench.messages();
                QVERIFY2(told.startsWith("given.csv") && told.contains(said), qPrintable(told));
                QCOMPARE(bench.panel.table().item(1, 1)->icon().isNull(), bench.errors.size() == 1);
            });
        const QString before = "1000000000 -4|2000000000 3|3000000000 10";
        const QString notOne = " is not a backup of a calibration table: line ";
        row("list of points", QByteArray("1000,5,7\n"), notOne + '1', before);
        row("word", QByteArray("1000,5\n2000,five\n"), notOne + '2', before);
        row("nothing", QByteArray(), " is not a backup", before);
        row("huge", QByteArray(5 << 20, '1'), " cannot be opened: it is too large", before);
        row("cells that cannot be sent", QByteArray("1000000000,-4\r\n2000;\n,1\n9,9\n"),
            "was read: 3", "1000000000 -4|2000 | 1|9 9");
    }

    void cancellingStopsAfterTheRow()
    {
        // The last before the table is saved.
        for (const int rows : {1, 2, 3, 4}) {
            FilledBench bench;
            const auto isThere = [&bench, rows] {
                return rows > 3 ? bench.bar() && bench.bar()->value() == 3
                                : bench.demo("transcript").contains(adding[rows - 1]);
            };
            when(bench.panel, isThere,
                 [&bench] { QTest::mouseClick(&bench.button(), Qt::LeftButton); });
            QCOMPARE(bench.write(), adding.mid(0, rows));
            QVERIFY(bench.isReady());
            QVERIFY(bench.messages().contains("stopped"));
            // Cancelling does not last for ever.
            QCOMPARE(bench.write(), adding + saving);
        }
    }

    void aLostConnectionEndsWriting()
    {
        const auto check = [](const QString& at, const QStringList& sent) {
            FilledBench bench;
            // Back at once: the new connection is not written to.
            bench.whenSent(at, [&bench] {
                bench.session.close();
                bench.commands.stopWriting();
                bench.session.open(QStringLiteral("USB0::0x5645::0x0040::20215678::0::INSTR"));
                bench.session.setConnected();
            });
            QCOMPARE(bench.write(), sent);
            QVERIFY(bench.isReady());

            // A dead cable shows when the errors are asked for.
            bench.demo("unplug");
            bench.messages();
            bench.write();
            QVERIFY(!bench.session.isConnected());
            QVERIFY(!bench.messages().contains("stored in"));
            QVERIFY(bench.isReady());
        };
        check(adding[0], {adding[0]});
        check(adding[2], adding);
        check(saving[1], adding + saving);
    }

    void theEndOfTheProgramEndsWriting()
    {
        FilledBench bench;
        bench.whenSent(adding[1], [] { QCoreApplication::quit(); });
        QTimer::singleShot(0, &bench.panel, [&bench] { bench.button().click(); });
        QCoreApplication::exec();
        QCOMPARE(bench.demo.takeSent(), adding.mid(0, 2));
        QVERIFY(bench.isReady());
    }

    void theDacIsSentAsTyped()
    {
        FilledBench bench;
        QLineEdit& field = bench.panel.referenceDac();
        field.setFocus();
        // Whether the value is possible is decided by the instrument.
        for (const char* value : {"40000", "-12", ""}) {
            field.selectAll();
            QTest::keyClick(&field, Qt::Key_Delete);
            QTest::keyClicks(&field, value);
            QTest::keyClick(&field, Qt::Key_Return);
            const QString sent = *value ? QString("MEM:DAC %1\\n").arg(value) : QString();
            QCOMPARE(bench.demo.takeSent().value(0), sent);
            QCOMPARE(field.property("edited").toBool(), *value == '-');
        }
    }

    void aRefusedTableIsNotCalledStored()
    {
        FilledBench bench;
        bench.demo("error -222");
        QCOMPARE(bench.write().mid(0, 5), adding + saving);
        QVERIFY(!bench.messages().contains("is stored"));
        QVERIFY(bench.isReady());
    }

    void nothingIsSentWhileDisconnected()
    {
        FilledBench bench;
        bench.session.close();
        bench.commands.initial_service();
        QTest::mouseClick(&bench.button(), Qt::LeftButton);
        bench.commands.sendCommandRefOsc();
        QCOMPARE(bench.demo.takeSent(), QStringList());
        QVERIFY(bench.isReady());
    }
};

QTEST_MAIN(ServiceCommandsTest)
#include "service_commands_test.moc"
