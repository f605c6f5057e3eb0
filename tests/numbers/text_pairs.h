#pragma once

#include <QTest>

/// What the function makes of each text: pairs are written "text=result".
template <typename Function>
void checkPairs(const QStringList& pairs, const Function& function)
{
    for (const QString& pair : pairs) {
        const QString result = function(pair.section('=', 0, 0));
        QVERIFY2(result == pair.section('=', 1), qPrintable(pair + ", not \"" + result + '"'));
    }
}
