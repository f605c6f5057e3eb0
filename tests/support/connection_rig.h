#pragma once

#include "connection/connection.h"
#include "connection/gui_list_klv.h"
#include "connection/hot_plug_watch.h"
#include "connection/running_copies.h"
#include "link/scpi_session.h"
#include "link/search_klv.h"
#include "tests/support/demo.h"
#include "tests/support/fields.h"

#include <QtTest>

/// A bus on which a test plugs devices in and out.
class FakeWatch : public HotPlugWatch
{
public:
    QStringList presentSerials() const override { return serials; }
    void tell(const QStringList& present)
    {
        serials = present;
        emit devicesChanged();
    }
    QStringList serials;
};

/// A connection over the simulated instrument, without any window.
class ConnectionRig
{
public:
    ConnectionRig()
    {
        visa.load(Demo::libraryPath().toLocal8Bit().constData());
        session.openResourceManager();
        QObject::connect(&search, &SearchKLV::sendData, &connection, &Connection::showKLVDevice);
        QObject::connect(&search, &SearchKLV::finish, &connection, &Connection::finishVisaSearch);
        QObject::connect(&search, &SearchKLV::error, &connection, &Connection::failVisaSearch);
        QObject::connect(&chooser, &GuiListKLV::sendAddress, &connection,
                         &Connection::slot_connect);
    }
    ~ConnectionRig() { connection.shutDown(); }

    /// Clicks the button and waits until the instrument is ready.
    bool connectDevice()
    {
        QSignalSpy ready(&connection, &Connection::ready);
        connection.on_connect_clicked(true);
        return !ready.isEmpty() || ready.wait();
    }

    Demo demo;
    VisaLibrary visa;
    ScpiSession session{visa};
    Fields fields;
    SearchKLV search{visa, session.defaultRM()};
    GuiListKLV chooser;
    RunningCopies copies;
    FakeWatch watch;
    Connection connection{{session, fields.limits, search, chooser, copies, watch, fields.notices}};
};
