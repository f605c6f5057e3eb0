#pragma once

#include <QTest>

/// The columns of a test's table, first to last.
template <typename... Types, typename... Names>
void testColumns(Names... names)
{
    static_assert(sizeof...(Types) == sizeof...(Names), "one name for each column");
    (QTest::addColumn<Types>(names), ...);
}

/// One row of it: how it is called, and what stands in the columns.
template <typename... Cells>
void testRow(const char* tag, const Cells&... cells)
{
    QTestData& row = QTest::newRow(tag);
    (row << ... << cells);
}

template <typename... Cells>
void testRow(const QString& tag, const Cells&... cells)
{
    testRow(qPrintable(tag), cells...);
}

/// Rows of one column whose name says it all.
inline void testNames(const char* column, std::initializer_list<const char*> names)
{
    QTest::addColumn<QString>(column);
    for (const char* name : names)
        testRow(name, QString(name));
}
