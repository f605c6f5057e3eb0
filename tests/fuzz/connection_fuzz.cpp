#include "tests/fuzz/fuzz.h"

#include "connection/connection.h"
#include "connection/gui_list_klv.h"
#include "connection/hot_plug_watch.h"
#include "connection/running_copies.h"
#include "link/instrument_limits.h"
#include "link/notices.h"
#include "link/scpi_session.h"
#include "link/search_klv.h"
#include "tests/fuzz/told_replies.h"

#include <QApplication>
#include <QPushButton>

namespace
{

class NoWatch : public HotPlugWatch
{
public:
    QStringList presentSerials(bool) const override { return {}; }
};

ViStatus KLV_VISA_FIXED openAnything(ViSession, ViConstRsrc, ViAccessMode, ViUInt32,
                                     ViPSession session)
{
    *session = 5;
    return VI_SUCCESS;
}

} // namespace

/// Connecting to an instrument with any name, mode, identity, calibration date and limits: it ends,
/// and shutting down leaves no connection.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static int count = 0;
    static QApplication application(count, nullptr);

    Bytes bytes(data, size);
    const QString address = QString::fromStdString(bytes.text());
    const QString model = QString::fromStdString(bytes.text());
    const QString serial = QString::fromStdString(bytes.text());
    tellReply = [&bytes](std::string& text) {
        text = bytes.isEmpty() ? "0,\"No error\"\n" : bytes.text();
        return VI_SUCCESS;
    };
    ToldLibrary visa;
    visa.viOpen = openAnything;
    ScpiSession session(visa);
    InstrumentLimits limits;
    SearchKLV search(visa, session.defaultRM());
    static GuiListKLV chooser;
    RunningCopies copies;
    NoWatch watch;
    Notices notices;
    Connection connection({session, limits, search, chooser, copies, watch, notices});
    QString said;
    const auto hear = [&](const StatusWords& words) { said = words(); };
    QObject::connect(&connection, &Connection::failed, hear);
    QObject::connect(&connection, &Connection::lost, hear);
    QObject::connect(&connection, &Connection::identified, [&](const InstrumentIdentity& who) {
        said = who.model + who.serial + who.firmware;
    });
    QObject::connect(&chooser, &GuiListKLV::sendAddress, &connection, &Connection::slot_connect);
    chooser.reset(nullptr);
    chooser.createButton(address, model + '\n' + serial);
    chooser.chooseOnly();
    connection.shutDown();
    PROMISE(!session.isConnected());
    return 0;
}
