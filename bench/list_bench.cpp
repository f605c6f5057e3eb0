// What long lists cost: opening a file against filling a plain table, and editing one cell.
#include "bench/timing.h"
#include "sweep/list/list_file.h"
#include "sweep/list/point_table.h"
#include "sweep/list_panel.h"
#include "tests/support/fields.h"

#include <QApplication>
#include <QTemporaryDir>

#include <cstdio>

namespace
{
constexpr int fileRows = 100000;
constexpr int editedRows = 10000;

PointRows somePoints(int count)
{
    PointRows points;
    for (int row = 0; row < count; ++row)
        points.push_back({QStringLiteral("2 5%1 000 000").arg(row % 100, 2, 10, QLatin1Char('0')),
                          QString::number(-(row % 30)), QStringLiteral("1 %1").arg(row % 1000)});
    return points;
}

void fillPlainTable(QTableWidget& table, const PointRows& points)
{
    table.setRowCount(static_cast<int>(points.size()));
    for (int row = 0; row < table.rowCount(); ++row) {
        for (int column = 0; column < pointColumnCount; ++column) {
            const PointRow& point = points[static_cast<std::size_t>(row)];
            table.setItem(row, column,
                          new QTableWidgetItem(point[static_cast<std::size_t>(column)]));
        }
    }
}

void measureOpening()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("list.csv"));
    const PointRows points = somePoints(fileRows);
    writeWholeFile(path, listText(points));
    const double plainUs = microsecondsEach(1, [&] {
        QTableWidget table(0, pointColumnCount);
        fillPlainTable(table, points);
    });
    const double openUs = microsecondsEach(1, [&] {
        const Fields fields;
        PointTable table(fields.context);
        table.change({0, 0, readListFile(path).rows}, QString());
    });
    std::printf("filling a plain table:        %7.1f ms  (%d rows)\n", plainUs / 1000.0, fileRows);
    std::printf("opening a list file:          %7.1f ms  (%.2f times, aim 1.5)\n", openUs / 1000.0,
                openUs / plainUs);
}

void measureEditing()
{
    const Fields fields;
    List panel(fields.context);
    panel.show();
    PointTable& table = panel.table();
    table.change({0, 0, somePoints(editedRows)}, QString());
    int edits = 0;
    const double editUs = microsecondsEach(100, [&] {
        table.model()->setData(table.model()->index(editedRows / 2, 0),
                               QString::number(1000000 + ++edits));
    });
    std::printf("editing a cell:               %7.2f us  (of %d rows)\n", editUs, editedRows);
}
} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    measureOpening();
    measureEditing();
    return 0;
}
