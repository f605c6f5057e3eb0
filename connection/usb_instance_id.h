#pragma once

#include <QStringList>

/// The USB serial numbers in Windows device IDs ("USB\VID_5645&PID_0041\serial") of the maker's
/// instruments, pair by pair: of each pair first those found among the parents' IDs, then those
/// among the devices' own.
QStringList serialsInInstanceIds(const QStringList& parentIds, const QStringList& ownIds);
