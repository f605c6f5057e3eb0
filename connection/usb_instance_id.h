#pragma once

#include <QStringList>

/// The USB serial number in a Windows device ID ("USB\VID_5645&PID_0041\serial") that has the
/// maker's vendor ID and `productId`; empty for any other ID.
QString serialInInstanceId(const QString& instanceId, const char* productId);

/// The serial numbers of the maker's instruments, pair by pair: of each pair first those found
/// among the parents' IDs, then those among the devices' own. With `firstOnly` one at most.
QStringList serialsInInstanceIds(const QStringList& parentIds, const QStringList& ownIds,
                                 bool firstOnly);
