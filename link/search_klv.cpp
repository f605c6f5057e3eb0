#include "link/search_klv.h"

#include "link/visa_library.h"

#include <array>

namespace
{
/// An attribute of the find list's current resource; a library without it is accepted.
struct TextAttribute {
    bool isReadable;
    QString text;

    TextAttribute(const VisaLibrary& visa, ViFindList findList, ViAttr attribute)
    {
        std::array<char, 256> buffer{};
        isReadable = visa.viGetAttribute(findList, attribute, buffer.data()) >= VI_SUCCESS;
        buffer.back() = '\0';
        if (isReadable)
            text = QString::fromLocal8Bit(buffer.data());
    }

    bool rulesOut(const char* word) const
    {
        return isReadable && !text.contains(QLatin1String(word), Qt::CaseInsensitive);
    }
};
} // namespace

SearchKLV::SearchKLV(const VisaLibrary& visa, const ViSession& defaultRM, QObject* parent)
    : QThread(parent), m_visa(visa), m_defaultRM(defaultRM)
{
}

SearchKLV::~SearchKLV()
{
    slotStop();
    wait();
}

void SearchKLV::begin()
{
    // The last signal comes a moment before the thread ends; start() would then do nothing.
    wait();
    m_stop = false;
    start();
}

void SearchKLV::slotStop()
{
    m_stop = true;
}

void SearchKLV::run()
{
    std::array<char, 256> address{};
    ViFindList findList = VI_NULL;
    ViUInt32 count = 0;
    if (m_visa.viFindRsrc(m_defaultRM, "USB?*", &findList, &count, address.data()) < VI_SUCCESS) {
        m_visa.viClose(findList);
        emit error();
        return;
    }
    do {
        if (m_stop) {
            m_visa.viClose(findList);
            return;
        }
        address.back() = '\0';
        reportResource(findList, address.data());
        address.fill('\0');
    } while (m_visa.viFindNext(findList, address.data()) >= VI_SUCCESS);
    m_visa.viClose(findList);
    emit finish();
}

void SearchKLV::reportResource(ViFindList findList, const char* address)
{
    const TextAttribute maker(m_visa, findList, VI_ATTR_MANF_NAME);
    if (maker.rulesOut("veltro"))
        return;
    const TextAttribute model(m_visa, findList, VI_ATTR_MODEL_NAME);
    if (model.rulesOut("KLV"))
        return;
    const TextAttribute serial(m_visa, findList, VI_ATTR_USB_SERIAL_NUM);
    // A serial that reads as empty rules the resource out; one that cannot be read does not.
    if (serial.isReadable && serial.text.isEmpty())
        return;
    emit sendData(QString::fromLatin1(address), model.text, serial.text);
}
