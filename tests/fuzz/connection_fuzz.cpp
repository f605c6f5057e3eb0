#include "tests/fuzz/fuzz.h"

#include "numbers/field_kind.h"
#include "tests/fuzz/told_replies.h"
#include "tests/support/connection_rig.h"

#include <QApplication>

#include <cmath>

/// Connecting to an instrument with any name, mode, identity, calibration date and limits: it ends,
/// every limit is finite and bounds a field, and shutting down leaves no connection.
void run(Bytes bytes)
{
    static int count = 0;
    static QApplication application(count, nullptr);

    const QString address = QString::fromStdString(bytes.text());
    const QString model = QString::fromStdString(bytes.text());
    const QString serial = QString::fromStdString(bytes.text());
    tellReply = [&bytes](std::string& text) {
        text = bytes.isEmpty() ? "0,\"No error\"\n" : bytes.text();
        return VI_SUCCESS;
    };
    ToldLibrary visa;
    visa.viOpen = [](ViSession, ViConstRsrc, ViAccessMode, ViUInt32, ViPSession opened) {
        *opened = 5;
        return VI_SUCCESS;
    };
    ScpiSession session(visa);
    InstrumentLimits limits;
    SearchKLV search(visa, session.defaultRM());
    static GuiListKLV chooser;
    RunningCopies copies;
    FakeWatch watch;
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
    chooser.reset();
    chooser.createButton(address, model + '\n' + serial);
    chooser.chooseOnly();
    for (int i = 0; i < quantityCount; ++i) {
        const auto quantity = static_cast<Quantity>(i);
        const Range& range = limits[quantity];
        PROMISE(std::isfinite(range.min) && std::isfinite(range.max));
        clampText(QStringLiteral("1.5"), range.min, range.max, fieldKind(quantity));
    }
    connection.shutDown();
    PROMISE(!session.isConnected());
}
