#include "app/end_requests.h"
#include "app/main_window.h"
#include "app/start_options.h"

#include <QApplication>
#include <QIcon>
#include <QTextCodec>

#include <clocale>

int main(int argc, char* argv[])
{
    // Nothing here draws with OpenGL; looking for it would cost a third of the start-up time.
    if (!qEnvironmentVariableIsSet("QT_XCB_GL_INTEGRATION"))
        qputenv("QT_XCB_GL_INTEGRATION", "none");
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    QCoreApplication::setOrganizationName(QStringLiteral("Veltro"));
    QCoreApplication::setApplicationName(QStringLiteral("KLV"));
    QCoreApplication::setApplicationVersion(QStringLiteral(KLV_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral(KLV_DESKTOP_ID));

    QApplication application(argc, argv);
    // The VISA library writes "%lf" by this locale: with a decimal comma it would not be a number.
    std::setlocale(LC_NUMERIC, "C");
    if (QTextCodec* codec = QTextCodec::codecForName("UTF-8"))
        QTextCodec::setCodecForLocale(codec);

    int exitCode = 0;
    {
        // Outlives the window, which may need some time to hand the instrument back.
        std::unique_ptr<EndRequests> endRequests;
        MainWindow window(StartOptions::fromCommandLine());
        QApplication::setWindowIcon(QIcon(QStringLiteral(":/images/logotip.png")));
        window.start();
        // Only the event loop can be ended; before it nothing is connected.
        endRequests = createEndRequests();
        QObject::connect(endRequests.get(), &EndRequests::requested, &window,
                         &MainWindow::endProgram);
        exitCode = QApplication::exec();
    }
    // The VISA loader is deleted by a deferred deletion.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return exitCode;
}
