#pragma once

class QTableView;

/// Where a pixel of the table is more than one of the screen, Qt leaves gaps in its grid whenever
/// it draws a part of it. From now on all of it is drawn after each part.
void keepGridWhole(QTableView& table);
