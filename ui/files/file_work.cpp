#include "ui/files/file_work.h"

#include "ui/named.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QFileInfo>
#include <QProgressDialog>
#include <QPushButton>
#include <QThread>
#include <QTimer>

#include <utility>

namespace
{
constexpr int silentMs = 500;
constexpr int refreshMs = 100;
/// Between two steps the work checks whether it has been cancelled.
constexpr int lastStepMs = 300;
constexpr int steps = 1000;

QString translated(const char* text)
{
    return QCoreApplication::translate("FileWork", text);
}

class Worker : public QThread
{
public:
    explicit Worker(std::function<void()> work) : m_work(std::move(work)) {}

protected:
    void run() override { m_work(); }

private:
    std::function<void()> m_work;
};

void setUp(QProgressDialog& dialog, const QString& what)
{
    dialog.setObjectName(QStringLiteral("FileProgress"));
    dialog.setWindowModality(Qt::ApplicationModal);
    dialog.setMinimumDuration(0);
    dialog.setAutoReset(false);
    dialog.setAutoClose(false);
    dialog.setLabelText(what);
    auto* cancel = named(
        "cancel", new QPushButton(translated(QT_TRANSLATE_NOOP("FileWork", "Cancel")), &dialog));
    cancel->setAccessibleName(cancel->text());
    cancel->setToolTip(
        translated(QT_TRANSLATE_NOOP("FileWork", "Cancel; no file is changed (Esc)")));
    dialog.setCancelButton(cancel);
}

void show(QProgressDialog& dialog, const FileProgress& progress)
{
    const qint64 total = progress.total;
    // Without a total the bar only shows that the work continues.
    dialog.setMaximum(total > 0 ? steps : 0);
    dialog.setValue(total > 0 ? static_cast<int>(progress.done * steps / total) : 0);
}

/// Until the work is done, it is cancelled, or the program is being ended.
void showUntilOver(Worker& worker, QWidget* window, const QString& what,
                   const FileProgress& progress)
{
    QProgressDialog dialog(window);
    setUp(dialog, what);
    QEventLoop loop;
    QObject::connect(&worker, &QThread::finished, &loop, &QEventLoop::quit);
    QObject::connect(&dialog, &QProgressDialog::canceled, &loop, &QEventLoop::quit);
    QTimer refresh;
    QObject::connect(&refresh, &QTimer::timeout, &dialog, [&] { show(dialog, progress); });
    refresh.start(refreshMs);
    show(dialog, progress);
    dialog.show();
    if (!worker.isFinished())
        loop.exec();
}
} // namespace

bool waitForFileWork(QWidget* window, const QString& what,
                     const std::shared_ptr<FileProgress>& progress,
                     const std::function<void()>& work)
{
    auto worker = std::make_unique<Worker>(work);
    worker->start();
    if (worker->wait(silentMs))
        return true;
    showUntilOver(*worker, window, what, *progress);
    progress->isCancelled = !worker->isFinished();
    if (worker->wait(lastStepMs))
        return true;
    // The system call does not return: nothing depends on its end any more.
    Worker* const abandoned = worker.release();
    QObject::connect(abandoned, &QThread::finished, abandoned, &QObject::deleteLater);
    if (abandoned->isFinished())
        abandoned->deleteLater();
    return false;
}

QString readingWords(const QString& path)
{
    return translated(QT_TRANSLATE_NOOP("FileWork", "Reading %1")).arg(QFileInfo(path).fileName());
}

FileOutcome writeBeside(QWidget* window, const QString& path, const QByteArray& bytes)
{
    const QString words = translated(QT_TRANSLATE_NOOP("FileWork", "Saving %1"));
    const auto work = [path, bytes](FileProgress* progress) {
        return writeWholeFile(path, bytes, progress);
    };
    return fileWork<FileOutcome>(window, words.arg(QFileInfo(path).fileName()), work)
        .value_or(FileOutcome{FileFault::Cancelled});
}
