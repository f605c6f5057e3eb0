#include "tests/usb/gadget.h"

#include <QFile>
#include <QProcess>
#include <QtTest>

#include <algorithm>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

QByteArray Gadget::operator()(const QByteArray& command) const
{
    const int client = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    const QByteArray path = "/tmp/gadget" + QByteArray::number(m_number);
    std::copy(path.begin(), path.end(), address.sun_path);
    if (connect(client, reinterpret_cast<sockaddr*>(&address), sizeof address) < 0 ||
        write(client, command.constData(), static_cast<size_t>(command.size())) != command.size())
        qFatal("no gadget %d", m_number);
    shutdown(client, SHUT_WR);
    QByteArray answer;
    char buffer[65536];
    for (ssize_t count = 0; (count = read(client, buffer, sizeof buffer)) > 0;)
        answer.append(buffer, static_cast<int>(count));
    close(client);
    if (answer.startsWith("error:"))
        qFatal("gadget \"%s\": %s", command.constData(), answer.constData());
    return answer;
}

QList<QByteArray> Gadget::takeTranscript() const
{
    QList<QByteArray> lines = (*this)("transcript").split('\n');
    lines.removeLast();
    (*this)("clear");
    return lines;
}

void Gadget::waitForNode(bool isThere) const
{
    const QString node = QStringLiteral("/dev/usbtmc%1").arg(m_number);
    constexpr int longestMs = 200000;
    if (!QTest::qWaitFor([&] { return QFile::exists(node) == isThere; }, longestMs))
        qFatal("%s does not %s", qPrintable(node), isThere ? "come" : "go");
}

void Gadget::unplug() const
{
    (*this)("unplug");
    waitForNode(false);
}

void Gadget::plugInAnew() const
{
    unplug();
    (*this)(m_number == 0 ? "instruments [20215678]\nmodel=KLV-20G\n"
                          : "instruments [1111]\nmodel=KLV-6G\n");
    (*this)("plug");
    waitForNode(true);
    QProcess::execute(QStringLiteral("udevadm"), {QStringLiteral("settle")});
    takeTranscript();
}
