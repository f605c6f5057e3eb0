#include "link/pause.h"
#include "tests/support/rows.h"
#include "tests/sweep/sweep_rig.h"
#include "ui/progress_bar_for_table.h"

#include <memory>

namespace
{
constexpr int shortPauseMs = 200;

/// One list as it goes out, in the blocks "0-32 32-70" of its values.
QStringList listCommands(const QString& name, const QStringList& values, const QString& blocks)
{
    QStringList commands;
    for (const QString& block : blocks.split(' ', Qt::SkipEmptyParts)) {
        const int first = block.section('-', 0, 0).toInt();
        const QStringList part = values.mid(first, block.section('-', 1).toInt() - first);
        commands << "LIST:" + name + (first == 0 ? " " : ":ADD ") + part.join(',') + "~";
    }
    if (commands.isEmpty())
        return {"!"};
    commands.last() += '!';
    return commands;
}

/// All three, of the rows that SweepRig::fillRows makes.
QStringList tableCommands(int rows, const QString& blocks)
{
    QStringList frequencies;
    QStringList powers;
    QStringList dwells;
    for (int row = 0; row < rows; ++row) {
        frequencies << QString("1 %1 000Hz").arg(100 + row);
        powers << QString::number(-(row % 21));
        // 1000 to 1999 microseconds
        const QString digits = QString::number(1000 + row);
        QString seconds = "0.00" + digits;
        while (seconds.endsWith('0'))
            seconds.chop(1);
        dwells << seconds;
    }
    if (rows == 0)
        return {"!!!"};
    return listCommands("FREQ", frequencies, blocks) + listCommands("POW", powers, blocks) +
           listCommands("DWEL", dwells, blocks);
}
} // namespace

/// How the table gets into the instrument.
class ListTransferTest : public QObject
{
    Q_OBJECT

private slots:
    void init() { make(shortPauseMs); }
    void cleanup() { m_rig.reset(); }

    void sizes_data()
    {
        testColumns<int, QString>("rows", "blocks");
        testRow("none", 0, "");
        testRow("one", 1, "0-1");
        testRow("just a block", 32, "0-32");
        testRow("and a rest", 33, "0-32 32-33");
        testRow("two blocks", 64, "0-32 32-64");
        testRow("many", 200, "0-32 32-64 64-96 96-128 128-160 160-192 192-200");
    }
    void sizes()
    {
        QFETCH(int, rows);
        QFETCH(QString, blocks);
        m_rig->fillRows(rows);
        pauses().totalMs = 0;
        QVERIFY(m_rig->transfer.transferTable());
        QCOMPARE(m_rig->sent(), tableCommands(rows, blocks));
        // Behind each block but the first and the rest of a list.
        QCOMPARE(pauses().totalMs, 3 * shortPauseMs * std::max(rows / 32 - 1, 0));
        QVERIFY(m_rig->isTidy());
        for (const char* list : {"FREQ", "POW", "DWEL"})
            QCOMPARE(m_rig->ask(QString("LIST:%1:POIN?").arg(list)).toInt(), rows);
    }

    void cells_data()
    {
        testColumns<QString, QString>("row", "sent");
        testRow("short dwell", "1 000 000;-5;50", "1 000 000Hz|-5|5e-05");
        testRow("grouped dwell", "1 000 000;0;1 000", "1 000 000Hz|0|0.001");
        testRow("six digits", "1 000.5;-5.50;1 234 567.8", "1 000.5Hz|-5.50|1.23457");
        testRow("empty", ";;", "1 000Hz|-7|0.001");
        testRow("formats", "%s %1;%n%lf;%d", "%s %1Hz|%n%lf|0");
    }
    void cells()
    {
        QFETCH(QString, row);
        m_rig->fill({row});
        m_rig->transfer.transferTable();
        QStringList sent = m_rig->sent();
        sent.replaceInStrings(QRegularExpression("^LIST:(FREQ|POW|DWEL) (.*)~!*$"), "\\2");
        QTEST(sent.join('|'), "sent");
        for (int column = 0; column < 3; ++column)
            QCOMPARE(m_rig->panel.table().text(0, column), row.section(';', column, column));
    }

    void barShowsTheProgress()
    {
        make(ListTransfer::usualPauseMs);
        QStringList seen;
        const auto look = [&] {
            PointTable& table = m_rig->panel.table();
            const auto* bar = table.findChild<progressBarForTable*>();
            seen << QString("%1/%2 %3").arg(bar->value()).arg(bar->maximum()).arg(bar->format());
            QCOMPARE(m_rig->panel.cursor().shape(), Qt::WaitCursor);
            table.resize(table.width() + 5, table.height() + 5);
            QCOMPARE(bar->geometry(), table.rect());
        };
        m_rig->panel.table().parentWidget()->show();
        m_rig->fillRows(64);
        m_rig->whenSent("1 132 000Hz", look);
        m_rig->whenSent(",0.001063", look);
        m_rig->transfer.transferTable();
        QCOMPARE(seen, QStringList({"1/6 List 1 of 3, 0:02 left", "3/6 List 3 of 3, 0:01 left"}));
    }

    void uncheckedInAPause_data()
    {
        testColumns<QString, int>("seen", "commands");
        testRow("first", "1 132 000Hz", 2);
        testRow("last of a list", "1 164 000Hz", 3);
        testRow("power", ":POW:ADD", 6);
        testRow("last", "0.001064", 11);
    }
    /// The rest of the list and the lists after it are not sent.
    void uncheckedInAPause()
    {
        QFETCH(QString, seen);
        QFETCH(int, commands);
        m_rig->fillRows(100);
        m_rig->whenSent(seen, [this] {
            const QSignalBlocker quiet(m_rig->panel.runList());
            m_rig->panel.runList().setChecked(false);
        });
        QVERIFY(m_rig->transfer.transferTable());
        QStringList expected = tableCommands(100, "0-32 32-64 64-96 96-100").mid(0, commands);
        expected.last() += '!';
        QCOMPARE(m_rig->sent(), expected);
        QVERIFY(m_rig->isTidy());
    }

    /// The three lists match whatever happens to the table in between.
    void tableChangedInAPause()
    {
        m_rig->fillRows(70);
        m_rig->whenSent("1 132 000Hz", [this] { m_rig->panel.table().setRowCount(3); });
        m_rig->transfer.transferTable();
        QCOMPARE(m_rig->sent(), tableCommands(70, "0-32 32-64 64-70"));
    }

private:
    void make(int pauseMs)
    {
        m_rig.reset();
        m_rig = std::make_unique<SweepRig>(pauseMs);
        // The transfer alone, without the run.
        const QSignalBlocker quiet(m_rig->panel.runList());
        m_rig->panel.runList().setChecked(true);
    }

    std::unique_ptr<SweepRig> m_rig;
};

QTEST_MAIN(ListTransferTest)
#include "list_transfer_test.moc"
