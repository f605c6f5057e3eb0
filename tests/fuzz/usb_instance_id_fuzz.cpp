#include "tests/fuzz/fuzz.h"

#include "connection/usb_instance_id.h"

/// Device IDs as Windows writes them: the first serial asked for is the first of all, none is
/// empty.
void run(Bytes bytes)
{
    QStringList parents;
    QStringList own;
    while (!bytes.isEmpty()) {
        const bool isParent = bytes.byte() % 2 == 0;
        (isParent ? parents : own) << QString::fromStdString(bytes.text());
    }
    const QStringList all = serialsInInstanceIds(parents, own, false);
    const QStringList first = serialsInInstanceIds(parents, own, true);
    PROMISE(first == all.mid(0, 1) && !all.contains(QString()));
}
