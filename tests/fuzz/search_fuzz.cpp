#include "tests/fuzz/fuzz.h"

#include "link/search_klv.h"
#include "link/visa_library.h"

#include <QCoreApplication>

#include <cstring>

namespace
{

Bytes* told = nullptr;
constexpr std::size_t room = VI_FIND_BUFLEN;

/// All of the room, with or without a NUL.
void fill(char* buffer)
{
    const std::string text = told->text();
    std::memset(buffer, 'A', text.size() % 3 == 0 ? room : 0);
    std::memcpy(buffer, text.c_str(), std::min(text.size() + 1, room));
}

} // namespace

/// What a VISA library reports about the resources it finds, with or without an end, stays within
/// its buffers.
void run(Bytes bytes)
{
    static int count = 0;
    static QCoreApplication application(count, nullptr);
    told = &bytes;
    VisaLibrary visa;
    visa.viFindRsrc = [](ViSession, ViConstString, ViPFindList list, ViPUInt32, ViChar* address) {
        *list = 7;
        fill(address);
        return VI_SUCCESS;
    };
    visa.viFindNext = [](ViFindList, ViChar* address) {
        if (told->isEmpty())
            return VI_ERROR_RSRC_NFOUND;
        fill(address);
        return VI_SUCCESS;
    };
    visa.viGetAttribute = [](ViObject, ViAttr, void* value) {
        if (told->byte() % 8 == 0)
            return VI_ERROR_NSUP_ATTR;
        fill(static_cast<char*>(value));
        return VI_SUCCESS;
    };
    const ViSession manager = 1;
    SearchKLV search(visa, manager);
    QObject::connect(
        &search, &SearchKLV::sendData, &search,
        [](const QString& address, const QString& model, const QString& series) {
            PROMISE(address.size() < int(room) && model.size() < int(room) &&
                    series.size() < int(room));
        },
        Qt::DirectConnection);
    search.begin();
    search.wait();
}
