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

/// A function of a row's name and cells that calls the check with these, and says in which row it
/// has failed: for tables whose rows need no start of their own.
template <typename Check>
auto namedRows(const Check& check)
{
    return [check](const QString& name, const auto&... cells) {
        const bool hadFailed = QTest::currentTestFailed();
        check(cells...);
        if (!hadFailed && QTest::currentTestFailed())
            qWarning("in row \"%s\"", qUtf8Printable(name));
    };
}

/// The same for rows that have: it cleans up after the one before and begins anew.
template <typename Check>
auto freshRows(QObject* test, const Check& check)
{
    return namedRows([test, check](const auto&... cells) {
        for (const char* step : {"cleanup", "init"}) {
            if (test->metaObject()->indexOfSlot(qPrintable(QString(step) + "()")) >= 0)
                QMetaObject::invokeMethod(test, step);
        }
        check(cells...);
    });
}

/// The same for rows that are called by their first cell.
template <typename Check>
auto freshCases(QObject* test, const Check& check)
{
    return [row = freshRows(test, check)](const QString& first, const auto&... rest) {
        row(first, first, rest...);
    };
}

/// Rows of one column whose name says it all.
inline void testNames(const char* column, std::initializer_list<const char*> names)
{
    QTest::addColumn<QString>(column);
    for (const char* name : names)
        testRow(name, QString(name));
}
