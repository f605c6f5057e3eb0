#pragma once

#include <QObject>
#include <QStringList>

#include <memory>

/// Notices instruments being plugged in and out and lists those present. What to do about it is up
/// to the listener: it knows no connection.
class HotPlugWatch : public QObject
{
    Q_OBJECT

public:
    /// Serial numbers of the instruments present now.
    virtual QStringList presentSerials() const = 0;

    /// A connection has broken: an instrument that is back before the watch has looked again is
    /// reported. A bus that reports every device needs no such hint.
    virtual void noteLoss() {}

signals:
    /// Devices have come or gone, the maker's or others: one signal for a burst of events.
    void devicesChanged();
};

/// The watch over this computer's USB. Never null; where the system reports no devices it stays
/// silent and its list empty.
std::unique_ptr<HotPlugWatch> createBusWatch();
