#include "link/pause.h"
#include "tests/support/rows.h"
#include "tests/sweep/sweep_rig.h"
#include "ui/progress_bar_for_table.h"

#include <memory>

namespace
{
constexpr int shortPauseMs = 200;

} // namespace

/// How the table gets into the instrument.
class ListTransferTest : public QObject
{
    Q_OBJECT

private slots:
    void init() { make(shortPauseMs); }
    void cleanup() { m_rig.reset(); }

    void sizes()
    {
        const auto row = freshRows(this, [this](int rows, const QString& blocks) {
            m_rig->fillRows(rows);
            pauses().totalMs = 0;
            QVERIFY(m_rig->transfer.transferTable());
            QCOMPARE(sentBlocks(), blocks);
            // Behind each block but the first and the rest of a list.
            QCOMPARE(pauses().totalMs, 3 * shortPauseMs * std::max(rows / 32 - 1, 0));
            QVERIFY(m_rig->isTidy());
            for (const char* list : {"FREQ", "POW", "DWEL"})
                QCOMPARE(m_rig->ask(QString("LIST:%1:POIN?").arg(list)).toInt(), rows);
        });
        row("none", 0, "!!!");
        row("one", 1, "FREQ=1! POW=1! DWEL=1!");
        row("just a block", 32, "FREQ=32! POW=32! DWEL=32!");
        row("and a rest", 33, "FREQ=32+1! POW=32+1! DWEL=32+1!");
        row("two blocks", 64, "FREQ=32+32! POW=32+32! DWEL=32+32!");
        row("many", 135, "FREQ=32+32+32+32+7! POW=32+32+32+32+7! DWEL=32+32+32+32+7!");
    }

    void cells()
    {
        const auto row = namedRows([this](const QString& cells, const QString& sent) {
            m_rig->fill({cells});
            m_rig->transfer.transferTable();
            QStringList values = m_rig->sent();
            values.replaceInStrings(QRegularExpression("^LIST:(FREQ|POW|DWEL) (.*)~!*$"), "\\2");
            QCOMPARE(values.join('|'), sent);
        });
        row("short dwell", "1 000 000;-5;50", "1 000 000Hz|-5|5e-05");
        row("grouped dwell", "1 000 000;0;1 000", "1 000 000Hz|0|0.001");
        row("six digits", "1 000.5;-5.50;1 234 567.8", "1 000.5Hz|-5.50|1.23457");
        row("empty", ";;", "1 000Hz|-7|0.001");
        row("formats", "%s %1;%n%lf;%d", "%s %1Hz|%n%lf|0");
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

    /// The rest of the list and the lists after it are not sent.
    void uncheckedInAPause()
    {
        const auto row = freshRows(this, [this](const QString& seen, const QString& blocks) {
            m_rig->fillRows(100);
            m_rig->whenSent(seen, [this] {
                const QSignalBlocker quiet(m_rig->panel.runList());
                m_rig->panel.runList().setChecked(false);
            });
            QVERIFY(m_rig->transfer.transferTable());
            QCOMPARE(sentBlocks(), blocks);
            QVERIFY(m_rig->isTidy());
        });
        row("first", "1 132 000Hz", "FREQ=32+32!");
        row("last of a list", "1 164 000Hz", "FREQ=32+32+32!");
        row("power", ":POW:ADD", "FREQ=32+32+32+4! POW=32+32!");
        row("last", "0.001064", "FREQ=32+32+32+4! POW=32+32+32+4! DWEL=32+32+32!");
    }

    /// The three lists match whatever happens to the table in between.
    void tableChangedInAPause()
    {
        m_rig->fillRows(70);
        m_rig->whenSent("1 132 000Hz", [this] { m_rig->panel.table().setRowCount(3); });
        m_rig->transfer.transferTable();
        QCOMPARE(sentBlocks(), QString("FREQ=32+32+6! POW=32+32+6! DWEL=32+32+6!"));
    }

private:
    /// "FREQ=32+1!" for each list, where all values are those that SweepRig::fillRows has made.
    QString sentBlocks()
    {
        static const QRegularExpression form("^LIST:(FREQ|POW|DWEL)(:ADD)? (.*)~(!?)$");
        QString blocks;
        int row = 0;
        for (const QString& command : m_rig->sent()) {
            const QRegularExpressionMatch match = form.match(command);
            if (!match.hasMatch())
                return command;
            if (match.captured(2).isEmpty()) {
                row = 0;
                blocks += (blocks.isEmpty() ? "" : " ") + match.captured(1);
            }
            const QStringList values = match.captured(3).split(',');
            for (const QString& value : values) {
                const QStringList cells = SweepRig::rowText(row++).split(';');
                const QMap<QString, QString> wanted = {
                    {"FREQ", cells.at(0) + "Hz"},
                    {"POW", cells.at(1)},
                    {"DWEL", QString::number(cells.at(2).toDouble() / 1e6)}};
                if (value != wanted[match.captured(1)])
                    return QString("%1 in row %2").arg(command).arg(row);
            }
            blocks += (match.captured(2).isEmpty() ? "=" : "+") + QString::number(values.size()) +
                      match.captured(4);
        }
        return blocks;
    }
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
