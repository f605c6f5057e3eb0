#include "tests/fuzz/fuzz.h"

#include "connection/usb_instance_id.h"

/// Device IDs as Windows writes them: no serial is empty.
void run(Bytes bytes)
{
    QStringList parents;
    QStringList own;
    while (!bytes.isEmpty()) {
        const bool isParent = bytes.byte() % 2 == 0;
        (isParent ? parents : own) << QString::fromStdString(bytes.text());
    }
    PROMISE(!serialsInInstanceIds(parents, own).contains(QString()));
}
