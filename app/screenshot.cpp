#include "app/screenshot.h"

#include "connection/connection.h"

#include <QTimer>
#include <QWidget>

namespace
{
constexpr int settleMs = 400;
}

void saveScreenshotOnceSettled(QWidget& window, const Connection& connection, const QString& path)
{
    auto* settled = new QTimer(&window);
    settled->setSingleShot(true);
    settled->setInterval(settleMs);
    QObject::connect(&connection, &Connection::busyChanged, settled, [settled](bool isBusy) {
        if (isBusy)
            settled->stop();
        else
            settled->start();
    });
    QObject::connect(settled, &QTimer::timeout, &window, [&window, settled, path] {
        settled->deleteLater();
        if (!window.grab().save(path))
            qWarning("The picture could not be saved as %s", qUtf8Printable(path));
    });
}
