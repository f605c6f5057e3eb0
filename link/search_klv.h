#pragma once

#include "visa/visa.h"

#include <QThread>

#include <atomic>

class VisaLibrary;

/// The device search, on a thread of its own. Walks the VISA resources on USB and reports the
/// maker's instruments; opens none of them. Uses only the resource manager and its own find list.
class SearchKLV : public QThread
{
    Q_OBJECT

public:
    SearchKLV(const VisaLibrary& visa, const ViSession& defaultRM, QObject* parent = nullptr);

    /// Stops the search and waits for the thread.
    ~SearchKLV() override;

    /// Starts a new search.
    void begin();

signals:
    /// An instrument: its VISA resource, model name and USB serial number (empty if unreadable).
    void sendData(const QString& address, const QString& model, const QString& series);
    /// The list of resources has been walked to its end.
    void finish();
    /// Nothing to walk: no VISA library, or no resource on USB.
    void error();

public slots:
    /// Ends the search before its next resource, without a signal.
    void slotStop();

protected:
    void run() override;

private:
    void reportResource(ViFindList findList, const char* address);

    const VisaLibrary& m_visa;
    const ViSession& m_defaultRM;
    std::atomic<bool> m_stop{false};
};
