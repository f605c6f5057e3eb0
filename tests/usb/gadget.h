#pragma once

#include <QByteArray>
#include <QList>

/// One of the two instruments on the machine's emulated USB, from behind: 0 is a KLV-20G without,
/// 1 a KLV-6G with an interrupt endpoint.
class Gadget
{
public:
    explicit Gadget(int number) : m_number(number) {}

    static QByteArray address(int number)
    {
        return number == 0 ? "USB0::0x5645::0x0040::20215678::INSTR"
                           : "USB0::0x5645::0x0040::1111::INSTR";
    }
    QByteArray address() const { return address(m_number); }

    /// Executes a command of the gadget program; one that it refuses ends the test.
    QByteArray operator()(const QByteArray& command) const;

    /// What came and went since the last call: "> sent", "< answered", "clear".
    QList<QByteArray> takeTranscript() const;

    /// Returns when its node is gone.
    void unplug() const;
    /// Pulls the instrument and plugs it in as at power-on, without mass storage, and waits until
    /// the system is done with it. Nothing is in its transcript.
    void plugInAnew() const;

private:
    void waitForNode(bool isThere) const;

    int m_number;
};
